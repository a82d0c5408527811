// A screen of controls under a real mouse and a ball for its cursor: each notification, each change of place
// and each press that the host gets is a line of controls_trace.txt. Ends itself on Escape.
#include <drill2d/drill2d.h>

#include <cstdio>

#include "support/notify_text.h"
#include "support/silent_sink.h"

namespace {

std::FILE* g_trace = nullptr;

// Each control has a sink with its name.
class NamedSink final : public INotifyMsg {
 public:
    explicit NamedSink(const char* name) : name_(name) {}
    bool IsValid() override { return true; }
    bool Release() override { return true; }
    void* QueryInterface(const GUID& iid, unsigned long) override {
        return iid == IID_INotifyMsg ? static_cast<INotifyMsg*>(this) : nullptr;
    }
    void OnNotify(ControlNotify* msg) override {
        std::fprintf(g_trace, "%s %s\n", name_, NotifyText(*msg).c_str());
    }

 private:
    const char* name_;
};

class Screen : public SilentSink {
 public:
    void OnInit() override {
        window_ = Add(new CGameWindow, &nobody_, 450, 100, 300, 200);
        layout_ = std::make_unique<CLayout>(window_);
        window_->SetLayOut(layout_.get());
        child_ = Add(new CGameButton, &child_sink_, 0, 0, 80, 40);
        child_->MoveWindow(20, 30, 80, 40, layout_.get(), true);
        layout_->AddControl(child_);
        Add(new CGameButton, &first_, 50, 50, 100, 40);
        Add(new CGameButton, &second_, 200, 50, 100, 40);
        Add(new CGameButton, &dragged_, 50, 150, 100, 40)->SetDragCtl(true);
        Add(new CGameButton, &through_, 200, 150, 100, 40)->SetMouseThrough(false);
        Add(new CGameButton, &disabled_, 50, 250, 100, 40)->EnableWindow(false);
        Add(new CGameCheckBox, &box_, 200, 250, 40, 40);
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(Engine()->GetHge());
        res->AttachPacket("hello.zip");
        res->SetCurPacket("hello.zip");
        for (int i = 0; i < 2; ++i)
            Engine()->SetCursor("ball.png", res);
        std::fprintf(g_trace, "OnInit\n");
    }
    void OnLButtonDown(float x, float y) override { std::fprintf(g_trace, "left down %g,%g\n", x, y); }
    void OnLButtonUp(float x, float y) override { std::fprintf(g_trace, "left up %g,%g\n", x, y); }
    void OnRButtonDown(float x, float y) override { std::fprintf(g_trace, "right down %g,%g\n", x, y); }
    void OnRButtonUp(float x, float y) override { std::fprintf(g_trace, "right up %g,%g\n", x, y); }
    void OnFrame(float, int) override {
        hgeRect at = child_->GetRect();
        if (at.x1 != child_x_ || at.y1 != child_y_) {
            child_x_ = at.x1;
            child_y_ = at.y1;
            std::fprintf(g_trace, "panel %g,%g child %g,%g\n", window_->GetRect().x1, window_->GetRect().y1,
                         at.x1, at.y1);
        }
        if (Engine()->GetHge()->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }

 private:
    template <class Control>
    Control* Add(Control* control, NamedSink* sink, float x, float y, float w, float h) {
        control->SetINotifyMsg(sink);
        control->MoveWindow(x, y, w, h, true);
        Engine()->AddControl(control);
        return control;
    }

    NamedSink nobody_{"window"}, child_sink_{"child"}, first_{"first"}, second_{"second"};
    NamedSink dragged_{"dragged"}, through_{"through"}, disabled_{"disabled"}, box_{"box"};
    CGameWindow* window_ = nullptr;
    CGameButton* child_ = nullptr;
    std::unique_ptr<CLayout> layout_;
    float child_x_ = 470, child_y_ = 130;
};

}  // namespace

int main() {
    g_trace = std::fopen("controls_trace.txt", "wb");
    if (!g_trace) return 2;
    // The test reads along.
    std::setvbuf(g_trace, nullptr, _IONBF, 0);
    Screen host;
    bool ran = RunHost(&host, 800, 600, "controls_trace");
    std::fprintf(g_trace, "end\n");
    std::fclose(g_trace);
    return ran ? 0 : 1;
}
