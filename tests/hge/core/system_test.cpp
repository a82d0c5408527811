#include <gmock/gmock.h>

#include "core/running_hge.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::pair<int, int> ClientSize(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

std::string Title(HWND window) {
    char title[64] = "";
    GetWindowTextA(window, title, sizeof(title));
    return title;
}

TEST(HgeCreate, OtherVersionsGiveNull) {
    for (int version : {0, 0x17F, 0x181, -1})
        EXPECT_EQ(hgeCreate(version), nullptr) << version;
    hgeCounters counters;
    counters.frames = 77;
    EXPECT_FALSE(hgeGetCounters(&counters));
    EXPECT_EQ(counters.frames, 0u);
    EXPECT_FALSE(hgeGetCounters(nullptr));
}

TEST(HgeCreate, IsOneInstanceUntilTheLastRelease) {
    RunningHge hge;
    HGE* second = hgeCreate(HGE_VERSION);
    EXPECT_EQ(second, hge.hge);
    EXPECT_EQ(Counters().references, 2u);
    ASSERT_TRUE(hge->System_Initiate());
    HWND window = hge.window();
    second->Release();
    EXPECT_EQ(Counters().references, 1u);
    EXPECT_TRUE(IsWindow(window));
    hge.Release();
    EXPECT_FALSE(IsWindow(window));
    hgeCounters counters;
    EXPECT_FALSE(hgeGetCounters(&counters));
    EXPECT_THAT(ReadLog(), HasSubstr("finished"));
}

TEST(Initiate, AnImpossibleScreenOrParentIsRefusedWithTheReason) {
    RunningHge hge;
    const int sizes[][2] = {{0, 200}, {320, -5}, {100000, 200}};
    for (auto [width, height] : sizes) {
        hge->System_SetState(HGE_SCREENWIDTH, width);
        hge->System_SetState(HGE_SCREENHEIGHT, height);
        EXPECT_FALSE(hge->System_Initiate());
        std::string reason =
            "a screen of " + std::to_string(width) + " x " + std::to_string(height) + " is not possible";
        EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr(reason));
        EXPECT_THAT(ReadLog(), HasSubstr(reason));
        EXPECT_EQ(hge.window(), nullptr);
    }
    hge->System_SetState(HGE_SCREENWIDTH, 320);
    hge->System_SetState(HGE_SCREENHEIGHT, 200);
    hge->System_SetState(HGE_HWNDPARENT, reinterpret_cast<HWND>(0x7FFF0));
    EXPECT_FALSE(hge->System_Initiate());
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("HGE_HWNDPARENT is not a window"));
    EXPECT_FALSE(hge->System_Start());
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("not initiated"));
    hge->System_SetState(HGE_HWNDPARENT, nullptr);
    EXPECT_TRUE(hge->System_Initiate());
    EXPECT_THAT(ReadLog(), Not(HasSubstr("not possible"))) << "the log starts afresh";
}

TEST(Initiate, OpensAnActiveWindowWithTheHostsClientSize) {
    int wide = GetSystemMetrics(SM_CXSCREEN) + 100;
    for (auto [windowed, width] : {std::pair{true, 320}, {false, 320}, {true, wide}, {false, wide}}) {
        SCOPED_TRACE(testing::Message() << windowed << ", " << width);
        RunningHge hge;
        hge->System_SetState(HGE_WINDOWED, windowed);
        hge->System_SetState(HGE_SCREENWIDTH, width);
        ASSERT_TRUE(hge->System_Initiate()) << hge->System_GetErrorMessage();
        EXPECT_EQ(ClientSize(hge.window()), (std::pair{width, 200}));
        EXPECT_EQ(GetActiveWindow(), hge.window());
        POINT middle = {160, 100};
        ClientToScreen(hge.window(), &middle);
        EXPECT_EQ(WindowFromPoint(middle), hge.window());
        EXPECT_EQ(Title(hge.window()), "hge system test");
        EXPECT_THAT(ReadLog(), HasSubstr(windowed ? " x 200, windowed" : " x 200, full screen"));
        EXPECT_TRUE(hge->System_Initiate()) << "again";
        EXPECT_THAT(ReadLog(), HasSubstr("running already"));
    }
}

