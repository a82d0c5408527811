#include "hgegui.h"

#include <functional>
#include <memory>
#include <utility>

#include "support/recording_test.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string g_events;

// What happened since the last call: "name event" in order, with commas.
std::string Events() {
    return std::exchange(g_events, {});
}

// Tells what reaches it; `on` does more at the named event and says what to return.
class Control : public hgeGUIObject {
 public:
    Control(const std::string& name, int ctrl_id, const hgeRect& place) : name_(name) {
        id = ctrl_id;
        rect = place;
    }
    ~Control() override { Tell("deleted"); }

    void Render() override { Say("render"); }
    void Update(float) override {
        if (on.count("update")) Say("update");
    }
    void Enter() override { Say("enter"); }
    void Leave() override { Say("leave"); }
    void Reset() override { Say("reset"); }
    bool IsDone() override { return done; }
    void Focus(bool b) override { Say(b ? "focus" : "unfocus"); }
    void MouseOver(bool b) override { Say(b ? "over" : "out"); }
    bool MouseMove(float x, float y) override { return Say("move " + recording_text::Joined(x, y)); }
    bool MouseLButton(bool b) override { return Say(b ? "L down" : "L up"); }
    bool MouseRButton(bool b) override { return Say(b ? "R down" : "R up"); }
    bool MouseWheel(int n) override { return Say("wheel " + std::to_string(n)); }
    bool KeyClick(int key, int chr) override { return Say("key " + recording_text::Joined(key, chr)); }
    void SetColor(DWORD value) override {
        hgeGUIObject::SetColor(value);
        Say("color");
    }

    std::map<std::string, std::function<bool()>> on;
    bool done = true;

 private:
    void Tell(const std::string& event) { g_events += (g_events.empty() ? "" : ", ") + name_ + " " + event; }
    bool Say(const std::string& event) {
        Tell(event);
        auto reaction = on.find(event);
        if (reaction == on.end()) return false;
        const auto react = reaction->second;
        return react();
    }
    std::string name_;
};

// a (id 1) at 0..100 under b (id 2) at 50..150, c (id 3) at 200..300; all 100 high.
class GuiTest : public RecordingTest {
 protected:
    GuiTest() {
        Recording().mouse_x = Recording().mouse_y = 500;
        gui_ = std::make_unique<hgeGUI>();
        a_ = Add("a", 1, hgeRect(0, 0, 100, 100));
        b_ = Add("b", 2, hgeRect(50, 0, 150, 100));
        c_ = Add("c", 3, hgeRect(200, 0, 300, 100));
        Events();
    }
    Control* Add(const std::string& name, int id, const hgeRect& place) {
        auto* control = new Control(name, id, place);
        gui_->AddCtrl(control);
        return control;
    }
    // One update: what happened and, after " = ", what it returned if not 0.
    std::string Frame() {
        int id = gui_->Update(0.1f);
        Recording().NextFrame();
        return Events() + (id ? " = " + std::to_string(id) : "");
    }
    std::string MouseTo(float x, float y) {
        Recording().mouse_x = x;
        Recording().mouse_y = y;
        return Frame();
    }
    std::string Press(int key = HGEK_LBUTTON) {
        Recording().Press(key);
        return Frame();
    }
    std::string Lift(int key = HGEK_LBUTTON) {
        Recording().Lift(key);
        return Frame();
    }
    int FocusAfter(int key) {
        Press(key);
        return gui_->GetFocus();
    }
    std::vector<int> Order() const {
        std::vector<int> ids;
        hgeGUIObject* ctrl = gui_->GetCtrl(1);
        while (ctrl->prev)
            ctrl = ctrl->prev;
        for (; ctrl; ctrl = ctrl->next)
            ids.push_back(ctrl->id);
        return ids;
    }
    static bool No() { return false; }
    static bool Yes() { return true; }

    std::unique_ptr<hgeGUI> gui_;
    Control *a_ = nullptr, *b_ = nullptr, *c_ = nullptr;
};

