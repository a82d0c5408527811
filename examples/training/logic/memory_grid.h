#pragma once

#include "logic/dice.h"
#include "logic/exercise.h"

namespace training {

// How hard a level of the memory grid is.
struct MemoryLevel {
    int length;            // lamps in the pattern
    float show_seconds;    // for each lamp of the pattern
    float answer_seconds;  // for each press
    int points;            // for each lamp repeated
    static MemoryLevel Of(int level);
};

// Watch lamps light one after the other, then press them in the same order.
class MemoryGrid : public Exercise {
 public:
    static constexpr int kPatterns = 8;

    explicit MemoryGrid(uint32_t seed) : dice_(seed) {}

    int Answer() const override;
    bool TakesPresses() const override { return phase_ == Phase::kRepeat; }
    float TimeLeft() const override;
    const std::vector<int>& Pattern() const { return pattern_; }

 protected:
    void Advance(float dt) override;
    void Answered(int lamp) override;

 private:
    enum class Phase { kPause, kShow, kGap, kRepeat };

    void Enter(Phase phase, float seconds);
    void StartPattern();
    void ShowNext();
    void WaitForPress();
    void Fail(int lamp);
    void Solve();
    MemoryLevel Level() const { return MemoryLevel::Of(Result().level); }

    Dice dice_;
    std::vector<int> pattern_;
    size_t position_ = 0;  // in the pattern: lamp to show or to be pressed
    int solved_ = 0;
    Phase phase_ = Phase::kPause;
    float left_ = 1.0f;  // seconds of the phase
};

}  // namespace training
