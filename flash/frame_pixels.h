#pragma once

#include <cstddef>
#include <cstdint>

namespace flash {

// Pixels are 0xAARRGGBB. Writes the alpha that the two drawings of a frame differ by into over_black:
// 255 - (red over white - red over black), modulo 256. Only red is compared.
void RebuildAlpha(uint32_t* over_black, const uint32_t* over_white, size_t pixels);

// Copies rows of width pixels from a picture without padding into one with dst_stride pixels a row.
void CopyRows(uint32_t* dst, size_t dst_stride, const uint32_t* src, size_t width, size_t height);

}  // namespace flash
