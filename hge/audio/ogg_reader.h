#pragma once

#include "audio/sound_reader.h"

namespace hge {

// Bytes of the page that begins here, 0 when it is no whole page.
size_t OggPageSize(const uint8_t* page, size_t rest);
// What a page of this size should have at its byte 22.
uint32_t OggPageChecksum(const uint8_t* page, size_t size);

// Walks the pages: false when one is damaged (checksum), they do not make one stream, the file is cut off, or
// what stands before the sound is nonsense. *size becomes what the pages take: what follows the last one is
// no part of the sound.
bool CheckOgg(const uint8_t* data, size_t* size, std::string* reason);

std::unique_ptr<SoundReader> OpenOgg(SoundBytes bytes, std::string* reason);

}  // namespace hge
