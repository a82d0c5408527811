#pragma once

#include <bitset>
#include <deque>

namespace hge {

// The values of INPUT_*, and characters that belong to no key press.
enum class InputType { kChar, kKeyDown, kKeyUp, kButtonDown, kButtonUp, kMouseMove, kMouseWheel };

struct InputEvent {
    InputType type = InputType::kChar;
    int key = 0;
    int flags = 0;  // HGEINP_* bits
    int chr = 0;
    int wheel = 0;  // notches
    float x = 0, y = 0;
};

// Events as they happen in, what a frame sees out. A frame sees at most one press and then one release
// of a key, and no mouse movement after a click: what is too much for it waits, in order, for the next.
// So no click is lost, and the mouse position of a frame with a click is where it happened.
class InputQueue {
 public:
    // A press of a held key counts as a repeat, a release of a key that is not held as nothing.
    void PostKey(int key, bool down, int flags);
    // A character that the last posted key press made, or one without a key.
    void PostChar(int chr);
    void PostButton(int key, bool down, float x, float y, int flags);
    void PostMove(float x, float y);
    // delta: 120 a notch; parts of a notch are summed up.
    void PostWheel(int delta, float x, float y, int flags);
    // Releases of everything held: the focus is lost.
    void PostReleaseAll();
    // The same for mouse buttons only.
    void PostReleaseButtons();
    bool ButtonHeld() const;

    // Moves the mouse at once.
    void PlaceMouse(float x, float y);
    void Clear();

    void BeginFrame();
    void EndFrame();

    bool KeyDown(int key) const { return Has(down_, key); }
    bool KeyUp(int key) const { return Has(up_, key); }
    bool KeyHeld(int key) const { return Has(held_, key); }
    int last_key() const { return last_key_; }
    int last_char() const { return last_char_; }
    int wheel() const { return wheel_; }
    float mouse_x() const { return mouse_x_; }
    float mouse_y() const { return mouse_y_; }
    // The frame's next event; false when there is none.
    bool TakeEvent(InputEvent* event);

 private:
    static constexpr int kKeys = 256;
    using Keys = std::bitset<kKeys>;

    static bool Has(const Keys& keys, int key) { return key >= 0 && key < kKeys && keys[key]; }
    void PostEdge(InputEvent event, bool down);
    bool FitsFrame(const InputEvent& event) const;
    void Deliver(const InputEvent& event);
    void Press(const InputEvent& event);
    void Release(const InputEvent& event);

    std::deque<InputEvent> pending_;
    // As of the last posted event; held_ and mouse_x_ are as of the frame.
    Keys posted_;
    float posted_x_ = 0, posted_y_ = 0;
    int wheel_rest_ = 0;

    Keys held_, down_, up_;
    bool clicked_ = false;
    int last_key_ = 0, last_char_ = 0, wheel_ = 0;
    float mouse_x_ = 0, mouse_y_ = 0;
    std::deque<InputEvent> events_;
};

}  // namespace hge
