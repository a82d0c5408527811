#pragma once

#include <cstdint>

#include "resources/image.h"

namespace hge {

// What an image may measure: beyond it no graphics device can show one.
constexpr int kMaxImageSide = 16384;
constexpr int64_t kMaxImagePixels = int64_t{1} << 26;

// Also false for sides that are not positive.
inline bool IsImageSize(int64_t width, int64_t height) {
    return width > 0 && height > 0 && width <= kMaxImageSide && height <= kMaxImageSide &&
           width * height <= kMaxImagePixels;
}

// A picture without size is empty; pixels are transparent black.
inline void Reset(Image* image, int width, int height) {
    image->width = width;
    image->height = height;
    image->pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
}

inline uint32_t PackColor(uint32_t a, uint32_t r, uint32_t g, uint32_t b) {
    return a << 24 | r << 16 | g << 8 | b;
}

// Spreads a channel of bits (1 to 8) over 0..255.
inline uint32_t Widen(uint32_t value, int bits) {
    uint32_t max = (1u << bits) - 1;
    return ((value & max) * 255 + max / 2) / max;
}

inline bool IsOpaque(const Image& image) {
    for (uint32_t pixel : image.pixels)
        if (pixel >> 24 != 255) return false;
    return true;
}

// Many writers leave the alpha channel zero when they mean an opaque picture.
inline void MakeVisible(Image* image) {
    for (uint32_t pixel : image->pixels)
        if (pixel >> 24) return;
    for (uint32_t& pixel : image->pixels)
        pixel |= 0xFF000000;
}

}  // namespace hge
