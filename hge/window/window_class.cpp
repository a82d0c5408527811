#include "window/window_class.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace hge {

namespace {

LRESULT CALLBACK BackdropProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATEANDEAT;
    return DefWindowProcA(window, message, wparam, lparam);
}

}  // namespace

HINSTANCE ThisModule() {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

WindowClass::WindowClass(const char* name, WNDPROC procedure, HBRUSH background) : name_(name) {
    WNDCLASSA description = {};
    description.lpfnWndProc = procedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursor(nullptr, IDC_ARROW);
    description.hbrBackground = background;
    description.lpszClassName = name;
    RegisterClassA(&description);
}

WindowClass::~WindowClass() {
    UnregisterClassA(name_, ThisModule());
}

Backdrop::Backdrop()
    : class_("hge.backdrop", BackdropProcedure, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))) {}

void Backdrop::Show(const ScreenArea& monitor) {
    if (!window_)
        window_.reset(CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, class_.name(), "",
                                      WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, ThisModule(), nullptr));
    SetWindowPos(window_.get(), HWND_TOPMOST, monitor.x, monitor.y, monitor.width, monitor.height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void Backdrop::PutBelow(HWND above) {
    if (window_) SetWindowPos(window_.get(), above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace hge
