#pragma once

#include <cstddef>
#include <cstdint>

namespace hge {

// What a PNG, JPEG or GIF file claims that cannot be and codecs would trust: sizes beyond what we take or its
// bytes can hold, a GIF without colours. Null when nothing speaks against decoding it.
const char* CodecObjection(const uint8_t* bytes, size_t size);

}  // namespace hge
