#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "drill2d/flash.h"
#include "flash/frame_pixels.h"
#include "scenes.h"
#include "stage.h"
#include "tests/flash/control/movie_control.h"

namespace bench {

namespace {

struct Size {
    int width, height;
    size_t pixels() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }
    std::string text() const { return std::to_string(width) + " x " + std::to_string(height); }
};
constexpr Size kSizes[] = {{400, 300}, {1024, 768}};

// The movie control of the tests, which lies in a folder beside the program.
MovieControl* LoadControl() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program = path;
    SetDllDirectoryA((program.substr(0, program.rfind('\\')) + "\\flash").c_str());
    HMODULE module = LoadLibraryA("flash.ocx");
    Require(module, "no movie control");
    auto get = reinterpret_cast<decltype(&GetMovieControl)>(
        reinterpret_cast<void*>(GetProcAddress(module, "GetMovieControl")));
    return get();
}

// memcpy of a frame that has just been drawn, to memory that others have used since: many, as one is short.
Work CopyFrames(Size size, int repeats) {
    auto from = std::make_shared<std::vector<uint32_t>>(size.pixels());
    auto to = std::make_shared<std::vector<uint32_t>>(4 * size.pixels());
    return [=](Meter& meter) {
        for (int i = 0; i < repeats; ++i) {
            std::memset(from->data(), i, size.pixels() * 4);
            uint32_t* place = to->data() + static_cast<size_t>(i % 4) * size.pixels();
            meter([&] { std::memcpy(place, from->data(), size.pixels() * 4); });
        }
    };
}

// A new frame each time, without what the control took to draw it.
Scene NewFrames(Size size, int repeats) {
    MovieControl* control = LoadControl();
    auto sprite = std::make_shared<CFlashSprite>(Stage::Framework(), false, false);
    char file[] = "C:\\movie";
    sprite->LoadFlash(file, size.width, size.height);
    sprite->Play();
    Require(sprite->IsPlaying(), "the movie does not play");
    Scene scene;
    scene.items = repeats;
    scene.limit = 2.5;
    scene.ours = [=](Meter& meter) {
        Stage::Settle();
        Stage::Frames(repeats, [&] {
            control->Step();
            const int64_t drawn = control->draw_ticks;
            meter([&] { sprite->Render(); });
            LARGE_INTEGER frequency;
            QueryPerformanceFrequency(&frequency);
            meter.Add(-1e9 * static_cast<double>(control->draw_ticks - drawn) /
                      static_cast<double>(frequency.QuadPart));
        });
    };
    scene.bare = CopyFrames(size, repeats);
    return scene;
}

Scene RebuiltAlpha(Size size, int repeats) {
    auto black = std::make_shared<std::vector<uint32_t>>(size.pixels(), 0x00204060);
    auto white = std::make_shared<std::vector<uint32_t>>(size.pixels(), 0x00A0C0E0);
    Scene scene;
    scene.items = repeats;
    scene.ours = [=](Meter& meter) {
        meter([&] {
            for (int i = 0; i < repeats; ++i)
                flash::RebuildAlpha(black->data(), white->data(), nullptr, size.pixels());
        });
    };
    scene.bare = CopyFrames(size, repeats);
    return scene;
}

}  // namespace

void AddMovieScenes(Suite& suite) {
    const int repeats = suite.Size(800) / 40 + 1;
    for (const Size& size : kSizes) {
        suite.Add("movie/" + size.text() + "/new frame", [=] { return NewFrames(size, repeats); });
        suite.Add("movie/" + size.text() + "/alpha", [=] { return RebuiltAlpha(size, repeats); });
    }
}

}  // namespace bench
