#pragma once

#include "audio/sound_reader.h"
#include "fuzz.h"

using OpenSoundAs = std::unique_ptr<hge::SoundReader> (*)(hge::SoundBytes, std::string*);

// Opens the bytes, decodes them whole and reads on from the middle.
inline void PlaySound(OpenSoundAs open, std::vector<uint8_t> bytes) {
    std::string reason;
    auto reader = open(std::make_shared<const std::vector<uint8_t>>(std::move(bytes)), &reason);
    PROMISED(reader || !reason.empty());
    if (!reader) return;
    PROMISED(hge::IsSaneSound(reader->rate(), reader->channels(), reader->frames(), &reason));
    PROMISED(reader->channels() <= 2);
    reason.clear();
    auto pcm = hge::DecodeSound(*reader, &reason);
    PROMISED(pcm ? pcm->frames() <= reader->frames() : !reason.empty());
    int16_t frames[2 * 16];
    if (reader->Seek(reader->frames() / 2)) PROMISED(reader->Read(frames, 16) <= 16);
}
