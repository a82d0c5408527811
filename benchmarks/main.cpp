#include <cstdio>
#include <cstring>
#include <memory>

#include "allocations.h"
#include "drill2d/drill2d.h"
#include "scenes.h"

namespace {

constexpr char kUsage[] =
    "usage: benchmarks [--scene REGEX] [--csv FILE] [--quick] [--list]\n"
    "\n"
    "  --scene REGEX  only scenes whose names match\n"
    "  --csv FILE     writes the table as CSV, times in nanoseconds\n"
    "  --quick        tiny sizes and few rounds: shows that all scenes run, measures nothing\n"
    "  --list         names of the scenes\n";

// Everything happens before the loop of the engine begins: the scenes run the framework's loop themselves.
struct Host : I2DGameEngineSink {
    explicit Host(bench::Suite& scenes) : suite(scenes) {}

    void OnInit() override {
        C2DGameEngine::Get2DGameEngineInstance()->GetHge()->System_SetState(HGE_FPS, HGEFPS_UNLIMITED);
        bench::CountAllocations();
        all_ran = suite.Run();
        PostQuitMessage(0);
    }
    void OnRender() override {}
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}
    void OnFrame(float, int) override {}
    void OnLButtonDown(float, float) override {}
    void OnLButtonUp(float, float) override {}
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnMouseMove(float, float) override {}

    bench::Suite& suite;
    bool all_ran = false;
};

bool Parse(int count, char** arguments, bench::Options* options) {
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const bool has_value = i + 1 < count;
        if (argument == "--quick")
            options->quick = true;
        else if (argument == "--list")
            options->list = true;
        else if (argument == "--scene" && has_value)
            options->pattern = arguments[++i];
        else if (argument == "--csv" && has_value)
            options->csv = arguments[++i];
        else
            return false;
    }
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    bench::Options options;
    if (!Parse(count, arguments, &options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    bench::Suite suite(options);
    bench::AddQuadScenes(suite);
    if (options.list) {
        suite.List();
        return 0;
    }
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Host host(suite);
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&host));
    if (!engine->InitHge(800, 600, "benchmarks", false)) {
        std::fputs("the framework does not start; see game.log\n", stderr);
        return 1;
    }
    return host.all_ran ? 0 : 1;
}
