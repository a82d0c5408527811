#pragma once

#include <emmintrin.h>

#include "graphics/vertex.h"

namespace hge {

enum class QuadKind {
    kPlain,    // coordinates within the texture
    kTiled,    // coordinates leave 0..1: the texture must repeat
    kNonsense  // a position or coordinate that no device should see
};

namespace quad_detail {

inline __m128 LoadPair(const float* low, const float* high) {
    __m128 pair = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(low));
    return _mm_loadh_pi(pair, reinterpret_cast<const __m64*>(high));
}

// A quad is read in the pieces that it was most likely just written in, a corner and its coordinates: a
// processor hands a read what a write left behind only when one write has all of it.
struct Corners {
    explicit Corners(const Vertex* v) {
        for (int i = 0; i < 4; ++i)
            xyzc[i] = _mm_loadu_ps(&v[i].x);
        uv01 = LoadPair(&v[0].tx, &v[1].tx);
        uv23 = LoadPair(&v[2].tx, &v[3].tx);
    }
    __m128 xyzc[4];
    __m128 uv01, uv23;
};

// Lanes are set where all positions together stay within what rasterisers can count on. The fourth lane,
// the colour's, always is. Infinities and NaNs spoil the sum.
inline __m128 SanePositions(const Corners& c) {
    const __m128 xyz = _mm_castsi128_ps(_mm_set_epi32(0, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF));
    __m128 sum = _mm_and_ps(c.xyzc[0], xyz);
    for (int i = 1; i < 4; ++i)
        sum = _mm_add_ps(sum, _mm_and_ps(c.xyzc[i], xyz));
    return _mm_cmplt_ps(sum, _mm_set1_ps(1e7f));
}

// Lanes are set where coordinates lie within reach of the middle of the texture.
inline __m128 Within(__m128 uv, float reach) {
    const __m128 magnitude = _mm_castsi128_ps(_mm_set1_epi32(0x7FFFFFFF));
    return _mm_cmple_ps(_mm_and_ps(_mm_sub_ps(uv, _mm_set1_ps(0.5f)), magnitude), _mm_set1_ps(reach));
}

template <int k0, int k1, int k2, int k3>
__m128 Pick(__m128 low, __m128 high) {
    return _mm_shuffle_ps(low, high, _MM_SHUFFLE(k3, k2, k1, k0));
}

// The blend bits 1, colours add, and 2, blended by alpha.
inline constexpr uint32_t kModes[] = {0, kModeColorAdd, kModeAlphaBlend, kModeColorAdd | kModeAlphaBlend};

}  // namespace quad_detail

inline bool IsWithin(const quad_detail::Corners& c, float reach) {
    const __m128 uv = _mm_and_ps(quad_detail::Within(c.uv01, reach), quad_detail::Within(c.uv23, reach));
    return _mm_movemask_ps(_mm_and_ps(quad_detail::SanePositions(c), uv)) == 15;
}

inline bool IsPlain(const Vertex* v) {
    // A coordinate may miss 0..1 by a rounding error; a quarter texel of the largest atlas entry is harmless.
    return IsWithin(quad_detail::Corners(v), 0.5f + 1.0f / 1024);
}

inline QuadKind Classify(const Vertex* v) {
    constexpr float kFarthest = 65536;
    if (IsPlain(v)) return QuadKind::kPlain;
    return IsWithin(quad_detail::Corners(v), kFarthest) ? QuadKind::kTiled : QuadKind::kNonsense;
}

// out may be write-combined memory: it is written once, in order and never read. The 28 bytes of four
// vertices are put together to seven stores of 16.
inline void WriteQuad(const Vertex* v, const Placement& placement, int blend, DeviceVertex* out) {
    using quad_detail::Pick;
    const quad_detail::Corners c(v);
    const __m128 where = _mm_loadu_ps(&placement.u_scale);
    const __m128 scale = Pick<0, 1, 0, 1>(where, where);
    const __m128 offset = Pick<2, 3, 2, 3>(where, where);
    const __m128 uv01 = _mm_add_ps(_mm_mul_ps(c.uv01, scale), offset);
    const __m128 uv23 = _mm_add_ps(_mm_mul_ps(c.uv23, scale), offset);
    const __m128i mode_bits =
        _mm_set1_epi32(static_cast<int>(quad_detail::kModes[blend & 3] | placement.slice));
    const __m128 mode = _mm_castsi128_ps(mode_bits);
    const __m128 yzc1 = Pick<1, 2, 3, 3>(c.xyzc[1], c.xyzc[1]);
    const __m128 xxyz3 = Pick<0, 0, 1, 2>(c.xyzc[3], c.xyzc[3]);
    auto place = reinterpret_cast<float*>(out);
    _mm_storeu_ps(place, c.xyzc[0]);
    _mm_storeu_ps(place + 4, _mm_movelh_ps(uv01, _mm_unpacklo_ps(mode, c.xyzc[1])));
    _mm_storeu_ps(place + 8, Pick<0, 1, 0, 2>(yzc1, Pick<2, 2, 2, 2>(yzc1, uv01)));
    _mm_storeu_ps(place + 12, Pick<0, 2, 0, 1>(Pick<3, 3, 0, 0>(uv01, mode), c.xyzc[2]));
    _mm_storeu_ps(place + 16, Pick<2, 3, 0, 1>(c.xyzc[2], uv23));
    _mm_storeu_ps(place + 20, _mm_move_ss(xxyz3, mode));
    _mm_storeu_ps(place + 24,
                  Pick<0, 2, 0, 2>(Pick<3, 3, 2, 2>(c.xyzc[3], uv23), Pick<3, 3, 0, 0>(uv23, mode)));
}

}  // namespace hge
