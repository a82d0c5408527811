#include "hgeanim.h"

#include <cmath>
#include <limits>

#include "support/recording_test.h"

using testing::ElementsAre;

namespace {

class AnimationTest : public RecordingTest {
 protected:
    // The frames shown by the first Update and one Update a frame time after it, "." once it has stopped.
    static std::string Show(hgeAnimation* animation, int updates) {
        std::string shown;
        for (int i = 0; i < updates && animation->IsPlaying(); ++i) {
            animation->Update(0.125f);
            shown += animation->IsPlaying() ? std::to_string(animation->GetFrame()) : ".";
        }
        return shown;
    }

    static std::string Play(int mode, int frames, int updates) {
        hgeAnimation animation(0, frames, 8, 0, 0, 10, 10);
        animation.SetMode(mode);
        animation.Play();
        return Show(&animation, updates);
    }

    // Left and top of the drawn part in pixels.
    static std::vector<float> Part(const hgeAnimation& animation) {
        const hgeVertex& v = animation.GetQuad().v[0];
        return {v.tx * 256, v.ty * 128};
    }

    HTEXTURE strip_ = Recording().AddTexture(256, 128, 200, 100);
};

TEST_F(AnimationTest, NonsenseNeitherHangsNorCrashes) {
    for (int frames : {0, -3, std::numeric_limits<int>::min(), 1, std::numeric_limits<int>::max()})
        for (float fps : {0.0f, -5.0f, 1e30f, std::numeric_limits<float>::infinity(), std::nanf("")})
            for (int mode = 0; mode < 8; ++mode) {
                if (frames > 1 && !(mode & HGEANIM_LOOP) && fps > 1e20f) continue;
                hgeAnimation animation(strip_, frames, fps, 0, 0, 0, 0);
                animation.SetMode(mode);
                animation.Play();
                animation.Update(1);
                animation.Update(frames > 1 ? 1e-25f : 1e30f);
                animation.Update(-1);
                animation.Update(std::nanf(""));
                animation.SetFrame(std::numeric_limits<int>::min());
                EXPECT_GE(animation.GetFrame(), 0);
                EXPECT_LT(animation.GetFrame(), std::max(frames, 1));
            }
}

TEST_F(AnimationTest, EveryModeShowsItsFramesInOrder) {
    EXPECT_EQ(Play(HGEANIM_FWD | HGEANIM_LOOP, 4, 7), "0123012");
    EXPECT_EQ(Play(HGEANIM_FWD, 4, 9), "0123.");
    EXPECT_EQ(Play(HGEANIM_REV | HGEANIM_LOOP, 4, 7), "3210321");
    EXPECT_EQ(Play(HGEANIM_REV, 4, 9), "3210.");
    EXPECT_EQ(Play(HGEANIM_PINGPONG | HGEANIM_LOOP, 4, 10), "0123210123");
    EXPECT_EQ(Play(HGEANIM_PINGPONG, 4, 12), "0123210.");
    EXPECT_EQ(Play(HGEANIM_REV | HGEANIM_PINGPONG | HGEANIM_LOOP, 4, 10), "3210123210");
    EXPECT_EQ(Play(HGEANIM_REV | HGEANIM_PINGPONG, 4, 12), "3210123.");
    EXPECT_EQ(Play(HGEANIM_PINGPONG, 1, 5), "00.");
    EXPECT_EQ(Play(HGEANIM_PINGPONG | HGEANIM_LOOP, 2, 5), "01010");
}

TEST_F(AnimationTest, StaysOnTheLastFrameWhenItHasStoppedAndGoesOnWhenResumed) {
    hgeAnimation animation(0, 4, 8, 0, 0, 10, 10);
    animation.Play();
    EXPECT_EQ(Show(&animation, 3), "012");
    animation.Stop();
    animation.Update(5);
    EXPECT_EQ(animation.GetFrame(), 2);
    animation.Resume();
    EXPECT_EQ(Show(&animation, 3), "301");
    animation.SetMode(HGEANIM_FWD);
    animation.Play();
    EXPECT_EQ(Show(&animation, 10), "0123.");
    EXPECT_EQ(animation.GetFrame(), 3);
}

TEST_F(AnimationTest, TheFirstUpdateShowsTheFirstFrameHoweverLongItTook) {
    hgeAnimation animation(0, 4, 8, 0, 0, 10, 10);
    animation.Play();
    const std::pair<float, int> steps[] = {{100, 0}, {0.0625f, 0}, {0.0625f, 1}, {0.25f, 3}};
    for (auto [seconds, frame] : steps) {
        animation.Update(seconds);
        EXPECT_EQ(animation.GetFrame(), frame);
    }
}

TEST_F(AnimationTest, ALongPauseLandsWhereEveryStepWouldHave) {
    for (int mode : {HGEANIM_LOOP, HGEANIM_REV | HGEANIM_LOOP, HGEANIM_PINGPONG | HGEANIM_LOOP}) {
        hgeAnimation stepped(0, 5, 8, 0, 0, 10, 10), leapt(0, 5, 8, 0, 0, 10, 10);
        for (hgeAnimation* animation : {&stepped, &leapt}) {
            animation->SetMode(mode);
            animation->Play();
            animation->Update(0);
        }
        Show(&stepped, 1014);
        leapt.Update(1014 * 0.125f);
        EXPECT_EQ(leapt.GetFrame(), stepped.GetFrame()) << "mode " << mode;
    }
}

TEST_F(AnimationTest, SetModeGoesToItsFirstFrameAndFramesWrap) {
    hgeAnimation animation(0, 4, 8, 0, 0, 10, 10);
    animation.SetMode(HGEANIM_REV);
    EXPECT_EQ(animation.GetFrame(), 3);
    animation.SetMode(HGEANIM_FWD);
    for (auto [set, frame] : {std::pair{0, 0}, {6, 2}, {-1, 3}}) {
        animation.SetFrame(set);
        EXPECT_EQ(animation.GetFrame(), frame);
    }
}

TEST_F(AnimationTest, FramesRunRightAndWrapAtTheSourceWidth) {
    // 200 pixels of source hold four frames of 50 a row, though the created texture has room for five.
    hgeAnimation animation(strip_, 8, 8, 0, 0, 50, 50);
    auto part = [&](int frame) {
        animation.SetFrame(frame);
        return Part(animation);
    };
    EXPECT_THAT(part(3), ElementsAre(150, 0));
    EXPECT_THAT(part(4), ElementsAre(0, 50));
    EXPECT_THAT(part(7), ElementsAre(150, 50));
    animation.SetTextureRect(90, 10, 50, 40);
    EXPECT_TRUE(animation.GetFrame() == 7 && animation.GetHeight() == 40);
    EXPECT_THAT(Part(animation), ElementsAre(50, 90));
    EXPECT_THAT(part(1), ElementsAre(140, 10));
    EXPECT_THAT(part(2), ElementsAre(0, 50));
}

TEST_F(AnimationTest, FlipAndTextureKeepTheCurrentFrame) {
    hgeAnimation animation(strip_, 4, 8, 0, 0, 50, 50);
    animation.SetFrame(2);
    animation.SetFlip(true, false);
    EXPECT_THAT(Part(animation), ElementsAre(150, 0));
    animation.SetFlip(false, false);
    EXPECT_THAT(Part(animation), ElementsAre(100, 0));
    animation.SetTexture(Recording().AddTexture(256, 128, 100, 100));
    EXPECT_EQ(animation.GetFrame(), 2);
    EXPECT_THAT(Part(animation), ElementsAre(0, 50));
}

}  // namespace
