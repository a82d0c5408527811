#include <cstring>
#include <string>
#include <vector>

#include "drill2d/engine.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr int kRate = 8000, kMostPlaying = 256;

// A second of silence.
std::string Silence() {
    std::string wave("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\0\0\0\0\0\0\0\0\1\0\x08\0data\0\0\0\0", 44);
    auto put = [&wave](size_t at, unsigned value) { std::memcpy(&wave[at], &value, sizeof value); };
    put(4, 36 + kRate);
    put(24, kRate);
    put(28, kRate);
    put(40, kRate);
    return wave + std::string(kRate, '\x80');
}

I2DGameEngine* Engine() {
    return C2DGameEngine::Get2DGameEngineInstance();
}

void Fill(int count) {
    static const std::string wave = Silence();
    for (int i = 0; i < count; ++i)
        Engine()->Play2DSound(Stage::Framework()->Effect_Load(wave.data(), static_cast<DWORD>(wave.size())));
    Require(Engine()->GetSoundSize() == static_cast<unsigned long>(count), "the table of sounds is wrong");
}

void Empty() {
    Stage::Framework()->Channel_StopAll();
    C2DGameEngine::FrameFuc();
    Require(Engine()->GetSoundSize() == 0, "sounds remain in the table");
}

// The frame that follows so many starts: what cannot play, or has ended, leaves the table.
Scene FrameWith(int count, bool ended) {
    Scene scene;
    scene.items = count;
    scene.ours = [=](Meter& meter) {
        Fill(count);
        if (ended) Stage::Framework()->Channel_StopAll();
        meter([] { C2DGameEngine::FrameFuc(); });
        Empty();
    };
    // The framework's own work for those sounds.
    scene.bare = [=](Meter& meter) {
        Fill(count);
        if (ended) Stage::Framework()->Channel_StopAll();
        meter([] {
            HGE* hge = Stage::Framework();
            for (int i = 0; EffectHandle* sound = Engine()->EnumSound(i); ++i) {
                hge->Channel_GetPos(sound->channel);
                hge->Channel_GetLength(sound->channel);
                if (!hge->Channel_IsPlaying(sound->channel)) hge->Effect_Free(sound->effect);
            }
        });
        Empty();
    };
    return scene;
}

}  // namespace

void AddSoundScenes(Suite& suite) {
    const int playing = std::min(suite.Size(20000), kMostPlaying);
    suite.Add("sounds/" + std::to_string(playing) + "/playing", [=] { return FrameWith(playing, false); });
    for (int size : {250, 1000, 4000}) {
        const int count = suite.Size(size);
        suite.Add("sounds/" + std::to_string(count) + "/ended", [=] {
            Scene scene = FrameWith(count, true);
            scene.family = "sounds";
            scene.size = count;
            scene.growth_limit = 1.1;
            return scene;
        });
    }
}

}  // namespace bench
