#include "audio/channel_fold.h"

#include <algorithm>
#include <cmath>

namespace hge {
namespace {

// Speakers by letter: L R front, C centre, W low frequencies, l r surround or back, c back centre.
constexpr const char* kWaveOrder[] = {"C", "LR", "LRC", "LRlr", "LRClr", "LRCWlr", "LRCWclr", "LRCWlrlr"};
constexpr const char* kVorbisOrder[] = {"C", "LR", "LCR", "LRlr", "LCRlr", "LCRlrW", "LCRlrcW", "LCRlrlrW"};
constexpr float kHalfPower = 0.70710678f;

float LeftWeight(char speaker) {
    switch (speaker) {
        case 'L':
            return 1;
        case 'C':
        case 'l':
            return kHalfPower;
        case 'c':
            return 0.5f;
        default:
            return 0;
    }
}

char Mirror(char speaker) {
    switch (speaker) {
        case 'L':
            return 'R';
        case 'R':
            return 'L';
        case 'l':
            return 'r';
        case 'r':
            return 'l';
        default:
            return speaker;
    }
}

}  // namespace

ChannelFold::ChannelFold(uint32_t channels, ChannelOrder order) : channels_(std::clamp(channels, 1u, 8u)) {
    const char* speakers = (order == ChannelOrder::kWave ? kWaveOrder : kVorbisOrder)[channels_ - 1];
    float sum = 0;
    for (uint32_t i = 0; i < channels_; ++i)
        sum += LeftWeight(speakers[i]);
    for (uint32_t i = 0; i < channels_; ++i) {
        left_[i] = LeftWeight(speakers[i]) / sum;
        right_[i] = LeftWeight(Mirror(speakers[i])) / sum;
    }
}

void ChannelFold::Apply(const float* in, size_t frames, int16_t* out) const {
    if (channels_ <= 2) {
        for (size_t i = 0; i < frames * channels_; ++i)
            out[i] = ToSample(in[i]);
        return;
    }
    for (size_t frame = 0; frame < frames; ++frame, in += channels_) {
        float left = 0, right = 0;
        for (uint32_t i = 0; i < channels_; ++i) {
            left += in[i] * left_[i];
            right += in[i] * right_[i];
        }
        *out++ = ToSample(left);
        *out++ = ToSample(right);
    }
}

int16_t ToSample(float value) {
    // Not a number fails both comparisons and becomes silence.
    float scaled = value * 32768.0f;
    if (scaled >= 32767.0f) return 32767;
    if (scaled <= -32768.0f) return -32768;
    return std::isnan(scaled) ? int16_t{0} : static_cast<int16_t>(std::lrintf(scaled));
}

}  // namespace hge
