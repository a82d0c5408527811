#include "hgegui.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

#include "support/recording_hge.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> g_events;

std::vector<std::string> TakeEvents() {
    return std::exchange(g_events, {});
}

// Writes down what reaches it as "name event"; `on` does more at the named event and says what to return.
class Control : public hgeGUIObject {
 public:
    Control(const std::string& name, int ctrl_id, const hgeRect& place) : name_(name) {
        id = ctrl_id;
        rect = place;
    }
    ~Control() override { g_events.push_back(name_ + " deleted"); }

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
    bool MouseMove(float x, float y) override {
        return Say("move " + recording_text::Text(x) + "," + recording_text::Text(y));
    }
    bool MouseLButton(bool b) override { return Say(b ? "L down" : "L up"); }
    bool MouseRButton(bool b) override { return Say(b ? "R down" : "R up"); }
    bool MouseWheel(int n) override { return Say("wheel " + std::to_string(n)); }
    bool KeyClick(int key, int chr) override {
        return Say("key " + std::to_string(key) + " " + std::to_string(chr));
    }
    void SetColor(DWORD value) override {
        hgeGUIObject::SetColor(value);
        Say("color");
    }

    std::map<std::string, std::function<bool()>> on;
    bool done = true;

 private:
    bool Say(const std::string& event) {
        g_events.push_back(name_ + " " + event);
        auto reaction = on.find(event);
        if (reaction == on.end()) return false;
        const auto react = reaction->second;
        return react();
    }
    std::string name_;
};

// a (id 1) at 0..100 under b (id 2) at 50..150, c (id 3) at 200..300; all 100 high.
class GuiTest : public testing::Test {
 protected:
    void SetUp() override {
        Recording().Reset();
        Recording().mouse_x = Recording().mouse_y = 500;
        gui_ = std::make_unique<hgeGUI>();
        a_ = Add("a", 1, hgeRect(0, 0, 100, 100));
        b_ = Add("b", 2, hgeRect(50, 0, 150, 100));
        c_ = Add("c", 3, hgeRect(200, 0, 300, 100));
        TakeEvents();
    }
    void TearDown() override {
        gui_.reset();
        EXPECT_EQ(Recording().references, 0);
        EXPECT_THAT(Recording().Faults(), IsEmpty());
    }

    Control* Add(const std::string& name, int id, const hgeRect& place) {
        auto* control = new Control(name, id, place);
        gui_->AddCtrl(control);
        return control;
    }
    int Frame() {
        int id = gui_->Update(0.1f);
        Recording().NextFrame();
        return id;
    }
    int MouseTo(float x, float y) {
        Recording().mouse_x = x;
        Recording().mouse_y = y;
        return Frame();
    }
    int Press(int key = HGEK_LBUTTON) {
        Recording().Press(key);
        return Frame();
    }
    int Lift(int key = HGEK_LBUTTON) {
        Recording().Lift(key);
        return Frame();
    }
    std::vector<int> Order() const {
        std::vector<int> ids;
        for (hgeGUIObject* ctrl = gui_->GetCtrl(1) ? First(gui_->GetCtrl(1)) : nullptr; ctrl;
             ctrl = ctrl->next)
            ids.push_back(ctrl->id);
        return ids;
    }
    static hgeGUIObject* First(hgeGUIObject* ctrl) {
        while (ctrl->prev)
            ctrl = ctrl->prev;
        return ctrl;
    }
    static bool No() { return false; }
    static bool Yes() { return true; }

    std::unique_ptr<hgeGUI> gui_;
    Control *a_ = nullptr, *b_ = nullptr, *c_ = nullptr;
};

TEST_F(GuiTest, AControlIsNewWhiteShownAndEnabled) {
    Control control("x", 0, hgeRect());
    EXPECT_EQ(control.color, 0xFFFFFFFFu);
    EXPECT_TRUE(control.bVisible && control.bEnabled && !control.bStatic);
    EXPECT_TRUE(!control.gui && !control.next && !control.prev);
}

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
    EXPECT_THAT(TakeEvents(), ElementsAre("b render", "a render"));
    gui_.reset();
    EXPECT_THAT(TakeEvents(), ElementsAre("b deleted", "c deleted", "a deleted"));
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
    EXPECT_EQ(b_->rect.x2, 105);
    EXPECT_EQ(b_->rect.y2, 106);
    gui_->Move(10, -10);
    EXPECT_EQ(b_->rect.x1, 15);
    EXPECT_EQ(b_->rect.y2, 96);
    EXPECT_EQ(a_->rect.x1, 10);
    gui_->SetColor(0x80808080);
    EXPECT_THAT(TakeEvents(), ElementsAre("a color", "b color", "c color"));
    EXPECT_EQ(c_->color, 0x80808080u);
}

