// Offsets beyond 2 GB in 32-bit programs.
#define _FILE_OFFSET_BITS 64

#include "resources/byte_source.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace hge {
namespace {

// Reading a folder fails and reading a device may never end.
bool IsOrdinaryFile(std::FILE* file) {
    struct stat status;
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
}

bool IsInside(uint64_t offset, size_t count, uint64_t size) {
    return offset <= size && count <= size - offset;
}

}  // namespace

Block Block::Allocate(uint32_t size) {
    Block block;
    if (size > UINT32_MAX - 1) return block;
    block.bytes.reset(static_cast<uint8_t*>(std::malloc(size_t{size} + 1)));
    if (!block.bytes) return block;
    block.bytes[size] = 0;
    block.size = size;
    return block;
}

std::unique_ptr<FileSource> FileSource::Open(const std::string& path, std::string* reason) {
    auto source = std::make_unique<FileSource>();
    source->file_.reset(std::fopen(path.c_str(), "rb"));
    if (!source->file_) {
        *reason = errno == ENOENT ? "no such file" : std::strerror(errno);
        return nullptr;
    }
    std::FILE* file = source->file_.get();
    if (!IsOrdinaryFile(file)) {
        *reason = "not an ordinary file";
        return nullptr;
    }
    off_t size = fseeko(file, 0, SEEK_END) == 0 ? ftello(file) : -1;
    if (size < 0) {
        *reason = "its size cannot be read";
        return nullptr;
    }
    source->size_ = static_cast<uint64_t>(size);
    return source;
}

bool FileSource::ReadAt(uint64_t offset, void* to, size_t count) {
    if (!IsInside(offset, count, size_)) return false;
    if (fseeko(file_.get(), static_cast<off_t>(offset), SEEK_SET) != 0) return false;
    return std::fread(to, 1, count, file_.get()) == count;
}

bool MemorySource::ReadAt(uint64_t offset, void* to, size_t count) {
    if (!IsInside(offset, count, bytes_.size())) return false;
    if (count) std::memcpy(to, bytes_.data() + offset, count);
    return true;
}

Block ReadWhole(ByteSource& source, std::string* reason) {
    Block block;
    if (source.size() < UINT32_MAX) block = Block::Allocate(static_cast<uint32_t>(source.size()));
    if (!block.bytes) {
        *reason = "too large for the memory";
        return block;
    }
    if (!source.ReadAt(0, block.bytes.get(), block.size)) {
        *reason = "read error";
        block.bytes.reset();
    }
    return block;
}

}  // namespace hge
