#include <array>
#include <cstring>

#include "audio/byte_reader.h"
#include "audio/ogg_reader.h"

namespace hge {
namespace {

constexpr size_t kPageHeader = 27;
constexpr uint8_t kLastPage = 4;

std::array<uint32_t, 256> MakeTable() {
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t value = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = value << 1 ^ (value & 0x80000000u ? 0x04C11DB7u : 0);
        table[i] = value;
    }
    return table;
}

// The checksum field itself counts as zero.
uint32_t PageChecksum(const uint8_t* page, size_t size) {
    static const std::array<uint32_t, 256> table = MakeTable();
    uint32_t sum = 0;
    for (size_t i = 0; i < size; ++i) {
        uint8_t byte = i >= 22 && i < 26 ? uint8_t{0} : page[i];
        sum = sum << 8 ^ table[sum >> 24 ^ byte];
    }
    return sum;
}

// Bytes of the page, 0 when it is no whole page.
size_t PageSize(const uint8_t* page, size_t rest) {
    if (rest < kPageHeader || std::memcmp(page, "OggS", 4) != 0) return 0;
    size_t segments = page[26], size = kPageHeader + segments;
    if (size > rest) return 0;
    for (size_t i = 0; i < segments; ++i)
        size += page[kPageHeader + i];
    return size <= rest ? size : 0;
}

// Collects the second packet, the comments, from the pages it lies on.
class CommentPacket {
 public:
    void AddPage(const uint8_t* page) {
        size_t segments = page[26];
        const uint8_t* body = page + kPageHeader + segments;
        for (size_t i = 0; i < segments && packet_ < 2; ++i) {
            size_t length = page[kPageHeader + i];
            if (packet_ == 1) bytes_.insert(bytes_.end(), body, body + length);
            body += length;
            if (length < 255) ++packet_;
        }
    }

    // The decoder trusts the lengths in it.
    bool IsSane() const {
        size_t at = 7, length = 0;
        if (packet_ < 2 || bytes_.size() < at || std::memcmp(bytes_.data(), "\3vorbis", 7) != 0) return false;
        if (!Length(&at, &length)) return false;
        at += length;
        if (bytes_.size() - at < 4) return false;
        uint32_t count = Little32(&bytes_[at]);
        at += 4;
        for (; count && Length(&at, &length); --count)
            at += length;
        return count == 0;
    }

 private:
    bool Length(size_t* at, size_t* length) const {
        if (bytes_.size() - *at < 4) return false;
        *length = Little32(&bytes_[*at]);
        *at += 4;
        return *length <= bytes_.size() - *at;
    }

    std::vector<uint8_t> bytes_;
    int packet_ = 0;
};

}  // namespace

bool CheckOgg(const uint8_t* data, size_t size, std::string* reason) {
    CommentPacket comments;
    bool ended = false;
    for (size_t at = 0; at < size && !ended;) {
        const uint8_t* page = data + at;
        size_t length = PageSize(page, size - at);
        if (!length) {
            *reason = "cut off or damaged at byte " + std::to_string(at);
            return false;
        }
        if (PageChecksum(page, length) != Little32(page + 22)) {
            *reason = "damaged: wrong checksum at byte " + std::to_string(at);
            return false;
        }
        comments.AddPage(page);
        ended = page[5] & kLastPage;
        at += length;
    }
    if (!ended)
        *reason = "cut off: the last page is missing";
    else if (!comments.IsSane())
        *reason = "not a Vorbis sound, or its comments are nonsense";
    else
        return true;
    return false;
}

}  // namespace hge
