#pragma once

#include "audio/sound_reader.h"

namespace hge {

// A value that can be on its way to another one.
class SlidingValue {
 public:
    explicit SlidingValue(double value) : value_(value), target_(value) {}

    void Set(double value);
    // seconds 0 or less: at once.
    void SlideTo(double value, double seconds);
    void Advance(double seconds);

    double value() const { return value_; }
    bool sliding() const { return left_ > 0; }

 private:
    double value_;
    double target_;
    double left_ = 0;  // seconds
};

// Which of the global volumes applies.
enum class SoundGroup { kEffects, kMusic, kStreams };
constexpr size_t kSoundGroups = 3;

// Out-of-range values are brought into range; a pitch that is no positive number counts as 1.
struct PlaySettings {
    int volume = 100;    // 0..100
    int pan = 0;         // -100..100
    float pitch = 1.0f;  // factor
    bool loop = false;
};

// One sound being played: its place, volume, pan and pitch, and what it adds to the output.
class Channel {
 public:
    // owner: the effect or stream whose sound this is.
    Channel(std::shared_ptr<SoundReader> reader, SoundGroup group, uint32_t owner,
            const PlaySettings& settings);

    void SetVolume(int volume);
    void SetPan(int pan);
    void SetPitch(float pitch);
    void SetPaused(bool paused) { paused_ = paused; }
    // pan -101 and a pitch that is not positive leave those as they are.
    void SlideTo(float seconds, int volume, int pan, float pitch);
    bool IsSliding() const;
    float Length() const;  // seconds
    float Position() const;
    // Seconds, up to the length; others are ignored.
    void SetPosition(float seconds);

    // Adds frames of stereo at rate. group_gain: 0..1.
    void Mix(float* stereo, size_t frames, uint32_t rate, float group_gain);
    // Time passes unheard.
    void Skip(size_t frames, uint32_t rate);

    bool paused() const { return paused_; }
    bool ended() const { return ended_; }
    SoundGroup group() const { return group_; }
    uint32_t owner() const { return owner_; }

 private:
    struct Gains {
        float left, right;
    };
    Gains TargetGains(float group_gain) const;
    double Step(uint32_t rate) const;
    void AdvanceSlides(double seconds);
    void AdvancePlace(double source_frames);
    void MixChunk(float* stereo, size_t frames, uint32_t rate, float group_gain);
    void FillWindow(size_t frames);
    size_t ReadMore(int16_t* out, size_t frames);
    void DropFromWindow(size_t frames);

    std::shared_ptr<SoundReader> reader_;
    SoundGroup group_;
    uint32_t owner_;
    bool loop_;
    bool paused_ = false;
    bool ended_ = false;
    SlidingValue volume_, pan_, pitch_;

    uint64_t length_;     // frames of the source
    uint64_t frame_ = 0;  // of the source, to be heard next
    double phase_ = 0;    // how far between it and the one after, 0..1
    // Source frames from frame_ - 1 on; stale when the reader is not where frame_ is.
    std::vector<int16_t> window_;
    uint64_t read_at_ = 0;  // of the source, the reader's next frame
    bool stale_ = true;
    Gains gains_{0, 0};
    bool heard_ = false;
};

}  // namespace hge
