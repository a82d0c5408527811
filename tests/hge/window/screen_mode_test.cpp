#include "window/screen_mode.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using hge::CentreOn;
using hge::ScreenArea;
using hge::ScreenMode;
using hge::ScreenSize;
using testing::ElementsAre;
using testing::IsEmpty;

class FakeDisplay : public hge::Display {
 public:
    ScreenSize Current() override { return current; }
    bool Switch(ScreenSize size, int bits_per_pixel) override {
        calls.push_back(std::to_string(size.width) + "x" + std::to_string(size.height) + "x" +
                        std::to_string(bits_per_pixel));
        if (!has_mode || bits_per_pixel < least_bits) return false;
        current = gives_near_mode ? ScreenSize{size.width + 48, size.height} : size;
        return true;
    }
    void Restore() override {
        calls.push_back("restore");
        current = desktop;
    }

    ScreenSize desktop = {1920, 1080};
    ScreenSize current = desktop;
    bool has_mode = true;
    bool gives_near_mode = false;
    int least_bits = 16;
    std::vector<std::string> calls;
};

TEST(ScreenMode, TheDesktopStaysWhenTheModeIsItsOwnOrCannotBeHad) {
    FakeDisplay same, lacking, near;
    lacking.has_mode = false;
    near.gives_near_mode = true;
    ScreenMode in_same(same), in_lacking(lacking), in_near(near);
    EXPECT_TRUE(in_same.Enter({1920, 1080}, 32));
    EXPECT_FALSE(in_lacking.Enter({800, 600}, 32) || in_near.Enter({800, 600}, 32));
    EXPECT_FALSE(in_same.switched() || in_near.switched());
    in_lacking.Leave();
    EXPECT_THAT(same.calls, IsEmpty());
    EXPECT_THAT(lacking.calls, ElementsAre("800x600x32"));
    EXPECT_EQ(near.current, near.desktop);
}

TEST(ScreenMode, SixteenBitsFallBackToThirtyTwo) {
    FakeDisplay display;
    display.least_bits = 32;
    ScreenMode mode(display);
    EXPECT_TRUE(mode.Enter({800, 600}, 16));
    EXPECT_THAT(display.calls, ElementsAre("800x600x16", "800x600x32"));
}

TEST(ScreenMode, IsGivenBackOnceByLeaveOrTheEnd) {
    FakeDisplay display;
    {
        ScreenMode mode(display);
        EXPECT_TRUE(mode.Enter({800, 600}, 32));
        EXPECT_TRUE(mode.Enter({800, 600}, 32));
        mode.Leave();
        mode.Leave();
        EXPECT_THAT(display.calls, ElementsAre("800x600x32", "restore"));
        EXPECT_TRUE(mode.Enter({800, 600}, 32));
        EXPECT_TRUE(mode.Enter({1024, 768}, 32)) << "from the desktop's own";
    }
    EXPECT_THAT(display.calls,
                ElementsAre("800x600x32", "restore", "800x600x32", "restore", "1024x768x32", "restore"));
    EXPECT_EQ(display.current, display.desktop);
}

TEST(ScreenMode, TheScreenIsInTheMiddleOrAtTheCornerOfASmallerMonitor) {
    EXPECT_EQ(CentreOn({0, 0, 1920, 1080}, {800, 600}), (ScreenArea{560, 240, 800, 600}));
    EXPECT_EQ(CentreOn({-1280, 100, 1280, 721}, {800, 600}), (ScreenArea{-1040, 160, 800, 600}));
    EXPECT_EQ(CentreOn({0, 0, 640, 700}, {800, 600}), (ScreenArea{0, 50, 800, 600}));
}

}  // namespace
