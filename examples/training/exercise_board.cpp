#include "exercise_board.h"

#include <hgeanim.h>

#include <cmath>

#include "palette.h"

namespace training {

namespace {

constexpr float kMiddleX = 400, kMiddleY = 328, kSpacing = 122;
constexpr float kRadius = 44;      // that takes a press
constexpr float kFrameSize = 128;  // of the pictures, light included

// The frame of the strip of lamps.
int FrameOf(Lamp state, bool hovered) {
    switch (state) {
        case Lamp::kLit:
            return 2;
        case Lamp::kDecoy:
            return 3;
        case Lamp::kGood:
            return 4;
        case Lamp::kBad:
            return 5;
        case Lamp::kOff:
            break;
    }
    return hovered ? 1 : 0;
}

// What a lamp throws around it; 0 for none.
DWORD LightOf(Lamp state) {
    switch (state) {
        case Lamp::kLit:
            return kAmber;
        case Lamp::kDecoy:
        case Lamp::kBad:
            return kCoral;
        case Lamp::kGood:
            return kTeal;
        case Lamp::kOff:
            break;
    }
    return 0;
}

}  // namespace

ExerciseBoard::ExerciseBoard(Stage& stage)
    : panel_(stage.Resources(), "board.png", true),
      lamp_(stage.Resources(), "lamp.png", true),
      light_(stage.Resources(), "light.png", true) {
    light_.SetHotSpot(128, 128);
    light_.SetBlendMode(BLEND_COLORMUL | BLEND_ALPHAADD);
    lamp_.SetHotSpot(kFrameSize / 2, kFrameSize / 2);
    char burst[] = "burst.png";
    for (CGameAnimation& animation : bursts_) {
        animation.LoadAniImage(burst, 8, 20, static_cast<int>(kFrameSize), static_cast<int>(kFrameSize));
        animation.SetMode(HGEANIM_FWD | HGEANIM_NOLOOP);
        animation.SetHotSpot(kFrameSize / 2, kFrameSize / 2);
    }
}

void ExerciseBoard::Reset() {
    hovered_ = -1;
    for (CGameAnimation& animation : bursts_)
        animation.Stop();
}

void ExerciseBoard::Update(float dt) {
    time_ = std::fmod(time_ + dt, 60.0f);
    for (CGameAnimation& animation : bursts_)
        animation.Update(dt);
}

float ExerciseBoard::MiddleX(int lamp) {
    return kMiddleX + (static_cast<float>(lamp % kColumns) - (kColumns - 1) * 0.5f) * kSpacing;
}

float ExerciseBoard::MiddleY(int lamp) {
    return kMiddleY + (static_cast<float>(lamp / kColumns) - (kRows - 1) * 0.5f) * kSpacing;
}

int ExerciseBoard::LampAt(float x, float y) const {
    for (int lamp = 0; lamp < kLamps; ++lamp)
        if (std::hypot(x - MiddleX(lamp), y - MiddleY(lamp)) <= kRadius) return lamp;
    return -1;
}

void ExerciseBoard::Burst(int lamp) {
    bursts_[static_cast<size_t>(lamp)].Play();
}

void ExerciseBoard::Render(const Exercise& exercise) {
    panel_.Render(kMiddleX - 296, kMiddleY - 214);
    for (int lamp = 0; lamp < kLamps; ++lamp)
        DrawLamp(lamp, exercise.StateOf(lamp));
    for (int lamp = 0; lamp < kLamps; ++lamp)
        if (bursts_[static_cast<size_t>(lamp)].IsPlaying())
            bursts_[static_cast<size_t>(lamp)].Render(MiddleX(lamp), MiddleY(lamp));
}

void ExerciseBoard::RenderLight(const Exercise& exercise) {
    for (int lamp = 0; lamp < kLamps; ++lamp) {
        DWORD color = LightOf(exercise.StateOf(lamp));
        if (!color) continue;
        float scale = 1.5f + 0.1f * std::sin(time_ * 12.566f);
        light_.SetColor(color, -1);
        light_.RenderEx(MiddleX(lamp), MiddleY(lamp), 0, scale, scale);
    }
}

// A lamp that waits for a press breathes.
void ExerciseBoard::DrawLamp(int lamp, Lamp state) {
    bool waits = state == Lamp::kLit || state == Lamp::kDecoy;
    float scale = waits ? 1.03f + 0.03f * std::sin(time_ * 12.566f) : 1.0f;
    float left = kFrameSize * static_cast<float>(FrameOf(state, lamp == hovered_));
    lamp_.SetTextureRect(left, 0, kFrameSize, kFrameSize, true);
    lamp_.RenderEx(MiddleX(lamp), MiddleY(lamp), 0, scale, scale);
}

}  // namespace training
