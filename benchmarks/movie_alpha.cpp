// What a new movie frame costs beyond the control's own drawing, against memcpy of as many bytes in the same
// run. Prints CSV: scene, width, height, minimum and median in microseconds, median's share of memcpy's rate.

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "flash/frame_pixels.h"

namespace {

constexpr int kWarmUp = 20, kRepeats = 400;

struct Timing {
    double minimum, median;
};

double Now() {
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1e6 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

struct Scene {
    const char* name;
    std::function<void()> run;
    std::vector<double> times;

    Timing Result() {
        std::sort(times.begin(), times.end());
        return {times.front(), times[times.size() / 2]};
    }
};

// Round by round, so that a busy moment of the machine hits every scene.
void Measure(std::vector<Scene>* scenes) {
    for (int round = 0; round < kWarmUp + kRepeats; ++round)
        for (Scene& scene : *scenes) {
            double start = Now();
            scene.run();
            if (round >= kWarmUp) scene.times.push_back(Now() - start);
        }
}

void Run(size_t width, size_t height) {
    const size_t pixels = width * height, stride = width + 112;
    std::vector<uint32_t> black(pixels, 0x00204060), white(pixels, 0x00A0C0E0), texture(stride * height);
    std::vector<Scene> scenes = {
        {"memcpy", [&] { std::memcpy(black.data(), white.data(), pixels * 4); }, {}},
        {"alpha", [&] { flash::RebuildAlpha(black.data(), white.data(), pixels); }, {}},
        {"rows", [&] { flash::CopyRows(texture.data(), stride, black.data(), width, height); }, {}},
    };
    Measure(&scenes);
    const double plain = scenes[0].Result().median;
    for (Scene& scene : scenes) {
        Timing timing = scene.Result();
        std::printf("%s,%u,%u,%.1f,%.1f,%.2f\n", scene.name, static_cast<unsigned>(width),
                    static_cast<unsigned>(height), timing.minimum, timing.median, plain / timing.median);
    }
}

}  // namespace

int main() {
    std::puts("scene,width,height,min_us,median_us,of_memcpy");
    Run(400, 300);
    Run(1024, 768);
}
