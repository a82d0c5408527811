#include "core/random.h"

#include <chrono>
#include <utility>

namespace hge {
namespace {

uint32_t ClockSeed() {
    auto now = static_cast<uint64_t>(std::chrono::high_resolution_clock::now().time_since_epoch().count());
    return static_cast<uint32_t>(now ^ now >> 32);
}

}  // namespace

void Random::Seed(int seed) {
    generator_.seed(seed ? static_cast<uint32_t>(seed) : ClockSeed());
}

int Random::Int(int min, int max) {
    if (min > max) std::swap(min, max);
    uint64_t count = static_cast<uint64_t>(static_cast<int64_t>(max) - min) + 1;
    // Draws from the incomplete last stretch of the 32-bit range would favour the low values: draw again.
    uint64_t limit = (uint64_t{1} << 32) / count * count;
    uint64_t draw = generator_();
    while (draw >= limit)
        draw = generator_();
    return static_cast<int>(min + static_cast<int64_t>(draw % count));
}

float Random::Float(float min, float max) {
    // In double, so that a range wider than float's largest number does not overflow.
    double part = generator_() / 4294967295.0;
    return static_cast<float>(min + (static_cast<double>(max) - min) * part);
}

}  // namespace hge