TEST_F(GuiTest, UnknownIdsAndNullsAreHarmless) {
    gui_->AddCtrl(nullptr);
    gui_->AddCtrl(a_);
    gui_->DelCtrl(99);
    gui_->MoveCtrl(99, 1, 1);
    gui_->ShowCtrl(99, false);
    gui_->EnableCtrl(99, false);
    gui_->MoveToTail(99);
    EXPECT_EQ(gui_->GetCtrl(99), nullptr);
    EXPECT_THAT(Order(), ElementsAre(1, 2, 3));

    Recording().create_fails = true;
    hgeGUI without_framework;
    EXPECT_EQ(without_framework.Update(1), 0);
    without_framework.Render();
}

TEST_F(GuiTest, ControlsAreDrawnInOrderAndDeletedWithTheGui) {
    gui_->MoveToTail(1);
    gui_->MoveToTail(1);
    gui_->ShowCtrl(3, false);
    gui_->Render();
    EXPECT_EQ(Events(), "b render, a render");
    gui_.reset();
    EXPECT_EQ(Events(), "b deleted, c deleted, a deleted");
}

TEST_F(GuiTest, ARemovedControlGoesBackToItsOwner) {
    std::unique_ptr<hgeGUIObject> b(gui_->GetCtrl(2));
    gui_->DelCtrl(2);
    EXPECT_THAT(Order(), ElementsAre(1, 3));
    EXPECT_EQ(b->gui, nullptr);
    gui_->AddCtrl(b.get());
    EXPECT_THAT(Order(), ElementsAre(1, 3, 2));
    b.reset();
    EXPECT_THAT(Order(), ElementsAre(1, 3));
    Control copy(*a_);
    EXPECT_EQ(copy.gui, nullptr);
}

TEST_F(GuiTest, ControlsAreMovedAndColoured) {
    gui_->MoveCtrl(2, 5, 6);
    gui_->Move(10, -10);
    EXPECT_TRUE(b_->rect.x1 == 15 && b_->rect.x2 == 115 && b_->rect.y2 == 96 && a_->rect.x1 == 10);
    gui_->SetColor(0x80808080);
    EXPECT_EQ(Events(), "a color, b color, c color");
}

TEST_F(GuiTest, TheFocusGoesToControlsThatCanHaveIt) {
    gui_->SetFocus(1);
    gui_->SetFocus(1);
    gui_->SetFocus(2);
    EXPECT_EQ(Events(), "a focus, a unfocus, b focus");
    c_->bStatic = true;
    gui_->SetFocus(3);
    c_->bStatic = false;
    gui_->ShowCtrl(3, false);
    gui_->SetFocus(3);
    gui_->ShowCtrl(3, true);
    gui_->EnableCtrl(3, false);
    gui_->SetFocus(3);
    EXPECT_EQ(gui_->GetFocus(), 2);
    gui_->SetFocus(-1);
    EXPECT_EQ(gui_->GetFocus(), 0);
    EXPECT_EQ(Events(), "b unfocus");
}

TEST_F(GuiTest, TheTopmostControlUnderTheMouseIsEnteredAndLeft) {
    EXPECT_EQ(MouseTo(75, 10), "b over, b move 25, 10");
    EXPECT_EQ(Frame(), "");
    EXPECT_EQ(MouseTo(25, 10), "b out, a over, a move 25, 10");
    EXPECT_EQ(MouseTo(500, 500), "a out");
    gui_->MoveToTail(1);
    EXPECT_EQ(MouseTo(99, 10), "a over, a move 99, 10");
    gui_->EnableCtrl(1, false);
    EXPECT_EQ(Frame(), "a out, b over");
    c_->on["wheel -2"] = Yes;
    Recording().mouse_wheel = -2;
    EXPECT_EQ(MouseTo(250, 10), "b out, c over, c wheel -2, c move 50, 10 = 3");
}

