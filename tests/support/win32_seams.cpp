#include "support/win32_seams.h"

namespace {

DWORD g_tick = 0;
HWND g_active_window = nullptr;

std::vector<int>& Quits() {
    static std::vector<int> quits;
    return quits;
}

}  // namespace

// The linker takes these symbols from here and so never looks into the import libraries for them: the
// pointers serve calls through the import table, the functions direct ones (the C run-time's own).
extern "C" {
DWORD WINAPI FakeGetTickCount() __asm__("_GetTickCount@0");
HWND WINAPI FakeGetActiveWindow() __asm__("_GetActiveWindow@0");
void WINAPI FakePostQuitMessage(int code) __asm__("_PostQuitMessage@4");

DWORD WINAPI FakeGetTickCount() {
    return g_tick;
}
HWND WINAPI FakeGetActiveWindow() {
    return g_active_window;
}
void WINAPI FakePostQuitMessage(int code) {
    Quits().push_back(code);
}

DWORD(WINAPI* imported_tick_count)() __asm__("__imp__GetTickCount@0") = FakeGetTickCount;
HWND(WINAPI* imported_active_window)() __asm__("__imp__GetActiveWindow@0") = FakeGetActiveWindow;
void(WINAPI* imported_post_quit)(int) __asm__("__imp__PostQuitMessage@4") = FakePostQuitMessage;
}

namespace win32_seams {

void SetTick(DWORD tick) {
    g_tick = tick;
}
void AdvanceTick(DWORD milliseconds) {
    g_tick += milliseconds;
}
void SetActiveWindow(HWND window) {
    g_active_window = window;
}
const std::vector<int>& QuitMessages() {
    return Quits();
}

void Reset() {
    g_tick = 0;
    g_active_window = nullptr;
    Quits().clear();
}

}  // namespace win32_seams
