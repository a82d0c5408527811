#pragma once

#include <cstdint>

namespace hge {

inline uint16_t Get16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | p[1] << 8);
}

inline uint32_t Get32(const uint8_t* p) {
    return Get16(p) | static_cast<uint32_t>(Get16(p + 2)) << 16;
}

}  // namespace hge