TEST_F(GuiTest, AClickFocusesPressesAndReleases) {
    MouseTo(25, 10);
    a_->on["L up"] = Yes;
    EXPECT_EQ(Press(), "a focus, a L down");
    EXPECT_EQ(Lift(), "a L up = 1");
    EXPECT_EQ(gui_->GetFocus(), 1);

    a_->bStatic = true;
    gui_->SetFocus(3);
    Events();
    EXPECT_EQ(Press(HGEK_RBUTTON) + Lift(HGEK_RBUTTON), "a R downa R up");
    EXPECT_EQ(gui_->GetFocus(), 3);
}

TEST_F(GuiTest, APressAndReleaseInOneFrameAreBothSent) {
    MouseTo(25, 10);
    a_->on["L down"] = Yes;
    Recording().Press(HGEK_LBUTTON);
    EXPECT_EQ(Lift(), "a focus, a L down, a L up = 1");
    EXPECT_EQ(MouseTo(250, 10), "a out, c over, c move 50, 10");
}

TEST_F(GuiTest, AHeldButtonKeepsTheMouseWithItsControl) {
    MouseTo(25, 10);
    Press();
    EXPECT_EQ(MouseTo(250, 20), "a move 250, 20");
    EXPECT_EQ(Press(HGEK_RBUTTON), "a R down");
    EXPECT_EQ(Lift(), "a L up");
    EXPECT_EQ(MouseTo(260, 20), "a move 260, 20");
    EXPECT_EQ(Lift(HGEK_RBUTTON), "a R up");
    EXPECT_EQ(Frame(), "a out, c over");
}

TEST_F(GuiTest, KeysGoToTheFocusAndButtonsAreNoKeys) {
    Press('A');
    gui_->SetFocus(2);
    Events();
    Recording().last_char = 'a';
    EXPECT_EQ(Press('A'), "b key 65, 97");
    for (int button : {HGEK_LBUTTON, HGEK_RBUTTON, HGEK_MBUTTON})
        EXPECT_EQ(Press(button) + Lift(button), "");
    b_->on["key 13, 0"] = Yes;
    Recording().mouse_x = Recording().mouse_y = 10;
    EXPECT_EQ(Press(13), "b key 13, 0 = 2") << "the mouse waits";
}

TEST_F(GuiTest, NavigationKeysMoveTheFocus) {
    gui_->SetNavMode(HGEGUI_LEFTRIGHT);
    EXPECT_EQ(FocusAfter(HGEK_RIGHT), 1);
    gui_->EnableCtrl(2, false);
    EXPECT_EQ(FocusAfter(HGEK_RIGHT), 3);
    EXPECT_EQ(FocusAfter(HGEK_RIGHT), 3);
    EXPECT_EQ(FocusAfter(HGEK_LEFT), 1);
    EXPECT_EQ(Press(HGEK_DOWN), "a key 40, 0");

    gui_->SetNavMode(HGEGUI_UPDOWN | HGEGUI_CYCLED);
    EXPECT_EQ(FocusAfter(HGEK_UP), 3);
    a_->bStatic = true;
    EXPECT_EQ(FocusAfter(HGEK_DOWN), 3);
    gui_->EnableCtrl(3, false);
    EXPECT_EQ(FocusAfter(HGEK_DOWN), 3);
}

TEST_F(GuiTest, EnteringHoldsTheMouseBackUntilAllAreDone) {
    gui_->Enter();
    b_->done = false;
    EXPECT_EQ(Events(), "a enter, b enter, c enter");
    EXPECT_EQ(MouseTo(25, 10), "");
    b_->done = true;
    EXPECT_EQ(Frame(), "a over");
}

TEST_F(GuiTest, LeavingEndsInMinusOneUntilEntered) {
    MouseTo(25, 10);
    Press();
    b_->done = false;
    gui_->Leave();
    EXPECT_EQ(Events(), "a leave, b leave, c leave");
    EXPECT_EQ(gui_->GetFocus(), 0);
    EXPECT_EQ(Frame(), "");
    b_->done = true;
    EXPECT_EQ(Frame(), " = -1");
    EXPECT_EQ(Lift(), " = -1");
    gui_->Enter();
    Events();
    EXPECT_EQ(Frame(), "a over");
    gui_->SetFocus(1);
    gui_->Reset();
    EXPECT_EQ(gui_->GetFocus(), 0);
    EXPECT_EQ(Events(), "a focus, a reset, b reset, c reset");
}

