#include "flash/frame_pixels.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

std::vector<uint32_t> RandomPixels(size_t count) {
    static std::mt19937 random(20);
    std::vector<uint32_t> pixels(count);
    for (uint32_t& pixel : pixels)
        pixel = random();
    return pixels;
}

TEST(FramePixels, AlphaIsTheRedDifferenceInEverySize) {
    for (size_t count = 0; count < 70; ++count) {
        std::vector<uint32_t> black = RandomPixels(count + 1), white = RandomPixels(count);
        std::vector<uint32_t> expected = black;
        for (size_t i = 0; i < count; ++i) {
            int alpha =
                (static_cast<int>(black[i] >> 16 & 255) - static_cast<int>(white[i] >> 16 & 255) - 1) & 255;
            expected[i] = static_cast<uint32_t>(alpha) << 24 | (black[i] & 0xFFFFFF);
        }
        std::vector<uint32_t> alone = black, copy = RandomPixels(count + 1), copied = expected;
        copied[count] = copy[count];
        flash::RebuildAlpha(alone.data(), white.data(), nullptr, count);
        ASSERT_EQ(alone, expected) << count << " pixels";
        flash::RebuildAlpha(black.data(), white.data(), copy.data(), count);
        ASSERT_EQ(black, expected) << count << " pixels";
        ASSERT_EQ(copy, copied) << count << " pixels";
    }
}

TEST(FramePixels, ATakenPictureLeavesBlackInEverySize) {
    for (size_t count = 0; count < 20; ++count) {
        std::vector<uint32_t> picture = RandomPixels(count + 1), copy = RandomPixels(count + 1);
        std::vector<uint32_t> taken = picture, black(count + 1);
        taken[count] = copy[count];
        black[count] = picture[count];
        flash::TakeAway(picture.data(), copy.data(), count);
        ASSERT_EQ(copy, taken) << count << " pixels";
        ASSERT_EQ(picture, black) << count << " pixels";
    }
}

}  // namespace
