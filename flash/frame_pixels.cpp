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

void RebuildStep(uint32_t* over_black, const uint32_t* over_white) {
    const __m128i mask = _mm_set1_epi32(static_cast<int>(kAlphaMask));
    __m128i black = _mm_loadu_si128(reinterpret_cast<const __m128i*>(over_black));
    __m128i white = _mm_loadu_si128(reinterpret_cast<const __m128i*>(over_white));
    // black - white - 1 is ~(white - black); bytes do not borrow from one another.
    __m128i alpha = _mm_andnot_si128(_mm_slli_epi32(_mm_sub_epi8(white, black), 8), mask);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(over_black),
                     _mm_or_si128(_mm_andnot_si128(mask, black), alpha));
}

}  // namespace

void RebuildAlpha(uint32_t* over_black, const uint32_t* over_white, size_t pixels) {
    size_t i = 0;
    for (; i + 4 * kStep <= pixels; i += 4 * kStep) {
        RebuildStep(over_black + i, over_white + i);
        RebuildStep(over_black + i + kStep, over_white + i + kStep);
        RebuildStep(over_black + i + 2 * kStep, over_white + i + 2 * kStep);
        RebuildStep(over_black + i + 3 * kStep, over_white + i + 3 * kStep);
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
