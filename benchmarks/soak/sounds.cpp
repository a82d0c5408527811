#include "toys.h"

namespace soak {

namespace {

const char* const kSounds[] = {"click.wav",  "hit.wav",   "miss.wav",  "tone03.wav",
                               "tone09.wav", "level.wav", "music.ogg", "no such sound.wav"};
const char* const kMusic[] = {"music.ogg", "win.wav", "level.wav", "no such music.ogg"};
constexpr size_t kMostEffects = 8, kMostStreams = 2, kMostChannels = 16;

class Sounds : public Toys {
 public:
    Sounds() {
        OfferSounds();
        May("change a channel", 40, [this](Dice& dice) { ChangeChannel(dice); });
        May("stop all", 2, [this](Dice&) { hge_->Channel_StopAll(); });
        May("pause all", 2, [this](Dice&) { hge_->Channel_PauseAll(); });
        May("resume all", 2, [this](Dice&) { hge_->Channel_ResumeAll(); });
        May("set volumes", 4, [this](Dice& dice) {
            hge_->System_SetState(HGE_FXVOLUME, dice.Below(101));
            hge_->System_SetState(HGE_STREAMVOLUME, dice.Below(101));
        });
    }

    void Rest() override {
        engine_->StopMusic();
        hge_->Channel_StopAll();
        for (HEFFECT effect : std::exchange(effects_, {}))
            hge_->Effect_Free(effect);
        for (HSTREAM stream : std::exchange(streams_, {}))
            hge_->Stream_Free(stream);
        channels_.clear();
    }

 private:
    void OfferSounds() {
        MayLoad("play a file", 4, [this](Dice& dice) {
            if (EffectHandle* sound = engine_->Play2DSound(dice.Of(kSounds))) Remember(sound->channel);
        });
        MayLoad("play music", 1,
                [this](Dice& dice) { engine_->PlayMusic(dice.Of(kMusic), dice.Chance(50)); });
        May("stop music", 2, [this](Dice&) { engine_->StopMusic(); });
        MayLoad("load an effect", 2, [this](Dice& dice) {
            if (effects_.size() >= kMostEffects) hge_->Effect_Free(dice.TakeFrom(effects_));
            effects_.push_back(hge_->Effect_Load(dice.Of(kSounds)));
        });
        May("play an effect", 20, [this](Dice& dice) {
            if (effects_.empty()) return;
            int volume = dice.Below(101), pan = dice.Below(201) - 100;
            float pitch = dice.Between(0.1f, 4);
            Remember(hge_->Effect_PlayEx(dice.Of(effects_), volume, pan, pitch, dice.Chance(10)));
        });
        May("free an effect", 3, [this](Dice& dice) { hge_->Effect_Free(dice.TakeFrom(effects_)); });
        MayLoad("play a stream", 2, [this](Dice& dice) {
            if (streams_.size() >= kMostStreams) hge_->Stream_Free(dice.TakeFrom(streams_));
            streams_.push_back(hge_->Stream_Load(dice.Of(kMusic)));
            Remember(hge_->Stream_Play(streams_.back(), dice.Chance(50), dice.Below(101)));
        });
    }
    void Remember(HCHANNEL channel) {
        if (channels_.size() >= kMostChannels) channels_.erase(channels_.begin());
        channels_.push_back(channel);
    }
    void ChangeChannel(Dice& dice) {
        if (channels_.empty()) return;
        HCHANNEL channel = dice.Of(channels_);
        switch (dice.Below(8)) {
            case 0:
                return hge_->Channel_SetVolume(channel, dice.Below(101));
            case 1:
                return hge_->Channel_SetPanning(channel, dice.Below(201) - 100);
            case 2:
                return hge_->Channel_SetPitch(channel, dice.Between(0.1f, 4));
            case 3:
                return hge_->Channel_Pause(channel);
            case 4:
                return hge_->Channel_Resume(channel);
            case 5:
                return hge_->Channel_SetPos(channel, dice.Between(0, 2));
            case 6:
                return hge_->Channel_SlideTo(channel, dice.Between(0, 2), dice.Below(101));
            default:
                return hge_->Channel_Stop(channel);
        }
    }

    std::vector<HEFFECT> effects_;
    std::vector<HSTREAM> streams_;
    std::vector<HCHANNEL> channels_;
};

}  // namespace

std::unique_ptr<Toys> MakeSounds() {
    return std::make_unique<Sounds>();
}

}  // namespace soak
