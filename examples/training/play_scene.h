#pragma once

#include <drill2d/resources.h>

#include <memory>
#include <string>

#include "exercise_board.h"
#include "logic/self_player.h"
#include "scene.h"

namespace training {

// One exercise, from its first lamp to its end.
class PlayScene : public Scene {
 public:
    explicit PlayScene(Stage& stage);

    void show() override;
    void update(float dt) override;
    void render() override;
    void RenderLight() override { board_.RenderLight(*exercise_); }
    void mouse_lbdown(float x, float y) override;
    void mouse_move(float x, float y) override;
    void PlayByItself(float dt) override;

 private:
    void Handle(const Event& event);
    void PlayTone(int lamp);
    void LogCue();
    void DrawHeader();
    void DrawTime();
    std::wstring Message();
    bool IsMemory() { return GetStage().Chosen() == ExerciseKind::kMemory; }

    CGameSprite background_, heart_, bar_back_, bar_fill_;
    ExerciseBoard board_;
    std::unique_ptr<Exercise> exercise_;
    SelfPlayer self_player_;
    int cue_ = -1;           // the right press that the log has named
    float level_shown_ = 0;  // seconds that the new level is still announced
    float after_end_ = 0;    // seconds since the exercise ended
};

}  // namespace training
