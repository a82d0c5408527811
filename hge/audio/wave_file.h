#pragma once

#include "audio/sound_reader.h"

namespace hge {

enum WaveCoding : uint16_t {
    kWavePcm = 1,
    kWaveMsAdpcm = 2,
    kWaveFloat = 3,
    kWaveMp3 = 0x55,
    kWaveExtensible = 0xFFFE
};

// The parts of a RIFF WAVE file. Pointers go into the bytes it was parsed from.
struct WaveFile {
    uint16_t coding = 0;  // WaveCoding or another tag; never kWaveExtensible
    uint16_t channels = 0;
    uint32_t rate = 0;
    uint16_t block_align = 0;  // bytes
    uint16_t bits = 0;         // of one sample
    const uint8_t* format = nullptr;
    uint32_t format_size = 0;  // at least 16
    const uint8_t* data = nullptr;
    uint32_t data_size = 0;
    uint32_t fact_frames = 0;  // 0: not said
};

// False for what is no WAVE file, or is cut off.
bool ParseWave(const std::vector<uint8_t>& bytes, WaveFile* wave, std::string* reason);

}  // namespace hge
