#include <algorithm>
#include <array>
#include <cstring>

#include "audio/byte_reader.h"
#include "audio/ogg_reader.h"
#include "audio/vorbis_setup.h"

namespace hge {
namespace {

constexpr size_t kPageHeader = 27;
constexpr uint8_t kContinued = 1;
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

// Collects the packets behind the first, the comments and the set-up, from the pages they lie on.
class HeaderPackets {
 public:
    void AddPage(const uint8_t* page) {
        size_t segments = page[26];
        const uint8_t* body = page + kPageHeader + segments;
        for (size_t i = 0; i < segments && packet_ < 3; ++i) {
            size_t length = page[kPageHeader + i];
            if (packet_ == 1) comments_.insert(comments_.end(), body, body + length);
            if (packet_ == 2) setup_.insert(setup_.end(), body, body + length);
            body += length;
            if (length < 255) ++packet_;
        }
    }

    // The decoder trusts the lengths in the comments and the tables of the set-up.
    bool AreSane() const {
        return packet_ == 3 && CommentsAreSane() && HasSaneTables(setup_.data(), setup_.size());
    }

 private:
    bool CommentsAreSane() const {
        size_t at = 7, length = 0;
        if (comments_.size() < at || std::memcmp(comments_.data(), "\3vorbis", 7) != 0) return false;
        if (!Length(&at, &length)) return false;
        at += length;
        if (comments_.size() - at < 4) return false;
        uint32_t count = Little32(&comments_[at]);
        at += 4;
        for (; count && Length(&at, &length); --count)
            at += length;
        return count == 0;
    }

    bool Length(size_t* at, size_t* length) const {
        if (comments_.size() - *at < 4) return false;
        *length = Little32(&comments_[*at]);
        *at += 4;
        return *length <= comments_.size() - *at;
    }

    std::vector<uint8_t> comments_, setup_;
    int packet_ = 0;
};

// What the decoder's search for a place relies on: one stream, whose packets go on where they broke off and
// whose positions never go back.
class PageChain {
 public:
    // Null, or what is wrong with the next page.
    const char* Add(const uint8_t* page) {
        const uint8_t* lacing = page + kPageHeader;
        size_t segments = page[26];
        if (page[4] != 0) return "an unknown version";
        if (!started_) serial_ = Little32(page + 14);
        if (Little32(page + 14) != serial_) return "more than one stream";
        if (segments && bool(page[5] & kContinued) != packet_open_)
            return "a packet without its begin or end";
        started_ = true;
        if (segments) packet_open_ = lacing[segments - 1] == 255;
        bool ends_packet =
            std::any_of(lacing, lacing + segments, [](uint8_t length) { return length < 255; });
        return Advance(Little32(page + 6), Little32(page + 10), ends_packet);
    }

 private:
    // Pages on which no packet ends need not have a position.
    const char* Advance(uint32_t low, uint32_t high, bool ends_packet) {
        if (low == UINT32_MAX && high == UINT32_MAX && !ends_packet) return nullptr;
        if (high != 0 || low == UINT32_MAX || low < position_) return "a position that cannot be";
        position_ = low;
        return nullptr;
    }

    bool started_ = false;
    bool packet_open_ = false;
    uint32_t serial_ = 0;
    uint32_t position_ = 0;
};

}  // namespace

// The checksum field itself counts as zero.
uint32_t OggPageChecksum(const uint8_t* page, size_t size) {
    static const std::array<uint32_t, 256> table = MakeTable();
    uint32_t sum = 0;
    for (size_t i = 0; i < size; ++i) {
        uint8_t byte = i >= 22 && i < 26 ? uint8_t{0} : page[i];
        sum = sum << 8 ^ table[sum >> 24 ^ byte];
    }
    return sum;
}

size_t OggPageSize(const uint8_t* page, size_t rest) {
    if (rest < kPageHeader || std::memcmp(page, "OggS", 4) != 0) return 0;
    size_t segments = page[26], size = kPageHeader + segments;
    if (size > rest) return 0;
    for (size_t i = 0; i < segments; ++i)
        size += page[kPageHeader + i];
    return size <= rest ? size : 0;
}

bool CheckOgg(const uint8_t* data, size_t* size, std::string* reason) {
    HeaderPackets headers;
    PageChain chain;
    const char* fault = nullptr;
    size_t at = 0;
    for (bool ended = false; !ended;) {
        const uint8_t* page = data + at;
        size_t length = OggPageSize(page, *size - at);
        if (!length)
            fault = at == *size ? "cut off: no last page" : "cut off or damaged";
        else if (OggPageChecksum(page, length) != Little32(page + 22))
            fault = "damaged: wrong checksum";
        else
            fault = chain.Add(page);
        if (fault) break;
        headers.AddPage(page);
        ended = page[5] & kLastPage;
        at += length;
    }
    if (fault) *reason = fault + (" at byte " + std::to_string(at));
    if (!fault && !headers.AreSane()) *reason = fault = "not a Vorbis sound, or its headers are nonsense";
    *size = at;
    return !fault;
}

}  // namespace hge
