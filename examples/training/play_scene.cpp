#include "play_scene.h"

#include <cstdio>

#include "palette.h"

namespace training {

namespace {

constexpr float kLevelSeconds = 1.2f;
constexpr float kEndSeconds = 1.0f;
constexpr float kBarLeft = 240, kBarTop = 92, kBarWidth = 320;

}  // namespace

PlayScene::PlayScene(Stage& stage)
    : Scene(stage),
      background_(stage.Resources(), "background.png", true),
      heart_(stage.Resources(), "heart.png", true),
      bar_back_(stage.Resources(), "bar_back.png", true),
      bar_fill_(stage.Resources(), "bar_fill.png", true),
      board_(stage),
      exercise_(stage.MakeExercise()),
      self_player_(stage.GetOptions().seed) {
    AddButton("icon_back.png", 24, 24, [this] { GetStage().GoTo(SceneName::kStart); });
}

void PlayScene::show() {
    Scene::show();
    exercise_ = GetStage().MakeExercise();
    board_.Reset();
    cue_ = -1;
    level_shown_ = after_end_ = 0;
}

void PlayScene::update(float dt) {
    exercise_->Update(dt * static_cast<float>(GetStage().GetOptions().pace_percent) / 100);
    for (const Event& event : exercise_->TakeEvents())
        Handle(event);
    board_.Update(dt);
    LogCue();
    if (level_shown_ > 0) level_shown_ -= dt;
    if (!exercise_->Finished() || (after_end_ += dt) < kEndSeconds) return;
    GetStage().Finish(exercise_->Result());
    GetStage().GoTo(SceneName::kResult);
}

void PlayScene::Handle(const Event& event) {
    switch (event.kind) {
        case Event::kLight:
            IsMemory() ? PlayTone(event.lamp) : GetStage().PlaySound("light.wav");
            break;
        case Event::kHit:
            board_.Burst(event.lamp);
            IsMemory() ? PlayTone(event.lamp) : GetStage().PlaySound("hit.wav");
            break;
        case Event::kMiss:
            GetStage().PlaySound("miss.wav");
            break;
        case Event::kLevelUp:
            level_shown_ = kLevelSeconds;
            GetStage().PlaySound("level.wav");
            break;
    }
}

// Every lamp has a note of its own.
void PlayScene::PlayTone(int lamp) {
    char file[16];
    std::snprintf(file, sizeof file, "tone%02d.wav", lamp);
    GetStage().PlaySound(file);
}

// A game with a fixed seed tells a script where to press.
void PlayScene::LogCue() {
    int answer = exercise_->Answer();
    if (answer == cue_) return;
    cue_ = answer;
    if (answer < 0 || !GetStage().GetOptions().seed) return;
    GetStage().Hge().System_Log("press %d %d", static_cast<int>(ExerciseBoard::MiddleX(answer)),
                                static_cast<int>(ExerciseBoard::MiddleY(answer)));
}

void PlayScene::mouse_lbdown(float x, float y) {
    exercise_->Press(board_.LampAt(x, y));
}

void PlayScene::mouse_move(float x, float y) {
    board_.SetHovered(board_.LampAt(x, y));
}

void PlayScene::PlayByItself(float dt) {
    int lamp = self_player_.Choose(*exercise_, dt);
    board_.SetHovered(lamp);
    exercise_->Press(lamp);
}

void PlayScene::render() {
    background_.Render(0, 0);
    DrawHeader();
    DrawTime();
    board_.Render(*exercise_);
    GetFonts().Draw(Fonts::kBody, Fonts::kCentre, 400, 554, level_shown_ > 0 ? kAmber : kInk, Message());
}

void PlayScene::DrawHeader() {
    Stage& stage = GetStage();
    const Summary& result = exercise_->Result();
    GetFonts().Draw(Fonts::kBody, Fonts::kLeft, 120, 34, kInk, stage.Say(Text::kLevel, result.level));
    GetFonts().Draw(Fonts::kBody, Fonts::kRight, 680, 34, kAmber, stage.Say(Text::kScore, result.score));
    for (int life = 0; life < Exercise::kLives; ++life) {
        heart_.SetTextureRect(life < exercise_->Lives() ? 0.0f : 32.0f, 0, 32, 32, true);
        heart_.Render(348 + 36 * static_cast<float>(life), 32);
    }
}

void PlayScene::DrawTime() {
    bar_back_.Render(kBarLeft, kBarTop);
    float left = exercise_->TakesPresses() ? exercise_->TimeLeft() : 0;
    bar_fill_.SetColor(left < 0.3f ? kCoral : 0xFFFFFFFF, -1);
    if (left > 0)
        bar_fill_.RenderStretch(kBarLeft + 4, kBarTop, kBarLeft + 4 + left * (kBarWidth - 8), kBarTop + 12);
}

std::wstring PlayScene::Message() {
    Stage& stage = GetStage();
    if (exercise_->Finished()) return stage.Say(Text::kOver);
    if (level_shown_ > 0) return stage.Say(Text::kLevel, exercise_->Result().level);
    if (exercise_->Answer() >= 0) return stage.Say(IsMemory() ? Text::kRepeat : Text::kHitIt);
    if (exercise_->TakesPresses()) return stage.Say(Text::kLeaveIt);
    return stage.Say(IsMemory() ? Text::kWatch : Text::kGetReady);
}

}  // namespace training
