#include <algorithm>
#include <cmath>

#include "bare.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr int kFps = 60;
constexpr double kPeriod = 1e9 / kFps, kTolerance = 1.5e6;

// Frames of so many screens of blended pixels, against presenting without a wait for the frame before.
Scene Presenting(int screens, double limit) {
    Scene scene;
    scene.limit = limit;
    scene.ours = [screens](Meter& meter) {
        hgeQuad quad = {};
        const float x[] = {0, kScreenWidth, kScreenWidth, 0}, y[] = {0, 0, kScreenHeight, kScreenHeight};
        for (int i = 0; i < 4; ++i)
            quad.v[i] = {x[i], y[i], 0.5f, 0x20FFFFFF, 0, 0};
        quad.blend = BLEND_DEFAULT;
        meter.Add(Stage::FrameTime(10, [&] {
            Stage::Framework()->Gfx_Clear(0xFF000000);
            for (int i = 0; i < screens; ++i)
                Stage::Framework()->Gfx_RenderQuad(&quad);
        }));
    };
    scene.bare = [screens](Meter& meter) {
        const std::vector<hge::DeviceVertex> vertices = Bare::WholeScreens(screens, 0x20FFFFFF);
        meter.Add(Bare::Get().FrameTime(10, false, [&] {
            Bare::Get().Clear();
            Bare::Get().Submit(vertices, false);
        }));
    };
    return scene;
}

struct FrameRate {
    explicit FrameRate(int fps) { Stage::Framework()->System_SetState(HGE_FPS, fps); }
    ~FrameRate() { Stage::Framework()->System_SetState(HGE_FPS, HGEFPS_UNLIMITED); }
};

// Per cent of the frames.
double OffBeat(int frames) {
    FrameRate rate(kFps);
    auto times = Stage::FrameTimes(frames, [] { Stage::Framework()->Gfx_Clear(0xFF204060); });
    auto off = std::count_if(times.begin(), times.end(),
                             [](double time) { return std::abs(time - kPeriod) > kTolerance; });
    return 100.0 * static_cast<double>(off) / static_cast<double>(times.size());
}

double ThreadSeconds() {
    FILETIME created, ended, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
    auto seconds = [](const FILETIME& t) {
        return (t.dwHighDateTime * 4294967296.0 + t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

// Per cent of a core that the loop takes with nothing to do.
double Waiting(int frames) {
    FrameRate rate(kFps);
    const double start = Now(), used = ThreadSeconds();
    Stage::FrameTimes(frames);
    return 100.0 * (ThreadSeconds() - used) / ((Now() - start) / 1e9);
}

}  // namespace

void AddPacingScenes(Suite& suite) {
    suite.Add("pacing/raster-bound frames",
              [screens = suite.Size(1000) / 100 + 1] { return Presenting(screens, 0.8); });
    suite.Add("pacing/light frames", [] { return Presenting(1, 1.05); });
    const int frames = suite.Size(200) + 1;
    suite.AddValue("pacing/60 fps/frames off by 1.5 ms, %", 1, [frames] { return OffBeat(frames); });
    suite.AddValue("pacing/60 fps/core spent waiting, %", 3, [frames] { return Waiting(frames); });
}

}  // namespace bench
