#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "core/log.h"
#include "window/desktop_display.h"
#include "window/input_queue.h"
#include "window/window_class.h"

namespace hge {

struct WindowSettings {
    ScreenSize size;  // of the client area, always
    int bits_per_pixel = 32;
    bool windowed = false;
    bool hide_mouse = true;
    std::string title;
    std::string icon;       // resource name in the program, "" for none
    HWND parent = nullptr;  // not null: a child at its corner
};

// The game's window: full screen, windowed or a child. Its input goes to the queue; closing it and its
// focus only set what the frame loop asks for, so no host code runs inside a message.
class Window {
 public:
    Window(Log& log, InputQueue& input);
    ~Window() { Destroy(); }

    // False with a line in the log.
    bool Create(const WindowSettings& settings);
    // Gives the desktop's mode back, too.
    void Destroy();

    HWND handle() const { return handle_.get(); }
    // Whether this program has the focus.
    bool Active() const;

    void SetTitle(const std::string& title);
    // "" for none.
    void SetIcon(const std::string& name);
    void HideMouse(bool hide);
    void SetWindowed(bool windowed);

    // Handles what has arrived; false once the quit message has.
    bool PumpMessages();
    static void WaitForMessage(DWORD milliseconds);
    // Whether closing was asked for since the last call.
    bool TakeCloseRequest();

    bool MouseOver() const;
    // Pixels of the client area.
    void MoveMouse(float x, float y);

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    // No value: the system's default is wanted.
    std::optional<LRESULT> HandleKey(UINT message, WPARAM wparam);
    std::optional<LRESULT> HandleMouse(UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> HandleButton(UINT message, LPARAM lparam);
    std::optional<LRESULT> HandleFocus(UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> HandleSystem(UINT message, WPARAM wparam, LPARAM lparam);
    bool BlocksCommand(WPARAM command) const;

    void MouseButton(int key, bool down, LPARAM position);
    void MouseMoved(LPARAM position);
    void MouseLeft();
    POINT CursorInClient() const;

    bool full_screen() const { return !settings_.windowed && !settings_.parent; }
    void SetActive(bool active);
    void Place();
    void PlaceInDesktop();
    void PlaceFullScreen();
    void ShowBackdrop(const ScreenArea& monitor);
    void LeaveFullScreen();
    void LowerForDialog();
    void CorrectClientSize();

    Log& log_;
    InputQueue& input_;
    DesktopDisplay display_;
    ScreenMode mode_;
    WindowClass class_;
    Backdrop backdrop_;
    WindowHandle handle_;
    WindowSettings settings_;
    bool active_ = false;
    bool placing_ = false;
    bool close_requested_ = false;
    bool tracking_mouse_ = false;
};

}  // namespace hge
