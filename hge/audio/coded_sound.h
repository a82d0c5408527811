#pragma once

#include "audio/sound_reader.h"

namespace hge {

// A sound in a coding that the system decodes: units (blocks, MPEG frames) of a known number of frames.
struct CodedSound {
    SoundBytes bytes;             // keeps data alive
    std::vector<uint8_t> format;  // a WAVEFORMATEX with what follows it
    uint32_t rate = 0;
    uint32_t channels = 0;
    const uint8_t* data = nullptr;
    size_t data_size = 0;
    size_t units = 0;
    std::vector<uint32_t> unit_offsets;  // into data; empty: all units are unit_bytes long
    uint32_t unit_bytes = 0;
    uint32_t unit_frames = 0;
    uint32_t preroll_units = 0;  // decoded and dropped before a place can be played
    uint64_t skip_frames = 0;    // decoded frames before the sound's first
    uint64_t frames = 0;

    size_t UnitStart(size_t unit) const {
        if (unit >= units && unit_offsets.empty()) return units * unit_bytes;
        if (unit >= units) return data_size;
        return unit_offsets.empty() ? unit * unit_bytes : unit_offsets[unit];
    }
};

// Null when the system has no codec for it.
std::unique_ptr<SoundReader> OpenCoded(CodedSound sound, std::string* reason);

}  // namespace hge
