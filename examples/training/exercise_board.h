#pragma once

#include <drill2d/resources.h>

#include <array>

#include "logic/exercise.h"
#include "stage.h"

namespace training {

// The lamps of an exercise on the screen.
class ExerciseBoard {
 public:
    explicit ExerciseBoard(Stage& stage);

    void Reset();
    // Seconds.
    void Update(float dt);
    void Render(const Exercise& exercise);
    void RenderLight(const Exercise& exercise);

    // The lamp under a point of the screen, -1 for none.
    int LampAt(float x, float y) const;
    // The lamp's middle, screen pixels.
    static float MiddleX(int lamp);
    static float MiddleY(int lamp);
    void SetHovered(int lamp) { hovered_ = lamp; }
    // Sparks fly from a lamp.
    void Burst(int lamp);

 private:
    void DrawLamp(int lamp, Lamp state);

    CGameSprite panel_, lamp_, light_;
    std::array<CGameAnimation, kLamps> bursts_;
    int hovered_ = -1;
    float time_ = 0;
};

}  // namespace training
