#include "audio/vorbis_setup.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace hge {
namespace {

constexpr uint32_t kTableMark = 0x564342;
constexpr uint32_t kLongestCode = 32;

// The lowest bit of a byte comes first. Past the end all bits are 0.
class BitReader {
 public:
    BitReader(const uint8_t* bytes, size_t size) : bytes_(bytes), bits_(uint64_t{size} * 8) {}

    // At most 32 bits.
    uint32_t Read(uint32_t count) {
        uint32_t value = 0;
        for (uint32_t i = 0; i < count && at_ < bits_; ++i, ++at_)
            value |= (bytes_[at_ / 8] >> at_ % 8 & 1u) << i;
        return value;
    }
    void Skip(uint64_t count) { at_ = count < bits_ - at_ ? at_ + count : bits_; }
    bool ended() const { return at_ >= bits_; }

 private:
    const uint8_t* bytes_;
    uint64_t bits_;
    uint64_t at_ = 0;
};

// Lengths that go up: how many codes there are of each. False when they are more than the entries.
bool SkipOrderedLengths(BitReader& bits, uint32_t entries) {
    uint32_t length = bits.Read(5) + 1, done = 0;
    for (; done < entries && length <= kLongestCode; ++length)
        done += bits.Read(static_cast<uint32_t>(std::bit_width(entries - done)));
    return done == entries;
}

// The number of entries that have a code.
uint32_t SkipLengths(BitReader& bits, uint32_t entries) {
    bool sparse = bits.Read(1) != 0;
    uint32_t used = 0;
    for (uint32_t i = 0; i < entries && !bits.ended(); ++i) {
        if (sparse && !bits.Read(1)) continue;
        bits.Skip(5);
        ++used;
    }
    return used;
}

// The largest number whose power of dimensions is not above entries.
uint32_t ValuesOfGrid(uint32_t entries, uint32_t dimensions) {
    auto root = static_cast<uint32_t>(std::pow(entries, 1.0 / dimensions));
    return std::pow(root + 1.0, dimensions) <= entries ? root + 1 : root;
}

bool SkipTable(BitReader& bits) {
    if (bits.Read(24) != kTableMark) return false;
    uint32_t dimensions = bits.Read(16), entries = bits.Read(24);
    if (!dimensions || !entries) return false;
    bool sane = bits.Read(1) ? SkipOrderedLengths(bits, entries) : SkipLengths(bits, entries) > 0;
    if (uint32_t kind = bits.Read(4)) {
        bits.Skip(32 + 32);
        uint32_t width = bits.Read(4) + 1;
        bits.Skip(1);
        uint64_t values = kind == 1 ? ValuesOfGrid(entries, dimensions) : uint64_t{entries} * dimensions;
        bits.Skip(values * width);
    }
    return sane && !bits.ended();
}

}  // namespace

bool HasSaneTables(const uint8_t* packet, size_t size) {
    if (size < 7 || std::memcmp(packet, "\5vorbis", 7) != 0) return false;
    BitReader bits(packet + 7, size - 7);
    for (uint32_t left = bits.Read(8) + 1; left; --left)
        if (!SkipTable(bits)) return false;
    return true;
}

}  // namespace hge
