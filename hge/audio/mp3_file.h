#pragma once

#include "audio/sound_reader.h"

namespace hge {

struct Mp3Header {
    uint32_t version = 0;  // 1, 2, or 3 for 2.5
    uint32_t rate = 0;
    uint32_t channels = 0;
    uint32_t bits_per_second = 0;
    uint32_t size = 0;    // bytes of the MPEG frame
    uint32_t frames = 0;  // samples per channel in it: 1152 or 576
};

// Four bytes of an MPEG layer 3 frame; false when they are none, or of free format.
bool ParseMp3Header(const uint8_t* bytes, Mp3Header* header);

// What a walk over the MPEG frames finds.
struct Mp3File {
    Mp3Header first;
    std::vector<uint32_t> offsets;  // of the MPEG frames that hold sound
    uint64_t skip_frames = 0;       // what the encoder and the decoder put before the sound
    uint64_t frames = 0;            // without skip and padding
};

// False for what is no MP3, or is cut off.
bool ParseMp3(const uint8_t* data, size_t size, Mp3File* file, std::string* reason);

std::unique_ptr<SoundReader> OpenMp3(SoundBytes bytes, std::string* reason);
// An MP3 inside another file; bytes keeps data alive.
std::unique_ptr<SoundReader> OpenMp3Data(SoundBytes bytes, const uint8_t* data, size_t size,
                                         std::string* reason);

}  // namespace hge
