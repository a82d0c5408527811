#include <gtest/gtest.h>

#include "drill2d/resources.h"
#include "support/framework_fixture.h"

namespace {

constexpr int kWidth = 100, kHeight = 60;

// The image over black.
uint32_t Source(int x, int y) {
    return x >= 0 && y >= 0 && x < kWidth && y < kHeight ? test::Pattern(x, y) : 0xFF000000;
}

using SpritePixelsTest = FrameworkTest;

TEST_F(SpritePixelsTest, FlipsMirrorAndRenderExTurnsClockwiseRoundTheHotSpot) {
    hge::Image image = test::MakePicture(kWidth, kHeight, test::Pattern);
    std::string reason;
    ASSERT_TRUE(hge::WriteImage(hge_->Resource_MakePath("pixels.png"), image, &reason)) << reason;
    CGameSprite sprite("pixels.png");
    auto expect = [&](const char* name, float turn, const std::function<uint32_t(int, int)>& pixel) {
        EXPECT_TRUE(test::SamePicture(name, Picture([&] { sprite.RenderEx(200, 100, turn, 1, 1); }),
                                      test::MakePicture(800, 600, pixel),
                                      {1, "turned coordinates are rounded"}));
    };
    sprite.SetHotSpot(10, 20);
    expect("sprite_turned", 1.57079633f, [](int x, int y) { return Source(y - 90, 219 - x); });
    sprite.SetFlip(true, false, true);
    expect("sprite_flip_x", 0, [](int x, int y) { return Source(kWidth - 1 - (x - 110), y - 80); });
    sprite.SetFlip(false, true, false);
    expect("sprite_flip_y", 0, [](int x, int y) { return Source(x - 190, kHeight - 1 - (y - 80)); });
}

}  // namespace
