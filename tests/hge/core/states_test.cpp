#include "core/states.h"

#include <gtest/gtest.h>

namespace {

using hge::States;

TEST(States, UnknownStatesAreRefusedAndReadAsNothing) {
    States states;
    for (int unknown : {-1, 0, 14, 30, 2147483647}) {
        EXPECT_FALSE(states.Set(static_cast<hgeBoolState>(unknown), true)) << unknown;
        EXPECT_FALSE(states.Set(static_cast<hgeFuncState>(unknown), nullptr)) << unknown;
        EXPECT_FALSE(states.Set(static_cast<hgeStringState>(unknown), "x")) << unknown;
        EXPECT_EQ(states.Get(static_cast<hgeFuncState>(unknown)), nullptr) << unknown;
        EXPECT_EQ(states.Get(static_cast<hgeStringState>(unknown)), "") << unknown;
    }
    // A state of another type under this one's name.
    EXPECT_FALSE(states.Set(static_cast<hgeIntState>(HGE_TITLE), 5));
    EXPECT_EQ(states.Get(static_cast<hgeBoolState>(HGE_FPS)), false);
}

TEST(States, ImpossibleValuesLeaveTheOldOne) {
    States states;
    struct {
        hgeIntState state;
        int value;
    } const cases[] = {{HGE_SCREENBPP, 24}, {HGE_FXVOLUME, 101}, {HGE_MUSVOLUME, -1},
                       {HGE_SAMPLERATE, 0}, {HGE_FPS, -2},       {HGE_POWERSTATUS, 5}};
    for (const auto& c : cases) {
        int before = states.Get(c.state);
        EXPECT_FALSE(states.Set(c.state, c.value)) << c.state;
        EXPECT_EQ(states.Get(c.state), before) << c.state;
    }
    EXPECT_FALSE(states.Set(HGE_HWND, reinterpret_cast<HWND>(1)));
}

TEST(States, TextsAreCopiedAndMayBeNullOrAResourceNumber) {
    States states;
    char title[] = "a title";
    EXPECT_TRUE(states.Set(HGE_TITLE, title));
    title[0] = 'x';
    EXPECT_EQ(states.Get(HGE_TITLE), "a title");
    EXPECT_TRUE(states.Set(HGE_TITLE, nullptr));
    EXPECT_EQ(states.Get(HGE_TITLE), "");
    EXPECT_TRUE(states.Set(HGE_ICON, MAKEINTRESOURCEA(101)));
    EXPECT_EQ(states.Get(HGE_ICON), "#101");
}

}  // namespace