TEST_F(GuiTest, TheCursorIsDrawnLastWhileTheMouseIsOver) {
    hgeSprite cursor(0, 0, 0, 16, 16);
    gui_->SetCursor(&cursor);
    Recording().mouse_over = false;
    gui_->Render();
    EXPECT_THAT(Recording().quads, IsEmpty());
    Recording().mouse_over = true;
    MouseTo(30, 40);
    gui_->Render();
    gui_->SetCursor(nullptr);
    gui_->Render();
    EXPECT_THAT(Recording().CallsMatching("Gfx"), ElementsAre("Gfx_RenderQuad(tex 0, 30,40 46,56)"));
}

// ---- the list changes under the handlers

TEST_F(GuiTest, AControlMayDeleteItselfInAnyHandler) {
    for (const char* event : {"update", "enter", "leave", "reset", "render", "color", "focus", "over",
                              "move 5, 5", "L down", "R down", "wheel 1", "L up", "R up", "key 65, 0"}) {
        Control* self = Add("x", 7, hgeRect(600, 0, 700, 100));
        self->on[event] = [self] {
            delete self;
            return true;
        };
        gui_->Enter();
        Recording().mouse_wheel = 1;
        Recording().Press(HGEK_LBUTTON);
        Recording().Press(HGEK_RBUTTON);
        MouseTo(605, 5);
        gui_->SetColor(0xFFFFFFFF);
        Press('A');
        Lift(HGEK_LBUTTON);
        Lift(HGEK_RBUTTON);
        gui_->Render();
        gui_->Reset();
        gui_->Leave();
        gui_->Enter();
        MouseTo(0, 500);
        EXPECT_EQ(gui_->GetCtrl(7), nullptr) << event;
        EXPECT_EQ(gui_->GetFocus(), 0) << event;
        EXPECT_THAT(Order(), ElementsAre(1, 2, 3)) << event;
    }
}

TEST_F(GuiTest, OthersTakenOutInAWalkAreNotCalled) {
    a_->on["update"] = [this] {
        delete b_;
        gui_->DelCtrl(3);
        return false;
    };
    b_->on["update"] = c_->on["update"] = No;
    EXPECT_EQ(Frame(), "a update, b deleted");
    a_->on["update"] = No;
    gui_->AddCtrl(c_);
    EXPECT_EQ(Frame(), "a update, c update");
}

TEST_F(GuiTest, OneThatJoinsInAWalkWaitsForTheNext) {
    c_->on["update"] = [this] {
        Add("d", 4, hgeRect(0, 0, 1, 1))->on["update"] = No;
        gui_->MoveToTail(1);
        c_->on["update"] = No;
        return false;
    };
    a_->on["update"] = No;
    EXPECT_EQ(Frame(), "a update, c update");
    EXPECT_EQ(Frame(), "c update, d update, a update");
}

TEST_F(GuiTest, TheOneThatLosesMayDeleteTheOneThatGains) {
    MouseTo(25, 10);
    gui_->SetFocus(1);
    Events();
    a_->on["out"] = [this] {
        delete b_;
        return false;
    };
    EXPECT_EQ(MouseTo(120, 10), "a out, b deleted");
    a_->on["unfocus"] = [this] {
        delete c_;
        return false;
    };
    gui_->SetFocus(3);
    EXPECT_EQ(Events(), "a unfocus, c deleted");
    EXPECT_EQ(gui_->GetFocus(), 0);
}

TEST_F(GuiTest, LeavingInTheMiddleOfAPressLetsTheMouseGo) {
    MouseTo(25, 10);
    a_->on["L down"] = [this] {
        gui_->Leave();
        return true;
    };
    EXPECT_THAT(Press(), testing::EndsWith(" = 1"));
    EXPECT_EQ(Frame(), " = -1");
    gui_->Enter();
    Events();
    EXPECT_EQ(MouseTo(250, 10), "c over, c move 50, 10");
}

}  // namespace
