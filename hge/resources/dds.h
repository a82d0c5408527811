#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "resources/image.h"

namespace hge {

// The first surface of a DDS file: 8 to 32 bits by masks, or BC1, BC2, BC3. False with the reason on failure.
bool DecodeDds(const uint8_t* bytes, size_t size, Image* image, std::string* reason);

}  // namespace hge
