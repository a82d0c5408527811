#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "graphics/geometry.h"

namespace hge {

// A texture's pixels in main memory: what locks work on and what the device gets its copy from.
class PixelShadow {
 public:
    PixelShadow() = default;
    // Transparent black.
    PixelShadow(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<size_t>(width) * height) {}
    PixelShadow(int width, int height, std::vector<uint32_t> pixels)
        : width_(width), height_(height), pixels_(std::move(pixels)) {}

    int width() const { return width_; }
    int height() const { return height_; }
    const uint32_t* Pixel(int x, int y) const { return pixels_.data() + static_cast<size_t>(y) * width_ + x; }
    bool locked() const { return locked_; }

    // Address of the area's first pixel; width or height 0 reach to the edge.
    // Null when the area leaves the texture or a lock is open.
    uint32_t* Lock(bool read_only, int left, int top, int width, int height);
    // What the lock could have changed; empty after a lock for reading. False without a lock.
    bool Unlock(Box* changed);

 private:
    int width_ = 0, height_ = 0;
    std::vector<uint32_t> pixels_;
    bool locked_ = false;
    Box writing_;
};

// A picture of half the size, at least one pixel a side; colours count by their alpha.
PixelShadow Halved(const PixelShadow& shadow);

}  // namespace hge
