#include "drill2d/resources.h"
#include "hgeanim.h"
#include "support/recording_test.h"

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

TEST_F(AnimationTest, PassesItsStateOn) {
    CGameAnimation animation(strip_, 3, 8, 50, 50);
    animation.SetMode(HGEANIM_REV | HGEANIM_NOLOOP);
    animation.Play();
    animation.Stop();
    EXPECT_TRUE(!animation.IsPlaying() && animation.GetFrame() == 2);
    animation.Resume();
    animation.Update(0);
    EXPECT_TRUE(animation.IsPlaying() && animation.GetFrame() == 2);
    animation.SetZ(0.5f, -1);
    EXPECT_EQ(animation.GetZ(), 0) << "cut to a whole number";
}

}  // namespace
