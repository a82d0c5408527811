#include "resources/codec_guard.h"

#include "resources/little_endian.h"
#include "resources/pixels.h"

namespace hge {
namespace {

// Eight pixels lie in a byte before deflate packs it 1032 times; JPEG and GIF come nowhere near.
constexpr uint64_t kMostPixelsPerByte = 8 * 1032;

uint32_t Big16(const uint8_t* p) {
    return static_cast<uint32_t>(p[0] << 8 | p[1]);
}

const char* SizeObjection(uint64_t width, uint64_t height, size_t size) {
    if (!IsImageSize(static_cast<int64_t>(width), static_cast<int64_t>(height)))
        return "its width or height is not supported";
    return width * height > size * kMostPixelsPerByte ? "cut off: it is too short for its width and height"
                                                      : nullptr;
}

const char* PngObjection(const uint8_t* bytes, size_t size) {
    if (size < 24) return "the file is cut off";
    return SizeObjection(Big16(bytes + 16) << 16 | Big16(bytes + 18),
                         Big16(bytes + 20) << 16 | Big16(bytes + 22), size);
}

bool IsJpegFrame(uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Segments begin with a marker and their length, up to the frame's, which has the size. Codecs pass over what
// lies between segments, and say themselves when there is no frame.
const char* JpegObjection(const uint8_t* bytes, size_t size) {
    size_t at = 2;
    while (at < size && size - at >= 9) {
        const uint8_t* segment = bytes + at;
        if (segment[0] != 0xFF || segment[1] == 0xFF || segment[1] == 0) {
            ++at;
            continue;
        }
        if (IsJpegFrame(segment[1])) return SizeObjection(Big16(segment + 7), Big16(segment + 5), size);
        at += 2 + size_t{Big16(segment + 2)};
    }
    return nullptr;
}

// Behind the blocks of an extension, each of which begins with its length; the last is empty.
size_t BehindBlocks(const uint8_t* bytes, size_t size, size_t at) {
    while (at < size && bytes[at])
        at += size_t{1} + bytes[at];
    return at + 1;
}

const char* GifObjection(const uint8_t* bytes, size_t size) {
    constexpr size_t kHeader = 13, kPictureHeader = 10;
    constexpr uint8_t kExtension = 0x21, kPicture = 0x2C, kHasMap = 0x80;
    if (size < kHeader) return "the file is cut off";
    bool has_map = bytes[10] & kHasMap;
    size_t at = kHeader + (has_map ? size_t{6} << (bytes[10] & 7) : 0);
    while (at < size && bytes[at] == kExtension)
        at = BehindBlocks(bytes, size, at + 2);
    if (at >= size || size - at < kPictureHeader) return "the file is cut off";
    const uint8_t* picture = bytes + at;
    if (picture[0] != kPicture) return "damaged: no picture where one should be";
    if (!has_map && !(picture[9] & kHasMap)) return "damaged: it has no colours";
    return SizeObjection(Get16(picture + 5), Get16(picture + 7), size);
}

}  // namespace

const char* CodecObjection(const uint8_t* bytes, size_t size) {
    if (size < 2) return nullptr;
    if (bytes[0] == 0x89 && bytes[1] == 'P') return PngObjection(bytes, size);
    if (bytes[0] == 0xFF && bytes[1] == 0xD8) return JpegObjection(bytes, size);
    return bytes[0] == 'G' && bytes[1] == 'I' ? GifObjection(bytes, size) : nullptr;
}

}  // namespace hge
