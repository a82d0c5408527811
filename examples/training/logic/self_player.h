#pragma once

#include "logic/dice.h"
#include "logic/exercise.h"

namespace training {

// Plays an exercise like a person: it thinks before it presses, and errs now and then.
class SelfPlayer {
 public:
    explicit SelfPlayer(uint32_t seed) : dice_(seed) {}

    // Once a frame: the lamp to press now, -1 for none.
    int Choose(const Exercise& exercise, float dt);

 private:
    Dice dice_;
    float thinking_ = 0;
};

}  // namespace training
