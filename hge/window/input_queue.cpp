#include "window/input_queue.h"

#include <utility>

namespace hge {

namespace {

constexpr int kRepeat = 64;  // HGEINP_REPEAT
constexpr int kNotch = 120;
constexpr int kButtons[] = {1, 2, 4, 5, 6};  // left, right, middle and the two extra ones

InputEvent EventAt(InputType type, float x, float y, int flags) {
    InputEvent event;
    event.type = type;
    event.flags = flags & ~kRepeat;
    event.x = x;
    event.y = y;
    return event;
}

}  // namespace

void InputQueue::PostKey(int key, bool down, int flags) {
    InputEvent event = EventAt(down ? InputType::kKeyDown : InputType::kKeyUp, posted_x_, posted_y_, flags);
    event.key = key;
    PostEdge(event, down);
}

void InputQueue::PostButton(int key, bool down, float x, float y, int flags) {
    PostMove(x, y);
    InputEvent event = EventAt(down ? InputType::kButtonDown : InputType::kButtonUp, x, y, flags);
    event.key = key;
    PostEdge(event, down);
}

void InputQueue::PostEdge(InputEvent event, bool down) {
    if (event.key <= 0 || event.key >= kKeys) return;
    bool held = posted_[event.key];
    if (!down && !held) return;
    if (down && held) event.flags |= kRepeat;
    posted_[event.key] = down;
    pending_.push_back(event);
}

void InputQueue::PostChar(int chr) {
    if (!pending_.empty() && pending_.back().type == InputType::kKeyDown && !pending_.back().chr) {
        pending_.back().chr = chr;
        return;
    }
    InputEvent event;
    event.chr = chr;
    pending_.push_back(event);
}

void InputQueue::PostMove(float x, float y) {
    if (x == posted_x_ && y == posted_y_) return;
    posted_x_ = x;
    posted_y_ = y;
    if (!pending_.empty() && pending_.back().type == InputType::kMouseMove) pending_.pop_back();
    pending_.push_back(EventAt(InputType::kMouseMove, x, y, 0));
}

void InputQueue::PostWheel(int delta, float x, float y, int flags) {
    PostMove(x, y);
    wheel_rest_ += delta;
    InputEvent event = EventAt(InputType::kMouseWheel, x, y, flags);
    event.wheel = wheel_rest_ / kNotch;
    wheel_rest_ %= kNotch;
    if (event.wheel) pending_.push_back(event);
}

void InputQueue::PostReleaseAll() {
    PostReleaseButtons();
    for (int key = 0; key < kKeys; ++key)
        if (posted_[key]) PostKey(key, false, 0);
}

void InputQueue::PostReleaseButtons() {
    for (int button : kButtons)
        if (posted_[button]) PostButton(button, false, posted_x_, posted_y_, 0);
}

bool InputQueue::ButtonHeld() const {
    for (int button : kButtons)
        if (posted_[button]) return true;
    return false;
}

void InputQueue::PlaceMouse(float x, float y) {
    PostMove(x, y);
    mouse_x_ = x;
    mouse_y_ = y;
}

void InputQueue::Clear() {
    *this = InputQueue();
}

void InputQueue::BeginFrame() {
    while (!pending_.empty() && FitsFrame(pending_.front())) {
        Deliver(pending_.front());
        pending_.pop_front();
    }
}

void InputQueue::EndFrame() {
    down_.reset();
    up_.reset();
    clicked_ = false;
    last_key_ = last_char_ = wheel_ = 0;
    events_.clear();
}

bool InputQueue::FitsFrame(const InputEvent& event) const {
    switch (event.type) {
        case InputType::kKeyDown:
        case InputType::kButtonDown:
            return (event.flags & kRepeat) || (!down_[event.key] && !up_[event.key]);
        case InputType::kKeyUp:
        case InputType::kButtonUp:
            return !up_[event.key];
        case InputType::kMouseMove:
            return !clicked_;
        default:
            return true;
    }
}

void InputQueue::Deliver(const InputEvent& event) {
    switch (event.type) {
        case InputType::kKeyDown:
        case InputType::kButtonDown:
            Press(event);
            break;
        case InputType::kKeyUp:
        case InputType::kButtonUp:
            Release(event);
            break;
        case InputType::kMouseMove:
            mouse_x_ = event.x;
            mouse_y_ = event.y;
            break;
        default:
            wheel_ += event.wheel;
    }
    if (event.chr) last_char_ = event.chr;
    if (event.type != InputType::kChar) events_.push_back(event);
}

void InputQueue::Press(const InputEvent& event) {
    if (!(event.flags & kRepeat)) down_.set(event.key);
    held_.set(event.key);
    last_key_ = event.key;
    clicked_ |= event.type == InputType::kButtonDown;
}

void InputQueue::Release(const InputEvent& event) {
    up_.set(event.key);
    held_.reset(event.key);
    clicked_ |= event.type == InputType::kButtonUp;
}

bool InputQueue::TakeEvent(InputEvent* event) {
    if (events_.empty()) return false;
    *event = events_.front();
    events_.pop_front();
    return true;
}

}  // namespace hge
