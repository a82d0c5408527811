#pragma once

#include <memory>

#include "drill2d/controls.h"
#include "support/notify_text.h"
#include "support/recording_test.h"
#include "support/win32_seams.h"

using testing::ElementsAre;
using testing::IsEmpty;

class NotifyLog final : public INotifyMsg {
 public:
    std::vector<std::string> Take() { return std::exchange(lines_, {}); }
    bool answers = true;

    bool IsValid() override { return true; }
    bool Release() override { return true; }
    void* QueryInterface(const GUID& iid, unsigned long version) override {
        bool known = IsEqualGUID(iid, IID_INotifyMsg) && version == CONTROL_INTERFACE_VERSION;
        return known && answers ? static_cast<INotifyMsg*>(this) : nullptr;
    }
    void OnNotify(ControlNotify* msg) override {
        EXPECT_EQ(msg->time, GetTickCount());
        lines_.push_back("#" + std::to_string(msg->sender->id) + " " + NotifyText(*msg));
    }

 private:
    std::vector<std::string> lines_;
};

// Controls in a GUI with a mouse; each step of the mouse is one frame. Images are 500 x 40 pixels.
class GuiTest : public RecordingTest {
 protected:
    GuiTest() {
        Recording().initiated = true;
        Recording().image_width = 500;
        Recording().image_height = 40;
        // Far from every press of the tests before: the press debounce lives as long as the process.
        static DWORD start = 0;
        win32_seams::SetTick(start += 1000000);
    }

    // The GUI owns it.
    template <class Control>
    Control* Add(Control* control) {
        control->id = ++last_id_;
        control->SetINotifyMsg(&log_);
        gui_.AddCtrl(control);
        return control;
    }
    void MoveMouse(float x, float y) {
        Recording().mouse_x = x;
        Recording().mouse_y = y;
        Frame();
    }
    void Press() {
        Recording().Press(HGEK_LBUTTON);
        Frame();
    }
    void Lift() {
        Recording().Lift(HGEK_LBUTTON);
        Frame();
    }
    void Frame() {
        gui_.Update(0.25f);
        Recording().NextFrame();
    }
    // The quads of one picture.
    std::vector<hgeQuad> Draw() {
        Recording().ClearCalls();
        gui_.Render();
        return Recording().quads;
    }
    // Where in the 500 pixels of the first quad's image its left edge lies.
    float SourceLeft() { return Draw().at(0).v[0].tx * 500; }

    NotifyLog log_;
    hgeGUI gui_;

 private:
    int last_id_ = 0;
};
