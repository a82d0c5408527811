#include "resources/bmp.h"

#include <cstring>

#include "resources/little_endian.h"
#include "resources/pixels.h"

namespace hge {
namespace {

constexpr uint32_t kFileHeader = 14;
constexpr uint32_t kInfoHeader = 40;
constexpr uint32_t kV4Header = 108;
constexpr uint32_t kFirstWithAlphaMask = 56;
constexpr uint32_t kPlain = 0;
constexpr uint32_t kBitfields = 3;
constexpr uint32_t kSrgb = 0x73524742;

class Writer {
 public:
    explicit Writer(size_t size) { bytes_.reserve(size); }
    void Put16(uint32_t v) { bytes_.insert(bytes_.end(), {Byte(v), Byte(v >> 8)}); }
    void Put32(uint32_t v) {
        Put16(v);
        Put16(v >> 16);
    }
    void PutZeros(size_t count) { bytes_.insert(bytes_.end(), count, 0); }
    void PutRow(const uint32_t* pixels, int width, bool with_alpha) {
        size_t start = bytes_.size();
        for (int x = 0; x < width; ++x) {
            bytes_.insert(bytes_.end(), {Byte(pixels[x]), Byte(pixels[x] >> 8), Byte(pixels[x] >> 16)});
            if (with_alpha) bytes_.push_back(Byte(pixels[x] >> 24));
        }
        PutZeros((4 - (bytes_.size() - start) % 4) % 4);
    }
    std::vector<uint8_t> Take() { return std::move(bytes_); }

 private:
    static uint8_t Byte(uint32_t v) { return static_cast<uint8_t>(v); }
    std::vector<uint8_t> bytes_;
};

// Colour masks and colour space of the longer header that alpha needs.
void PutAlphaHeader(Writer& out) {
    for (uint32_t mask : {0xFF0000u, 0xFF00u, 0xFFu, 0xFF000000u})
        out.Put32(mask);
    out.Put32(kSrgb);
    out.PutZeros(36 + 12);
}

void PutHeaders(Writer& out, int width, int height, bool with_alpha, uint32_t data_size) {
    uint32_t header = with_alpha ? kV4Header : kInfoHeader;
    out.Put16('B' | 'M' << 8);
    out.Put32(kFileHeader + header + data_size);
    out.Put32(0);
    out.Put32(kFileHeader + header);
    out.Put32(header);
    out.Put32(static_cast<uint32_t>(width));
    out.Put32(static_cast<uint32_t>(height));
    out.Put16(1);
    out.Put16(with_alpha ? 32 : 24);
    out.Put32(with_alpha ? kBitfields : kPlain);
    out.Put32(data_size);
    out.PutZeros(16);
    if (with_alpha) PutAlphaHeader(out);
}

bool HasAlpha(const uint8_t* bytes, size_t size) {
    if (size < kFileHeader + kInfoHeader || Get16(bytes + 28) != 32) return false;
    uint32_t header = Get32(bytes + 14), compression = Get32(bytes + 30);
    if (compression == kPlain) return header >= kInfoHeader;
    return compression == kBitfields && header >= kFirstWithAlphaMask && header <= size - kFileHeader &&
           Get32(bytes + 66) == 0xFF000000;
}

}  // namespace

std::vector<uint8_t> EncodeBmp(const Image& image) {
    bool with_alpha = !IsOpaque(image);
    size_t width = static_cast<size_t>(image.width), height = static_cast<size_t>(image.height);
    size_t row_bytes = with_alpha ? width * 4 : (width * 3 + 3) / 4 * 4;
    Writer out(kFileHeader + kV4Header + row_bytes * height);
    PutHeaders(out, image.width, image.height, with_alpha, static_cast<uint32_t>(row_bytes * height));
    for (size_t y = height; y-- > 0;)
        out.PutRow(&image.pixels[y * width], image.width, with_alpha);
    return out.Take();
}

void ApplyBmpAlpha(const uint8_t* bytes, size_t size, Image* image) {
    if (!HasAlpha(bytes, size)) return;
    size_t data = Get32(bytes + 10), width = static_cast<size_t>(image->width);
    size_t height = static_cast<size_t>(image->height);
    if (data > size || image->pixels.size() > (size - data) / 4) return;
    bool top_down = static_cast<int32_t>(Get32(bytes + 22)) < 0;
    for (size_t y = 0; y < height; ++y) {
        const uint8_t* row = bytes + data + (top_down ? y : height - 1 - y) * width * 4;
        for (size_t x = 0; x < width; ++x) {
            uint32_t& pixel = image->pixels[y * width + x];
            pixel = (pixel & 0xFFFFFF) | static_cast<uint32_t>(row[x * 4 + 3]) << 24;
        }
    }
    MakeVisible(image);
}

}  // namespace hge