TEST(Initiate, InAHostsWindowItIsAChild) {
    HWND parent = CreateWindowA("STATIC", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                nullptr, nullptr, nullptr);
    {
        RunningHge hge;
        hge->System_SetState(HGE_HWNDPARENT, parent);
        ASSERT_TRUE(hge->System_Initiate());
        EXPECT_EQ(GetParent(hge.window()), parent);
        // The loop ends when the host closes its window.
        EXPECT_TRUE(hge.Run([&](int frame) {
            if (frame == 1) DestroyWindow(parent);
            return frame > 5;
        }));
        EXPECT_THAT(hge.calls, ElementsAre("frame", "render", "frame", "render"));
        EXPECT_EQ(hge.window(), nullptr);
    }
    EXPECT_FALSE(IsWindow(parent));
}

TEST(States, SomeAreFixedWhileTheSystemRuns) {
    StartedHge hge;
    hge->System_SetState(HGE_SCREENWIDTH, 640);
    hge->System_SetState(HGE_ZBUFFER, true);
    EXPECT_EQ(hge->System_GetState(HGE_SCREENWIDTH), 320);
    EXPECT_FALSE(hge->System_GetState(HGE_ZBUFFER));
    EXPECT_THAT(ReadLog(), HasSubstr("state 17 stays as it is while the system runs"));
    hge->System_Shutdown();
    hge->System_SetState(HGE_SCREENWIDTH, 640);
    EXPECT_EQ(hge->System_GetState(HGE_SCREENWIDTH), 640);
}

TEST(States, OthersApplyAtOnce) {
    StartedHge hge;
    hge->System_SetState(HGE_TITLE, "another title");
    EXPECT_EQ(Title(hge.window()), "another title");
    for (bool windowed : {false, true}) {
        hge->System_SetState(HGE_WINDOWED, windowed);
        EXPECT_EQ(ClientSize(hge.window()), (std::pair{320, 200})) << windowed;
        EXPECT_EQ((GetWindowLongA(hge.window(), GWL_STYLE) & WS_CAPTION) == WS_CAPTION, windowed);
        EXPECT_EQ(GetActiveWindow(), hge.window()) << windowed;
    }
    hge->System_SetState(HGE_ICON, "NO_SUCH_ICON");
    EXPECT_THAT(ReadLog(), HasSubstr("no icon \"NO_SUCH_ICON\""));
}

TEST(Loop, NeedsAFrameFunctionAndRunsOnce) {
    StartedHge hge;
    EXPECT_TRUE(hge.Run([&](int) {
        EXPECT_FALSE(hge->System_Start());
        EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("the loop is running already"));
        return true;
    }));
    PostQuitMessage(0);
    EXPECT_TRUE(hge.Run([](int) { return false; })) << "the quit message ends it";
    EXPECT_THAT(hge.calls, ElementsAre());
    hge->System_SetState(HGE_FRAMEFUNC, nullptr);
    EXPECT_FALSE(hge->System_Start());
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("no frame function"));
}

TEST(Loop, ClosingTheWindowAsksTheHost) {
    StartedHge hge;
    int refusals = 1;
    hge.on_exit = [&] { return refusals-- <= 0; };
    EXPECT_TRUE(hge.Run([&](int frame) {
        if (frame < 2) PostMessageA(hge.window(), WM_CLOSE, 0, 0);
        return frame > 5;
    }));
    EXPECT_THAT(hge.calls, ElementsAre("frame", "render", "exit", "frame", "render", "exit"));
    EXPECT_NE(hge.window(), nullptr) << "the window lives until the shutdown";

    hge->System_SetState(HGE_EXITFUNC, nullptr);
    EXPECT_TRUE(hge.Run([&](int frame) {
        PostMessageA(hge.window(), WM_SYSKEYDOWN, VK_F4, 1 << 29);
        return frame > 5;
    }));
    EXPECT_THAT(hge.calls, ElementsAre("frame", "render"));
}

