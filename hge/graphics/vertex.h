#pragma once

#include <cstdint>

namespace hge {

// What callers hand in: the layout of hgeVertex.
struct Vertex {
    float x, y, z;
    uint32_t color;  // 0xAARRGGBB
    float tx, ty;
};

// What the vertex shader reads, 28 bytes.
struct DeviceVertex {
    float x, y, z;
    uint32_t color;
    float u, v;
    uint32_t mode;  // bytes: array slice, alpha blend factor, colour add factor, 0
};
static_assert(sizeof(Vertex) == 24 && sizeof(DeviceVertex) == 28);

constexpr uint32_t kModeAlphaBlend = 255u << 8;
constexpr uint32_t kModeColorAdd = 255u << 16;

// Where a texture's 0..1 coordinates lie in the texture array that holds it.
struct Placement {
    float u_scale = 1, v_scale = 1, u_offset = 0, v_offset = 0;
    uint32_t slice = 0;
};

}  // namespace hge
