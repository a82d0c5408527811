#pragma once

#include <emmintrin.h>

#include "graphics/vertex.h"

namespace hge {

enum class QuadKind {
    kPlain,    // coordinates within the texture
    kTiled,    // coordinates leave 0..1: the texture must repeat
    kNonsense  // a position or coordinate that no device should see
};

// A quad loaded into registers, so that it is looked at and written with one read of its memory.
class QuadRegisters {
 public:
    explicit QuadRegisters(const Vertex* v) {
        for (int i = 0; i < 4; ++i)
            place_[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(v + i));
        uv01_ = LoadPair(&v[0].tx, &v[1].tx);
        uv23_ = LoadPair(&v[2].tx, &v[3].tx);
    }

    QuadKind Classify() const {
        const __m128 low = _mm_set1_ps(-kSlack);
        const __m128 high = _mm_set1_ps(1 + kSlack);
        __m128 inside = _mm_and_ps(_mm_and_ps(_mm_cmpge_ps(uv01_, low), _mm_cmple_ps(uv01_, high)),
                                   _mm_and_ps(_mm_cmpge_ps(uv23_, low), _mm_cmple_ps(uv23_, high)));
        if (!PositionsAreSane()) return QuadKind::kNonsense;
        if (_mm_movemask_ps(inside) == 15) return QuadKind::kPlain;
        return CoordinatesAreSane() ? QuadKind::kTiled : QuadKind::kNonsense;
    }

    // Positions only, for quads without a texture.
    bool PositionsAreSane() const {
        const __m128i bits = _mm_set_epi32(0, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF);
        const __m128i limit = _mm_castps_si128(_mm_set1_ps(kFarthest));
        __m128i over = _mm_cmpgt_epi32(_mm_and_si128(place_[0], bits), limit);
        for (int i = 1; i < 4; ++i)
            over = _mm_or_si128(over, _mm_cmpgt_epi32(_mm_and_si128(place_[i], bits), limit));
        return _mm_movemask_epi8(over) == 0;
    }

    // out may be write-combined memory: it is written in order and never read.
    void Write(const Placement& placement, uint32_t mode, DeviceVertex* out) const {
        const __m128 scale =
            _mm_set_ps(placement.v_scale, placement.u_scale, placement.v_scale, placement.u_scale);
        const __m128 offset =
            _mm_set_ps(placement.v_offset, placement.u_offset, placement.v_offset, placement.u_offset);
        __m128 a = _mm_add_ps(_mm_mul_ps(uv01_, scale), offset);
        __m128 b = _mm_add_ps(_mm_mul_ps(uv23_, scale), offset);
        WriteWith(a, b, mode | placement.slice, out);
    }

    // Every corner at one point of the texture, whatever the quad's own coordinates.
    void WriteFlat(const Placement& placement, uint32_t mode, DeviceVertex* out) const {
        __m128 point =
            _mm_set_ps(placement.v_offset, placement.u_offset, placement.v_offset, placement.u_offset);
        WriteWith(point, point, mode | placement.slice, out);
    }

 private:
    // A coordinate may miss 0..1 by a rounding error; a quarter texel of the largest atlas entry is harmless.
    static constexpr float kSlack = 1.0f / 1024;
    // Beyond this rasterisers lose all precision, and infinities and NaNs lie there too.
    static constexpr float kFarthest = 1e7f;

    static __m128 LoadPair(const float* low, const float* high) {
        __m128 pair = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(low));
        return _mm_loadh_pi(pair, reinterpret_cast<const __m64*>(high));
    }

    bool CoordinatesAreSane() const {
        const __m128i bits = _mm_set1_epi32(0x7FFFFFFF);
        const __m128i limit = _mm_castps_si128(_mm_set1_ps(65536.0f));
        __m128i over = _mm_or_si128(_mm_cmpgt_epi32(_mm_and_si128(_mm_castps_si128(uv01_), bits), limit),
                                    _mm_cmpgt_epi32(_mm_and_si128(_mm_castps_si128(uv23_), bits), limit));
        return _mm_movemask_epi8(over) == 0;
    }

    void WriteWith(__m128 a, __m128 b, uint32_t mode, DeviceVertex* out) const {
        for (int i = 0; i < 4; ++i) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), place_[i]);
            __m128 uv = i < 2 ? a : b;
            if (i & 1)
                _mm_storeh_pi(reinterpret_cast<__m64*>(&out[i].u), uv);
            else
                _mm_storel_pi(reinterpret_cast<__m64*>(&out[i].u), uv);
            out[i].mode = mode;
        }
    }

    __m128i place_[4];  // x, y, z, colour
    __m128 uv01_, uv23_;
};

}  // namespace hge
