#include <fstream>

#include "bare.h"
#include "drill2d/engine.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr char kEffect[] = R"(
float4 Effect(Fragment at) : SV_TARGET
{
    return Tinted(lerp(First(at.uv), Second(at.uv), 0.25), at.color);
}
)";

}  // namespace

void AddEffectScenes(Suite& suite) {
    suite.Add("effect/screen", [] {
        I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
        char file[] = "benchmark_effect.hlsl";
        std::ofstream(Stage::Framework()->Resource_MakePath(file)) << kEffect;
        if (!engine->IsEnableFx()) engine->CreateFx(file);
        Require(engine->IsEnableFx(), "the effect does not load");
        Scene scene;
        scene.ours = [](Meter& meter) { meter.Add(Stage::EngineFrameTime(8)); };
        scene.bare = [](Meter& meter) {
            meter.Add(Bare::Get().FrameTime(8, true, [] {
                Bare::Get().Clear();
                Bare::Get().DrawPictures();
            }));
        };
        return scene;
    });
}

}  // namespace bench
