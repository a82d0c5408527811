#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace hge {

// Bytes in memory of malloc, followed by one NUL. Without bytes: none.
struct Block {
    struct Free {
        void operator()(uint8_t* p) const { std::free(p); }
    };
    // Without bytes when memory runs out.
    static Block Allocate(uint32_t size);

    std::unique_ptr<uint8_t[], Free> bytes;
    uint32_t size = 0;
};

// Something that is read at any place, such as an open file.
class ByteSource {
 public:
    virtual ~ByteSource() = default;
    virtual uint64_t size() const = 0;
    // False when not all count bytes at offset are there or can be read.
    virtual bool ReadAt(uint64_t offset, void* to, size_t count) = 0;
};

// A file, kept open; no folder or device.
class FileSource : public ByteSource {
 public:
    // Null with the reason when it cannot be opened.
    static std::unique_ptr<FileSource> Open(const std::string& path, std::string* reason);
    uint64_t size() const override { return size_; }
    bool ReadAt(uint64_t offset, void* to, size_t count) override;

 private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, CloseFile> file_;
    uint64_t size_ = 0;
};

// A copy of bytes.
class MemorySource : public ByteSource {
 public:
    explicit MemorySource(std::vector<uint8_t> bytes) : bytes_(std::move(bytes)) {}
    uint64_t size() const override { return bytes_.size(); }
    bool ReadAt(uint64_t offset, void* to, size_t count) override;

 private:
    std::vector<uint8_t> bytes_;
};

// The whole of source; without bytes and with the reason on failure.
Block ReadWhole(ByteSource& source, std::string* reason);

}  // namespace hge
