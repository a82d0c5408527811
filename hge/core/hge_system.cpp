#include <windows.h>

#include <shellapi.h>

#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <utility>

#include "core/hge_impl.h"
#include "core/live_report.h"

namespace hge {

namespace {

constexpr int kLargestScreen = 16384;
constexpr int kSnapshotNames = 1000;
// Of an inactive program: how often it looks for what comes without a message.
constexpr DWORD kIdleMilliseconds = 100;

}  // namespace

bool HgeImpl::System_Initiate() {
    return Guarded("System_Initiate", [&] {
        if (initiated_) {
            log_.Write("System_Initiate: the system is running already");
            return true;
        }
        if (Guarded("System_Initiate", [&] { return Initiate(); })) return true;
        // The reason is the last error, and no step of the way back may hide it.
        StopAll();
        log_.Close();
        return false;
    });
}

void HgeImpl::StopAll() {
    initiated_ = false;
    // Each for itself: what fails here must not keep the window on the screen.
    Guarded("sound", [&] { audio_.Stop(); });
    Guarded("graphics", [&] { graphics_.Stop(); });
    Guarded("window", [&] { window_.Destroy(); });
    waiter_.reset();
}

bool HgeImpl::Initiate() {
    OpenLog();
    if (!CheckScreenSize() || !OpenWindow() || !StartGraphics()) return false;
    StartAudio();
    waiter_ = std::make_unique<FrameWaiter>();
    pacer_.SetFps(states_.Get(HGE_FPS));
    pacer_.Restart(FrameWaiter::Now());
    had_focus_ = window_.Active();
    initiated_ = true;
    log_.Write("running: %d x %d, %s", states_.Get(HGE_SCREENWIDTH), states_.Get(HGE_SCREENHEIGHT),
               states_.Get(HGE_HWNDPARENT) ? "child window"
               : states_.Get(HGE_WINDOWED) ? "windowed"
                                           : "full screen");
    return true;
}

void HgeImpl::OpenLog() {
    log_.Close();
    const std::string& name = states_.Get(HGE_LOGFILE);
    if (!name.empty()) log_.Open(FullPath(name));
    char date[32] = "";
    std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof(date), "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    log_.Write("HGE %X.%02X started %s", HGE_VERSION >> 8, HGE_VERSION & 0xFF, date);
}

bool HgeImpl::CheckScreenSize() {
    int width = states_.Get(HGE_SCREENWIDTH), height = states_.Get(HGE_SCREENHEIGHT);
    bool possible = width >= 1 && height >= 1 && width <= kLargestScreen && height <= kLargestScreen;
    if (!possible) log_.Fail("cannot start: a screen of %d x %d is not possible", width, height);
    return possible;
}

bool HgeImpl::OpenWindow() {
    WindowSettings settings;
    settings.size = {states_.Get(HGE_SCREENWIDTH), states_.Get(HGE_SCREENHEIGHT)};
    settings.bits_per_pixel = states_.Get(HGE_SCREENBPP);
    settings.windowed = states_.Get(HGE_WINDOWED);
    settings.hide_mouse = states_.Get(HGE_HIDEMOUSE);
    settings.title = states_.Get(HGE_TITLE);
    settings.icon = states_.Get(HGE_ICON);
    settings.parent = states_.Get(HGE_HWNDPARENT);
    input_.Clear();
    return window_.Create(settings);
}

bool HgeImpl::StartGraphics() {
    GraphicsSettings settings;
    settings.window = window_.handle();
    settings.width = states_.Get(HGE_SCREENWIDTH);
    settings.height = states_.Get(HGE_SCREENHEIGHT);
    settings.zbuffer = states_.Get(HGE_ZBUFFER);
    settings.texture_filter = states_.Get(HGE_TEXTUREFILTER);
    settings.vsync = states_.Get(HGE_FPS) == HGEFPS_VSYNC;
    return graphics_.Start(settings);
}

void HgeImpl::System_Shutdown() {
    Guarded("System_Shutdown", [&] {
        if (initiated_) Shutdown();
    });
}

void HgeImpl::Shutdown() {
    Guarded("System_Shutdown", [&] { ReportLive(); });
    screen_scene_ = screen_drawn_ = false;
    StopAll();
    Guarded("System_Shutdown", [&] { input_.Clear(); });
    Guarded("System_Shutdown", [&] { ini_.Flush(); });
    log_.Write("finished");
    log_.Close();
}

// The host's leaks, by name, while they can still be counted.
void HgeImpl::ReportLive() {
    hgeCounters counters;
    ReadCounters(&counters);
    log_.Write("shutdown: still alive: %s", LiveText(counters).c_str());
}

bool HgeImpl::MayStart() {
    const char* reason = nullptr;
    if (!initiated_)
        reason = "the system is not initiated";
    else if (!states_.Get(HGE_FRAMEFUNC))
        reason = "no frame function is set";
    else if (looping_)
        reason = "the loop is running already";
    if (reason) log_.Fail("System_Start: %s", reason);
    return !reason;
}

bool HgeImpl::System_Start() {
    if (!MayStart()) return false;
    // Callbacks may release the last reference of their own.
    ++references_;
    looping_ = true;
    pacer_.Resume(FrameWaiter::Now());
    while (RunFrame()) {
    }
    looping_ = false;
    Release();
    return true;
}

// Any callback can shut the system down.
bool HgeImpl::RunFrame() {
    waiter_->WaitUntil(pacer_.DueTime(FrameWaiter::Now()));
    if (!window_.PumpMessages() || !MayClose()) return false;
    ReportFocus();
    if (!initiated_) return false;
    bool suspended = !window_.Active() && !states_.Get(HGE_DONTSUSPEND);
    Guarded("sound", [&] {
        audio_.SetSuspended(suspended);
        audio_.Update();
    });
    if (suspended) {
        Window::WaitForMessage(kIdleMilliseconds);
        pacer_.Resume(FrameWaiter::Now());
        return true;
    }
    pacer_.BeginFrame(FrameWaiter::Now());
    graphics_.SetTime(pacer_.time());
    Guarded("input", [&] { input_.BeginFrame(); });
    if (Call(HGE_FRAMEFUNC) || !initiated_) return false;
    Call(HGE_RENDERFUNC);
    if (!initiated_) return false;
    PresentFrame();
    input_.EndFrame();
    return initiated_;
}

// False ends the loop: the host lets the window close, or has shut down when it was asked.
bool HgeImpl::MayClose() {
    if (!window_.TakeCloseRequest()) return initiated_;
    return states_.Get(HGE_EXITFUNC) && !Call(HGE_EXITFUNC) && initiated_;
}

void HgeImpl::ReportFocus() {
    bool focus = window_.Active();
    if (focus == had_focus_) return;
    had_focus_ = focus;
    Call(focus ? HGE_FOCUSGAINFUNC : HGE_FOCUSLOSTFUNC);
}

// A frame without a scene on the screen leaves the last one there. Without a device there are no scenes.
void HgeImpl::PresentFrame() {
    if (screen_scene_) Gfx_EndScene();
    if (!std::exchange(screen_drawn_, false) && !graphics_.device_lost()) return;
    bool rebuilt = Guarded("Present", [&] { return graphics_.Present(); });
    if (rebuilt) Call(HGE_GFXRESTOREFUNC);
}

bool HgeImpl::Call(hgeFuncState state) {
    hgeCallback callback = states_.Get(state);
    return callback && callback();
}

char* HgeImpl::System_GetErrorMessage() {
    return log_.LastErrorText();
}

void HgeImpl::System_Log(const char* format, ...) {
    if (!format) return;
    va_list args;
    va_start(args, format);
    Guarded("System_Log", [&] { log_.WriteV(format, args); });
    va_end(args);
}

bool HgeImpl::System_Launch(const char* url) {
    SHELLEXECUTEINFOA launch = {};
    launch.cbSize = sizeof(launch);
    launch.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    launch.lpFile = url;
    launch.nShow = SW_SHOWNORMAL;
    bool started = url && *url && ShellExecuteExA(&launch);
    if (!started)
        Guarded("System_Launch", [&] {
            log_.Fail("System_Launch: cannot open \"%s\": error %lu", url ? url : "", GetLastError());
        });
    return started;
}

void HgeImpl::System_Snapshot(const char* filename) {
    Guarded("System_Snapshot", [&] {
        std::string path = filename && *filename ? FullPath(filename) : FreeSnapshotName();
        if (path.empty())
            log_.Fail("no snapshot: all of shot000.bmp to shot999.bmp exist");
        else if (Snapshot(path))
            log_.Write("snapshot written: \"%s\"", path.c_str());
    });
}

bool HgeImpl::Snapshot(const std::string& path) {
    Image image;
    std::string reason = "nothing is drawn: the system is not initiated or has no device";
    if (graphics_.running() && graphics_.ReadScreen(&image) && WriteImage(path, image, &reason)) return true;
    log_.Fail("no snapshot \"%s\": %s", path.c_str(), reason.c_str());
    return false;
}

std::string HgeImpl::FreeSnapshotName() const {
    for (int number = 0; number < kSnapshotNames; ++number) {
        char name[16];
        std::snprintf(name, sizeof(name), "shot%03d.bmp", number);
        std::string path = resources_.folder() + name;
        if (GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES) return path;
    }
    return "";
}

}  // namespace hge
