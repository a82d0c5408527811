#include "core/hge_impl.h"
#include "window/key_names.h"

namespace hge {

static_assert(int(InputType::kKeyDown) == INPUT_KEYDOWN && int(InputType::kKeyUp) == INPUT_KEYUP &&
              int(InputType::kButtonDown) == INPUT_MBUTTONDOWN &&
              int(InputType::kButtonUp) == INPUT_MBUTTONUP && int(InputType::kMouseMove) == INPUT_MOUSEMOVE &&
              int(InputType::kMouseWheel) == INPUT_MOUSEWHEEL);

void HgeImpl::Input_GetMousePos(float* x, float* y) {
    if (x) *x = input_.mouse_x();
    if (y) *y = input_.mouse_y();
}

void HgeImpl::Input_SetMousePos(float x, float y) {
    Guarded("Input_SetMousePos", [&] { window_.MoveMouse(x, y); });
}

int HgeImpl::Input_GetMouseWheel() {
    return input_.wheel();
}

bool HgeImpl::Input_IsMouseOver() {
    return window_.MouseOver();
}

bool HgeImpl::Input_KeyDown(int key) {
    return input_.KeyDown(key);
}

bool HgeImpl::Input_KeyUp(int key) {
    return input_.KeyUp(key);
}

bool HgeImpl::Input_GetKeyState(int key) {
    return input_.KeyHeld(key);
}

char* HgeImpl::Input_GetKeyName(int key) {
    // The interface predates const; nobody may write to it.
    return const_cast<char*>(KeyName(key));
}

int HgeImpl::Input_GetKey() {
    return input_.last_key();
}

int HgeImpl::Input_GetChar() {
    return input_.last_char();
}

bool HgeImpl::Input_GetEvent(hgeInputEvent* event) {
    InputEvent next;
    if (!event || !input_.TakeEvent(&next)) return false;
    *event = {static_cast<int>(next.type), next.key, next.flags, next.chr, next.wheel, next.x, next.y};
    return true;
}

}  // namespace hge
