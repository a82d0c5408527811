#pragma once

#include <drill2d/resources.h>

#include "intro.h"
#include "scene.h"
#include "settings_window.h"

namespace training {

// Title, choice of the exercise, language and settings.
class StartScene : public Scene {
 public:
    // change_language tells all scenes.
    StartScene(Stage& stage, std::function<void()> change_language);

    void show() override;
    void hide() override;
    void update(float dt) override;
    void render() override;
    void RenderLight() override;
    void Retext() override;
    void PlayByItself(float dt) override;

 private:
    static constexpr float kIntroLeft = 400 - Intro::kSize / 2, kIntroTop = 200;

    void Start(ExerciseKind kind);
    void DrawChoice(ExerciseKind kind, Text hint, float middle);

    CGameSprite background_, logo_;
    Intro intro_;
    CGameButton *reaction_, *memory_, *language_;
    SettingsWindow settings_;
    std::function<void()> change_language_;
    float waited_ = 0;
    int visits_ = 0;
};

}  // namespace training
