#include "graphics/pixel_shadow.h"

#include <algorithm>
#include <utility>

namespace hge {

uint32_t* PixelShadow::Lock(bool read_only, int left, int top, int width, int height) {
    if (locked_ || left < 0 || top < 0 || left >= width_ || top >= height_) return nullptr;
    if (width == 0) width = width_ - left;
    if (height == 0) height = height_ - top;
    if (width < 0 || height < 0 || width > width_ - left || height > height_ - top) return nullptr;
    locked_ = true;
    writing_ = read_only ? Box{} : Box{left, top, left + width, top + height};
    return pixels_.data() + static_cast<size_t>(top) * width_ + left;
}

bool PixelShadow::Unlock(Box* changed) {
    *changed = writing_;
    writing_ = {};
    return std::exchange(locked_, false);
}

namespace {

uint32_t Average(const uint32_t (&colors)[4]) {
    uint32_t alpha = 0;
    for (uint32_t color : colors)
        alpha += color >> 24;
    uint32_t average = (alpha + 2) / 4 << 24;
    for (int shift : {0, 8, 16}) {
        uint32_t sum = 0;
        for (uint32_t color : colors)
            sum += (color >> shift & 0xFF) * (color >> 24);
        if (alpha) average |= (sum + alpha / 2) / alpha << shift;
    }
    return average;
}

}  // namespace

PixelShadow Halved(const PixelShadow& shadow) {
    int width = std::max(shadow.width() / 2, 1);
    int height = std::max(shadow.height() / 2, 1);
    std::vector<uint32_t> pixels;
    pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            int right = std::min(2 * x + 1, shadow.width() - 1);
            int below = std::min(2 * y + 1, shadow.height() - 1);
            pixels.push_back(Average({*shadow.Pixel(2 * x, 2 * y), *shadow.Pixel(right, 2 * y),
                                      *shadow.Pixel(2 * x, below), *shadow.Pixel(right, below)}));
        }
    return {width, height, std::move(pixels)};
}

}  // namespace hge
