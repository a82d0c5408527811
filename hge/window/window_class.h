#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "window/screen_mode.h"

namespace hge {

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};
// Owns a window.
using WindowHandle = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;

// The module that this code is in.
HINSTANCE ThisModule();

// Owns the registration of a window class; its windows have gone before it.
class WindowClass {
 public:
    WindowClass(const char* name, WNDPROC procedure, HBRUSH background);
    ~WindowClass();
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;

    const char* name() const { return name_; }

 private:
    const char* name_;
};

// A black window over the whole monitor, below the game's; it never takes the focus.
class Backdrop {
 public:
    Backdrop();

    // On top of everything: the game's window is to be raised after it.
    void Show(const ScreenArea& monitor);
    void PutBelow(HWND above);
    void Hide() { window_.reset(); }

 private:
    WindowClass class_;
    WindowHandle window_;
};

}  // namespace hge
