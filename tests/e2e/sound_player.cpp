// Plays the sounds of a folder through the engine, one after another with silence between, then ends itself.
// $1: the folder, with a slash at its end.
#include <drill2d/drill2d.h>

#include <string>
#include <vector>

#include "support/silent_sink.h"

namespace {

std::string g_folder;

class Player : public SilentSink {
 public:
    void OnFrame(float dt, int) override {
        time_ += dt;
        while (next_ < steps_.size() && time_ >= steps_[next_].seconds)
            (this->*steps_[next_++].action)();
    }

    bool reaped() const { return reaped_; }

 private:
    struct Step {
        float seconds;
        void (Player::*action)();
    };

    static std::string Path(const char* name) { return g_folder + name; }

    void PlayPlain() { Engine()->Play2DSound(Path("tone.wav").c_str()); }
    void PlayQuiet() { Play(50, 0, 1.0f); }
    void PlayLeft() { Play(100, -100, 1.0f); }
    void PlayHalfRight() { Play(100, 50, 1.0f); }
    void PlayHigh() { Play(100, 0, 1.5f); }
    void PlayLoop() { Engine()->PlayMusic(Path("short.wav").c_str(), true); }
    void ReplaceMusic() { Engine()->PlayMusic(Path("other.wav").c_str(), true); }
    void StopMusic() { Engine()->StopMusic(); }
    void Quit() {
        reaped_ = Engine()->GetSoundSize() == 0;
        PostQuitMessage(0);
    }
    // The engine frees the effect when it has played.
    void Play(int volume, int pan, float pitch) {
        HGE* hge = Engine()->GetHge();
        EffectHandle* sound = Engine()->Play2DSound(Path("tone.wav").c_str());
        if (!sound) return;
        hge->Channel_SetVolume(sound->channel, volume);
        hge->Channel_SetPanning(sound->channel, pan);
        hge->Channel_SetPitch(sound->channel, pitch);
    }

    // tone.wav lasts half a second.
    const std::vector<Step> steps_ = {
        {0.5f, &Player::PlayPlain},     {1.5f, &Player::PlayQuiet}, {2.5f, &Player::PlayLeft},
        {3.5f, &Player::PlayHalfRight}, {4.5f, &Player::PlayHigh},  {5.5f, &Player::PlayLoop},
        {6.5f, &Player::StopMusic},     {7.0f, &Player::PlayLoop},  {7.3f, &Player::ReplaceMusic},
        {8.0f, &Player::StopMusic},     {8.5f, &Player::Quit},
    };
    size_t next_ = 0;
    float time_ = 0;
    bool reaped_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    g_folder = argv[1];
    Player player;
    return RunHost(&player, 320, 240, "sounds") && player.reaped() ? 0 : 1;
}
