#include <gtest/gtest.h>

#include "drill2d/resources.h"
#include "support/framework_fixture.h"
#include "support/picture.h"

namespace {

constexpr int kWidth = 100, kHeight = 60;
constexpr uint32_t kBlack = 0xFF000000;

// The image over black.
uint32_t Source(int x, int y) {
    return x >= 0 && y >= 0 && x < kWidth && y < kHeight ? test::Pattern(x, y) : kBlack;
}

class SpritePixelsTest : public FrameworkTest {
 protected:
    void SetUp() override {
        hge::Image image = test::MakePicture(kWidth, kHeight, test::Pattern);
        std::string reason;
        ASSERT_TRUE(hge::WriteImage(hge_->Resource_MakePath("pixels.png"), image, &reason)) << reason;
        ASSERT_TRUE(sprite_.LoadImageA("pixels.png", true));
    }

    void Expect(const char* name, const std::function<void()>& draw,
                const std::function<uint32_t(int, int)>& pixel, const test::Tolerance& tolerance = {}) {
        EXPECT_TRUE(test::SamePicture(name, Picture(draw), test::MakePicture(800, 600, pixel), tolerance));
    }

    CGameSprite sprite_;
};

const test::Tolerance kRounded{1, "colours are multiplied in floating point"};

TEST_F(SpritePixelsTest, TheHotSpotAndFlipsMoveAndMirror) {
    sprite_.SetHotSpot(10, 20);
    Expect(
        "sprite_hot_spot", [&] { sprite_.Render(200, 100); },
        [](int x, int y) { return Source(x - 190, y - 80); });
    sprite_.SetFlip(true, false, true);
    Expect(
        "sprite_flip_x", [&] { sprite_.Render(200, 100); },
        [](int x, int y) { return Source(kWidth - 1 - (x - 110), y - 80); });
    sprite_.SetFlip(false, true, false);
    Expect(
        "sprite_flip_y", [&] { sprite_.Render(200, 100); },
        [](int x, int y) { return Source(x - 190, kHeight - 1 - (y - 80)); });
}

TEST_F(SpritePixelsTest, RenderExTurnsClockwiseAndScales) {
    sprite_.SetHotSpot(50, 30);
    // A quarter turn: what was right comes below.
    Expect(
        "sprite_quarter_turn", [&] { sprite_.RenderEx(300, 200, 1.57079633f, 1, 1); },
        [](int x, int y) { return Source(y - 150, kHeight - 1 - (x - 270)); }, kRounded);
    hge_->System_SetState(HGE_TEXTUREFILTER, false);
    Expect(
        "sprite_doubled", [&] { sprite_.RenderEx(300, 200, 0, 2, 0); },
        [](int x, int y) { return x < 200 || y < 140 ? kBlack : Source((x - 200) / 2, (y - 140) / 2); });
    hge_->System_SetState(HGE_TEXTUREFILTER, true);
}

TEST_F(SpritePixelsTest, StretchAndFourCornersCoverWhatTheyAreGiven) {
    hge_->System_SetState(HGE_TEXTUREFILTER, false);
    auto half = [](int x, int y) {
        return x < 10 || y < 10 || x >= 310 || y >= 70 ? kBlack : Source((x - 10) / 3, y - 10);
    };
    Expect(
        "sprite_stretch", [&] { sprite_.RenderStretch(10, 10, 310, 70); }, half);
    Expect(
        "sprite_corners", [&] { sprite_.Render4V(10, 10, 310, 10, 310, 70, 10, 70); }, half);
    hge_->System_SetState(HGE_TEXTUREFILTER, true);
}

TEST_F(SpritePixelsTest, ColoursAndBlendModesApply) {
    sprite_.SetColor(0xFF8040FF, -1);
    auto tinted = [](uint32_t pixel) {
        auto times = [](uint32_t a, uint32_t b) { return (a * b + 127) / 255; };
        return kBlack | times(pixel >> 16 & 255, 0x80) << 16 | times(pixel >> 8 & 255, 0x40) << 8 |
               (pixel & 255);
    };
    Expect(
        "sprite_tint", [&] { sprite_.Render(0, 0); }, [&](int x, int y) { return tinted(Source(x, y)); },
        kRounded);
    sprite_.SetColor(0xFFFFFFFF, -1);
    sprite_.SetBlendMode(BLEND_COLORMUL | BLEND_ALPHAADD);
    Expect(
        "sprite_add",
        [&] {
            sprite_.Render(0, 0);
            sprite_.Render(0, 0);
        },
        [&](int x, int y) {
            uint32_t sum = kBlack;
            for (int shift : {0, 8, 16})
                sum |= std::min(2 * (Source(x, y) >> shift & 255), 255u) << shift;
            return sum;
        },
        kRounded);
}

TEST_F(SpritePixelsTest, ASubRectangleShowsThatPart) {
    sprite_.SetTextureRect(20, 10, 30, 40, true);
    Expect(
        "sprite_part", [&] { sprite_.Render(5, 6); },
        [](int x, int y) {
            bool inside = x >= 5 && y >= 6 && x < 35 && y < 46;
            return inside ? Source(x - 5 + 20, y - 6 + 10) : kBlack;
        });
}

}  // namespace
