#include "resources/zip_directory.h"

#include <zlib.h>

#include <algorithm>

#include "resources/little_endian.h"

namespace hge {
namespace {

constexpr uint32_t kEndSignature = 0x06054B50;
constexpr uint32_t kZip64LocatorSignature = 0x07064B50;
constexpr uint32_t kEntrySignature = 0x02014B50;
constexpr size_t kEndSize = 22;
constexpr size_t kLocatorSize = 20;
constexpr size_t kEntrySize = 46;
constexpr size_t kLongestComment = 0xFFFF;
// 256 bytes for each of the 65535 files that there can be: keeps a forged directory from taking all memory.
constexpr uint32_t kLargestDirectory = 16u << 20;
constexpr uint16_t kUtf8Flag = 1 << 11;
constexpr uint16_t kUnicodePathField = 0x7075;

// The record that ends an archive.
struct End {
    uint64_t position;
    uint32_t entries;
    uint32_t directory_size;
    uint32_t directory_offset;
    uint64_t start = 0;  // where the directory really begins
    uint64_t shift = 0;  // by how much the archive's offsets are too small
};

bool IsSignatureAt(ByteSource& source, uint64_t offset, uint32_t signature) {
    uint8_t bytes[4];
    return source.ReadAt(offset, bytes, sizeof bytes) && Get32(bytes) == signature;
}

// Where the directory begins: right before the end record, or where the record says.
bool Locate(ByteSource& source, End* end) {
    if (end->directory_size > end->position) return false;
    for (uint64_t start : {end->position - end->directory_size, uint64_t{end->directory_offset}}) {
        if (start < end->directory_offset || start + end->directory_size > end->position) continue;
        if (end->entries && !IsSignatureAt(source, start, kEntrySignature)) continue;
        end->start = start;
        end->shift = start - end->directory_offset;
        return true;
    }
    return false;
}

bool IsEndAt(ByteSource& source, const uint8_t* bytes, uint64_t position, End* end) {
    if (Get32(bytes) != kEndSignature) return false;
    if (position + kEndSize + Get16(bytes + 20) > source.size()) return false;
    *end = {position, Get16(bytes + 10), Get32(bytes + 12), Get32(bytes + 16)};
    return Get16(bytes + 8) == end->entries && Locate(source, end);
}

bool IsZip64(ByteSource& source, uint64_t end_position) {
    return end_position >= kLocatorSize &&
           IsSignatureAt(source, end_position - kLocatorSize, kZip64LocatorSignature);
}

bool FindEnd(ByteSource& source, End* end, std::string* reason) {
    size_t length = static_cast<size_t>(std::min<uint64_t>(source.size(), kEndSize + kLongestComment));
    std::vector<uint8_t> tail(length);
    uint64_t base = source.size() - length;
    if (!source.ReadAt(base, tail.data(), length)) {
        *reason = "read error";
        return false;
    }
    *reason = source.size() ? "not a ZIP archive, or cut off" : "the file is empty";
    for (size_t i = length >= kEndSize ? length - kEndSize + 1 : 0; i-- > 0;) {
        bool found = IsEndAt(source, &tail[i], base + i, end);
        if (Get32(&tail[i]) == kEndSignature && IsZip64(source, base + i)) {
            *reason = "64-bit ZIP archives are not supported";
            return false;
        }
        if (found) return true;
    }
    return false;
}

// The UTF-8 name among an entry's extra fields; "" when there is none or it belongs to another name.
std::string UnicodePath(const uint8_t* extra, size_t length, const std::string& name) {
    while (length >= 4) {
        size_t size = Get16(extra + 2);
        if (size > length - 4) break;
        const uint8_t* field = extra + 4;
        if (Get16(extra) == kUnicodePathField && size > 5 && field[0] == 1) {
            uLong crc = crc32(0, reinterpret_cast<const Bytef*>(name.data()), static_cast<uInt>(name.size()));
            if (Get32(field + 1) == crc) return std::string(field + 5, field + size);
        }
        extra += 4 + size;
        length -= 4 + size;
    }
    return {};
}

// Reads the entry at p; 0 when it does not fit into length bytes, else its own length.
size_t ParseEntry(const uint8_t* p, size_t length, uint64_t shift, ZipEntry* entry) {
    if (length < kEntrySize || Get32(p) != kEntrySignature) return 0;
    size_t name = Get16(p + 28), extra = Get16(p + 30), comment = Get16(p + 32);
    if (name + extra + comment > length - kEntrySize) return 0;
    entry->flags = Get16(p + 8);
    entry->method = Get16(p + 10);
    entry->time = Get16(p + 12);
    entry->crc = Get32(p + 16);
    entry->packed_size = Get32(p + 20);
    entry->size = Get32(p + 24);
    entry->header = Get32(p + 42) + shift;
    entry->name.assign(reinterpret_cast<const char*>(p + kEntrySize), name);
    entry->utf8_name =
        entry->flags & kUtf8Flag ? entry->name : UnicodePath(p + kEntrySize + name, extra, entry->name);
    return kEntrySize + name + extra + comment;
}

bool IsFolder(const ZipEntry& entry) {
    return entry.name.empty() || entry.name.back() == '/' || (entry.size == 0 && entry.name.back() == '\\');
}

bool ParseDirectory(const std::vector<uint8_t>& bytes, const End& end, ZipDirectory* directory) {
    size_t at = 0;
    for (uint32_t i = 0; i < end.entries; ++i) {
        ZipEntry entry;
        size_t length = ParseEntry(bytes.data() + at, bytes.size() - at, end.shift, &entry);
        if (!length) return false;
        if (!IsFolder(entry)) directory->entries.push_back(std::move(entry));
        at += length;
    }
    directory->start = end.start;
    return true;
}

}  // namespace

bool ReadZipDirectory(ByteSource& source, ZipDirectory* directory, std::string* reason) {
    End end{};
    if (!FindEnd(source, &end, reason)) return false;
    if (end.directory_size > kLargestDirectory) {
        *reason = "its directory is larger than 16 MB";
        return false;
    }
    std::vector<uint8_t> bytes(end.directory_size);
    if (!source.ReadAt(end.start, bytes.data(), bytes.size())) {
        *reason = "read error";
        return false;
    }
    if (ParseDirectory(bytes, end, directory)) return true;
    *reason = "its directory is damaged";
    return false;
}

}  // namespace hge