TEST_F(GuiTest, TheFocusGoesToControlsThatCanHaveIt) {
    gui_->SetFocus(1);
    gui_->SetFocus(1);
    gui_->SetFocus(2);
    EXPECT_THAT(TakeEvents(), ElementsAre("a focus", "a unfocus", "b focus"));
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
    EXPECT_THAT(TakeEvents(), ElementsAre("b unfocus"));
}

TEST_F(GuiTest, TheTopmostControlUnderTheMouseIsEnteredAndLeft) {
    MouseTo(75, 10);
    EXPECT_THAT(TakeEvents(), ElementsAre("b over", "b move 25,10"));
    Frame();
    EXPECT_THAT(TakeEvents(), IsEmpty());
    MouseTo(25, 10);
    EXPECT_THAT(TakeEvents(), ElementsAre("b out", "a over", "a move 25,10"));
    MouseTo(500, 500);
    EXPECT_THAT(TakeEvents(), ElementsAre("a out"));
    gui_->MoveToTail(1);
    MouseTo(99, 10);
    EXPECT_THAT(TakeEvents(), ElementsAre("a over", "a move 99,10"));
    gui_->EnableCtrl(1, false);
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a out", "b over"));
}

TEST_F(GuiTest, AClickFocusesPressesAndReleases) {
    MouseTo(25, 10);
    TakeEvents();
    a_->on["L up"] = Yes;
    EXPECT_EQ(Press(), 0);
    EXPECT_THAT(TakeEvents(), ElementsAre("a focus", "a L down"));
    EXPECT_EQ(Lift(), 1);
    EXPECT_THAT(TakeEvents(), ElementsAre("a L up"));
    EXPECT_EQ(gui_->GetFocus(), 1);

    a_->bStatic = true;
    gui_->SetFocus(3);
    TakeEvents();
    Press(HGEK_RBUTTON);
    Lift(HGEK_RBUTTON);
    EXPECT_THAT(TakeEvents(), ElementsAre("a R down", "a R up"));
    EXPECT_EQ(gui_->GetFocus(), 3);
}

TEST_F(GuiTest, APressAndReleaseInOneFrameAreBothSent) {
    MouseTo(25, 10);
    TakeEvents();
    a_->on["L down"] = Yes;
    Recording().Press(HGEK_LBUTTON);
    EXPECT_EQ(Lift(), 1);
    EXPECT_THAT(TakeEvents(), ElementsAre("a focus", "a L down", "a L up"));
    MouseTo(250, 10);
    EXPECT_THAT(TakeEvents(), ElementsAre("a out", "c over", "c move 50,10"));
}

TEST_F(GuiTest, AHeldButtonKeepsTheMouseWithItsControl) {
    MouseTo(25, 10);
    Press();
    TakeEvents();
    MouseTo(250, 20);
    Press(HGEK_RBUTTON);
    Lift();
    MouseTo(260, 20);
    EXPECT_THAT(TakeEvents(), ElementsAre("a move 250,20", "a R down", "a L up", "a move 260,20"));
    Lift(HGEK_RBUTTON);
    EXPECT_THAT(TakeEvents(), ElementsAre("a R up"));
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a out", "c over"));
}

TEST_F(GuiTest, TheWheelTurnsUnderTheMouse) {
    MouseTo(250, 10);
    TakeEvents();
    c_->on["wheel -2"] = Yes;
    Recording().mouse_wheel = -2;
    EXPECT_EQ(Frame(), 3);
    EXPECT_THAT(TakeEvents(), ElementsAre("c wheel -2"));
}

TEST_F(GuiTest, KeysGoToTheFocusAndButtonsAreNoKeys) {
    Press('A');
    gui_->SetFocus(2);
    TakeEvents();
    Recording().last_char = 'a';
    EXPECT_EQ(Press('A'), 0);
    EXPECT_THAT(TakeEvents(), ElementsAre("b key 65 97"));
    for (int button : {HGEK_LBUTTON, HGEK_RBUTTON, HGEK_MBUTTON}) {
        Press(button);
        Lift(button);
    }
    EXPECT_THAT(TakeEvents(), IsEmpty());

    b_->on["key 13 0"] = Yes;
    Recording().mouse_x = Recording().mouse_y = 10;
    EXPECT_EQ(Press(13), 2);
    EXPECT_THAT(TakeEvents(), ElementsAre("b key 13 0"));
}

TEST_F(GuiTest, NavigationKeysMoveTheFocus) {
    gui_->SetNavMode(HGEGUI_LEFTRIGHT);
    Press(HGEK_RIGHT);
    EXPECT_EQ(gui_->GetFocus(), 1);
    gui_->EnableCtrl(2, false);
    Press(HGEK_RIGHT);
    Press(HGEK_RIGHT);
    EXPECT_EQ(gui_->GetFocus(), 3);
    Press(HGEK_LEFT);
    EXPECT_EQ(gui_->GetFocus(), 1);
    TakeEvents();
    Press(HGEK_DOWN);
    EXPECT_THAT(TakeEvents(), ElementsAre("a key 40 0"));

    gui_->SetNavMode(HGEGUI_UPDOWN | HGEGUI_CYCLED);
    Press(HGEK_UP);
    EXPECT_EQ(gui_->GetFocus(), 3);
    a_->bStatic = true;
    Press(HGEK_DOWN);
    EXPECT_EQ(gui_->GetFocus(), 3);
    gui_->EnableCtrl(3, false);
    Press(HGEK_DOWN);
    EXPECT_EQ(gui_->GetFocus(), 3);
}

