#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace hge {

// A sound file's bytes, shared by what reads them.
using SoundBytes = std::shared_ptr<const std::vector<uint8_t>>;

// A sound as 16-bit samples, one channel or two (interleaved), read from front to back.
class SoundReader {
 public:
    virtual ~SoundReader() = default;
    // Reads up to count frames; fewer only at the end or when the rest cannot be decoded.
    virtual size_t Read(int16_t* out, size_t count) = 0;
    // The next Read starts at this frame (0..frames()).
    virtual bool Seek(uint64_t frame) = 0;

    uint32_t rate() const { return rate_; }          // frames per second
    uint32_t channels() const { return channels_; }  // 1 or 2
    uint64_t frames() const { return frames_; }

 protected:
    uint32_t rate_ = 0;
    uint32_t channels_ = 0;
    uint64_t frames_ = 0;
};

// What every sound must keep to; *reason says what is wrong.
bool IsSaneSound(uint32_t rate, uint32_t channels, uint64_t frames, std::string* reason);

// Tells WAV, OGG Vorbis and MP3 by their first bytes. Null when it is none of them, or broken or cut off.
std::unique_ptr<SoundReader> OpenSound(SoundBytes bytes, std::string* reason);

// A sound decoded whole.
struct Pcm {
    uint32_t rate = 0;
    uint32_t channels = 0;
    std::vector<int16_t> samples;

    uint64_t frames() const { return channels ? samples.size() / channels : 0; }
};

// Null when it decodes to nothing or to more than an effect may hold.
std::shared_ptr<const Pcm> DecodeSound(SoundReader& reader, std::string* reason);

// Reads a decoded sound; any number may share it.
std::unique_ptr<SoundReader> ReadPcm(std::shared_ptr<const Pcm> pcm);

}  // namespace hge
