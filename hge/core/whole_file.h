#pragma once

#include <cstddef>
#include <string>

namespace hge {

// Whether to wait until the disk itself has it, which may take longer than a frame.
enum class Flush { kNo, kYes };

// Makes or replaces a file, whole or not at all: a reader never finds half of it. False with the reason.
bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, Flush flush,
                    std::string* reason);

}  // namespace hge
