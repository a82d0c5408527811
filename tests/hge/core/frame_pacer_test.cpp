#include "core/frame_pacer.h"

#include <gtest/gtest.h>

namespace {

using hge::FramePacer;

constexpr int64_t kSecond = 1'000'000;
constexpr int64_t kFrame = kSecond / 50;

FramePacer Started(int fps) {
    FramePacer pacer(kSecond);
    pacer.SetFps(fps);
    pacer.Restart(0);
    return pacer;
}

TEST(FramePacer, WithoutALimitAFrameIsAlwaysDue) {
    for (int fps : {0, -1, -1000}) {
        FramePacer pacer = Started(fps);
        pacer.BeginFrame(5);
        EXPECT_EQ(pacer.DueTime(6), 6) << fps;
    }
    FramePacer pacer = Started(50);
    EXPECT_EQ(pacer.DueTime(0), 0);
    pacer.BeginFrame(0);
    pacer.SetFps(10);
    EXPECT_EQ(pacer.DueTime(1), kSecond / 10) << "a new limit holds from the next frame";
}

TEST(FramePacer, LateFramesDoNotShiftTheOnesAfterThem) {
    FramePacer pacer = Started(50);
    int64_t now = 0;
    for (int i = 0; i < 500; ++i) {
        now = pacer.DueTime(now) + (i % 3) * 700;
        pacer.BeginFrame(now);
    }
    EXPECT_EQ(pacer.DueTime(now), 500 * kFrame);
}

TEST(FramePacer, AfterAStallFramesAreNotMadeUpFor) {
    FramePacer pacer = Started(50);
    pacer.BeginFrame(0);
    pacer.BeginFrame(10 * kFrame + 7);
    EXPECT_EQ(pacer.DueTime(10 * kFrame + 7), 11 * kFrame + 7);
}

TEST(FramePacer, AClockThatWasSetBackWaitsOneFrameAtMost) {
    FramePacer pacer = Started(50);
    pacer.BeginFrame(100 * kSecond);
    EXPECT_EQ(pacer.DueTime(3), 3 + kFrame);
    pacer.BeginFrame(3);
    EXPECT_EQ(pacer.delta(), 0);
    EXPECT_FLOAT_EQ(pacer.time(), 0.02f) << "the frame before, which was too long to count as it was";
}

TEST(FramePacer, DeltaIsTheRealTimeUpToAFifthOfASecond) {
    FramePacer pacer = Started(50);
    pacer.BeginFrame(30'000);
    EXPECT_FLOAT_EQ(pacer.delta(), 0.03f);
    pacer.BeginFrame(230'000);
    EXPECT_FLOAT_EQ(pacer.delta(), 0.2f);
    pacer.BeginFrame(430'001);
    EXPECT_FLOAT_EQ(pacer.delta(), 0.02f);
    EXPECT_FLOAT_EQ(pacer.time(), 0.25f);

    FramePacer unlimited = Started(0);
    unlimited.BeginFrame(kSecond);
    EXPECT_FLOAT_EQ(unlimited.delta(), 1.0f / 60);
}

TEST(FramePacer, ResumeLeavesOutTheTimeInBetween) {
    FramePacer pacer = Started(50);
    pacer.BeginFrame(kFrame);
    pacer.Resume(kFrame + 150'000);
    pacer.BeginFrame(kFrame + 151'000);
    EXPECT_FLOAT_EQ(pacer.delta(), 0.001f);
    EXPECT_FLOAT_EQ(pacer.time(), 0.021f);
}

TEST(FramePacer, CountsTheFramesOfTheLastSecond) {
    FramePacer pacer = Started(0);
    for (int64_t now = 25'000; now <= kSecond; now += 25'000) {
        EXPECT_EQ(pacer.fps(), 0);
        pacer.BeginFrame(now);
    }
    EXPECT_EQ(pacer.fps(), 40);
    pacer.BeginFrame(2 * kSecond + 1);
    EXPECT_EQ(pacer.fps(), 1);
}

}  // namespace
