#include "drill2d/resources.h"
#include "hgeanim.h"
#include "support/recording_test.h"

using testing::ElementsAre;

namespace {

class AnimationTest : public RecordingTest {
 protected:
    AnimationTest() {
        Recording().files["strip.png"] = "image";
        Recording().image_width = 400;
        Recording().image_height = 50;
        CGameResourceManager* manager = CGameResourceManager::getInstance();
        manager->AttachHge(&Recording());
        manager->AttachPacket("x.zip");
        manager->SetCurPacket("x.zip");
    }
    ~AnimationTest() override { CGameResourceManager::getInstance()->FreePacketResource("x.zip"); }

    // The frames shown by Play and n updates of one frame's time.
    static std::vector<int> Frames(CGameAnimation& animation, int n) {
        std::vector<int> frames;
        animation.Play();
        for (int i = 0; i < n; ++i) {
            animation.Update(1.0f / 8);
            frames.push_back(animation.GetFrame());
        }
        return frames;
    }

    char strip_[10] = "strip.png";
};

TEST_F(AnimationTest, EmptyOnesIgnoreEverything) {
    CGameAnimation animation;
    animation.Play();
    animation.Update(1);
    animation.Render(0, 0);
    animation.SetFrame(3);
    animation.SetSpeed(5);
    EXPECT_FALSE(animation.IsPlaying());
    EXPECT_TRUE(animation.GetFrames() == 0 && animation.GetSpeed() == 0 && Recording().quads.empty());
}

TEST_F(AnimationTest, WhatCannotBeLoadedLeavesItEmpty) {
    char missing[] = "missing.png";
    CGameAnimation animation(strip_, 8, 8, 0, 0);
    EXPECT_EQ(animation.GetFrames(), 8);
    EXPECT_FALSE(animation.LoadAniImage(nullptr, 8, 8, 0, 0));
    EXPECT_EQ(animation.GetFrames(), 8) << "no name, nothing changes";
    EXPECT_FALSE(animation.LoadAniImage(missing, 8, 8, 0, 0));
    EXPECT_EQ(animation.GetFrames(), 0) << "the old one is gone";

    Recording().missing.insert(missing);
    EXPECT_TRUE(animation.loadAniTex(missing, 2, 8, 16, 16)) << "an animation over no texture";
    EXPECT_EQ(animation.GetTexture(), 0u);
    EXPECT_FALSE(animation.loadAniTex(nullptr, 2, 8, 16, 16));
    EXPECT_TRUE(animation.LoadAniImage(strip_, 0, 8, 0, 0)) << "no frames: survives";
}

TEST_F(AnimationTest, FrameSizesAreDerivedOnlyWhenBothAreZero) {
    CGameAnimation derived(strip_, 8, 8, 0, 0);
    EXPECT_TRUE(derived.GetWidth() == 50 && derived.GetHeight() == 50);
    CGameAnimation flat(strip_, 8, 8, 0, 20);
    EXPECT_TRUE(flat.GetWidth() == 0 && flat.GetHeight() == 20);
}

TEST_F(AnimationTest, PlaysTheStripInItsMode) {
    CGameAnimation animation(strip_, 3, 8, 50, 50);
    EXPECT_THAT(Frames(animation, 5), ElementsAre(0, 1, 2, 0, 1));
    animation.SetMode(HGEANIM_REV | HGEANIM_NOLOOP);
    EXPECT_EQ(animation.GetFrame(), 2);
    EXPECT_THAT(Frames(animation, 5), ElementsAre(2, 1, 0, 0, 0));
    EXPECT_FALSE(animation.IsPlaying());
    animation.Resume();
    EXPECT_TRUE(animation.IsPlaying());
    EXPECT_EQ(animation.GetFrame(), 0) << "where it was, not at the start";
    animation.Stop();
    EXPECT_FALSE(animation.IsPlaying());
}

TEST_F(AnimationTest, StateIsReadBackAsTheHostSetIt) {
    CGameAnimation animation(strip_, 8, 8, 0, 0);
    animation.SetSpeed(10);
    EXPECT_FLOAT_EQ(animation.GetSpeed(), 10);
    animation.SetZ(0.5f, -1);
    EXPECT_EQ(animation.GetZ(), 0) << "cut to a whole number";
    animation.SetHotSpot(25, 10);
    hgeRect box;
    EXPECT_EQ(animation.GetBoundingBox(100, 100, &box), &box);
    EXPECT_THAT(Edges(box), ElementsAre(75, 90, 125, 140));
    animation.SetFrame(3);
    animation.SetTextureRect(8, 0, 40, 50);
    animation.Render(25, 10);
    EXPECT_FLOAT_EQ(Recording().quads[0].v[0].tx, (8 + 3 * 40) / 400.0f)
        << "frames count from the new origin";
}

}  // namespace
