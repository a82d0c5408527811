#include "logic/self_player.h"

namespace training {

namespace {

constexpr int kErrorPercent = 4;

}  // namespace

int SelfPlayer::Choose(const Exercise& exercise, float dt) {
    int answer = exercise.Answer();
    if (answer < 0) {
        thinking_ = 0;
        return -1;
    }
    if (thinking_ <= 0) thinking_ = 0.25f + 0.03f * static_cast<float>(dice_.Below(6));
    if ((thinking_ -= dt) > 0) return -1;
    return dice_.Chance(kErrorPercent) ? (answer + 1) % kLamps : answer;
}

}  // namespace training
