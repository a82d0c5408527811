#include "scene.h"

#include <hgegui.h>

#include <cmath>

namespace training {

CGameButton* Scene::AddButton(const char* image, float x, float y, std::function<void()> action) {
    sinks_.push_back(std::make_unique<NotifySink>(NOTIFY_CLICK, [this, action = std::move(action)] {
        stage_.PlaySound("click.wav");
        action();
    }));
    CGameButton* button = new CGameButton;
    button->LoadImageInfo(stage_.Resources(), image);
    button->MoveWindow(x, y, 0, 0, false);
    button->SetINotifyMsg(sinks_.back().get());
    stage_.Engine().AddControl(button);
    controls_.push_back(button);
    return button;
}

// The button's own centring reckons with one width for all fonts; here the text is measured.
void Scene::SetCaption(CGameButton* button, Text text) {
    GfxFont* font = GetFonts().Caption();
    SIZE size = font->GetTextSize(stage_.Say(text));
    hgeRect rect = button->GetRect();
    button->SetFont(font);
    button->SetCaption(stage_.Caption(text).c_str());
    button->SetTextPos(static_cast<int>((rect.x1 + rect.x2 - static_cast<float>(size.cx)) / 2),
                       static_cast<int>((rect.y1 + rect.y2 - static_cast<float>(size.cy)) / 2) - 2);
}

// A control that keeps the focus would keep the mouse from the scene, hidden or not.
void Scene::show() {
    stage_.Engine().GetGui()->SetFocus(-1);
}

void Scene::hide() {
    for (IControlOpera* control : controls_) {
        control->SetState(control->GetState() & STATE_DISABLED);
        control->ShowWindow(false);
    }
}

void Scene::save_ctl_status() {
    saved_.clear();
    for (IControlOpera* control : controls_)
        saved_.push_back({control->IsWindowVisible(), control->IsWindowEnabled()});
}

void Scene::repeat_status() {
    for (size_t i = 0; i < saved_.size(); ++i) {
        controls_[i]->EnableWindow(saved_[i].enabled);
        controls_[i]->ShowWindow(saved_[i].visible);
    }
}

}  // namespace training
