#pragma once

#include <drill2d/drill2d.h>

#include <memory>

#include "play_scene.h"
#include "result_scene.h"
#include "stage.h"
#include "start_scene.h"

namespace training {

// Connects the engine with the scenes.
class Game : public I2DGameEngineSink {
 public:
    // The engine is not owned and outlives the game.
    Game(I2DGameEngine* engine, const Options& options);

    void OnInit() override;
    void OnFrame(float dt, int id) override;
    void OnRender() override;
    void OnLButtonDown(float x, float y) override { scenes_.mouse_lbdown(x, y); }
    void OnLButtonUp(float x, float y) override { scenes_.mouse_lbup(x, y); }
    void OnRButtonDown(float x, float y) override { scenes_.mouse_rbdown(x, y); }
    void OnRButtonUp(float x, float y) override { scenes_.mouse_rbup(x, y); }
    void OnMouseMove(float x, float y) override { scenes_.mouse_move(x, y); }
    // With the effect the scene and its light go to two targets, and the engine brings them together.
    void OnRenderTarget() override { DrawScene(); }
    void OnRenderTarget1() override { Current()->RenderLight(); }

 private:
    void SwitchTo(SceneName name);
    void TakeKeys();
    void LoadEffect();
    void DrawScene();
    void DrawTimeLeft();
    void ChangeLanguage();
    void PlayByItself(float dt);
    Scene* Current();

    Stage stage_;
    SceneManager scenes_;
    std::unique_ptr<StartScene> start_;
    std::unique_ptr<PlayScene> play_;
    std::unique_ptr<ResultScene> result_;
    bool begun_ = false;
    float played_ = 0;       // seconds, by itself
    float next_report_ = 0;  // in seconds played
};

}  // namespace training
