#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "resources/image.h"

namespace test {

// How far a channel may be off, and why that is right.
struct Tolerance {
    int per_channel = 0;
    std::string reason;
};

// A picture computed pixel by pixel.
hge::Image MakePicture(int width, int height, const std::function<uint32_t(int x, int y)>& pixel);

// Of a file in any format that the framework reads.
hge::Image ReadPicture(const std::string& path);

inline uint32_t At(const hge::Image& picture, int x, int y) {
    return picture.pixels.at(static_cast<size_t>(y) * picture.width + x);
}

// Opaque, each pixel different from its neighbours.
uint32_t Pattern(int x, int y);

// Succeeds when every channel of every pixel is within the tolerance. Otherwise the folder "pictures" below
// the working folder keeps NAME-actual.png, NAME-expected.png and NAME-difference.png, and the message names
// them.
testing::AssertionResult SamePicture(const std::string& name, const hge::Image& actual,
                                     const hge::Image& expected, const Tolerance& tolerance = {});

}  // namespace test
