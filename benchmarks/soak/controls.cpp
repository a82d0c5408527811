#include "toys.h"

namespace soak {

namespace {

constexpr size_t kMostGroups = 16;

// Captions of its senders change inside the GUI's walk.
struct Notified final : INotifyMsg {
    bool IsValid() override { return true; }
    bool Release() override { return false; }
    void* QueryInterface(const GUID& iid, unsigned long) override {
        return iid == IID_INotifyMsg ? static_cast<INotifyMsg*>(this) : nullptr;
    }
    void OnNotify(ControlNotify* msg) override {
        auto* button = dynamic_cast<CGameButton*>(msg->sender);
        if (button && msg->code == NOTIFY_CLICK) button->SetCaption("\xb5\xe3\xbb\xf7");
    }
};

// What is added and removed together.
struct Group {
    std::vector<hgeGUIObject*> objects;
    std::unique_ptr<CLayout> layout;
    bool kept = false;  // a label of ours, to be added again
};

// Real input: it goes through the system to the window under the mouse.
void SendMouse(DWORD flags, POINT at = {}, DWORD data = 0) {
    INPUT input = {};
    input.mi = {at.x, at.y, data, flags, 0, 0};
    SendInput(1, &input, sizeof input);
}

class Controls : public Toys {
 public:
    Controls() {
        font_.GetTextSize(L"\u70b9\u51fb\u5f00\u59cb");
        // A label's font lives as long as the process: there are only these.
        for (CGameLable* label : {&plain_, static_cast<CGameLable*>(&stretched_)}) {
            label->LoadImageInfo("icon_settings.png");
            label->SetFont("SimSun", 20, false, label == &plain_, true);
            label->SetText("\xd1\xb5\xc1\xb7\xbf\xaa\xca\xbc 0123456789..");
            idle_labels_.push_back(label);
        }
        OfferControls();
        OfferInput();
    }
    ~Controls() override { Rest(); }

    void Rest() override {
        for (Group& group : std::exchange(groups_, {}))
            Remove(group);
        if (pressed_) SendMouse(std::exchange(pressed_, 0) * 2);
    }

 private:
    void OfferControls() {
        MayLoad("add a button", 3, [this](Dice& dice) { Add({{MakeButton(dice)}, nullptr}, dice); });
        MayLoad("add a check box", 2, [this](Dice& dice) {
            Add({{Make<CGameCheckBox>(dice, "check.png")}, nullptr}, dice);
        });
        MayLoad("add a window", 1, [this](Dice& dice) { AddWindow(dice); });
        May("add a label", 6, [this](Dice& dice) { AddLabel(dice); });
        May("change a control", 50, [this](Dice& dice) { Change(dice); });
        May("remove controls", 8, [this](Dice& dice) {
            Group group = dice.TakeFrom(groups_);
            Remove(group);
        });
    }
    void OfferInput() {
        May("move the mouse", 120, [this](Dice& dice) { MoveMouse(dice); });
        // A button's release is twice its press.
        May("press or let go", 50, [this](Dice& dice) {
            DWORD press = dice.Chance(85) ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN;
            SendMouse(pressed_ ? pressed_ * 2 : press);
            pressed_ = pressed_ ? 0 : press;
        });
        May("turn the wheel", 5, [](Dice& dice) {
            SendMouse(MOUSEEVENTF_WHEEL, {}, static_cast<DWORD>((dice.Below(5) - 2) * WHEEL_DELTA));
        });
        May("type a key", 10, [](Dice& dice) {
            BYTE key = static_cast<BYTE>('A' + dice.Below(26));
            keybd_event(key, 0, 0, 0);
            keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
        });
    }

