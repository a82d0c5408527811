#pragma once

#include <cstddef>
#include <cstdint>

namespace hge {

// Whether the tables of a set-up packet, the third of a stream, are all there and have a code each: the
// decoder reads what is not there for one without.
bool HasSaneTables(const uint8_t* packet, size_t size);

}  // namespace hge
