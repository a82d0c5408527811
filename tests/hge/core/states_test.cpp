#include "core/states.h"

#include <gtest/gtest.h>

namespace {

using hge::States;

bool Callback() {
    return true;
}

TEST(States, Defaults) {
    States states;
    EXPECT_FALSE(states.Get(HGE_WINDOWED));
    EXPECT_FALSE(states.Get(HGE_ZBUFFER));
    EXPECT_TRUE(states.Get(HGE_TEXTUREFILTER));
    EXPECT_TRUE(states.Get(HGE_USESOUND));
    EXPECT_FALSE(states.Get(HGE_DONTSUSPEND));
    EXPECT_TRUE(states.Get(HGE_HIDEMOUSE));
    EXPECT_EQ(states.Get(HGE_FRAMEFUNC), nullptr);
    EXPECT_EQ(states.Get(HGE_HWNDPARENT), nullptr);
    EXPECT_EQ(states.Get(HGE_SCREENWIDTH), 800);
    EXPECT_EQ(states.Get(HGE_SCREENHEIGHT), 600);
    EXPECT_EQ(states.Get(HGE_SCREENBPP), 32);
    EXPECT_EQ(states.Get(HGE_SAMPLERATE), 44100);
    EXPECT_EQ(states.Get(HGE_FXVOLUME), 100);
    EXPECT_EQ(states.Get(HGE_STREAMVOLUME), 100);
    EXPECT_EQ(states.Get(HGE_FPS), HGEFPS_UNLIMITED);
    EXPECT_EQ(states.Get(HGE_TITLE), "");
}

TEST(States, UnknownStatesAreRefusedAndReadAsNothing) {
    States states;
    for (int unknown : {-1, 0, 14, 30, 1000, 2147483647}) {
        EXPECT_FALSE(states.Set(static_cast<hgeBoolState>(unknown), true)) << unknown;
        EXPECT_FALSE(states.Set(static_cast<hgeFuncState>(unknown), Callback)) << unknown;
        EXPECT_FALSE(states.Set(static_cast<hgeIntState>(unknown), 5)) << unknown;
        EXPECT_FALSE(states.Set(static_cast<hgeStringState>(unknown), "x")) << unknown;
        EXPECT_FALSE(states.Get(static_cast<hgeBoolState>(unknown))) << unknown;
        EXPECT_EQ(states.Get(static_cast<hgeFuncState>(unknown)), nullptr) << unknown;
        EXPECT_EQ(states.Get(static_cast<hgeIntState>(unknown)), 0) << unknown;
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

TEST(States, KeepWhatIsSet) {
    States states;
    EXPECT_TRUE(states.Set(HGE_WINDOWED, true));
    EXPECT_TRUE(states.Set(HGE_EXITFUNC, Callback));
    EXPECT_TRUE(states.Set(HGE_FPS, HGEFPS_VSYNC));
    EXPECT_TRUE(states.Set(HGE_TITLE, "\xD1\xB5\xC1\xB7"));
    EXPECT_TRUE(states.Get(HGE_WINDOWED));
    EXPECT_FALSE(states.Get(HGE_ZBUFFER));
    EXPECT_EQ(states.Get(HGE_EXITFUNC), Callback);
    EXPECT_EQ(states.Get(HGE_FPS), -1);
    EXPECT_EQ(states.Get(HGE_TITLE), "\xD1\xB5\xC1\xB7");
    EXPECT_TRUE(states.Set(HGE_TITLE, nullptr));
    EXPECT_EQ(states.Get(HGE_TITLE), "");
    EXPECT_TRUE(states.Set(HGE_ICON, MAKEINTRESOURCEA(101)));
    EXPECT_EQ(states.Get(HGE_ICON), "#101");
}

}  // namespace
