#pragma once

#include "logic/dice.h"
#include "logic/exercise.h"

namespace training {

// How hard a level of the reaction drill is.
struct ReactionLevel {
    float lit_seconds;  // how long a lamp waits for its press
    int decoy_percent;  // how often a lamp lights that must not be pressed
    int points;         // for a hit; the speed bonus doubles them at most
    static ReactionLevel Of(int level);
};

// Press the lamp that lights before it goes out, and let the red ones go out by themselves.
class ReactionDrill : public Exercise {
 public:
    static constexpr int kTurns = 30;
    static constexpr int kHitsPerLevel = 5;

    explicit ReactionDrill(uint32_t seed) : dice_(seed) {}

    int Answer() const override { return lit_ >= 0 && !decoy_ ? lit_ : -1; }
    bool TakesPresses() const override { return lit_ >= 0; }
    float TimeLeft() const override;

 protected:
    void Advance(float dt) override;
    void Answered(int lamp) override;

 private:
    void Light();
    void RunOut();
    void EndTurn();
    ReactionLevel Level() const { return ReactionLevel::Of(Result().level); }

    Dice dice_;
    int turn_ = 0;
    int lit_ = -1;  // between two turns: -1
    int last_ = -1;
    bool decoy_ = false;
    float left_ = 1.0f;  // seconds until the lamp goes out or the next one lights
};

}  // namespace training
