#pragma once

#include <drill2d/controls.h>

#include <functional>
#include <memory>
#include <vector>

#include "notify_sink.h"
#include "stage.h"

namespace training {

// The window of settings. It is dragged with the mouse; what changes in it counts at once.
class SettingsWindow {
 public:
    explicit SettingsWindow(Stage& stage);
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;
    ~SettingsWindow();

    void Open();
    void Close();
    bool IsOpen() { return window_->IsWindowVisible(); }
    // Once a frame: takes over what the check boxes show.
    void Update();
    void Retext();

 private:
    CGameLable* AddLabel(float x, float y, float width, int size, unsigned short format);
    CGameCheckBox* AddCheckBox(float y);
    CGameButton* AddButton(const char* image, float x, float y, std::function<void()> action);
    void AddRows();
    void AddMinutes(int step);
    void ShowMinutes();

    Stage& stage_;
    CGameWindow* window_;  // this and its children are the engine's
    CLayout layout_;
    std::vector<hgeGUIObject*> children_;  // as they lie on each other
    std::vector<std::unique_ptr<NotifySink>> sinks_;
    CGameLable *title_ = nullptr, *sound_text_ = nullptr, *music_text_ = nullptr, *limit_text_ = nullptr;
    CGameLable* minutes_ = nullptr;
    CGameCheckBox *sound_ = nullptr, *music_ = nullptr, *limit_ = nullptr;
    CGameButton *less_ = nullptr, *more_ = nullptr;
};

}  // namespace training
