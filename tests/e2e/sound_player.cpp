// Plays the sounds of a folder through the engine, one after another with silence between, then ends itself.
// $1: the folder, with a slash at its end.
#include <drill2d/drill2d.h>

#include <iterator>
#include <string>

#include "support/silent_sink.h"

namespace {

std::string g_folder;

struct Player : SilentSink {
    void OnFrame(float dt, int) override {
        // tone.wav lasts half a second.
        static const std::pair<float, void (*)()> kSteps[] = {
            {0.5f, [] { Play(); }},
            {1.5f, [] { Engine()->GetHge()->Channel_SetPanning(Play()->channel, -100); }},
            {2.5f, [] { Engine()->PlayMusic((g_folder + "short.wav").c_str(), true); }},
            {3.5f, [] { Engine()->PlayMusic((g_folder + "other.wav").c_str(), true); }},
            {4.5f, [] { Engine()->StopMusic(); }},
            {5.0f, [] { PostQuitMessage(0); }}};
        sounds = Engine()->GetSoundSize();
        for (time_ += dt; next_ < std::size(kSteps) && time_ >= kSteps[next_].first; ++next_)
            kSteps[next_].second();
    }
    size_t sounds = 0;  // in the last frame

 private:
    // The engine frees the effect when it has played.
    static EffectHandle* Play() { return Engine()->Play2DSound((g_folder + "tone.wav").c_str()); }

    size_t next_ = 0;
    float time_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    g_folder = argv[1];
    Player player;
    return RunHost(&player, 320, 240, "sounds") && player.sounds == 0 ? 0 : 1;
}
