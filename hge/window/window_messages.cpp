#include <windowsx.h>

#include <exception>

#include "hge.h"
#include "window/window.h"

namespace hge {

namespace {

int KeyFlags() {
    struct {
        int key, held, toggled;
    } const keys[] = {{VK_SHIFT, HGEINP_SHIFT, 0},       {VK_CONTROL, HGEINP_CTRL, 0},
                      {VK_MENU, HGEINP_ALT, 0},          {VK_CAPITAL, 0, HGEINP_CAPSLOCK},
                      {VK_SCROLL, 0, HGEINP_SCROLLLOCK}, {VK_NUMLOCK, 0, HGEINP_NUMLOCK}};
    int flags = 0;
    for (const auto& key : keys) {
        SHORT state = GetKeyState(key.key);
        if (state < 0) flags |= key.held;
        if (state & 1) flags |= key.toggled;
    }
    return flags;
}

struct ButtonMessages {
    UINT down, up;
    int key;
};

constexpr ButtonMessages kButtonMessages[] = {{WM_LBUTTONDOWN, WM_LBUTTONUP, VK_LBUTTON},
                                              {WM_RBUTTONDOWN, WM_RBUTTONUP, VK_RBUTTON},
                                              {WM_MBUTTONDOWN, WM_MBUTTONUP, VK_MBUTTON}};

int ExtraButton(WPARAM wparam) {
    return GET_XBUTTON_WPARAM(wparam) == XBUTTON1 ? VK_XBUTTON1 : VK_XBUTTON2;
}

}  // namespace

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTA*>(lparam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    // Messages of a window that is being made or ended are the system's.
    if (!self || self->handle() != window) return DefWindowProcA(window, message, wparam, lparam);
    try {
        return self->Handle(window, message, wparam, lparam);
    } catch (const std::exception&) {
        return 0;
    }
}

LRESULT Window::Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (auto result = HandleKey(message, wparam)) return *result;
    if (auto result = HandleMouse(message, wparam, lparam)) return *result;
    if (auto result = HandleFocus(message, wparam, lparam)) return *result;
    if (auto result = HandleSystem(message, wparam, lparam)) return *result;
    return DefWindowProcA(window, message, wparam, lparam);
}

std::optional<LRESULT> Window::HandleKey(UINT message, WPARAM wparam) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYUP:
            input_.PostKey(static_cast<int>(wparam), message == WM_KEYDOWN || message == WM_SYSKEYDOWN,
                           KeyFlags());
            // Alt+F4 closes; Alt and F10 alone would open a menu and stop the loop.
            if (message == WM_SYSKEYDOWN && wparam == VK_F4) return std::nullopt;
            return 0;
        case WM_CHAR:
            input_.PostChar(static_cast<int>(wparam & 0xFF));
            return 0;
        case WM_SYSCHAR:
            return 0;
        case WM_MENUCHAR:
            return MAKELRESULT(0, MNC_CLOSE);
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> Window::HandleMouse(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_MOUSEMOVE:
            MouseMoved(lparam);
            return 0;
        case WM_MOUSELEAVE:
            MouseLeft();
            return 0;
        case WM_XBUTTONDOWN:
        case WM_XBUTTONUP:
            MouseButton(ExtraButton(wparam), message == WM_XBUTTONDOWN, lparam);
            return TRUE;
        case WM_MOUSEWHEEL: {
            POINT position = {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
            ScreenToClient(handle(), &position);
            input_.PostWheel(GET_WHEEL_DELTA_WPARAM(wparam), static_cast<float>(position.x),
                             static_cast<float>(position.y), KeyFlags());
            return 0;
        }
        default:
            return HandleButton(message, lparam);
    }
}

std::optional<LRESULT> Window::HandleButton(UINT message, LPARAM lparam) {
    for (const ButtonMessages& button : kButtonMessages) {
        if (message != button.down && message != button.up) continue;
        MouseButton(button.key, message == button.down, lparam);
        return 0;
    }
    return std::nullopt;
}

void Window::MouseButton(int key, bool down, LPARAM position) {
    input_.PostButton(key, down, static_cast<float>(GET_X_LPARAM(position)),
                      static_cast<float>(GET_Y_LPARAM(position)), KeyFlags());
    if (down && settings_.parent) SetFocus(handle());
    if (down) SetCapture(handle());
    if (!input_.ButtonHeld() && GetCapture() == handle()) ReleaseCapture();
}

void Window::MouseMoved(LPARAM position) {
    input_.PostMove(static_cast<float>(GET_X_LPARAM(position)), static_cast<float>(GET_Y_LPARAM(position)));
    if (tracking_mouse_) return;
    TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE, handle(), 0};
    tracking_mouse_ = TrackMouseEvent(&track);
}

// Nothing else tells that the mouse is outside: what it was over last would stay lit.
void Window::MouseLeft() {
    tracking_mouse_ = false;
    POINT cursor = CursorInClient();
    input_.PostMove(static_cast<float>(cursor.x), static_cast<float>(cursor.y));
}

std::optional<LRESULT> Window::HandleFocus(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ACTIVATEAPP:
            SetActive(wparam != FALSE);
            return 0;
        case WM_ACTIVATE:
            if (!full_screen() || placing_) return std::nullopt;
            if (LOWORD(wparam) == WA_INACTIVE)
                LowerForDialog();
            else
                Place();
            return std::nullopt;
        case WM_KILLFOCUS:
            input_.PostReleaseAll();
            return 0;
        case WM_CAPTURECHANGED:
            // Another window has taken it: the releases would not arrive.
            if (reinterpret_cast<HWND>(lparam) != handle()) input_.PostReleaseButtons();
            return 0;
        case WM_DISPLAYCHANGE:
            if (full_screen() && active_ && !placing_) Place();
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> Window::HandleSystem(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CLOSE:
            close_requested_ = true;
            return 0;
        case WM_NCDESTROY:
            // The parent went and took this window along.
            handle_.release();
            PostQuitMessage(0);
            return 0;
        case WM_SYSCOMMAND:
            if (BlocksCommand(wparam & 0xFFF0)) return 0;
            return std::nullopt;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            ValidateRect(handle(), nullptr);
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lparam) != HTCLIENT || !settings_.hide_mouse) return std::nullopt;
            SetCursor(nullptr);
            return TRUE;
        case WM_GETMINMAXINFO:
            // The client area may be larger than the desktop.
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMaxTrackSize = {32767, 32767};
            return 0;
        default:
            return std::nullopt;
    }
}

bool Window::BlocksCommand(WPARAM command) const {
    if (command == SC_KEYMENU) return true;
    bool saver = command == SC_SCREENSAVE || command == SC_MONITORPOWER;
    return saver && full_screen() && active_;
}

}  // namespace hge
