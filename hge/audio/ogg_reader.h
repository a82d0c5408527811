#pragma once

#include "audio/sound_reader.h"

namespace hge {

// Walks the pages: false when one is damaged (checksum), the file is cut off, or the comments are nonsense.
bool CheckOgg(const uint8_t* data, size_t size, std::string* reason);

std::unique_ptr<SoundReader> OpenOgg(SoundBytes bytes, std::string* reason);

}  // namespace hge
