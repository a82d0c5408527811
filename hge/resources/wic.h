#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "resources/image.h"

namespace hge {

// The system's codecs. COM is initialised for the call only, and may be in either threading model already.

// First frame of PNG, JPEG, BMP, GIF or TIFF. False with the reason on failure.
bool DecodeWithWic(const uint8_t* bytes, size_t size, Image* image, std::string* reason);

// The bytes of a PNG file; empty with the reason on failure.
std::vector<uint8_t> EncodePng(const Image& image, std::string* reason);

}  // namespace hge
