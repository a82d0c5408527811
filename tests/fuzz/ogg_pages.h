#pragma once

#include "audio/ogg_reader.h"
#include "fuzz.h"

// The bytes with right checksums on their pages: no fuzzer guesses those.
inline std::vector<uint8_t> WithChecksums(const uint8_t* data, size_t size) {
    std::vector<uint8_t> bytes(data, data + size);
    for (size_t at = 0, length; (length = hge::OggPageSize(bytes.data() + at, size - at)) != 0;
         at += length) {
        uint32_t sum = hge::OggPageChecksum(&bytes[at], length);
        for (size_t i = 0; i < 4; ++i)
            bytes[at + 22 + i] = static_cast<uint8_t>(sum >> 8 * i);
    }
    return bytes;
}
