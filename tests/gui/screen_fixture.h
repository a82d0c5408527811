#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drill2d/controls.h"
#include "drill2d/font.h"
#include "hgecounters.h"
#include "resources/image.h"

// The real framework with an 800 x 600 window, and images painted for the controls.
class ScreenTest : public testing::Test {
 protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // Pictures are compared with this face's only.
    static bool HasFace();
    // A scene of the screen.
    static void Scene(const std::function<void()>& draw);
    static hge::Image Picture(const std::function<void()>& draw);
    static hgeCounters Counters();
    // Draw calls of a scene.
    static DWORD Draws(const std::function<void()>& draw);

    static HGE* hge_;
};

constexpr char kFace[] = "WenQuanYi Zen Hei";

std::string Ansi(const wchar_t* text);

// Calls of operator new in this program so far, the kit's among them.
long Allocations();
