#pragma once

#include <cstddef>
#include <cstdint>

namespace flash {

// Pixels are 0xAARRGGBB. A frame is larger than the fastest memory: what counts is how often it is gone
// through.

void Fill(uint32_t* picture, uint32_t color, size_t pixels);

// Copies a picture and leaves black.
void TakeAway(uint32_t* picture, uint32_t* copy, size_t pixels);

// Writes the alpha that the two drawings of a frame differ by into over_black: 255 - (red over white - red
// over black), modulo 256. Only red is compared. The result goes to copy, too, unless that is null.
void RebuildAlpha(uint32_t* over_black, const uint32_t* over_white, uint32_t* copy, size_t pixels);

}  // namespace flash
