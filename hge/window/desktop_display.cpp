#include "window/desktop_display.h"

#include <windows.h>

namespace hge {

namespace {

LPTOP_LEVEL_EXCEPTION_FILTER g_previous_filter = nullptr;

// The system gives the mode back when a process ends; a crash dialog or a debugger would come before that.
LONG WINAPI RestoreBeforeCrash(EXCEPTION_POINTERS* exception) {
    ChangeDisplaySettingsExA(nullptr, nullptr, nullptr, 0, nullptr);
    return g_previous_filter ? g_previous_filter(exception) : EXCEPTION_CONTINUE_SEARCH;
}

DEVMODEA Mode(ScreenSize size, int bits_per_pixel) {
    DEVMODEA mode = {};
    mode.dmSize = sizeof(mode);
    mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT | DM_BITSPERPEL;
    mode.dmPelsWidth = size.width;
    mode.dmPelsHeight = size.height;
    mode.dmBitsPerPel = bits_per_pixel;
    return mode;
}

template <class F>
F UserFunction(const char* name) {
    FARPROC found = GetProcAddress(GetModuleHandleA("user32.dll"), name);
    return reinterpret_cast<F>(reinterpret_cast<void*>(found));
}

}  // namespace

ScreenSize DesktopDisplay::Current() {
    DEVMODEA mode = {};
    mode.dmSize = sizeof(mode);
    if (!EnumDisplaySettingsA(nullptr, ENUM_CURRENT_SETTINGS, &mode)) return {};
    return {static_cast<int>(mode.dmPelsWidth), static_cast<int>(mode.dmPelsHeight)};
}

bool DesktopDisplay::Switch(ScreenSize size, int bits_per_pixel) {
    DEVMODEA mode = Mode(size, bits_per_pixel);
    if (ChangeDisplaySettingsExA(nullptr, &mode, nullptr, CDS_FULLSCREEN, nullptr) != DISP_CHANGE_SUCCESSFUL)
        return false;
    g_previous_filter = SetUnhandledExceptionFilter(RestoreBeforeCrash);
    return true;
}

void DesktopDisplay::Restore() {
    ChangeDisplaySettingsExA(nullptr, nullptr, nullptr, 0, nullptr);
    SetUnhandledExceptionFilter(g_previous_filter);
    g_previous_filter = nullptr;
}

ScreenArea PrimaryMonitor() {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoA(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &info);
    const RECT& area = info.rcMonitor;
    return {static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right - area.left),
            static_cast<int>(area.bottom - area.top)};
}

void UseRealPixels() {
    const HANDLE per_monitor_v2 = reinterpret_cast<HANDLE>(-4);
    auto set_context = UserFunction<BOOL(WINAPI*)(HANDLE)>("SetProcessDpiAwarenessContext");
    if (!set_context || !set_context(per_monitor_v2)) SetProcessDPIAware();
}

}  // namespace hge