    template <class Control>
    Control* Make(Dice& dice, const char* image) {
        Control* control = new Control;
        dice.Chance(50) ? control->LoadImageInfo(image) : control->LoadImageInfo(manager_, image);
        control->MoveWindow(dice.Between(0, 700), dice.Between(0, 550), 0, 0, false);
        control->SetINotifyMsg(&notified_);
        return control;
    }
    CGameButton* MakeButton(Dice& dice) {
        auto* button = Make<CGameButton>(dice, dice.Chance(50) ? "button.png" : "button_small.png");
        if (dice.Chance(30)) button->loadMouseAni("glint.png", 4, 12, 0, 0);
        button->SetFont(&font_);
        button->SetTextAlign(ALIGN_CENTER);
        button->SetCaption("\xbf\xaa\xca\xbc");
        button->SetDragCtl(dice.Chance(30));
        return button;
    }
    void AddWindow(Dice& dice) {
        auto* window = Make<CGameWindow>(dice, "window.png");
        auto layout = std::make_unique<CLayout>(window);
        window->SetLayOut(layout.get());
        Group group{{window, MakeButton(dice), Make<CGameCheckBox>(dice, "check.png")}, std::move(layout)};
        for (size_t i = 1; i < group.objects.size(); ++i)
            group.layout->AddControl(group.objects[i]);
        group.layout->MoveWindow(10, 10, 300, 200, true);
        Add(std::move(group), dice);
    }
    void AddLabel(Dice& dice) {
        CGameLable* label = dice.TakeFrom(idle_labels_);
        if (!label) return;
        label->MoveWindow(dice.Between(0, 700), dice.Between(0, 550), 40 + dice.Between(0, 200), 40, true);
        label->setformat(dice.Chance(50) ? FORMAT_CENTER : FORMAT_ELLIPSIS);
        Add({{label}, nullptr, true}, dice);
    }
    void Add(Group group, Dice& dice) {
        if (groups_.size() >= kMostGroups) {
            Group old = dice.TakeFrom(groups_);
            Remove(old);
        }
        for (hgeGUIObject* object : group.objects)
            engine_->AddControl(object);
        groups_.push_back(std::move(group));
    }
    void Remove(Group& group) {
        for (hgeGUIObject* object : group.objects) {
            engine_->RemoveControl(object);
            if (group.kept)
                idle_labels_.push_back(static_cast<CGameLable*>(object));
            else
                delete object;
        }
        if (group.layout) group.layout->RemoveAll();
    }
    void MoveMouse(Dice& dice) {
        POINT at = {dice.Below(800), dice.Below(600)};
        if (!groups_.empty() && dice.Chance(80)) {
            const hgeRect& rect = dice.Of(dice.Of(groups_).objects)->rect;
            at = {static_cast<LONG>(rect.x1 + rect.x2) / 2, static_cast<LONG>(rect.y1 + rect.y2) / 2};
        }
        ClientToScreen(hge_->System_GetState(HGE_HWND), &at);
        LONG width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
        at = {(at.x * 65536 + 32768) / width, (at.y * 65536 + 32768) / height};
        SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, at);
    }
    void Change(Dice& dice) {
        if (groups_.empty()) return;
        hgeGUIObject* object = dice.Of(groups_).objects.front();
        auto* control = dynamic_cast<IControlOpera*>(object);
        switch (dice.Below(6)) {
            case 0:
                return control->ShowWindow(dice.Chance(80));
            case 1:
                return control->EnableWindow(dice.Chance(80));
            case 2:
                return control->SetState(dice.Below(64));
            case 3:
                return engine_->GotoTailControl(object);
            case 4:
                return engine_->GetGui()->SetFocus(object->id);
            default:
                return control->MoveWindow(dice.Between(0, 700), dice.Between(0, 550), 0, 0, false);
        }
    }

    Notified notified_;
    GfxFont font_{"SimSun", 20, 0, 0, 1};
    CGameLable plain_;
    CGameLableEx stretched_;
    std::vector<CGameLable*> idle_labels_;
    std::vector<Group> groups_;
    DWORD pressed_ = 0;  // MOUSEEVENTF_*DOWN of the button that is held
};

}  // namespace

std::unique_ptr<Toys> MakeControls() {
    return std::make_unique<Controls>();
}

}  // namespace soak
