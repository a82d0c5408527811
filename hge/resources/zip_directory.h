#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "resources/byte_source.h"

namespace hge {

// One file of a ZIP archive, as its central directory has it.
struct ZipEntry {
    std::string name;       // as stored
    std::string utf8_name;  // "" when the archive does not give one
    uint64_t header = 0;    // offset of the local header in the source
    uint32_t packed_size = 0;
    uint32_t size = 0;
    uint32_t crc = 0;
    uint16_t flags = 0;
    uint16_t method = 0;
    uint16_t time = 0;
};

struct ZipDirectory {
    std::vector<ZipEntry> entries;  // files only, in the archive's order
    uint64_t start = 0;             // where the directory begins: entries' bytes lie before it
};

// Finds the directory from the end, so bytes before the archive and a comment after it are no matter.
// False with the reason for what is no ZIP archive, is damaged or is of the 64-bit kind.
bool ReadZipDirectory(ByteSource& source, ZipDirectory* directory, std::string* reason);

}  // namespace hge
