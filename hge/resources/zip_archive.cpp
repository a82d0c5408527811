#include "resources/zip_archive.h"

#include <zlib.h>

#include <algorithm>
#include <optional>

#include "resources/little_endian.h"
#include "resources/zip_cipher.h"

namespace hge {
namespace {

constexpr uint32_t kHeaderSignature = 0x04034B50;
constexpr size_t kHeaderSize = 30;
constexpr uint16_t kEncryptedFlag = 1 << 0;
constexpr uint16_t kDescriptorFlag = 1 << 3;
constexpr uint16_t kStrongEncryptionFlag = 1 << 6;
constexpr uint16_t kStored = 0;
constexpr uint16_t kDeflated = 8;
constexpr uint16_t kStrongEncryption = 99;
constexpr uint32_t kLargestFile = 256u << 20;
// Deflate makes at most 1032 bytes of one.
constexpr uint64_t kLargestRatio = 1032;
constexpr size_t kChunk = 1 << 16;

bool IsEncrypted(const ZipEntry& entry) {
    return entry.flags & kEncryptedFlag;
}

// What the entry's own numbers rule out; null when nothing.
const char* Objection(const ZipEntry& entry, const std::string& password) {
    uint64_t packed = entry.packed_size;
    if (entry.flags & kStrongEncryptionFlag || entry.method == kStrongEncryption)
        return "its kind of encryption is not supported";
    if (entry.method != kStored && entry.method != kDeflated)
        return "its compression method is not supported";
    if (IsEncrypted(entry)) {
        if (password.empty()) return "it is encrypted and the pack was attached without a password";
        if (packed < ZipCipher::kHeaderSize) return "its sizes do not agree";
        packed -= ZipCipher::kHeaderSize;
    }
    if (entry.size > kLargestFile) return "it is larger than 256 MB";
    if (entry.method == kStored && packed != entry.size) return "its sizes do not agree";
    if (entry.size > packed * kLargestRatio) return "its sizes do not agree";
    return nullptr;
}

// An entry's packed bytes in order, decrypted.
class PackedStream {
 public:
    PackedStream(ByteSource& source, uint64_t offset, uint32_t size)
        : source_(source), offset_(offset), left_(size) {}

    // False for a wrong password or an unreadable source.
    bool Unlock(const ZipEntry& entry, const std::string& password) {
        uint8_t header[ZipCipher::kHeaderSize];
        cipher_.emplace(password);
        if (!Read(header, sizeof header)) return false;
        uint8_t check = header[sizeof header - 1];
        return check == entry.crc >> 24 || (entry.flags & kDescriptorFlag && check == entry.time >> 8);
    }

    bool Read(uint8_t* to, size_t count) {
        if (count > left_ || !source_.ReadAt(offset_, to, count)) return false;
        if (cipher_) cipher_->Decrypt(to, count);
        offset_ += count;
        left_ -= static_cast<uint32_t>(count);
        return true;
    }

    uint32_t left() const { return left_; }

