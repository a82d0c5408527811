#include "logic/reaction_drill.h"

#include <algorithm>

namespace training {

namespace {

constexpr int kFirstLevelWithDecoys = 3;

}  // namespace

ReactionLevel ReactionLevel::Of(int level) {
    ReactionLevel difficulty = {};
    difficulty.lit_seconds = std::max(0.55f, 1.7f - 0.2f * static_cast<float>(level - 1));
    difficulty.decoy_percent = level < kFirstLevelWithDecoys ? 0 : std::min(35, 10 + 5 * level);
    difficulty.points = 40 + 10 * level;
    return difficulty;
}

float ReactionDrill::TimeLeft() const {
    return lit_ < 0 ? 1.0f : std::max(0.0f, left_ / Level().lit_seconds);
}

void ReactionDrill::Advance(float dt) {
    left_ -= dt;
    if (left_ > 0) return;
    lit_ < 0 ? Light() : RunOut();
}

// Never the same lamp twice running: the eye has to look for it.
void ReactionDrill::Light() {
    AllOff();
    lit_ = last_ < 0 ? dice_.Below(kLamps) : (last_ + 1 + dice_.Below(kLamps - 1)) % kLamps;
    last_ = lit_;
    decoy_ = dice_.Chance(Level().decoy_percent);
    left_ = Level().lit_seconds;
    Set(lit_, decoy_ ? Lamp::kDecoy : Lamp::kLit);
    Report(Event::kLight, lit_);
}

void ReactionDrill::RunOut() {
    Set(lit_, Lamp::kOff);
    if (!decoy_) Miss(lit_);
    EndTurn();
}

void ReactionDrill::Answered(int lamp) {
    if (lamp == Answer()) {
        Hit(lamp, Level().points + static_cast<int>(static_cast<float>(Level().points) * TimeLeft()));
        if (Result().hits % kHitsPerLevel == 0) LevelUp();
    } else {
        Set(lit_, Lamp::kOff);
        Miss(lamp);
    }
    EndTurn();
}

void ReactionDrill::EndTurn() {
    lit_ = -1;
    left_ = 0.45f + 0.05f * static_cast<float>(dice_.Below(9));
    if (++turn_ == kTurns) Finish();
}

}  // namespace training
