#pragma once

#include "audio/sound_reader.h"

namespace hge {

// PCM of 8, 16, 24 and 32 bits, float of 32 and 64; other codings go to the system's codecs.
std::unique_ptr<SoundReader> OpenWave(SoundBytes bytes, std::string* reason);

}  // namespace hge
