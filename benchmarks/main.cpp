#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "allocations.h"
#include "idle_host.h"
#include "scenes.h"
#include "stage.h"

namespace {

constexpr char kUsage[] =
    "usage: benchmarks [--scene REGEX] [--csv FILE] [--hold SECONDS] [--quick] [--list]\n"
    "\n"
    "  --scene REGEX  only scenes whose names match\n"
    "  --csv FILE     writes the table as CSV, times in nanoseconds\n"
    "  --hold SECONDS runs our side of the scenes only, each for so long, for a profiler to look at\n"
    "  --quick        tiny sizes and few rounds: shows that all scenes run, measures nothing\n"
    "  --list         names of the scenes\n";

// Everything happens before the loop of the engine begins: the scenes run the framework's loop themselves.
struct Host : bench::IdleHost {
    Host(bench::Suite& scenes, bool holds) : suite(scenes), hold(holds) {}

    void OnInit() override {
        C2DGameEngine::Get2DGameEngineInstance()->GetHge()->System_SetState(HGE_FPS, HGEFPS_UNLIMITED);
        bench::CountAllocations();
        if (hold) bench::Stage::NeverSettle();
        all_ran = suite.Run();
        PostQuitMessage(0);
    }

    bench::Suite& suite;
    const bool hold;
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
        else if (argument == "--hold" && has_value)
            options->hold_seconds = std::atof(arguments[++i]);
        else
            return false;
    }
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    if (count == 3 && arguments[1] == std::string("--first-frame"))
        return bench::ShowFirstFrame(arguments[2]);
    if (count == 3 && arguments[1] == std::string("--first-frame-bare"))
        return bench::ShowFirstFrameBare(arguments[2]);
    bench::Options options;
    if (!Parse(count, arguments, &options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    bench::Suite suite(options);
    for (auto add :
         {bench::AddQuadScenes, bench::AddTextScenes, bench::AddGuiScenes, bench::AddMovieScenes,
          bench::AddEffectScenes, bench::AddImageScenes, bench::AddPackScenes, bench::AddNameScenes,
          bench::AddSoundScenes, bench::AddPacingScenes, bench::AddStartupScenes})
        add(suite);
    if (options.list) {
        suite.List();
        return 0;
    }
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Host host(suite, options.hold_seconds > 0);
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&host));
    if (!engine->InitHge(800, 600, "benchmarks", false)) {
        std::fputs("the framework does not start; see game.log\n", stderr);
        return 1;
    }
    return host.all_ran ? 0 : 1;
}
