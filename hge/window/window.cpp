#include "window/window.h"

#include <utility>

#include "hge.h"

namespace hge {

namespace {

constexpr DWORD kWindowedStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;

DWORD StyleOf(const WindowSettings& settings) {
    if (settings.parent) return WS_CHILD;
    return settings.windowed ? kWindowedStyle : WS_POPUP;
}

// Blocks re-entry for the time of a scope.
class Flagged {
 public:
    explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flagged() { flag_ = false; }

 private:
    bool& flag_;
};

}  // namespace

Window::Window(Log& log, InputQueue& input)
    : log_(log), input_(input), mode_(display_), class_("hge.window", Procedure, nullptr) {}

bool Window::Create(const WindowSettings& settings) {
    if (settings.parent && !IsWindow(settings.parent)) {
        log_.Fail("cannot create the window: HGE_HWNDPARENT is not a window");
        return false;
    }
    settings_ = settings;
    close_requested_ = false;
    UseRealPixels();
    handle_.reset(CreateWindowExA(0, class_.name(), settings.title.c_str(), StyleOf(settings), 0, 0,
                                  settings.size.width, settings.size.height, settings.parent, nullptr,
                                  ThisModule(), this));
    if (!handle_) {
        log_.Fail("cannot create the window: error %lu", GetLastError());
        return false;
    }
    SetIcon(settings.icon);
    Place();
    SetForegroundWindow(handle());
    SetFocus(handle());
    active_ = GetActiveWindow() == handle();
    POINT cursor = CursorInClient();
    input_.PlaceMouse(static_cast<float>(cursor.x), static_cast<float>(cursor.y));
    return true;
}

void Window::Destroy() {
    // Before the window: its going must not count as a loss of focus.
    WindowHandle closing = std::move(handle_);
    backdrop_.Hide();
    mode_.Leave();
    active_ = tracking_mouse_ = false;
}

bool Window::Active() const {
    // A child is told nothing of its program's focus.
    if (settings_.parent) return handle_ && GetActiveWindow() == GetAncestor(handle(), GA_ROOT);
    return active_;
}

void Window::SetTitle(const std::string& title) {
    settings_.title = title;
    if (handle_) SetWindowTextA(handle(), title.c_str());
}

void Window::SetIcon(const std::string& name) {
    settings_.icon = name;
    if (!handle_) return;
    HICON icon = name.empty() ? nullptr : LoadIconA(GetModuleHandleA(nullptr), name.c_str());
    if (!icon && !name.empty()) log_.Write("the program has no icon \"%s\"", name.c_str());
    for (WPARAM size : {ICON_BIG, ICON_SMALL})
        SendMessageA(handle(), WM_SETICON, size, reinterpret_cast<LPARAM>(icon));
}

void Window::HideMouse(bool hide) {
    settings_.hide_mouse = hide;
    if (handle_ && MouseOver()) SetCursor(hide ? nullptr : LoadCursor(nullptr, IDC_ARROW));
}

void Window::SetWindowed(bool windowed) {
    if (settings_.windowed == windowed) return;
    settings_.windowed = windowed;
    if (!handle_ || settings_.parent) return;
    if (windowed) LeaveFullScreen();
    SetWindowLongA(handle(), GWL_STYLE, StyleOf(settings_) | WS_VISIBLE);
    Place();
}

bool Window::PumpMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return true;
}

void Window::WaitForMessage(DWORD milliseconds) {
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

bool Window::TakeCloseRequest() {
    return std::exchange(close_requested_, false);
}

bool Window::MouseOver() const {
    POINT cursor;
    if (!handle_ || !GetCursorPos(&cursor) || WindowFromPoint(cursor) != handle()) return false;
    ScreenToClient(handle(), &cursor);
    return cursor.x >= 0 && cursor.y >= 0 && cursor.x < settings_.size.width &&
           cursor.y < settings_.size.height;
}

void Window::MoveMouse(float x, float y) {
    if (!handle_) return;
    POINT position = {static_cast<LONG>(x), static_cast<LONG>(y)};
    ClientToScreen(handle(), &position);
    SetCursorPos(position.x, position.y);
    input_.PlaceMouse(x, y);
}

POINT Window::CursorInClient() const {
    POINT cursor = {};
    GetCursorPos(&cursor);
    ScreenToClient(handle(), &cursor);
    return cursor;
}

void Window::SetActive(bool active) {
    active_ = active;
    if (active) return;
    input_.PostReleaseAll();
    if (full_screen() && !placing_) LeaveFullScreen();
}

void Window::Place() {
    Flagged placing(placing_);
    if (settings_.parent)
        SetWindowPos(handle(), HWND_TOP, 0, 0, settings_.size.width, settings_.size.height, SWP_SHOWWINDOW);
    else if (settings_.windowed)
        PlaceInDesktop();
    else
        PlaceFullScreen();
    CorrectClientSize();
}

void Window::PlaceInDesktop() {
    RECT outer = {0, 0, settings_.size.width, settings_.size.height};
    AdjustWindowRectEx(&outer, kWindowedStyle, FALSE, 0);
    ScreenArea area = CentreOn(PrimaryMonitor(), {static_cast<int>(outer.right - outer.left),
                                                  static_cast<int>(outer.bottom - outer.top)});
    SetWindowPos(handle(), HWND_NOTOPMOST, area.x, area.y, area.width, area.height,
                 SWP_SHOWWINDOW | SWP_FRAMECHANGED);
}

void Window::PlaceFullScreen() {
    bool fits = mode_.Enter(settings_.size, settings_.bits_per_pixel);
    ScreenArea monitor = PrimaryMonitor();
    ScreenArea area = CentreOn(monitor, settings_.size);
    if (fits)
        backdrop_.Hide();
    else
        ShowBackdrop(monitor);
    SetWindowPos(handle(), HWND_TOPMOST, area.x, area.y, area.width, area.height,
                 SWP_SHOWWINDOW | SWP_FRAMECHANGED);
}

// Before the window is raised above it: a window that is shown first can come up on top.
void Window::ShowBackdrop(const ScreenArea& monitor) {
    log_.WriteOnce("display mode", "the display has no %d x %d mode: the screen is in the middle of %d x %d",
                   settings_.size.width, settings_.size.height, monitor.width, monitor.height);
    backdrop_.Show(monitor);
}

// The window goes behind the others but keeps its size: a minimised one would have no client area.
void Window::LeaveFullScreen() {
    Flagged placing(placing_);
    mode_.Leave();
    backdrop_.Hide();
    for (HWND order : {HWND_NOTOPMOST, HWND_BOTTOM})
        SetWindowPos(handle(), order, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// A dialog of this program must not come up below the screen.
void Window::LowerForDialog() {
    SetWindowPos(handle(), HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    backdrop_.PutBelow(handle());
}

// Frames can be thicker than the system said, and a change of mode can have shrunk the window.
void Window::CorrectClientSize() {
    RECT client, outer;
    GetClientRect(handle(), &client);
    GetWindowRect(handle(), &outer);
    LONG wider = settings_.size.width - client.right, higher = settings_.size.height - client.bottom;
    if (!wider && !higher) return;
    SetWindowPos(handle(), nullptr, 0, 0, outer.right - outer.left + wider, outer.bottom - outer.top + higher,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace hge
