#include "resources/block_compression.h"

#include "resources/little_endian.h"
#include "resources/pixels.h"

namespace hge {
namespace {

struct Color {
    uint32_t r, g, b;
};

Color From565(uint32_t v) {
    return {Widen(v >> 11, 5), Widen(v >> 5, 6), Widen(v, 5)};
}

// The mean of weight parts of a and total - weight parts of b.
uint32_t Mix(uint32_t a, uint32_t b, uint32_t weight, uint32_t total) {
    return (a * weight + b * (total - weight) + total / 2) / total;
}

uint32_t Mix(const Color& a, const Color& b, uint32_t weight, uint32_t total) {
    return PackColor(255, Mix(a.r, b.r, weight, total), Mix(a.g, b.g, weight, total),
                     Mix(a.b, b.b, weight, total));
}

// Only BC1 knows blocks of three colours and a hole.
void DecodeColors(const uint8_t* p, bool may_have_hole, uint32_t pixels[16]) {
    uint32_t first = Get16(p), second = Get16(p + 2);
    Color a = From565(first), b = From565(second);
    bool has_hole = may_have_hole && first <= second;
    uint32_t palette[4] = {Mix(a, b, 1, 1), Mix(a, b, 0, 1), has_hole ? Mix(a, b, 1, 2) : Mix(a, b, 2, 3),
                           has_hole ? 0 : Mix(a, b, 1, 3)};
    uint32_t indices = Get32(p + 4);
    for (int i = 0; i < 16; ++i, indices >>= 2)
        pixels[i] = palette[indices & 3];
}

void SetAlpha(uint32_t& pixel, uint32_t alpha) {
    pixel = (pixel & 0xFFFFFF) | alpha << 24;
}

void DecodeExplicitAlpha(const uint8_t* p, uint32_t pixels[16]) {
    for (int i = 0; i < 16; ++i)
        SetAlpha(pixels[i], Widen(static_cast<uint32_t>(p[i / 2] >> i % 2 * 4), 4));
}

void DecodeMixedAlpha(const uint8_t* p, uint32_t pixels[16]) {
    uint32_t a = p[0], b = p[1];
    uint32_t steps = a > b ? 7 : 5;
    uint32_t palette[8] = {a, b, 0, 0, 0, 0, 0, 255};
    for (uint32_t i = 1; i < steps; ++i)
        palette[i + 1] = Mix(a, b, steps - i, steps);
    uint64_t indices = Get16(p + 2) | static_cast<uint64_t>(Get32(p + 4)) << 16;
    for (int i = 0; i < 16; ++i, indices >>= 3)
        SetAlpha(pixels[i], palette[indices & 7]);
}

}  // namespace

void DecodeBlock(BlockFormat format, const uint8_t* block, uint32_t pixels[16]) {
    if (format == BlockFormat::kBc1) return DecodeColors(block, true, pixels);
    DecodeColors(block + 8, false, pixels);
    if (format == BlockFormat::kBc2) return DecodeExplicitAlpha(block, pixels);
    DecodeMixedAlpha(block, pixels);
}

}  // namespace hge
