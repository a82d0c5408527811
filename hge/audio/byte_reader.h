#pragma once

#include <cstddef>
#include <cstdint>

namespace hge {

inline uint16_t Little16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | p[1] << 8);
}

inline uint32_t Little32(const uint8_t* p) {
    return Little16(p) | static_cast<uint32_t>(Little16(p + 2)) << 16;
}

inline uint32_t Big32(const uint8_t* p) {
    return static_cast<uint32_t>(p[0]) << 24 | static_cast<uint32_t>(p[1]) << 16 |
           static_cast<uint32_t>(p[2]) << 8 | p[3];
}

}  // namespace hge
