#include "audio/wave_file.h"

#include <cstring>

#include "audio/byte_reader.h"

namespace hge {
namespace {

// What programs that write into a pipe put where the size is not known.
constexpr uint32_t kUnknownSize = 0x7FFF0000;

bool IsChunk(const uint8_t* chunk, const char* name) {
    return std::memcmp(chunk, name, 4) == 0;
}

bool ReadFormat(const uint8_t* format, uint32_t size, WaveFile* wave, std::string* reason) {
    if (size < 16) {
        *reason = "its format chunk is too short";
        return false;
    }
    wave->format = format;
    wave->format_size = size;
    wave->coding = Little16(format);
    wave->channels = Little16(format + 2);
    wave->rate = Little32(format + 4);
    wave->block_align = Little16(format + 12);
    wave->bits = Little16(format + 14);
    // The extended form names the coding in the first bytes of an id.
    if (wave->coding == kWaveExtensible) wave->coding = size >= 40 ? Little16(format + 24) : uint16_t{0};
    return true;
}

}  // namespace

bool ParseWave(const std::vector<uint8_t>& bytes, WaveFile* wave, std::string* reason) {
    if (bytes.size() < 12 || !IsChunk(&bytes[8], "WAVE")) {
        *reason = "no WAVE file";
        return false;
    }
    for (size_t at = 12; !wave->data && bytes.size() - at >= 8;) {
        const uint8_t* chunk = &bytes[at];
        uint32_t size = Little32(chunk + 4);
        size_t rest = bytes.size() - at - 8;
        bool is_data = IsChunk(chunk, "data");
        if (is_data && size >= kUnknownSize) size = static_cast<uint32_t>(rest);
        if (size > rest) {
            *reason = "cut off: a part of " + std::to_string(size) + " bytes has " + std::to_string(rest);
            return false;
        }
        if (IsChunk(chunk, "fmt ") && !ReadFormat(chunk + 8, size, wave, reason)) return false;
        if (IsChunk(chunk, "fact") && size >= 4) wave->fact_frames = Little32(chunk + 8);
        if (is_data) {
            wave->data = chunk + 8;
            wave->data_size = size;
        }
        // Parts start at even places; the last one's padding may be missing.
        at += 8 + size + (size & 1 && size < rest);
    }
    if (wave->format && wave->data) return true;
    *reason = wave->format ? "cut off: it has no samples" : "it has no format before its samples";
    return false;
}

}  // namespace hge
