#include <gtest/gtest.h>

#include "resources/block_compression.h"
#include "resources/bmp.h"
#include "resources/dds.h"
#include "resources/tga.h"

namespace {

using hge::BlockFormat;
using hge::DecodeBlock;
using hge::DecodeTga;
using hge::Image;
using Bytes = std::vector<uint8_t>;
using Pixels = std::vector<uint32_t>;

struct TgaHeader {
    uint8_t type, bits, descriptor;
    uint8_t width = 2, height = 2;
    uint8_t map_count = 0, map_bits = 0, map_first = 0, id_length = 0;
};

Bytes MakeTga(const TgaHeader& h, const Bytes& data) {
    Bytes tga(18 + data.size());
    tga[0] = h.id_length;
    tga[1] = h.map_count > 0;
    tga[2] = h.type;
    tga[3] = h.map_first;
    tga[5] = h.map_count;
    tga[7] = h.map_bits;
    tga[12] = h.width;
    tga[14] = h.height;
    tga[16] = h.bits;
    tga[17] = h.descriptor;
    std::copy(data.begin(), data.end(), tga.begin() + 18);
    return tga;
}

std::string g_reason;

Pixels Decode(const Bytes& tga) {
    Image image;
    DecodeTga(tga.data(), tga.size(), &image, &g_reason);
    return image.pixels;
}

constexpr uint32_t kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kBlack = 0xFF000000;

TEST(TgaTest, EveryDepthAndOrigin) {
    // Stored: black, red / blue, white.
    Bytes deep{0, 0, 0, 0, 0, 255, 255, 0, 0, 255, 255, 255};
    EXPECT_EQ(Decode(MakeTga({2, 24, 0}, deep)), (Pixels{kBlue, kWhite, kBlack, kRed}));
    EXPECT_EQ(Decode(MakeTga({2, 24, 0x30}, deep)), (Pixels{kRed, kBlack, kWhite, kBlue}));
    Bytes high{0, 0, 0, 0xFC, 0x1F, 0x80, 0xFF, 0xFF};
    EXPECT_EQ(Decode(MakeTga({2, 15, 0x20}, high)), (Pixels{kBlack, kRed, kBlue, kWhite}));
    EXPECT_EQ(Decode(MakeTga({2, 16, 0x21}, high)), (Pixels{0, kRed, kBlue, kWhite}));
    EXPECT_EQ(Decode(MakeTga({3, 8, 0x20}, {0, 255, 1, 128})),
              (Pixels{kBlack, kWhite, 0xFF010101, 0xFF808080}));
    EXPECT_EQ(Decode(MakeTga({3, 16, 0x28, 1, 2}, {0, 9, 255, 8})), (Pixels{0x09000000, 0x08FFFFFF}));
    EXPECT_EQ(Decode(MakeTga({2, 32, 0x28, 1, 2}, {1, 2, 3, 0, 4, 5, 6, 0})),
              (Pixels{0xFF030201, 0xFF060504}));
}

TEST(TgaTest, MapsAndRuns) {
    Bytes mapped{'i', 'd', 0, 0, 255, 255, 0, 0, 5, 6, 6, 5};
    EXPECT_EQ(Decode(MakeTga({1, 8, 0x20, 2, 2, 2, 24, 5, 2}, mapped)), (Pixels{kRed, kBlue, kBlue, kRed}));
    // A run of three goes over the end of the first row; the last packet says more than is left.
    Bytes runs{0x82, 0, 0, 255, 0x01, 255, 0, 0, 1, 1, 1};
    EXPECT_EQ(Decode(MakeTga({10, 24, 0x20}, runs)), (Pixels{kRed, kRed, kRed, kBlue}));
    EXPECT_EQ(Decode(MakeTga({11, 8, 0x20}, {0x83, 255})), Pixels(4, kWhite));
}

TEST(TgaTest, DamageIsRefusedWithAReason) {
    const std::pair<Bytes, const char*> cases[] = {
        {MakeTga({2, 24, 0}, Bytes(11)), "the file is cut off"},
        {MakeTga({10, 24, 0}, {0x82, 0, 0, 255, 0x00, 255}), "the file is cut off"},
        {MakeTga({10, 32, 0, 255, 255}, Bytes(100)), "the file is cut off"},
        {MakeTga({1, 8, 0x20, 1, 1, 2, 24, 5}, {0, 0, 255, 255, 0, 0, 7}),
         "a pixel has no colour in the map"},
        {MakeTga({2, 24, 0, 0, 2}, Bytes(100)), "its width or height is not supported"},
        {MakeTga({2, 12, 0}, Bytes(100)), "not a TGA picture of a known kind"}};
    for (const auto& [bytes, expected] : cases) {
        EXPECT_TRUE(Decode(bytes).empty()) << expected;
        EXPECT_EQ(g_reason, expected);
    }
}

Pixels FirstFour(BlockFormat format, const Bytes& block) {
    uint32_t pixels[16];
    DecodeBlock(format, block.data(), pixels);
    return Pixels(pixels, pixels + 4);
}

TEST(BlockCompressionTest, ColoursBetweenTheEnds) {
    // Indices 0, 1, 2, 3 in the first row.
    Bytes falling{0x00, 0xF8, 0x1F, 0x00, 0xE4, 0, 0, 0}, rising{0x1F, 0x00, 0x00, 0xF8, 0xE4, 0, 0, 0};
    EXPECT_EQ(FirstFour(BlockFormat::kBc1, falling), (Pixels{kRed, kBlue, 0xFFAA0055, 0xFF5500AA}));
    EXPECT_EQ(FirstFour(BlockFormat::kBc1, rising), (Pixels{kBlue, kRed, 0xFF800080, 0}));
}

TEST(BlockCompressionTest, AlphaBesideColours) {
    Bytes colours{0x1F, 0x00, 0x00, 0xF8, 0xE4, 0, 0, 0};
    Bytes explicit_alpha{0xF0, 0x18, 0, 0, 0, 0, 0, 0};
    explicit_alpha.insert(explicit_alpha.end(), colours.begin(), colours.end());
    EXPECT_EQ(FirstFour(BlockFormat::kBc2, explicit_alpha),
              (Pixels{0x000000FF, 0xFFFF0000, 0x885500AA, 0x11AA0055}));
    // Indices 0, 1, 2, 7 of 8 between 255 and 15; then 0, 2, 6, 7 of 6 between 0 and 100.
    Bytes eight{255, 15, 0x88, 0x0E, 0, 0, 0, 0}, six{0, 100, 0x90, 0x0F, 0, 0, 0, 0};
    for (Bytes* block : {&eight, &six})
        block->insert(block->end(), colours.begin(), colours.end());
    EXPECT_EQ(FirstFour(BlockFormat::kBc3, eight), (Pixels{0xFF0000FF, 0x0FFF0000, 0xDD5500AA, 0x31AA0055}));
    EXPECT_EQ(FirstFour(BlockFormat::kBc3, six), (Pixels{0x000000FF, 0x14FF0000, 0x005500AA, 0xFFAA0055}));
}

Bytes MakeDds(uint32_t flags, const char* code, uint8_t bits, const std::vector<uint32_t>& masks,
              size_t data) {
    Bytes dds(128 + data);
    auto put = [&](size_t at, uint32_t v) {
        for (size_t i = 0; i < 4; ++i)
            dds[at + i] = static_cast<uint8_t>(v >> i * 8);
    };
    std::copy_n("DDS ", 4, dds.begin());
    std::copy_n(code, 4, dds.begin() + 84);
    put(12, 1);
    put(16, 2);
    put(80, flags);
    put(88, bits);
    for (size_t i = 0; i < masks.size(); ++i)
        put(92 + i * 4, masks[i]);
    for (size_t i = 0; i < data; ++i)
        dds[128 + i] = static_cast<uint8_t>(0x10 + i);
    return dds;
}

TEST(DdsTest, MasksOfAnyShapeAndCutFiles) {
    auto decode = [](const Bytes& dds) {
        Image image;
        hge::DecodeDds(dds.data(), dds.size(), &image, &g_reason);
        return image.pixels;
    };
    Bytes small = MakeDds(0x41, "\0\0\0\0", 16, {0xF00, 0xF0, 0xF, 0xF000}, 4);
    EXPECT_EQ(decode(small), (Pixels{0x11111100, 0x11331122}));
    small.pop_back();
    EXPECT_EQ(decode(small), Pixels());
    EXPECT_EQ(g_reason, "the file is cut off");
    EXPECT_EQ(decode(MakeDds(0x20000, "\0\0\0\0", 8, {0xFF000000, 0, 0, 0}, 2)),
              (Pixels{0xFF101010, 0xFF111111}));
    EXPECT_EQ(decode(MakeDds(4, "BC7U", 0, {}, 16)), Pixels());
    EXPECT_EQ(g_reason, "its DDS pixel format is not supported");
}

// A file of 60 bytes, whose header claims to go on to an alpha mask.
TEST(BmpTest, AlphaIsNotReadBeyondTheFile) {
    Bytes bmp(80, 0);
    bmp[14] = 0xF0;
    bmp[15] = bmp[16] = bmp[17] = bmp[69] = 0xFF;
    bmp[28] = 32;
    bmp[30] = 3;
    Image image{1, 1, {kWhite}};
    hge::ApplyBmpAlpha(bmp.data(), 60, &image);
    EXPECT_EQ(image.pixels, Pixels{kWhite});
}

}  // namespace
