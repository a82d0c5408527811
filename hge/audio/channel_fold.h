#pragma once

#include <cstddef>
#include <cstdint>

namespace hge {

enum class ChannelOrder { kWave, kVorbis };

// Brings samples (full scale -1..1, 1 to 8 interleaved channels) to 16 bits in one channel or two. Three and
// more are folded to stereo with the usual weights, scaled so that the sum cannot clip.
class ChannelFold {
 public:
    ChannelFold(uint32_t channels, ChannelOrder order);

    uint32_t out_channels() const { return channels_ < 2 ? 1 : 2; }
    void Apply(const float* in, size_t frames, int16_t* out) const;

 private:
    uint32_t channels_;
    float left_[8] = {};
    float right_[8] = {};
};

int16_t ToSample(float value);

}  // namespace hge
