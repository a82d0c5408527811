#pragma once

#include <cstdint>
#include <random>

namespace hge {

// The generator behind HGE::Random_*: the same seed gives the same sequence in every build.
class Random {
 public:
    Random() { Seed(0); }

    // 0 takes the clock.
    void Seed(int seed);
    // min..max, both included; the two may be given in either order.
    int Int(int min, int max);
    float Float(float min, float max);

 private:
    std::mt19937 generator_;
};

}  // namespace hge
