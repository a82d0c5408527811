#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "resources/image.h"

namespace hge {

// 24 bits a pixel for an opaque image, else 32 with alpha.
std::vector<uint8_t> EncodeBmp(const Image& image);

// Puts the alpha of a 32-bit BMP file into the image decoded from it: common decoders drop it.
// All zero means opaque. Leaves the image as it is when the file has no alpha.
void ApplyBmpAlpha(const uint8_t* bytes, size_t size, Image* image);

}  // namespace hge
