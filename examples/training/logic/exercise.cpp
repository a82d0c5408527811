#include "logic/exercise.h"

#include <algorithm>
#include <utility>

namespace training {

namespace {

constexpr float kFlashSeconds = 0.35f;

}  // namespace

void Exercise::Update(float dt) {
    FadeFlash(dt);
    if (!finished_) Advance(dt);
}

void Exercise::Press(int lamp) {
    if (finished_ || lamp < 0 || lamp >= kLamps || !TakesPresses()) return;
    Answered(lamp);
}

std::vector<Event> Exercise::TakeEvents() {
    return std::exchange(events_, {});
}

void Exercise::AllOff() {
    lamps_.fill(Lamp::kOff);
    flashed_ = -1;
}

void Exercise::Flash(int lamp, Lamp state) {
    if (flashed_ >= 0) Set(flashed_, Lamp::kOff);
    Set(lamp, state);
    flashed_ = lamp;
    flash_left_ = kFlashSeconds;
}

void Exercise::FadeFlash(float dt) {
    if (flashed_ < 0 || (flash_left_ -= dt) > 0) return;
    Set(flashed_, Lamp::kOff);
    flashed_ = -1;
}

void Exercise::Hit(int lamp, int points) {
    result_.score += points;
    ++result_.hits;
    Flash(lamp, Lamp::kGood);
    Report(Event::kHit, lamp);
}

void Exercise::Miss(int lamp) {
    ++result_.misses;
    if (lamp >= 0) Flash(lamp, Lamp::kBad);
    Report(Event::kMiss, lamp);
    if (--lives_ == 0) Finish();
}

void Exercise::LevelUp() {
    ++result_.level;
    Report(Event::kLevelUp, -1);
}

}  // namespace training
