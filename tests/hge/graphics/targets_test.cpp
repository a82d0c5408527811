// Render targets, and the depth that a screen or a target may have.
#include "hge/graphics/renderer_fixture.h"

namespace test {

using testing::HasSubstr;

constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kBlue = 0xFF0000FF;

class TargetsTest : public RendererTest {
 protected:
    // A front quad, then one behind it to the right, then a front one without depth of its own.
    static void DrawInDepth() {
        auto quad = [](float x, float z, DWORD color, int blend) {
            hgeQuad drawn = Quad(x, 0, 20, 10, 0, color, blend);
            for (hgeVertex& corner : drawn.v)
                corner.z = z;
            gfx().RenderQuad(&drawn);
        };
        quad(0, 0.3f, kRed, BLEND_DEFAULT_Z);
        quad(10, 0.7f, kBlue, BLEND_DEFAULT_Z);
        quad(25, 0.3f, 0xFF00FF00, BLEND_DEFAULT);
        quad(28, 0.7f, kRed, BLEND_DEFAULT_Z);
    }
};

TEST_F(TargetsTest, TheirPictureIsDrawnUprightAndBlankAfterALostDevice) {
    HTARGET target = gfx().CreateTarget(100, 60, false);
    HTEXTURE texture = gfx().TargetTexture(target);
    EXPECT_EQ(gfx().TextureWidth(texture, false), 100);
    EXPECT_EQ(gfx().TextureHeight(texture, false), 60);
    HTEXTURE pattern = MakePattern(100, 60);
    DrawInto(target, [&] { DrawQuad(0, 0, 100, 60, pattern); });
    hge::Image screen = Screen([&] { DrawQuad(20, 30, 100, 60, texture); });
    EXPECT_TRUE(SamePicture("target", screen, MakePicture(320, 240, [](int x, int y) {
                                bool inside = x >= 20 && x < 120 && y >= 30 && y < 90;
                                return inside ? Pattern(x - 20, y - 30) : 0xFF000000;
                            })));
    gfx().LoseDevice();
    EXPECT_TRUE(gfx().Present());
    EXPECT_EQ(At(Screen([&] { DrawQuad(0, 0, 16, 16, texture); }, kBlue), 5, 5), kBlue) << "blank";
    DrawInto(
        target, [] {}, kRed);
    EXPECT_EQ(At(Screen([&] { DrawQuad(0, 0, 16, 16, texture); }, kBlue), 5, 5), kRed);
    gfx().FreeTarget(target);
    EXPECT_EQ(gfx().TextureWidth(texture, false), 0) << "its texture ends with it";
}

TEST_F(TargetsTest, WhatIsTransparentThereIsTransparentOnTheScreen) {
    HTARGET target = gfx().CreateTarget(40, 10, false);
    auto draw = [] {
        DrawQuad(0, 0, 20, 10, 0, 0x80FF0000);
        DrawQuad(10, 0, 20, 10, 0, 0x800000FF);
        DrawQuad(30, 0, 10, 10, 0, 0x80FFFFFF, BLEND_ALPHAADD);
    };
    DrawInto(target, draw);
    hge::Image direct = Screen(draw, 0xFF406020);
    hge::Image through = Screen([&] { DrawQuad(0, 0, 40, 10, gfx().TargetTexture(target)); }, 0xFF406020);
    EXPECT_TRUE(SamePicture("target_alpha", through, direct, {2, "rounded once more on the way"}));

    DrawInto(
        target, [] {}, 0x80FF0000);
    hge::Image cleared = Screen([&] { DrawQuad(0, 0, 40, 10, gfx().TargetTexture(target)); });
    EXPECT_NEAR(static_cast<int>(At(cleared, 5, 5) >> 16 & 0xFF), 0x80, 1);
    hge::Image faded = Screen([&] { DrawQuad(0, 0, 40, 10, gfx().TargetTexture(target), 0x80FFFFFF); });
    EXPECT_NEAR(static_cast<int>(At(faded, 5, 5) >> 16 & 0xFF), 0x40, 1);
    gfx().FreeTarget(target);
}

TEST_F(TargetsTest, TheirTextureIsTheirs) {
    HTARGET target = gfx().CreateTarget(16, 16, false);
    HTEXTURE texture = gfx().TargetTexture(target);
    EXPECT_EQ(gfx().LockTexture(texture, true, 0, 0, 0, 0), nullptr);
    EXPECT_THAT(LogText(), HasSubstr("a target's texture cannot be locked"));
    gfx().FreeTexture(texture);
    EXPECT_EQ(gfx().TargetTexture(target), texture);
    DrawInto(target, [&] { DrawQuad(0, 0, 16, 16, texture); });
    EXPECT_THAT(LogText(), HasSubstr("a target cannot be drawn into itself"));
    EXPECT_EQ(Counters().targets, 1u);

    ASSERT_TRUE(gfx().BeginScene(target));
    DrawQuad(0, 0, 5, 5, 0);
    gfx().FreeTarget(target);
    EXPECT_TRUE(gfx().BeginScene(0)) << "the scene ended with its target";
}

TEST_F(TargetsTest, OnlyThoseWithDepthSortByIt) {
    hge::Image screen = Screen(DrawInDepth);
    EXPECT_EQ(At(screen, 15, 5), kBlue);
    EXPECT_EQ(At(screen, 35, 5), kRed);

    HTARGET target = gfx().CreateTarget(320, 240, true);
    DrawInto(target, DrawInDepth, 0xFF000000);
    screen = Screen([&] { DrawQuad(0, 0, 320, 240, gfx().TargetTexture(target)); });
    EXPECT_EQ(At(screen, 15, 5), kRed) << "the blue quad lies behind";
    EXPECT_EQ(At(screen, 27, 5), 0xFF00FF00);
    EXPECT_EQ(At(screen, 35, 5), kRed) << "the green quad left no depth";
    gfx().FreeTarget(target);
}

class DepthScreenTest : public TargetsTest {
 protected:
    static void SetUpTestSuite() { StartRenderer(true); }
};

TEST_F(DepthScreenTest, TheScreenSortsByDepthAndAClearResetsIt) {
    for (int frame = 0; frame < 2; ++frame) {
        hge::Image screen = Screen(DrawInDepth);
        EXPECT_EQ(At(screen, 5, 5), kRed);
        EXPECT_EQ(At(screen, 15, 5), kRed);
        EXPECT_EQ(At(screen, 22, 5), kBlue);
        EXPECT_EQ(At(screen, 35, 5), kRed);
    }
    hge::Image screen = Screen([] {
        hgeQuad quad = Quad(0, 0, 20, 10, 0, kRed, BLEND_DEFAULT_Z);
        gfx().RenderQuad(&quad);
        DrawQuad(0, 0, 20, 10, 0, kBlue, BLEND_DEFAULT_Z);
        for (hgeVertex& corner : quad.v)
            corner.z = 5;
        gfx().RenderQuad(&quad);
    });
    EXPECT_EQ(At(screen, 5, 5), kBlue) << "equal depth draws over, the farthest plane does not";
}

}  // namespace test
