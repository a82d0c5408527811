#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/counters.h"

// The real framework for one test: a small windowed screen, callbacks as functions of the test.
class RunningHge {
 public:
    static constexpr const char* kLogName = "hge_system_test.log";

    RunningHge();
    ~RunningHge();
    RunningHge(const RunningHge&) = delete;
    RunningHge& operator=(const RunningHge&) = delete;

    HGE* operator->() const { return hge; }
    HWND window() const { return hge->System_GetState(HGE_HWND); }
    // Runs the loop until frame gives true. Each frame calls it with the frame's number, from 0.
    bool Run(std::function<bool(int)> frame);
    // Gives up this object's reference; nothing may be called after it.
    void Release();

    HGE* hge;
    // What callbacks other than the frame function do; they also note their names.
    std::function<void()> on_render, on_focus_lost;
    std::function<bool()> on_exit;
    std::vector<std::string> calls;
};

struct StartedHge : RunningHge {
    StartedHge() { EXPECT_TRUE(hge->System_Initiate()) << hge->System_GetErrorMessage(); }
};

// The log as written so far.
std::string ReadLog();
using test::Counters;
