#pragma once

#include <cstdint>

namespace hge {

enum class BlockFormat { kBc1, kBc2, kBc3 };

constexpr uint32_t BlockBytes(BlockFormat format) {
    return format == BlockFormat::kBc1 ? 8 : 16;
}

// One block of 4 x 4 pixels, 0xAARRGGBB, row by row.
void DecodeBlock(BlockFormat format, const uint8_t* block, uint32_t pixels[16]);

}  // namespace hge
