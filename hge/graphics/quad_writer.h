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

inline __m128 Magnitude(__m128 value) {
    return _mm_and_ps(value, _mm_castsi128_ps(_mm_set1_epi32(0x7FFFFFFF)));
}

inline __m128 LoadPair(const float* low, const float* high) {
    __m128 pair = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(low));
    return _mm_loadh_pi(pair, reinterpret_cast<const __m64*>(high));
}

inline __m128 Twice(const float* pair) {
    return LoadPair(pair, pair);
}

// Lanes are set where all positions together stay within what rasterisers can count on. The fourth lane,
// the colour's, always is. Infinities and NaNs spoil the sum.
inline __m128 SanePositions(const Vertex* v) {
    const __m128 xyz = _mm_castsi128_ps(_mm_set_epi32(0, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF));
    __m128 sum = _mm_and_ps(_mm_loadu_ps(&v[0].x), xyz);
    for (int i = 1; i < 4; ++i)
        sum = _mm_add_ps(sum, _mm_and_ps(_mm_loadu_ps(&v[i].x), xyz));
    return _mm_cmplt_ps(sum, _mm_set1_ps(1e7f));
}

// Lanes are set where coordinates lie within reach of the middle of the texture.
inline __m128 Within(__m128 uv01, __m128 uv23, float reach) {
    const __m128 middle = _mm_set1_ps(0.5f);
    const __m128 most = _mm_set1_ps(reach);
    return _mm_and_ps(_mm_cmple_ps(Magnitude(_mm_sub_ps(uv01, middle)), most),
                      _mm_cmple_ps(Magnitude(_mm_sub_ps(uv23, middle)), most));
}

inline void Write(const Vertex* v, __m128 uv01, __m128 uv23, uint32_t mode, DeviceVertex* out) {
    for (int i = 0; i < 4; i += 2) {
        __m128 uv = i ? uv23 : uv01;
        _mm_storeu_ps(&out[i].x, _mm_loadu_ps(&v[i].x));
        _mm_storel_pi(reinterpret_cast<__m64*>(&out[i].u), uv);
        out[i].mode = mode;
        _mm_storeu_ps(&out[i + 1].x, _mm_loadu_ps(&v[i + 1].x));
        _mm_storeh_pi(reinterpret_cast<__m64*>(&out[i + 1].u), uv);
        out[i + 1].mode = mode;
    }
}

}  // namespace quad_detail

// Positions only, for quads without a texture.
inline bool PositionsAreSane(const Vertex* v) {
    return _mm_movemask_ps(quad_detail::SanePositions(v)) == 15;
}

inline QuadKind Classify(const Vertex* v) {
    // A coordinate may miss 0..1 by a rounding error; a quarter texel of the largest atlas entry is harmless.
    constexpr float kSlack = 1.0f / 1024;
    constexpr float kFarthest = 65536;
    __m128 sane = quad_detail::SanePositions(v);
    __m128 uv01 = quad_detail::LoadPair(&v[0].tx, &v[1].tx);
    __m128 uv23 = quad_detail::LoadPair(&v[2].tx, &v[3].tx);
    if (_mm_movemask_ps(_mm_and_ps(sane, quad_detail::Within(uv01, uv23, 0.5f + kSlack))) == 15)
        return QuadKind::kPlain;
    __m128 drawable = _mm_and_ps(sane, quad_detail::Within(uv01, uv23, kFarthest));
    return _mm_movemask_ps(drawable) == 15 ? QuadKind::kTiled : QuadKind::kNonsense;
}

// out may be write-combined memory: it is written in order and never read.
inline void WriteQuad(const Vertex* v, const Placement& placement, uint32_t mode, DeviceVertex* out) {
    const __m128 scale = quad_detail::Twice(&placement.u_scale);
    const __m128 offset = quad_detail::Twice(&placement.u_offset);
    __m128 uv01 = _mm_mul_ps(quad_detail::LoadPair(&v[0].tx, &v[1].tx), scale);
    __m128 uv23 = _mm_mul_ps(quad_detail::LoadPair(&v[2].tx, &v[3].tx), scale);
    quad_detail::Write(v, _mm_add_ps(uv01, offset), _mm_add_ps(uv23, offset), mode | placement.slice, out);
}

// Every corner in the middle of the texture, whatever the quad's own coordinates.
inline void WriteFlatQuad(const Vertex* v, const Placement& placement, uint32_t mode, DeviceVertex* out) {
    const __m128 half = _mm_mul_ps(quad_detail::Twice(&placement.u_scale), _mm_set1_ps(0.5f));
    const __m128 point = _mm_add_ps(quad_detail::Twice(&placement.u_offset), half);
    quad_detail::Write(v, point, point, mode | placement.slice, out);
}

}  // namespace hge
