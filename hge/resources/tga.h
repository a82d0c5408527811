#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "resources/image.h"

namespace hge {

// Whether the bytes begin with a header that only a TGA file has; the format has no signature.
bool LooksLikeTga(const uint8_t* bytes, size_t size);

// Mapped, true-colour and grey pictures, plain or run-length coded. False with the reason on failure.
bool DecodeTga(const uint8_t* bytes, size_t size, Image* image, std::string* reason);

}  // namespace hge
