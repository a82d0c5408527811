#pragma once

#include <cstddef>
#include <string>

namespace hge {

// Makes or replaces a file, whole or not at all: a reader never finds half of it. False with the reason.
bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, std::string* reason);

}  // namespace hge