 private:
    ByteSource& source_;
    uint64_t offset_;
    uint32_t left_;
    std::optional<ZipCipher> cipher_;
};

class Inflater {
 public:
    Inflater() { ready_ = inflateInit2(&stream_, -MAX_WBITS) == Z_OK; }
    ~Inflater() {
        if (ready_) inflateEnd(&stream_);
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    bool no_memory() const { return no_memory_; }
    // True when the packed bytes give exactly the block's size.
    bool Run(PackedStream& packed, Block& block) {
        std::vector<uint8_t> chunk(std::min<size_t>(kChunk, packed.left()));
        stream_.next_out = block.bytes.get();
        stream_.avail_out = block.size;
        int state = ready_ ? Z_OK : Z_MEM_ERROR;
        while (state == Z_OK && packed.left()) {
            size_t count = std::min<size_t>(chunk.size(), packed.left());
            if (!packed.Read(chunk.data(), count)) return false;
            stream_.next_in = chunk.data();
            stream_.avail_in = static_cast<uInt>(count);
            state = inflate(&stream_, Z_NO_FLUSH);
        }
        no_memory_ = state == Z_MEM_ERROR;
        return state == Z_STREAM_END && stream_.avail_out == 0;
    }

 private:
    z_stream stream_{};
    bool ready_ = false;
    bool no_memory_ = false;
};

// Null, or why not.
const char* Unpack(const ZipEntry& entry, PackedStream& packed, Block& block) {
    static constexpr char kDamaged[] = "its compressed data is damaged";
    if (entry.method == kStored) return packed.Read(block.bytes.get(), block.size) ? nullptr : kDamaged;
    Inflater inflater;
    if (inflater.Run(packed, block)) return nullptr;
    return inflater.no_memory() ? "too large for the memory" : kDamaged;
}

Block Failure(std::string* reason, const char* text) {
    *reason = text;
    return {};
}

}  // namespace

std::unique_ptr<ZipArchive> ZipArchive::Open(std::unique_ptr<ByteSource> source, const CodePage& code_page,
                                             std::string* reason) {
    std::unique_ptr<ZipArchive> archive(new ZipArchive(std::move(source)));
    if (!ReadZipDirectory(*archive->source_, &archive->directory_, reason)) return nullptr;
    archive->BuildIndex(code_page);
    return archive;
}

void ZipArchive::BuildIndex(const CodePage& code_page) {
    // The names that the archive states outrank those that are only read into its bytes.
    for (const ZipEntry& entry : directory_.entries) {
        std::string name = entry.utf8_name.empty() ? entry.name : code_page.from_utf8(entry.utf8_name);
        if (!name.empty()) index_[FoldName(name, code_page)] = &entry;
    }
    // Zip tools on UTF-8 systems store names as UTF-8 and mostly do not say so.
    for (const ZipEntry& entry : directory_.entries) {
        index_.try_emplace(FoldName(entry.name, code_page), &entry);
        if (!entry.utf8_name.empty()) continue;
        std::string name = code_page.from_utf8(entry.name);
        if (!name.empty()) index_.try_emplace(FoldName(name, code_page), &entry);
    }
}

const ZipEntry* ZipArchive::Find(const std::string& folded_name) const {
    auto found = index_.find(folded_name);
    return found == index_.end() ? nullptr : found->second;
}

// The local header's name and extra fields may be longer than the directory's: only it tells where data
// begins.
bool ZipArchive::FindData(const ZipEntry& entry, uint64_t* offset, std::string* reason) {
    uint8_t header[kHeaderSize];
    *reason = "its place in the pack is damaged";
    if (!source_->ReadAt(entry.header, header, kHeaderSize)) return false;
    if (Get32(header) != kHeaderSignature) return false;
    *offset = entry.header + kHeaderSize + Get16(header + 26) + Get16(header + 28);
    return *offset + entry.packed_size <= directory_.start;
}

Block ZipArchive::Read(const ZipEntry& entry, const std::string& password, std::string* reason) {
    if (const char* objection = Objection(entry, password)) return Failure(reason, objection);
    uint64_t offset = 0;
    if (!FindData(entry, &offset, reason)) return {};
    PackedStream packed(*source_, offset, entry.packed_size);
    if (IsEncrypted(entry) && !packed.Unlock(entry, password)) return Failure(reason, "wrong password");

    Block block = Block::Allocate(entry.size);
    if (!block.bytes) return Failure(reason, "too large for the memory");
    const char* trouble = Unpack(entry, packed, block);
    if (!trouble && crc32(0, block.bytes.get(), block.size) != entry.crc) trouble = "CRC mismatch";
    if (!trouble) return block;
    // One wrong password of 256 goes unnoticed until here.
    *reason = trouble;
    if (IsEncrypted(entry)) *reason += ", or a wrong password";
    return {};
}

}  // namespace hge
