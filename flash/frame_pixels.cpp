#include "flash/frame_pixels.h"

#include <emmintrin.h>

namespace flash {

namespace {

constexpr uint32_t kAlphaMask = 0xFF000000;
constexpr size_t kStep = 4;

__m128i* Vector(uint32_t* pixels) {
    return reinterpret_cast<__m128i*>(pixels);
}

__m128i Load(const uint32_t* pixels) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

uint32_t WithAlpha(uint32_t black, uint32_t white) {
    // Shifted left by a byte, red lies where alpha goes; what is below it may not borrow.
    uint32_t alpha = (black << 8 & kAlphaMask) - (white << 8 & kAlphaMask) - 0x01000000;
    return (black & ~kAlphaMask) | alpha;
}

__m128i WithAlpha(__m128i black, __m128i white) {
    const __m128i mask = _mm_set1_epi32(static_cast<int>(kAlphaMask));
    // black - white - 1 is ~(white - black); bytes do not borrow from one another.
    __m128i alpha = _mm_andnot_si128(_mm_slli_epi32(_mm_sub_epi8(white, black), 8), mask);
    return _mm_or_si128(_mm_andnot_si128(mask, black), alpha);
}

template <bool copied>
void Rebuild(uint32_t* over_black, const uint32_t* over_white, uint32_t* copy, size_t pixels) {
    size_t i = 0;
    for (; i + kStep <= pixels; i += kStep) {
        const __m128i frame = WithAlpha(Load(over_black + i), Load(over_white + i));
        _mm_storeu_si128(Vector(over_black + i), frame);
        if (copied) _mm_storeu_si128(Vector(copy + i), frame);
    }
    for (; i < pixels; ++i) {
        over_black[i] = WithAlpha(over_black[i], over_white[i]);
        if (copied) copy[i] = over_black[i];
    }
}

}  // namespace

void Fill(uint32_t* picture, uint32_t color, size_t pixels) {
    const __m128i colors = _mm_set1_epi32(static_cast<int>(color));
    size_t i = 0;
    for (; i + kStep <= pixels; i += kStep)
        _mm_storeu_si128(Vector(picture + i), colors);
    for (; i < pixels; ++i)
        picture[i] = color;
}

void TakeAway(uint32_t* picture, uint32_t* copy, size_t pixels) {
    size_t i = 0;
    for (; i + kStep <= pixels; i += kStep) {
        _mm_storeu_si128(Vector(copy + i), Load(picture + i));
        _mm_storeu_si128(Vector(picture + i), _mm_setzero_si128());
    }
    for (; i < pixels; ++i) {
        copy[i] = picture[i];
        picture[i] = 0;
    }
}

void RebuildAlpha(uint32_t* over_black, const uint32_t* over_white, uint32_t* copy, size_t pixels) {
    if (copy)
        Rebuild<true>(over_black, over_white, copy, pixels);
    else
        Rebuild<false>(over_black, over_white, nullptr, pixels);
}

}  // namespace flash