TEST_F(GuiTest, EnteringHoldsTheMouseBackUntilAllAreDone) {
    gui_->Enter();
    b_->done = false;
    EXPECT_THAT(TakeEvents(), ElementsAre("a enter", "b enter", "c enter"));
    EXPECT_EQ(MouseTo(25, 10), 0);
    EXPECT_THAT(TakeEvents(), IsEmpty());
    b_->done = true;
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a over"));
}

TEST_F(GuiTest, LeavingEndsInMinusOneUntilEntered) {
    MouseTo(25, 10);
    Press();
    TakeEvents();
    b_->done = false;
    gui_->Leave();
    EXPECT_THAT(TakeEvents(), ElementsAre("a leave", "b leave", "c leave"));
    EXPECT_EQ(gui_->GetFocus(), 0);
    EXPECT_EQ(Frame(), 0);
    b_->done = true;
    EXPECT_EQ(Frame(), -1);
    EXPECT_EQ(Lift(), -1);
    gui_->Enter();
    TakeEvents();
    EXPECT_EQ(Frame(), 0);
    EXPECT_THAT(TakeEvents(), ElementsAre("a over"));
    gui_->SetFocus(1);
    gui_->Reset();
    EXPECT_EQ(gui_->GetFocus(), 0);
    EXPECT_THAT(TakeEvents(), ElementsAre("a focus", "a reset", "b reset", "c reset"));
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
    ASSERT_EQ(Recording().quads.size(), 1u);
    EXPECT_EQ(Recording().quads[0].v[0].x, 30);
    EXPECT_EQ(Recording().quads[0].v[0].y, 40);
    gui_->SetCursor(nullptr);
    gui_->Render();
    EXPECT_EQ(Recording().quads.size(), 1u);
}

// ---- the list changes under the handlers

TEST_F(GuiTest, AControlMayDeleteItselfInAnyHandler) {
    for (const char* event : {"update", "enter", "leave", "reset", "render", "color", "focus", "over",
                              "move 5,5", "L down", "R down", "wheel 1", "L up", "R up", "key 65 0"}) {
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

TEST_F(GuiTest, TheOneThatActedAndLeftIsStillNamed) {
    MouseTo(25, 10);
    Press();
    a_->on["L up"] = [this] {
        delete a_;
        return true;
    };
    TakeEvents();
    Recording().Lift(HGEK_LBUTTON);
    EXPECT_EQ(MouseTo(26, 10), 1);
    EXPECT_THAT(TakeEvents(), ElementsAre("a L up", "a deleted"));
    EXPECT_EQ(Frame(), 0);
}

TEST_F(GuiTest, OthersTakenOutInAWalkAreNotCalled) {
    a_->on["update"] = [this] {
        delete b_;
        gui_->DelCtrl(3);
        return false;
    };
    b_->on["update"] = c_->on["update"] = No;
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a update", "b deleted"));
    a_->on["update"] = No;
    gui_->AddCtrl(c_);
    TakeEvents();
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a update", "c update"));
}

TEST_F(GuiTest, OneThatJoinsInAWalkWaitsForTheNext) {
    c_->on["update"] = [this] {
        Add("d", 4, hgeRect(0, 0, 1, 1))->on["update"] = No;
        gui_->MoveToTail(1);
        c_->on["update"] = No;
        return false;
    };
    a_->on["update"] = No;
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("a update", "c update"));
    Frame();
    EXPECT_THAT(TakeEvents(), ElementsAre("c update", "d update", "a update"));
}

TEST_F(GuiTest, TheFocusMayBeTakenAwayWhileItMoves) {
    gui_->SetFocus(1);
    a_->on["unfocus"] = [this] {
        delete b_;
        return false;
    };
    TakeEvents();
    MouseTo(120, 10);
    Press();
    EXPECT_THAT(TakeEvents(), ElementsAre("b over", "b move 70,10", "a unfocus", "b deleted"));
    EXPECT_EQ(gui_->GetFocus(), 0);
    Lift();
    EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(GuiTest, LeavingInTheMiddleOfAPressLetsTheMouseGo) {
    MouseTo(25, 10);
    a_->on["L down"] = [this] {
        gui_->Leave();
        return true;
    };
    EXPECT_EQ(Press(), 1);
    EXPECT_EQ(Frame(), -1);
    gui_->Enter();
    TakeEvents();
    MouseTo(250, 10);
    EXPECT_THAT(TakeEvents(), ElementsAre("c over", "c move 50,10"));
}

}  // namespace
