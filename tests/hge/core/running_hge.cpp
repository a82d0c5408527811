#include "core/running_hge.h"

#include <utility>

#include "support/files.h"

namespace {

RunningHge* g_running = nullptr;
std::function<bool(int)> g_frame;
int g_frames = 0;

bool Note(const char* name, const std::function<void()>& action = {}) {
    g_running->calls.push_back(name);
    if (action) action();
    return false;
}
bool OnFrame() {
    return Note("frame") || g_frame(g_frames++);
}
bool OnRender() {
    return Note("render", g_running->on_render);
}
bool OnFocusLost() {
    return Note("focus lost", g_running->on_focus_lost);
}
bool OnFocusGain() {
    return Note("focus gain");
}
bool OnExit() {
    return Note("exit") || !g_running->on_exit || g_running->on_exit();
}

}  // namespace

RunningHge::RunningHge() : hge(hgeCreate(HGE_VERSION)) {
    g_running = this;
    hge->System_SetState(HGE_WINDOWED, true);
    hge->System_SetState(HGE_SCREENWIDTH, 320);
    hge->System_SetState(HGE_SCREENHEIGHT, 200);
    hge->System_SetState(HGE_TITLE, "hge system test");
    hge->System_SetState(HGE_LOGFILE, kLogName);
    hge->System_SetState(HGE_DONTSUSPEND, true);
    hge->System_SetState(HGE_FRAMEFUNC, OnFrame);
    hge->System_SetState(HGE_RENDERFUNC, OnRender);
    hge->System_SetState(HGE_FOCUSLOSTFUNC, OnFocusLost);
    hge->System_SetState(HGE_FOCUSGAINFUNC, OnFocusGain);
    hge->System_SetState(HGE_EXITFUNC, OnExit);
}

RunningHge::~RunningHge() {
    Release();
    g_running = nullptr;
    std::string log = ReadLog();
    if (log.find("shutdown: ") != log.npos) {
        EXPECT_NE(log.find("shutdown: still alive: nothing"), log.npos) << log;
    }
}

void RunningHge::Release() {
    if (hge) std::exchange(hge, nullptr)->Release();
}

bool RunningHge::Run(std::function<bool(int)> frame) {
    g_frame = std::move(frame);
    g_frames = 0;
    calls.clear();
    return hge->System_Start();
}

std::string ReadLog() {
    return test::FileText(test::ProgramFolder() + RunningHge::kLogName);
}
