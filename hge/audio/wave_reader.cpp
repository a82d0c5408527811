#include "audio/wave_reader.h"

#include <algorithm>
#include <cstring>

#include "audio/byte_reader.h"
#include "audio/channel_fold.h"
#include "audio/coded_sound.h"
#include "audio/mp3_file.h"
#include "audio/wave_file.h"

namespace hge {
namespace {

float Pcm8(const uint8_t* p) {
    return static_cast<float>(*p - 128) / 128.0f;
}
float Pcm16(const uint8_t* p) {
    return static_cast<float>(static_cast<int16_t>(Little16(p))) / 32768.0f;
}
float Pcm24(const uint8_t* p) {
    auto value =
        static_cast<int32_t>(static_cast<uint32_t>(Little16(p)) << 8 | static_cast<uint32_t>(p[2]) << 24);
    return static_cast<float>(value) / 2147483648.0f;
}
float Pcm32(const uint8_t* p) {
    return static_cast<float>(static_cast<int32_t>(Little32(p))) / 2147483648.0f;
}
float Float32(const uint8_t* p) {
    float value;
    std::memcpy(&value, p, sizeof value);
    return value;
}
float Float64(const uint8_t* p) {
    double value;
    std::memcpy(&value, p, sizeof value);
    return static_cast<float>(value);
}

using SampleDecoder = float (*)(const uint8_t*);

SampleDecoder DecoderFor(const WaveFile& wave) {
    if (wave.coding == kWaveFloat) return wave.bits == 32 ? Float32 : wave.bits == 64 ? Float64 : nullptr;
    switch (wave.bits) {
        case 8:
            return Pcm8;
        case 16:
            return Pcm16;
        case 24:
            return Pcm24;
        case 32:
            return Pcm32;
        default:
            return nullptr;
    }
}

class WaveReader final : public SoundReader {
 public:
    WaveReader(SoundBytes bytes, const WaveFile& wave, SampleDecoder decode)
        : bytes_(std::move(bytes)), wave_(wave), decode_(decode), fold_(wave.channels, ChannelOrder::kWave) {
        rate_ = wave.rate;
        channels_ = fold_.out_channels();
        frames_ = wave.data_size / wave.block_align;
    }

    size_t Read(int16_t* out, size_t count) override {
        count = static_cast<size_t>(std::min<uint64_t>(count, frames_ - next_));
        const uint8_t* from = wave_.data + next_ * wave_.block_align;
        if (decode_ == Pcm16 && wave_.channels <= 2)
            std::memcpy(out, from, count * wave_.block_align);
        else
            Convert(from, count, out);
        next_ += count;
        return count;
    }

    bool Seek(uint64_t frame) override {
        next_ = static_cast<size_t>(std::min(frame, frames_));
        return true;
    }

 private:
    void Convert(const uint8_t* from, size_t count, int16_t* out) {
        constexpr size_t kFrames = 256;
        float values[kFrames * 8];
        size_t width = wave_.bits / 8u;
        while (count) {
            size_t frames = std::min(count, kFrames), samples = frames * wave_.channels;
            for (size_t i = 0; i < samples; ++i, from += width)
                values[i] = decode_(from);
            fold_.Apply(values, frames, out);
            out += frames * channels_;
            count -= frames;
        }
    }

    SoundBytes bytes_;
    WaveFile wave_;
    SampleDecoder decode_;
    ChannelFold fold_;
    size_t next_ = 0;
};

std::unique_ptr<SoundReader> OpenPlain(SoundBytes bytes, WaveFile wave, std::string* reason) {
    // Samples of odd widths fill whole bytes from the top.
    if (wave.coding == kWavePcm) wave.bits = static_cast<uint16_t>((wave.bits + 7) / 8 * 8);
    SampleDecoder decode = DecoderFor(wave);
    if (!decode || wave.block_align != wave.channels * wave.bits / 8) {
        *reason = std::to_string(wave.bits) + "-bit samples in blocks of " +
                  std::to_string(wave.block_align) + " bytes";
        return nullptr;
    }
    if (!IsSaneSound(wave.rate, wave.channels, wave.data_size / wave.block_align, reason)) return nullptr;
    return std::make_unique<WaveReader>(std::move(bytes), wave, decode);
}

// The thriftiest speech codings come near it.
constexpr uint32_t kMostFramesPerByte = 64;

// Frames in one block; 0 when the header does not say it.
uint32_t BlockFrames(const WaveFile& wave) {
    if (wave.format_size >= 20 && Little16(wave.format + 16) >= 2) return Little16(wave.format + 18);
    return wave.bits == 8 && wave.block_align == wave.channels ? 1 : 0;
}

std::unique_ptr<SoundReader> OpenCodedWave(SoundBytes bytes, const WaveFile& wave, std::string* reason) {
    CodedSound coded;
    coded.format.assign(wave.format, wave.format + wave.format_size);
    coded.rate = wave.rate;
    coded.channels = wave.channels;
    coded.unit_frames = BlockFrames(wave);
    coded.unit_bytes = wave.block_align;
    if (!coded.unit_frames || !coded.unit_bytes) {
        *reason = "coding " + std::to_string(wave.coding) + " without block sizes";
        return nullptr;
    }
    if (coded.unit_frames > coded.unit_bytes * kMostFramesPerByte) {
        *reason = "damaged: " + std::to_string(coded.unit_frames) + " samples in blocks of " +
                  std::to_string(coded.unit_bytes) + " bytes";
        return nullptr;
    }
    coded.data = wave.data;
    coded.data_size = wave.data_size;
    coded.units = wave.data_size / wave.block_align;
    coded.frames = static_cast<uint64_t>(coded.units) * coded.unit_frames;
    if (wave.fact_frames) coded.frames = std::min<uint64_t>(coded.frames, wave.fact_frames);
    if (!IsSaneSound(coded.rate, coded.channels, coded.frames, reason)) return nullptr;
    coded.bytes = std::move(bytes);
    return OpenCoded(std::move(coded), reason);
}

}  // namespace

std::unique_ptr<SoundReader> OpenWave(SoundBytes bytes, std::string* reason) {
    WaveFile wave;
    if (!ParseWave(*bytes, &wave, reason)) return nullptr;
    if (wave.channels == 0 || wave.channels > 8) {
        *reason = std::to_string(wave.channels) + " channels";
        return nullptr;
    }
    if (wave.coding == kWavePcm || wave.coding == kWaveFloat)
        return OpenPlain(std::move(bytes), wave, reason);
    if (wave.coding == kWaveMp3) return OpenMp3Data(std::move(bytes), wave.data, wave.data_size, reason);
    return OpenCodedWave(std::move(bytes), wave, reason);
}

}  // namespace hge
