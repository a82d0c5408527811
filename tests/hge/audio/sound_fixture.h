#pragma once

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "audio/sound_reader.h"
#include "support/files.h"

using Blob = std::vector<uint8_t>;

inline hge::SoundBytes Share(Blob bytes) {
    return std::make_shared<const Blob>(std::move(bytes));
}

inline Blob Asset(const std::string& name) {
    std::string bytes = test::FileText(AUDIO_ASSETS + name);
    return {bytes.begin(), bytes.end()};
}

inline void Put(Blob* out, uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out->push_back(static_cast<uint8_t>(value >> 8 * i));
}

struct WaveSpec {
    uint32_t coding = 1, channels = 1, rate = 44100, bits = 16;
    uint32_t block_align = 0;  // 0: what the others give
    uint32_t data_size = 0;    // as stated; 0: the true one
    bool extensible = false;
};

inline Blob MakeWave(const WaveSpec& spec, const Blob& data) {
    Blob out{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
    uint32_t align = spec.block_align ? spec.block_align : spec.channels * spec.bits / 8;
    Put(&out, spec.extensible ? 40 : 16, 4);
    Put(&out, spec.extensible ? 0xFFFE : spec.coding, 2);
    Put(&out, spec.channels, 2);
    Put(&out, spec.rate, 4);
    Put(&out, spec.rate * align, 4);
    Put(&out, align, 2);
    Put(&out, spec.bits, 2);
    if (spec.extensible) {
        Put(&out, 22, 2);
        Put(&out, spec.bits, 2);
        Put(&out, 0, 4);
        Put(&out, spec.coding, 4);
        out.resize(out.size() + 12);
    }
    for (char letter : {'d', 'a', 't', 'a'})
        out.push_back(static_cast<uint8_t>(letter));
    Put(&out, spec.data_size ? spec.data_size : static_cast<uint32_t>(data.size()), 4);
    out.insert(out.end(), data.begin(), data.end());
    return out;
}

// 16-bit samples as a file holds them.
inline Blob Samples(const std::vector<int>& values) {
    Blob out;
    for (int value : values)
        Put(&out, static_cast<uint32_t>(value), 2);
    return out;
}

inline std::vector<int> Sine(double hertz, uint32_t rate, size_t frames, double level = 16384) {
    std::vector<int> out(frames);
    for (size_t i = 0; i < frames; ++i)
        out[i] = static_cast<int>(
            std::lround(level * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate)));
    return out;
}

inline std::vector<int16_t> ReadAll(hge::SoundReader& reader) {
    std::vector<int16_t> out(static_cast<size_t>(reader.frames()) * reader.channels());
    out.resize(reader.Read(out.data(), static_cast<size_t>(reader.frames())) * reader.channels());
    return out;
}

// By the upward zero crossings between the first and the last.
template <class T>
double Hertz(const std::vector<T>& samples, double rate, size_t stride = 1, size_t offset = 0) {
    double first = -1, last = -1;
    int cycles = -1;
    for (size_t i = offset + stride; i < samples.size(); i += stride) {
        double a = static_cast<double>(samples[i - stride]), b = static_cast<double>(samples[i]);
        if (!(a < 0 && b >= 0)) continue;
        last = static_cast<double>(i / stride) - b / (b - a);
        if (first < 0) first = last;
        ++cycles;
    }
    return cycles > 0 ? cycles * rate / (last - first) : 0;
}

template <class T>
double Rms(const std::vector<T>& samples, size_t stride = 1, size_t offset = 0) {
    double sum = 0;
    size_t count = 0;
    for (size_t i = offset; i < samples.size(); i += stride, ++count)
        sum += static_cast<double>(samples[i]) * static_cast<double>(samples[i]);
    return count ? std::sqrt(sum / static_cast<double>(count)) : 0;
}
