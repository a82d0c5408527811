#pragma once

#include <drill2d/controls.h>
#include <drill2d/scenes.h>

#include <functional>
#include <memory>
#include <vector>

#include "notify_sink.h"
#include "stage.h"

namespace training {

// A scene with controls: they are shown and hidden with it and keep their status meanwhile.
class Scene : public IScener {
 public:
    // The stage outlives the scene.
    explicit Scene(Stage& stage) : stage_(stage) {}
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void show() override;
    void hide() override;
    void save_ctl_status() override;
    void repeat_status() override;
    void mouse_lbdown(float, float) override {}
    void mouse_lbup(float, float) override {}
    void mouse_rbdown(float, float) override {}
    void mouse_rbup(float, float) override {}
    void mouse_move(float, float) override {}

    // The language has changed: gives every control its text.
    virtual void Retext() {}
    // Draws what shines, with additive sprites; the effect lets it fall on the scene.
    virtual void RenderLight() {}
    // Does what a player would do next, for a program that plays by itself.
    virtual void PlayByItself(float dt) = 0;

 protected:
    Stage& GetStage() { return stage_; }
    Fonts& GetFonts() { return stage_.GetFonts(); }

    // A five-frame strip that calls the action when it is clicked. The engine owns the button.
    CGameButton* AddButton(const char* image, float x, float y, std::function<void()> action);
    // In the middle of the button.
    void SetCaption(CGameButton* button, Text text);

 private:
    struct Status {
        bool visible, enabled;
    };

    Stage& stage_;
    std::vector<IControlOpera*> controls_;
    std::vector<Status> saved_;
    std::vector<std::unique_ptr<NotifySink>> sinks_;
};

}  // namespace training
