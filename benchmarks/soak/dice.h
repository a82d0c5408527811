#pragma once

#include <cstdint>
#include <iterator>
#include <utility>

namespace soak {

// A step's decisions: they follow from the seed and the step's number alone.
class Dice {
 public:
    Dice(uint32_t seed, uint32_t step) : state_((static_cast<uint64_t>(seed) << 32) ^ step) {}

    // 0..count - 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<uint64_t>(count)); }
    bool Chance(int percent) { return Below(100) < percent; }
    float Between(float low, float high) {
        return low + (high - low) * static_cast<float>(Below(4096)) / 4095.0f;
    }
    template <class List>
    auto& Of(List& list) {
        return list[static_cast<size_t>(Below(static_cast<int>(std::size(list))))];
    }
    // An empty value from an empty list.
    template <class List>
    auto TakeFrom(List& list) {
        typename List::value_type taken{};
        if (list.empty()) return taken;
        auto at = list.begin() + Below(static_cast<int>(list.size()));
        taken = std::move(*at);
        list.erase(at);
        return taken;
    }

 private:
    // SplitMix64: neighbouring states give unrelated numbers.
    uint64_t Next() {
        uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
        z = (z ^ z >> 27) * 0x94D049BB133111EBu;
        return (z ^ z >> 31) >> 1;
    }

    uint64_t state_;
};

}  // namespace soak
