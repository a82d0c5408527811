#include "flash/frame_pixels.h"

#include <emmintrin.h>

#include <cstring>

namespace flash {

namespace {

constexpr uint32_t kAlphaMask = 0xFF000000;
constexpr size_t kStep = 4;

uint32_t WithAlpha(uint32_t black, uint32_t white) {
    // Shifted left by a byte, red lies where alpha goes; what is below it may not borrow.
    uint32_t alpha = (black << 8 & kAlphaMask) - (white << 8 & kAlphaMask) - 0x01000000;
    return (black & ~kAlphaMask) | alpha;
}

__m128i WithAlpha(__m128i black, __m128i white) {
    const __m128i mask = _mm_set1_epi32(static_cast<int>(kAlphaMask));
    // black - white - 1 is black + ~white; bytes do not borrow from one another.
    __m128i not_white = _mm_andnot_si128(_mm_slli_epi32(white, 8), mask);
    __m128i alpha = _mm_add_epi8(_mm_and_si128(_mm_slli_epi32(black, 8), mask), not_white);
    return _mm_or_si128(_mm_andnot_si128(mask, black), alpha);
}

}  // namespace

void RebuildAlpha(uint32_t* over_black, const uint32_t* over_white, size_t pixels) {
    size_t i = 0;
    for (; i + kStep <= pixels; i += kStep) {
        __m128i* black = reinterpret_cast<__m128i*>(over_black + i);
        const __m128i* white = reinterpret_cast<const __m128i*>(over_white + i);
        _mm_storeu_si128(black, WithAlpha(_mm_loadu_si128(black), _mm_loadu_si128(white)));
    }
    for (; i < pixels; ++i)
        over_black[i] = WithAlpha(over_black[i], over_white[i]);
}

void CopyRows(uint32_t* dst, size_t dst_stride, const uint32_t* src, size_t width, size_t height) {
    if (dst_stride == width) {
        std::memcpy(dst, src, width * height * sizeof *src);
        return;
    }
    for (size_t row = 0; row < height; ++row)
        std::memcpy(dst + row * dst_stride, src + row * width, width * sizeof *src);
}

}  // namespace flash
