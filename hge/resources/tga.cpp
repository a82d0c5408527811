#include "resources/tga.h"

#include "resources/little_endian.h"
#include "resources/pixels.h"

namespace hge {
namespace {

constexpr size_t kHeaderSize = 18;
constexpr int kMapped = 1;
constexpr int kTrueColor = 2;
constexpr int kGrey = 3;
constexpr int kRunLength = 8;  // added to the type
constexpr uint64_t kLongestRun = 128;

struct Header {
    int type;
    bool run_length;
    size_t id_length;
    bool has_map;
    uint32_t map_first;
    uint32_t map_count;
    int map_bits;
    int width;
    int height;
    int bits;
    int alpha_bits;
    bool right_to_left;
    bool top_down;
};

Header ParseHeader(const uint8_t* p) {
    Header h{};
    h.id_length = p[0];
    h.has_map = p[1] == 1;
    h.run_length = p[2] & kRunLength;
    h.type = p[2] & ~kRunLength;
    h.map_first = Get16(p + 3);
    h.map_count = Get16(p + 5);
    h.map_bits = p[7];
    h.width = Get16(p + 12);
    h.height = Get16(p + 14);
    h.bits = p[16];
    h.alpha_bits = p[17] & 15;
    h.right_to_left = p[17] & 16;
    h.top_down = p[17] & 32;
    return h;
}

bool IsColorDepth(int bits) {
    return bits == 15 || bits == 16 || bits == 24 || bits == 32;
}

bool IsKnown(const Header& h) {
    if (h.type == kMapped) return h.has_map && IsColorDepth(h.map_bits) && (h.bits == 8 || h.bits == 16);
    if (h.type == kTrueColor) return IsColorDepth(h.bits);
    return h.type == kGrey && (h.bits == 8 || h.bits == 16);
}

size_t BytesOf(int bits) {
    return static_cast<size_t>(bits + 7) / 8;
}

uint32_t ReadColor(const uint8_t* p, int bits, int alpha_bits) {
    if (bits == 32) return Get32(p);
    if (bits == 24) return PackColor(255, p[2], p[1], p[0]);
    uint32_t v = Get16(p);
    bool opaque = bits == 15 || alpha_bits == 0 || v & 0x8000;
    return PackColor(opaque ? 255 : 0, Widen(v >> 10, 5), Widen(v >> 5, 5), Widen(v, 5));
}

uint32_t ReadGrey(const uint8_t* p, int bits) {
    return PackColor(bits == 16 ? p[1] : 255, p[0], p[0], p[0]);
}

class Decoder {
 public:
    Decoder(const uint8_t* bytes, size_t size, const Header& header)
        : at_(bytes), end_(bytes + size), header_(header), pixel_bytes_(BytesOf(header.bits)) {}

    // Null, or what is wrong.
    const char* Run(Image* image) {
        if (!SkipTo(kHeaderSize + header_.id_length) || !ReadMap()) return "the file is cut off";
        if (Needed() > Left()) return "the file is cut off";
        Reset(image, header_.width, header_.height);
        if (!(header_.run_length ? ReadRuns(image) : ReadPlain(image))) return "the file is cut off";
        return bad_index_ ? "a pixel has no colour in the map" : nullptr;
    }

 private:
    size_t Left() const { return static_cast<size_t>(end_ - at_); }

    bool SkipTo(size_t count) {
        if (count > Left()) return false;
        at_ += count;
        return true;
    }

    // The least bytes that the picture can take: nothing is allocated for a size that the file cannot fill.
    uint64_t Needed() const {
        uint64_t pixels = static_cast<uint64_t>(header_.width) * static_cast<uint64_t>(header_.height);
        if (!header_.run_length) return pixels * pixel_bytes_;
        return (pixels + kLongestRun - 1) / kLongestRun * (1 + pixel_bytes_);
    }

    // A map in a picture of another type is passed over.
    bool ReadMap() {
        if (!header_.has_map) return true;
        size_t entry_bytes = BytesOf(header_.map_bits);
        if (header_.map_count * entry_bytes > Left()) return false;
        if (header_.type == kMapped)
            for (uint32_t i = 0; i < header_.map_count; ++i)
                map_.push_back(ReadColor(at_ + i * entry_bytes, header_.map_bits, header_.alpha_bits));
        return SkipTo(header_.map_count * entry_bytes);
    }

    uint32_t ReadPixel(const uint8_t* p) {
        if (header_.type == kTrueColor) return ReadColor(p, header_.bits, header_.alpha_bits);
        if (header_.type == kGrey) return ReadGrey(p, header_.bits);
        uint32_t index = (header_.bits == 16 ? Get16(p) : p[0]) - header_.map_first;
        if (index < map_.size()) return map_[index];
        bad_index_ = true;
        return 0;
    }

    bool ReadPlain(Image* image) {
        for (size_t i = 0; i < image->pixels.size(); ++i, at_ += pixel_bytes_)
            Place(image, i, ReadPixel(at_));
        return true;
    }

    // Runs may go on over the end of a row.
    bool ReadRuns(Image* image) {
        size_t done = 0, total = image->pixels.size();
        while (done < total) {
            if (!Left()) return false;
            uint8_t packet = *at_++;
            size_t count = (packet & 127) + size_t{1};
            bool repeated = packet & 128;
            if ((repeated ? 1 : count) * pixel_bytes_ > Left()) return false;
            for (size_t i = 0; i < count && done < total; ++i) {
                Place(image, done++, ReadPixel(at_));
                if (!repeated) at_ += pixel_bytes_;
            }
            if (repeated) at_ += pixel_bytes_;
        }
        return true;
    }

    // index counts pixels in the file's order.
    void Place(Image* image, size_t index, uint32_t color) {
        size_t width = static_cast<size_t>(image->width), height = static_cast<size_t>(image->height);
        size_t x = index % width, y = index / width;
        if (header_.right_to_left) x = width - 1 - x;
        if (!header_.top_down) y = height - 1 - y;
        image->pixels[y * width + x] = color;
    }

    const uint8_t* at_;
    const uint8_t* end_;
    Header header_;
    size_t pixel_bytes_;
    std::vector<uint32_t> map_;
    bool bad_index_ = false;
};

}  // namespace

bool LooksLikeTga(const uint8_t* bytes, size_t size) {
    return size >= kHeaderSize && bytes[1] <= 1 && (bytes[2] & ~(kRunLength | 3)) == 0 &&
           IsKnown(ParseHeader(bytes));
}

bool DecodeTga(const uint8_t* bytes, size_t size, Image* image, std::string* reason) {
    *image = {};
    const char* fault = nullptr;
    if (!LooksLikeTga(bytes, size)) {
        fault = "not a TGA picture of a known kind";
    } else {
        Header header = ParseHeader(bytes);
        bool fits = IsImageSize(header.width, header.height);
        fault = fits ? Decoder(bytes, size, header).Run(image) : "its width or height is not supported";
    }
    if (!fault) {
        MakeVisible(image);
        return true;
    }
    *image = {};
    *reason = fault;
    return false;
}

}  // namespace hge
