#include "window/key_names.h"

#include <initializer_list>

#include "hgekeys.h"

namespace hge {

namespace {

struct NamedKey {
    int key;
    const char* name;
};

constexpr NamedKey kNamedKeys[] = {
    {HGEK_LBUTTON, "Left Mouse Button"},
    {HGEK_RBUTTON, "Right Mouse Button"},
    {HGEK_MBUTTON, "Middle Mouse Button"},
    {HGEK_BACKSPACE, "Backspace"},
    {HGEK_TAB, "Tab"},
    {HGEK_ENTER, "Enter"},
    {HGEK_SHIFT, "Shift"},
    {HGEK_CTRL, "Ctrl"},
    {HGEK_ALT, "Alt"},
    {HGEK_PAUSE, "Pause"},
    {HGEK_CAPSLOCK, "Caps Lock"},
    {HGEK_ESCAPE, "Escape"},
    {HGEK_SPACE, "Space"},
    {HGEK_PGUP, "Page Up"},
    {HGEK_PGDN, "Page Down"},
    {HGEK_END, "End"},
    {HGEK_HOME, "Home"},
    {HGEK_LEFT, "Left Arrow"},
    {HGEK_UP, "Up Arrow"},
    {HGEK_RIGHT, "Right Arrow"},
    {HGEK_DOWN, "Down Arrow"},
    {HGEK_INSERT, "Insert"},
    {HGEK_DELETE, "Delete"},
    {HGEK_LWIN, "Left Win"},
    {HGEK_RWIN, "Right Win"},
    {HGEK_APPS, "Application"},
    {HGEK_MULTIPLY, "Multiply"},
    {HGEK_ADD, "Add"},
    {HGEK_SUBTRACT, "Subtract"},
    {HGEK_DECIMAL, "Decimal"},
    {HGEK_DIVIDE, "Divide"},
    {HGEK_NUMLOCK, "Num Lock"},
    {HGEK_SCROLL, "Scroll Lock"},
    {HGEK_SEMICOLON, ";"},
    {HGEK_EQUALS, "="},
    {HGEK_COMMA, ","},
    {HGEK_MINUS, "-"},
    {HGEK_PERIOD, "."},
    {HGEK_SLASH, "/"},
    {HGEK_GRAVE, "`"},
    {HGEK_LBRACKET, "["},
    {HGEK_BACKSLASH, "\\"},
    {HGEK_RBRACKET, "]"},
    {HGEK_APOSTROPHE, "'"},
};

constexpr const char* kDigits[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
constexpr const char* kLetters[] = {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M",
                                    "N", "O", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z"};
constexpr const char* kNumpad[] = {"Numpad 0", "Numpad 1", "Numpad 2", "Numpad 3", "Numpad 4",
                                   "Numpad 5", "Numpad 6", "Numpad 7", "Numpad 8", "Numpad 9"};
constexpr const char* kFunction[] = {"F1", "F2", "F3", "F4",  "F5",  "F6",
                                     "F7", "F8", "F9", "F10", "F11", "F12"};

template <int kCount>
const char* InRow(const char* const (&names)[kCount], int first, int key) {
    return key >= first && key < first + kCount ? names[key - first] : nullptr;
}

}  // namespace

const char* KeyName(int key) {
    for (const char* name : {InRow(kDigits, HGEK_0, key), InRow(kLetters, HGEK_A, key),
                             InRow(kNumpad, HGEK_NUMPAD0, key), InRow(kFunction, HGEK_F1, key)})
        if (name) return name;
    for (const NamedKey& named : kNamedKeys)
        if (named.key == key) return named.name;
    return "";
}

}  // namespace hge
