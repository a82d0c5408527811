#pragma once

#include <cstdint>

namespace training {

// Random numbers that are the same for the same seed on every machine.
class Dice {
 public:
    explicit Dice(uint32_t seed) : state_(seed ? seed : 0x9E3779B9u) {}

    // 0 .. sides - 1; sides is at least 1.
    int Below(int sides) {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<int>((static_cast<uint64_t>(state_) * static_cast<uint64_t>(sides)) >> 32);
    }
    bool Chance(int percent) { return Below(100) < percent; }

 private:
    uint32_t state_;
};

}  // namespace training
