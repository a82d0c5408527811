#include "resources/dds.h"

#include <algorithm>
#include <bit>
#include <optional>

#include "resources/block_compression.h"
#include "resources/little_endian.h"
#include "resources/pixels.h"

namespace hge {
namespace {

constexpr size_t kHeaderSize = 128;
constexpr size_t kExtendedHeaderSize = 148;
constexpr uint32_t kAlphaPixels = 0x1;
constexpr uint32_t kAlphaOnly = 0x2;
constexpr uint32_t kFourCc = 0x4;
constexpr uint32_t kLuminance = 0x20000;

constexpr uint32_t FourCc(const char (&text)[5]) {
    return static_cast<uint32_t>(text[0]) | static_cast<uint32_t>(text[1]) << 8 |
           static_cast<uint32_t>(text[2]) << 16 | static_cast<uint32_t>(text[3]) << 24;
}

// Either blocks, or plain pixels of some bits with a mask for each channel.
struct Format {
    std::optional<BlockFormat> blocks;
    uint32_t bits = 0;
    uint32_t r = 0, g = 0, b = 0, a = 0;
    bool is_grey = false;
};

Format Rgba32(uint32_t r, uint32_t b, uint32_t a) {
    return {std::nullopt, 32, r, 0xFF00, b, a, false};
}

// The numbers are those of DXGI_FORMAT.
std::optional<Format> FromDxgi(uint32_t number) {
    switch (number) {
        case 28:
        case 29:
            return Rgba32(0xFF, 0xFF0000, 0xFF000000);
        case 87:
        case 91:
            return Rgba32(0xFF0000, 0xFF, 0xFF000000);
        case 88:
        case 93:
            return Rgba32(0xFF0000, 0xFF, 0);
        case 71:
        case 72:
            return Format{BlockFormat::kBc1};
        case 74:
        case 75:
            return Format{BlockFormat::kBc2};
        case 77:
        case 78:
            return Format{BlockFormat::kBc3};
        default:
            return std::nullopt;
    }
}

std::optional<Format> FromMasks(const uint8_t* p, uint32_t flags) {
    Format format;
    format.bits = Get32(p + 88);
    format.r = Get32(p + 92);
    format.g = Get32(p + 96);
    format.b = Get32(p + 100);
    format.a = flags & (kAlphaPixels | kAlphaOnly) ? Get32(p + 104) : 0;
    format.is_grey = flags & kLuminance;
    // Some writers put the mask of a single grey byte where a larger pixel would have it.
    if (format.is_grey && format.bits == 8) format.r = 0xFF;
    if (format.bits < 8 || format.bits > 32 || format.bits % 8) return std::nullopt;
    return format;
}

// bytes hold at least the plain header.
std::optional<Format> ParseFormat(const uint8_t* p, size_t size, size_t* header_size) {
    uint32_t flags = Get32(p + 80), code = Get32(p + 84);
    *header_size = kHeaderSize;
    if (!(flags & kFourCc)) return FromMasks(p, flags);
    if (code == FourCc("DXT1")) return Format{BlockFormat::kBc1};
    if (code == FourCc("DXT3")) return Format{BlockFormat::kBc2};
    if (code == FourCc("DXT5")) return Format{BlockFormat::kBc3};
    *header_size = kExtendedHeaderSize;
    if (code == FourCc("DX10") && size >= kExtendedHeaderSize) return FromDxgi(Get32(p + kHeaderSize));
    return std::nullopt;
}

// missing: what a channel without a mask has.
uint32_t Channel(uint32_t pixel, uint32_t mask, uint32_t missing) {
    if (!mask) return missing;
    pixel = (pixel & mask) >> std::countr_zero(mask);
    int bits = std::bit_width(mask >> std::countr_zero(mask));
    return bits > 8 ? pixel >> (bits - 8) : Widen(pixel, bits);
}

uint32_t ReadPixel(const uint8_t* p, const Format& format) {
    uint32_t pixel = 0;
    for (uint32_t i = 0; i < format.bits / 8; ++i)
        pixel |= static_cast<uint32_t>(p[i]) << i * 8;
    uint32_t r = Channel(pixel, format.r, 0);
    uint32_t a = Channel(pixel, format.a, 255);
    if (format.is_grey) return PackColor(a, r, r, r);
    return PackColor(a, r, Channel(pixel, format.g, 0), Channel(pixel, format.b, 0));
}

uint64_t SurfaceBytes(const Format& format, uint64_t width, uint64_t height) {
    if (!format.blocks) return width * height * (format.bits / 8);
    return (width + 3) / 4 * ((height + 3) / 4) * BlockBytes(*format.blocks);
}

void ReadPlain(const uint8_t* p, const Format& format, Image* image) {
    for (uint32_t& pixel : image->pixels) {
        pixel = ReadPixel(p, format);
        p += format.bits / 8;
    }
}

// Copies the part of a block that lies inside the image.
void PlaceBlock(const uint32_t pixels[16], int left, int top, Image* image) {
    int columns = std::min(4, image->width - left), rows = std::min(4, image->height - top);
    for (int y = 0; y < rows; ++y) {
        size_t start = static_cast<size_t>(top + y) * static_cast<size_t>(image->width);
        std::copy_n(pixels + y * 4, columns, image->pixels.begin() + static_cast<ptrdiff_t>(start) + left);
    }
}

void ReadBlocks(const uint8_t* p, BlockFormat format, Image* image) {
    uint32_t pixels[16];
    for (int top = 0; top < image->height; top += 4)
        for (int left = 0; left < image->width; left += 4, p += BlockBytes(format)) {
            DecodeBlock(format, p, pixels);
            PlaceBlock(pixels, left, top, image);
        }
}

const char* Decode(const uint8_t* bytes, size_t size, Image* image) {
    if (size < kHeaderSize) return "the file is cut off";
    size_t header_size = 0;
    std::optional<Format> format = ParseFormat(bytes, size, &header_size);
    if (!format) return "its DDS pixel format is not supported";
    uint32_t height = Get32(bytes + 12), width = Get32(bytes + 16);
    if (!IsImageSize(width, height)) return "its width or height is not supported";
    if (SurfaceBytes(*format, width, height) > size - header_size) return "the file is cut off";

    Reset(image, static_cast<int>(width), static_cast<int>(height));
    if (format->blocks)
        ReadBlocks(bytes + header_size, *format->blocks, image);
    else
        ReadPlain(bytes + header_size, *format, image);
    return nullptr;
}

}  // namespace

bool DecodeDds(const uint8_t* bytes, size_t size, Image* image, std::string* reason) {
    *image = {};
    const char* fault = Decode(bytes, size, image);
    if (fault) *reason = fault;
    return !fault;
}

}  // namespace hge