TEST(Loop, WithoutTheFocusItWaitsUnlessToldNotTo) {
    StartedHge hge;
    hge.on_focus_lost = [&] { PostMessageA(hge.window(), WM_ACTIVATEAPP, TRUE, 0); };
    auto lose_focus = [&](int frame) {
        if (frame == 0) SendMessageA(hge.window(), WM_ACTIVATEAPP, FALSE, 0);
        return frame == 1;
    };
    hge->System_SetState(HGE_DONTSUSPEND, false);
    EXPECT_TRUE(hge.Run(lose_focus));
    EXPECT_THAT(hge.calls, ElementsAre("frame", "render", "focus lost", "focus gain", "frame"));
    hge->System_SetState(HGE_DONTSUSPEND, true);
    EXPECT_TRUE(hge.Run(lose_focus));
    EXPECT_THAT(hge.calls, ElementsAre("frame", "render", "focus lost", "frame"));
}

TEST(Loop, SystemKeysOpenNoMenu) {
    StartedHge hge;
    // A menu would run a loop of its own and this test into its time limit.
    EXPECT_TRUE(hge.Run([&](int frame) {
        if (frame > 0) return true;
        for (UINT key : {VK_MENU, VK_F10}) {
            PostMessageA(hge.window(), WM_SYSKEYDOWN, key, 1);
            PostMessageA(hge.window(), WM_SYSKEYUP, key, 1);
        }
        PostMessageA(hge.window(), WM_SYSCOMMAND, SC_KEYMENU, 0);
        return false;
    }));
}

TEST(Loop, CallbacksMayShutDownOrReleaseTheLastReference) {
    {
        StartedHge hge;
        hge.on_render = [&] { hge->System_Shutdown(); };
        EXPECT_TRUE(hge.Run([](int) { return false; }));
        EXPECT_THAT(hge.calls, ElementsAre("frame", "render"));
        EXPECT_EQ(hge.window(), nullptr);
    }
    StartedHge hge;
    EXPECT_TRUE(hge.Run([&](int) {
        hge.Release();
        return true;
    }));
    hgeCounters counters;
    EXPECT_FALSE(hgeGetCounters(&counters));
}

TEST(Input, WhatIsPostedReachesTheFrames) {
    StartedHge hge;
    float x = 0, y = 0;
    EXPECT_TRUE(hge.Run([&](int frame) {
        HWND window = hge.window();
        if (frame == 0) {
            PostMessageA(window, WM_KEYDOWN, VK_LEFT, 1 | 1 << 24);
            PostMessageA(window, WM_CHAR, 'q', 1);
            PostMessageA(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-240)), 0);
            PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 40));
            return false;
        }
        hge->Input_GetMousePos(&x, &y);
        if (frame == 1) {
            EXPECT_TRUE(x == 30 && y == 40) << x << " " << y;
            EXPECT_TRUE(hge->Input_KeyDown(HGEK_LEFT) && hge->Input_GetKeyState(HGEK_LEFT));
            EXPECT_TRUE(hge->Input_GetMouseWheel() == -2 && hge->Input_GetChar() == 'q');
            hgeInputEvent event;
            while (hge->Input_GetEvent(&event) && event.type != INPUT_MOUSEWHEEL) {
            }
            EXPECT_TRUE(event.type == INPUT_MOUSEWHEEL && event.wheel == -2);
            EXPECT_TRUE(hge->Timer_GetDelta() > 0 && hge->Timer_GetTime() >= hge->Timer_GetDelta());
            // A drag whose end is outside the window.
            EXPECT_EQ(GetCapture(), window);
            PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(-25, 700));
            return false;
        }
        EXPECT_TRUE(x == -25 && y == 700) << x << " " << y;
        EXPECT_TRUE(hge->Input_KeyUp(HGEK_LBUTTON) && !hge->Input_KeyDown(HGEK_LEFT));
        EXPECT_EQ(GetCapture(), nullptr);
        return true;
    }));
    hge->Input_SetMousePos(12, 34);
    POINT cursor;
    GetCursorPos(&cursor);
    ScreenToClient(hge.window(), &cursor);
    EXPECT_TRUE(cursor.x == 12 && cursor.y == 34 && hge->Input_IsMouseOver());
    hge->Input_SetMousePos(-3, 34);
    EXPECT_FALSE(hge->Input_IsMouseOver());
}

}  // namespace
