#include "audio/channel.h"

#include <algorithm>
#include <cmath>

namespace hge {
namespace {

// Gains are ramped over a chunk, so that a jump in volume does not click.
constexpr size_t kChunk = 128;
constexpr double kMinPitch = 0.01, kMaxPitch = 100;
// Frames that the curve needs beyond the last place: the one before it and two after.
constexpr size_t kReach = 4;

double ClampVolume(int volume) {
    return std::clamp(volume, 0, 100);
}

double ClampPan(int pan) {
    return std::clamp(pan, -100, 100);
}

bool IsPitch(float pitch) {
    return pitch > 0 && std::isfinite(pitch);
}

double ClampPitch(float pitch) {
    return IsPitch(pitch) ? std::clamp<double>(pitch, kMinPitch, kMaxPitch) : 1.0;
}

// A cubic through b (t = 0) and c (t = 1) with the slopes of their neighbours.
float Curve(float a, float b, float c, float d, float t) {
    float slope = (c - a) * 0.5f;
    float bend = a - 2.5f * b + 2.0f * c - 0.5f * d;
    float twist = (d - a) * 0.5f + (b - c) * 1.5f;
    return ((twist * t + bend) * t + slope) * t + b;
}

template <int kChannels>
float SampleAt(const int16_t* frame, int channel, float t) {
    return Curve(frame[channel], frame[kChannels + channel], frame[2 * kChannels + channel],
                 frame[3 * kChannels + channel], t);
}

// Adds frames to out; window holds source frames from the one before phase on.
template <int kChannels>
void Resample(const int16_t* window, double phase, double step, float* out, size_t frames, float left,
              float right, float left_step, float right_step) {
    for (size_t i = 0; i < frames; ++i, out += 2) {
        double place = phase + static_cast<double>(i) * step;
        auto whole = static_cast<uint32_t>(place);
        auto t = static_cast<float>(place - whole);
        const int16_t* frame = window + static_cast<size_t>(whole) * kChannels;
        float first = SampleAt<kChannels>(frame, 0, t);
        float second = kChannels == 2 ? SampleAt<kChannels>(frame, 1, t) : first;
        left += left_step;
        right += right_step;
        out[0] += first * left;
        out[1] += second * right;
    }
}

}  // namespace

void SlidingValue::Set(double value) {
    value_ = target_ = value;
    left_ = 0;
}

void SlidingValue::SlideTo(double value, double seconds) {
    if (!(seconds > 0)) return Set(value);
    target_ = value;
    left_ = seconds;
}

void SlidingValue::Advance(double seconds) {
    if (left_ <= 0) return;
    if (seconds >= left_) return Set(target_);
    value_ += (target_ - value_) * (seconds / left_);
    left_ -= seconds;
}

Channel::Channel(std::shared_ptr<SoundReader> reader, SoundGroup group, uint32_t owner,
                 const PlaySettings& settings)
    : reader_(std::move(reader)),
      group_(group),
      owner_(owner),
      loop_(settings.loop),
      volume_(ClampVolume(settings.volume)),
      pan_(ClampPan(settings.pan)),
      pitch_(ClampPitch(settings.pitch)),
      length_(reader_->frames()) {}

void Channel::SetVolume(int volume) {
    volume_.Set(ClampVolume(volume));
}

void Channel::SetPan(int pan) {
    pan_.Set(ClampPan(pan));
}

void Channel::SetPitch(float pitch) {
    if (IsPitch(pitch)) pitch_.Set(ClampPitch(pitch));
}

void Channel::SlideTo(float seconds, int volume, int pan, float pitch) {
    volume_.SlideTo(ClampVolume(volume), seconds);
    if (pan != -101) pan_.SlideTo(ClampPan(pan), seconds);
    if (IsPitch(pitch)) pitch_.SlideTo(ClampPitch(pitch), seconds);
}

bool Channel::IsSliding() const {
    return volume_.sliding() || pan_.sliding() || pitch_.sliding();
}

float Channel::Length() const {
    return static_cast<float>(static_cast<double>(length_) / reader_->rate());
}

float Channel::Position() const {
    return static_cast<float>((static_cast<double>(frame_) + phase_) / reader_->rate());
}

void Channel::SetPosition(float seconds) {
    double frame = static_cast<double>(seconds) * reader_->rate();
    if (!(frame >= 0 && frame <= static_cast<double>(length_))) return;
    frame_ = static_cast<uint64_t>(frame);
    phase_ = 0;
    stale_ = true;
}

void Channel::Mix(float* stereo, size_t frames, uint32_t rate, float group_gain) {
    while (frames && !ended_ && !paused_) {
        size_t count = std::min(frames, kChunk);
        MixChunk(stereo, count, rate, group_gain);
        stereo += count * 2;
        frames -= count;
    }
}

void Channel::Skip(size_t frames, uint32_t rate) {
    if (!paused_ && frames) stale_ = true;
    while (frames && !ended_ && !paused_) {
        // A pitch on its way changes the speed: small steps then.
        size_t count = pitch_.sliding() ? std::min(frames, kChunk) : frames;
        AdvancePlace(Step(rate) * static_cast<double>(count));
        AdvanceSlides(static_cast<double>(count) / rate);
        frames -= count;
    }
}

// A balance: the side away from the sound gets quieter, the centre plays both at full level.
Channel::Gains Channel::TargetGains(float group_gain) const {
    auto level = static_cast<float>(volume_.value() / 100) * group_gain / 32768.0f;
    auto pan = static_cast<float>(pan_.value() / 100);
    return {level * (pan > 0 ? 1 - pan : 1), level * (pan < 0 ? 1 + pan : 1)};
}

double Channel::Step(uint32_t rate) const {
    return pitch_.value() * reader_->rate() / rate;
}

void Channel::AdvanceSlides(double seconds) {
    volume_.Advance(seconds);
    pan_.Advance(seconds);
    pitch_.Advance(seconds);
}

void Channel::AdvancePlace(double source_frames) {
    double place = phase_ + source_frames, whole = std::floor(place);
    phase_ = place - whole;
    frame_ += static_cast<uint64_t>(whole);
    if (frame_ < length_) return;
    if (loop_ && length_ > 0) {
        frame_ %= length_;
    } else {
        frame_ = length_;
        phase_ = 0;
        ended_ = true;
    }
}

void Channel::MixChunk(float* stereo, size_t frames, uint32_t rate, float group_gain) {
    double step = Step(rate), phase = phase_;
    double advance = step * static_cast<double>(frames);
    FillWindow(static_cast<size_t>(phase + advance) + kReach);
    Gains target = TargetGains(group_gain);
    if (!heard_) gains_ = target;
    heard_ = true;
    auto count = static_cast<float>(frames);
    auto mix = reader_->channels() == 2 ? Resample<2> : Resample<1>;
    mix(window_.data(), phase, step, stereo, frames, gains_.left, gains_.right,
        (target.left - gains_.left) / count, (target.right - gains_.right) / count);
    gains_ = target;

    DropFromWindow(static_cast<size_t>(phase + advance));
    AdvancePlace(advance);
    AdvanceSlides(static_cast<double>(frames) / rate);
}

void Channel::FillWindow(size_t frames) {
    size_t channels = reader_->channels();
    if (stale_) {
        // Silence stands before the first frame.
        read_at_ = frame_ ? frame_ - 1 : 0;
        reader_->Seek(read_at_);
        window_.assign(frame_ ? 0 : channels, 0);
        stale_ = false;
    }
    size_t have = window_.size() / channels;
    if (have >= frames) return;
    window_.resize(frames * channels);
    size_t got = ReadMore(&window_[have * channels], frames - have);
    std::fill(window_.begin() + static_cast<ptrdiff_t>((have + got) * channels), window_.end(), int16_t{0});
}

// Goes round at the end of a loop. A source that ends before its stated length gets the shorter one.
size_t Channel::ReadMore(int16_t* out, size_t frames) {
    size_t channels = reader_->channels(), done = 0;
    while (done < frames) {
        size_t got = reader_->Read(out + done * channels, frames - done);
        done += got;
        read_at_ += got;
        if (got) continue;
        length_ = std::min(length_, read_at_);
        if (!loop_ || length_ == 0 || !reader_->Seek(0)) break;
        read_at_ = 0;
    }
    return done;
}

void Channel::DropFromWindow(size_t frames) {
    auto samples = static_cast<ptrdiff_t>(std::min(frames * reader_->channels(), window_.size()));
    window_.erase(window_.begin(), window_.begin() + samples);
}

}  // namespace hge
