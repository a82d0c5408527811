#include "logic/memory_grid.h"

#include <algorithm>

namespace training {

namespace {

constexpr float kGapSeconds = 0.15f;
constexpr float kPauseSeconds = 0.9f;

}  // namespace

MemoryLevel MemoryLevel::Of(int level) {
    MemoryLevel difficulty = {};
    difficulty.length = 2 + level;
    difficulty.show_seconds = std::max(0.28f, 0.62f - 0.05f * static_cast<float>(level - 1));
    difficulty.answer_seconds = 3.0f;
    difficulty.points = 20 + 10 * level;
    return difficulty;
}

int MemoryGrid::Answer() const {
    return phase_ == Phase::kRepeat ? pattern_[position_] : -1;
}

float MemoryGrid::TimeLeft() const {
    return phase_ == Phase::kRepeat ? std::max(0.0f, left_ / Level().answer_seconds) : 1.0f;
}

void MemoryGrid::Enter(Phase phase, float seconds) {
    phase_ = phase;
    left_ = seconds;
}

void MemoryGrid::Advance(float dt) {
    left_ -= dt;
    if (left_ > 0) return;
    switch (phase_) {
        case Phase::kPause:
            StartPattern();
            break;
        case Phase::kShow:
            Set(pattern_[position_++], Lamp::kOff);
            Enter(Phase::kGap, kGapSeconds);
            break;
        case Phase::kGap:
            position_ < pattern_.size() ? ShowNext() : WaitForPress();
            break;
        case Phase::kRepeat:
            Fail(pattern_[position_]);
            break;
    }
}

// No lamp follows itself: two flashes of one lamp are hard to tell from a long one.
void MemoryGrid::StartPattern() {
    AllOff();
    pattern_.assign(1, dice_.Below(kLamps));
    while (static_cast<int>(pattern_.size()) < Level().length)
        pattern_.push_back((pattern_.back() + 1 + dice_.Below(kLamps - 1)) % kLamps);
    position_ = 0;
    ShowNext();
}

void MemoryGrid::ShowNext() {
    Set(pattern_[position_], Lamp::kLit);
    Report(Event::kLight, pattern_[position_]);
    Enter(Phase::kShow, Level().show_seconds);
}

void MemoryGrid::WaitForPress() {
    position_ = 0;
    Enter(Phase::kRepeat, Level().answer_seconds);
}

void MemoryGrid::Answered(int lamp) {
    if (lamp != pattern_[position_]) return Fail(lamp);
    Hit(lamp, Level().points);
    left_ = Level().answer_seconds;
    if (++position_ == pattern_.size()) Solve();
}

void MemoryGrid::Fail(int lamp) {
    Miss(lamp);
    Enter(Phase::kPause, kPauseSeconds);
}

void MemoryGrid::Solve() {
    Enter(Phase::kPause, kPauseSeconds);
    if (++solved_ == kPatterns) return Finish();
    LevelUp();
}

}  // namespace training
