#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "support/counters.h"
#include "support/picture.h"

// The real framework with an 800 x 600 window; one life for all tests of a program's suite.
class FrameworkTest : public testing::Test {
 protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // One scene of the screen over a ground of one colour.
    static void Scene(const std::function<void()>& draw, DWORD ground = 0xFF000000);
    // What the scene shows.
    static hge::Image Picture(const std::function<void()>& draw, DWORD ground = 0xFF000000);
    static hgeCounters Counters() { return test::Counters(); }
    // The log so far.
    static std::string LogText();

    static HGE* hge_;
    // What a suite may leave alive at the end, as a regular expression: nothing, unless it says so.
    static const char* may_leave_;
};
