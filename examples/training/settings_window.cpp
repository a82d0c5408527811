#include "settings_window.h"

#include <algorithm>

#include "palette.h"

namespace training {

namespace {

constexpr SIZE kSize = {432, 372};
constexpr float kLeft = 56, kTextLeft = 104, kFirstRow = 112, kRowHeight = 52;

CGameWindow* MakeWindow(Stage& stage) {
    CGameWindow* window = new CGameWindow;
    window->InitWindow(stage.Resources(), "window.png", kSize);
    stage.Engine().AddControl(window);
    return window;
}

void Check(CGameCheckBox* box, bool checked) {
    int others = box->GetState() & ~STATE_CHECKED;
    box->SetState(checked ? others | STATE_CHECKED : others);
}

}  // namespace

SettingsWindow::SettingsWindow(Stage& stage) : stage_(stage), window_(MakeWindow(stage)), layout_(window_) {
    layout_.MoveWindow(0, 0, static_cast<float>(kSize.cx), static_cast<float>(kSize.cy), true);
    window_->SetLayOut(&layout_);
    AddRows();
    window_->centerwindow();
    Retext();
    Close();
}

SettingsWindow::~SettingsWindow() {
    window_->SetLayOut(nullptr);
    layout_.RemoveAll();
}

void SettingsWindow::AddRows() {
    float row = kFirstRow;
    title_ = AddLabel(kLeft, 44, 240, 26, FORMAT_LEFTTOP);
    AddButton("icon_close.png", 360, 34, [this] { Close(); });
    for (auto [box, text] : {std::pair(&sound_, &sound_text_), std::pair(&music_, &music_text_),
                             std::pair(&limit_, &limit_text_)}) {
        *box = AddCheckBox(row);
        *text = AddLabel(kTextLeft, row + 4, 240, 22, FORMAT_LEFTTOP);
        row += kRowHeight;
    }
    less_ = AddButton("icon_minus.png", kTextLeft, row - 4, [this] { AddMinutes(-1); });
    minutes_ = AddLabel(kTextLeft + 44, row + 6, 120, 22, FORMAT_CENTER);
    more_ = AddButton("icon_plus.png", kTextLeft + 164, row - 4, [this] { AddMinutes(1); });
}

// A disabled label lets the mouse through to what lies under it.
CGameLable* SettingsWindow::AddLabel(float x, float y, float width, int size, unsigned short format) {
    CGameLable* label = new CGameLable;
    label->SetFont(FaceName().c_str(), size, false, false, true);
    label->SetColor(kInk);
    label->setformat(format);
    label->MoveWindow(x, y, width, static_cast<float>(size), &layout_, true);
    label->EnableWindow(false);
    stage_.Engine().AddControl(label);
    layout_.AddControl(label);
    children_.push_back(label);
    return label;
}

CGameCheckBox* SettingsWindow::AddCheckBox(float y) {
    CGameCheckBox* box = new CGameCheckBox;
    box->LoadImageInfo(stage_.Resources(), "check.png");
    box->MoveWindow(kLeft, y, 0, 0, &layout_, false);
    stage_.Engine().AddControl(box);
    layout_.AddControl(box);
    children_.push_back(box);
    return box;
}

CGameButton* SettingsWindow::AddButton(const char* image, float x, float y, std::function<void()> action) {
    sinks_.push_back(std::make_unique<NotifySink>(NOTIFY_CLICK, [this, action = std::move(action)] {
        stage_.PlaySound("click.wav");
        action();
    }));
    CGameButton* button = new CGameButton;
    button->LoadImageInfo(stage_.Resources(), image);
    button->MoveWindow(x, y, 0, 0, &layout_, false);
    button->SetINotifyMsg(sinks_.back().get());
    stage_.Engine().AddControl(button);
    layout_.AddControl(button);
    children_.push_back(button);
    return button;
}

void SettingsWindow::Open() {
    const Settings& settings = stage_.GetSettings();
    Check(sound_, settings.sound);
    Check(music_, settings.music);
    Check(limit_, settings.limit);
    ShowMinutes();
    window_->ShowWindow(true);
    stage_.Engine().GotoTailControl(window_);
    for (hgeGUIObject* child : children_)
        stage_.Engine().GotoTailControl(child);
}

void SettingsWindow::Close() {
    window_->ShowWindow(false);
}

// Unchecking sends no notification, so the boxes are asked.
void SettingsWindow::Update() {
    if (!IsOpen()) return;
    Settings settings = stage_.GetSettings();
    bool same = settings.sound == sound_->getCheck() && settings.music == music_->getCheck() &&
                settings.limit == limit_->getCheck();
    if (same) return;
    settings.sound = sound_->getCheck();
    settings.music = music_->getCheck();
    settings.limit = limit_->getCheck();
    stage_.Change(settings);
    stage_.PlaySound("click.wav");
    ShowMinutes();
}

void SettingsWindow::AddMinutes(int step) {
    Settings settings = stage_.GetSettings();
    settings.minutes = std::clamp(settings.minutes + step, 1, 60);
    stage_.Change(settings);
    ShowMinutes();
}

void SettingsWindow::ShowMinutes() {
    const Settings& settings = stage_.GetSettings();
    minutes_->SetText(ToAnsi(stage_.Say(Text::kMinutes, settings.minutes).c_str(), "?").c_str());
    minutes_->SetColor(settings.limit ? kAmber : kMuted);
    less_->EnableWindow(settings.limit && settings.minutes > 1);
    more_->EnableWindow(settings.limit && settings.minutes < 60);
}

void SettingsWindow::Retext() {
    title_->SetText(stage_.Caption(Text::kSettings).c_str());
    sound_text_->SetText(stage_.Caption(Text::kSound).c_str());
    music_text_->SetText(stage_.Caption(Text::kMusic).c_str());
    limit_text_->SetText(stage_.Caption(Text::kLimit).c_str());
    ShowMinutes();
}

}  // namespace training
