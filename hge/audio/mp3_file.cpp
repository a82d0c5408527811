#include "audio/mp3_file.h"

#include <algorithm>
#include <cstring>

#include "audio/byte_reader.h"
#include "audio/coded_sound.h"

namespace hge {
namespace {

// What a decoder puts before the first sample, whatever the encoder did.
constexpr uint32_t kDecoderDelay = 529;
// The bits of a frame may start up to this many frames earlier.
constexpr uint32_t kPreroll = 10;

constexpr uint16_t kBitRates[2][16] = {
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
};
constexpr uint16_t kRates[3] = {44100, 48000, 32000};

bool SameStream(const Mp3Header& a, const Mp3Header& b) {
    return a.version == b.version && a.rate == b.rate && a.channels == b.channels;
}

// Bytes of the tags before the first frame.
size_t LeadingTags(const uint8_t* data, size_t size) {
    size_t at = 0;
    while (size - at >= 10 && std::memcmp(data + at, "ID3", 3) == 0) {
        const uint8_t* tag = data + at;
        size_t length = 10 + (size_t{tag[6] & 0x7Fu} << 21 | size_t{tag[7] & 0x7Fu} << 14 |
                              size_t{tag[8] & 0x7Fu} << 7 | (tag[9] & 0x7Fu));
        if (length > size - at) return size;
        at += length;
    }
    return at;
}

// Size without the tags that may follow the last frame.
size_t WithoutTrailingTag(const uint8_t* data, size_t size) {
    if (size >= 128 && std::memcmp(data + size - 128, "TAG", 3) == 0) size -= 128;
    if (size >= 32 && std::memcmp(data + size - 32, "APETAGEX", 8) == 0) {
        size_t body = Little32(data + size - 20);
        bool has_header = data[size - 9] & 0x80;
        size -= std::min(size, body + (has_header ? 32 : 0));
    }
    return size;
}

// The note that encoders leave in place of the first frame.
struct EncoderNote {
    bool present = false;
    uint32_t mpeg_frames = 0;  // 0: not said
    uint32_t delay = 0, padding = 0;
    bool has_delay = false;
};

EncoderNote ReadNote(const uint8_t* frame, const Mp3Header& header) {
    EncoderNote note;
    size_t side = header.version == 1 ? (header.channels == 1 ? 17 : 32) : (header.channels == 1 ? 9 : 17);
    size_t at = 4 + side;
    if (header.size < at + 8) return note;
    note.present = !std::memcmp(frame + at, "Xing", 4) || !std::memcmp(frame + at, "Info", 4);
    if (!note.present) return note;
    uint32_t flags = Big32(frame + at + 4);
    at += 8;
    if (flags & 1 && at + 4 <= header.size) note.mpeg_frames = Big32(frame + at);
    at += (flags & 1 ? 4 : 0) + (flags & 2 ? 4 : 0) + (flags & 4 ? 100 : 0) + (flags & 8 ? 4 : 0);
    if (at + 24 > header.size || !(frame[at] >= 'A' && frame[at] <= 'Z')) return note;
    const uint8_t* delays = frame + at + 21;
    note.delay = static_cast<uint32_t>(delays[0] << 4 | delays[1] >> 4);
    note.padding = static_cast<uint32_t>((delays[1] & 15) << 8 | delays[2]);
    note.has_delay = true;
    return note;
}

// The next frame of the same stream at or behind at; junk between frames is passed over. False at the end;
// *cut when the last frame is not whole.
bool NextFrame(const uint8_t* data, size_t size, const Mp3Header& like, size_t* at, Mp3Header* header,
               bool* cut) {
    for (; size - *at >= 4; ++*at) {
        if (!ParseMp3Header(data + *at, header) || !SameStream(*header, like)) continue;
        *cut = header->size > size - *at;
        return !*cut;
    }
    return false;
}

// Two frames in a row: one alone is too easily met by chance.
bool FindFirst(const uint8_t* data, size_t size, size_t* at, Mp3Header* first) {
    constexpr size_t kMaxJunk = 64 * 1024;
    for (size_t end = std::min(size, *at + kMaxJunk); end - *at >= 4; ++*at) {
        if (!ParseMp3Header(data + *at, first)) continue;
        Mp3Header second;
        size_t next = *at + first->size;
        if (next + 4 <= size && ParseMp3Header(data + next, &second) && SameStream(*first, second))
            return true;
    }
    return false;
}

void SetLength(const EncoderNote& note, Mp3File* file) {
    uint64_t decoded = static_cast<uint64_t>(file->offsets.size()) * file->first.frames;
    uint64_t skip = note.has_delay ? note.delay + kDecoderDelay : 0;
    uint64_t padding = note.has_delay && note.padding > kDecoderDelay ? note.padding - kDecoderDelay : 0;
    if (skip + padding >= decoded) skip = padding = 0;
    file->skip_frames = skip;
    file->frames = decoded - skip - padding;
}

void PutLittle(std::vector<uint8_t>* out, uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out->push_back(static_cast<uint8_t>(value >> 8 * i));
}

// An MPEGLAYER3WAVEFORMAT.
std::vector<uint8_t> WaveFormatOf(const Mp3Header& header) {
    std::vector<uint8_t> format;
    PutLittle(&format, 0x55, 2);
    PutLittle(&format, header.channels, 2);
    PutLittle(&format, header.rate, 4);
    PutLittle(&format, header.bits_per_second / 8, 4);
    PutLittle(&format, 1, 2);            // block align
    PutLittle(&format, 0, 2);            // bits
    PutLittle(&format, 12, 2);           // bytes that follow
    PutLittle(&format, 1, 2);            // MPEG
    PutLittle(&format, 2, 4);            // padding: off
    PutLittle(&format, header.size, 2);  // block
    PutLittle(&format, 1, 2);            // frames per block
    PutLittle(&format, 0, 2);            // codec delay
    return format;
}

}  // namespace

bool ParseMp3Header(const uint8_t* bytes, Mp3Header* header) {
    uint32_t bits = Big32(bytes);
    uint32_t version = bits >> 19 & 3, layer = bits >> 17 & 3, bit_rate = bits >> 12 & 15,
             rate = bits >> 10 & 3;
    if (bits >> 21 != 0x7FF || version == 1 || layer != 1 || rate == 3) return false;
    uint32_t kilobits = kBitRates[version != 3][bit_rate];
    if (!kilobits) return false;
    header->version = version == 3 ? 1 : version == 2 ? 2 : 3;
    header->rate = kRates[rate] >> (header->version - 1);
    header->channels = (bits >> 6 & 3) == 3 ? 1 : 2;
    header->bits_per_second = kilobits * 1000;
    header->frames = header->version == 1 ? 1152 : 576;
    header->size = header->frames / 8 * header->bits_per_second / header->rate + (bits >> 9 & 1);
    return true;
}

bool ParseMp3(const uint8_t* data, size_t size, Mp3File* file, std::string* reason) {
    size_t at = LeadingTags(data, size);
    size = std::max(at, WithoutTrailingTag(data, size));
    if (!FindFirst(data, size, &at, &file->first)) {
        *reason = "neither WAV nor OGG nor MP3, or cut off";
        return false;
    }
    EncoderNote note = ReadNote(data + at, file->first);
    if (note.present) at += file->first.size;
    bool cut = false;
    for (Mp3Header header; NextFrame(data, size, file->first, &at, &header, &cut); at += header.size)
        file->offsets.push_back(static_cast<uint32_t>(at));
    if (cut || file->offsets.empty() || file->offsets.size() < note.mpeg_frames) {
        *reason = "cut off after " + std::to_string(file->offsets.size()) + " MPEG frames";
        return false;
    }
    SetLength(note, file);
    return true;
}

std::unique_ptr<SoundReader> OpenMp3Data(SoundBytes bytes, const uint8_t* data, size_t size,
                                         std::string* reason) {
    Mp3File file;
    if (!ParseMp3(data, size, &file, reason)) return nullptr;
    CodedSound coded;
    coded.format = WaveFormatOf(file.first);
    coded.rate = file.first.rate;
    coded.channels = file.first.channels;
    coded.data = data;
    coded.data_size = size;
    coded.units = file.offsets.size();
    coded.unit_offsets = std::move(file.offsets);
    coded.unit_frames = file.first.frames;
    coded.preroll_units = kPreroll;
    coded.skip_frames = file.skip_frames;
    coded.frames = file.frames;
    coded.bytes = std::move(bytes);
    return OpenCoded(std::move(coded), reason);
}

std::unique_ptr<SoundReader> OpenMp3(SoundBytes bytes, std::string* reason) {
    const uint8_t* data = bytes->data();
    size_t size = bytes->size();
    return OpenMp3Data(std::move(bytes), data, size, reason);
}

}  // namespace hge
