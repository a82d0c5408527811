#include "drill2d/font.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "support/recording_hge.h"
#include "text/gdi_seams.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kFace[] = "WenQuanYi Zen Hei";
constexpr wchar_t kMissing = 0xE123;

class FontTest : public testing::Test {
 protected:
    void SetUp() override { Recording().Reset(); }
    void TearDown() override {
        EXPECT_THAT(Recording().Faults(), IsEmpty());
        EXPECT_EQ(gdi_seams::LiveObjects(), 0);
        EXPECT_EQ(Recording().references, 0);
        EXPECT_THAT(Recording().textures, IsEmpty());
    }
    // Draws at (0, 0) and gives the quads.
    static std::vector<hgeQuad> Draw(GfxFont* font, const wchar_t* text) {
        Recording().ClearCalls();
        font->Render(0, 0, text);
        return Recording().quads;
    }
    static const std::vector<DWORD>& Pixels(GfxFont* font, const wchar_t* text) {
        return Recording().textures[Draw(font, text).at(0).tex].pixels;
    }
};

std::unique_ptr<GfxFont> MakeFont(int size, int bold = 0, int antialias = 1) {
    return std::make_unique<GfxFont>(kFace, size, bold, 0, antialias);
}

LONG Width(int size, const wchar_t* text) {
    return MakeFont(size)->GetTextSize(text).cx;
}

unsigned Ink(const std::vector<DWORD>& pixels) {
    unsigned sum = 0;
    for (DWORD pixel : pixels)
        sum += pixel >> 24;
    return sum;
}

TEST_F(FontTest, HoldsOneDCAndOneFontAndStartsWhite) {
    auto font = MakeFont(16);
    EXPECT_EQ(gdi_seams::LiveObjects(), 2);
    EXPECT_EQ(font->GetFontSize(), 16);
    EXPECT_EQ(font->GetKerningWidth(), 0);
    EXPECT_EQ(font->GetKerningHeight(), 0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(font->GetColor(i), 0xFFFFFFFF);
    EXPECT_EQ(GfxFont::font_count, 65535u);
}

TEST_F(FontTest, WithoutAFontNothingIsDrawn) {
    gdi_seams::FailFonts(true);
    auto font = MakeFont(16);
    gdi_seams::FailFonts(false);
    Recording().create_fails = true;
    auto lost = MakeFont(16);
    for (GfxFont* broken : {font.get(), lost.get()}) {
        broken->SetColor(0xFF112233, -1);
        EXPECT_EQ(broken->GetColor(0), 0u);
        EXPECT_THAT(Draw(broken, L"A"), IsEmpty());
        broken->Print(0, 0, "A");
        EXPECT_EQ(broken->GetTextSize(L"A").cx, 8);
    }
}

TEST_F(FontTest, NullTextsAreEmpty) {
    auto font = MakeFont(16);
    font->Print(0, 0, nullptr);
    EXPECT_THAT(Draw(font.get(), nullptr), IsEmpty());
    EXPECT_EQ(font->GetTextSize(nullptr).cx, 0);
    EXPECT_EQ(font->GetCharacterFromPos(nullptr, 1, 1), 0);
}

TEST_F(FontTest, ACharacterWithoutATextureIsTriedAgain) {
    auto font = MakeFont(16);
    Recording().texture_create = [](int, int) { return 0u; };
    EXPECT_THAT(Draw(font.get(), L"A"), IsEmpty());
    Recording().texture_create = nullptr;
    EXPECT_EQ(Draw(font.get(), L"A").size(), 1u);
}

TEST_F(FontTest, TextStandsOnAGridOfHalfAndFullCells) {
    struct {
        int size;
        const wchar_t* text;
        LONG width;
    } const kCases[] = {
        {13, L"A", 6},
        {15, L"A", 8},
        {16, L"A", 8},
        {12, L"iiii", 24},
        {16, L"\x1fff", 8},
        {16, L"\x2000", 16},
        {16, L"\u4e2d", 16},
        {13, L"\u4e2d\u6587", 26},
        {15, L"a\u4e2d", 23},
        {16, L" ", 8},
        {16, L"\xd83d\xde00", 32},
        {16, L"\xffff", 16},
        {1, L"A", 0},
        {3, L"A", 2},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(Width(c.size, c.text), c.width) << c.size << " px, " << c.text;
}

TEST_F(FontTest, MeasuresLinesAndKerning) {
    auto font = MakeFont(16);
    auto size = [&](const wchar_t* text) {
        SIZE s = font->GetTextSize(text);
        return std::vector<LONG>{s.cx, s.cy};
    };
    EXPECT_THAT(size(L""), ElementsAre(0, 16));
    EXPECT_THAT(size(L"abc\nab"), ElementsAre(24, 32));
    EXPECT_THAT(size(L"ab\r\nabcd"), ElementsAre(32, 48)) << "CR LF is two lines";
    font->SetKerningWidth(1.5f);
    font->SetKerningHeight(2.75f);
    EXPECT_THAT(size(L"abc"), ElementsAre(28, 16)) << "28.5 is cut";
    EXPECT_THAT(size(L"abc\nd"), ElementsAre(28, 34)) << "18.75 is cut";
}

TEST_F(FontTest, EveryCellOwnsItsRightAndBottomEdge) {
    auto font = MakeFont(16);
    font->SetKerningWidth(2);
    struct {
        const wchar_t* text;
        float x, y;
        wchar_t found;
    } const kCases[] = {
        {L"ab", 0, 8, 0},          {L"ab", 0.5f, 8, L'a'},    {L"ab", 8, 8, L'a'},    {L"ab", 9, 8, 0},
        {L"ab", 10, 8, 0},         {L"ab", 18, 8, L'b'},      {L"ab", 19, 8, 0},      {L"ab", 4, 0, 0},
        {L"ab", 4, 16, L'a'},      {L"ab", 4, 16.5f, 0},      {L"a\nb", 4, 20, L'b'}, {L"a\n", 4, 20, 0},
        {L"a\r\nb", 4, 20, L'\n'}, {L"a\r\nb", 14, 20, L'b'}, {L"", 4, 4, 0},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(font->GetCharacterFromPos(c.text, c.x, c.y), c.found) << c.text << " " << c.x << "," << c.y;
}

TEST_F(FontTest, GlyphsFollowThePen) {
    auto font = MakeFont(16);
    font->SetKerningWidth(1);
    font->SetKerningHeight(3);
    std::vector<hgeQuad> quads = Draw(font.get(), L"HH\u4e2dH\nH\r\nH");
    ASSERT_EQ(quads.size(), 6u);
    float left = quads[0].v[0].x, top = quads[0].v[0].y;
    EXPECT_EQ(quads[1].v[0].x - left, 9);
    EXPECT_EQ(quads[3].v[0].x - left, 9 + 9 + 17);
    EXPECT_EQ(quads[4].v[0].x, left);
    EXPECT_EQ(quads[4].v[0].y - top, 19);
    EXPECT_EQ(quads[5].v[0].y - top, 3 * 19) << "CR LF is two lines";
    EXPECT_EQ(quads[0].v[2].y, 15) << "an H stands on the base line, the face's ascent below the top";
}

TEST_F(FontTest, ACharacterIsRasterisedOnce) {
    auto font = MakeFont(16);
    EXPECT_EQ(Draw(font.get(), L"A\u4e2dA").size(), 3u);
    EXPECT_EQ(Recording().textures.size(), 2u);
    int calls = gdi_seams::GlyphCalls();
    Draw(font.get(), L"\u4e2dAA");
    font->GetTextSize(L"A\u4e2d");
    font->GetCharacterFromPos(L"A\u4e2d", 99, 99);
    EXPECT_EQ(gdi_seams::GlyphCalls(), calls);
    for (const char* work : {"Texture_Create", "Texture_Lock", "Texture_Free"})
        EXPECT_THAT(Recording().CallsMatching(work), IsEmpty());
}

TEST_F(FontTest, BlanksMissingCharactersAndCodeUnitsWithoutARecord) {
    auto font = MakeFont(16);
    Draw(font.get(), L" \x3000");
    EXPECT_EQ(Recording().CallsMatching("Texture_Create").size(), 2u);
    EXPECT_THAT(Recording().CallsMatching("Texture_Lock"), IsEmpty());
    const wchar_t missing[] = {kMissing, 0xD83D, 0xDE00, 0};
    EXPECT_EQ(Draw(font.get(), missing).size(), 3u) << "each in the face's own box";
    EXPECT_THAT(Draw(font.get(), L"\xffff"), IsEmpty());
    EXPECT_EQ(Draw(font.get(),
                   L"\xffff\xffff"
                   L"A")
                  .size(),
              1u);
}

TEST_F(FontTest, TheCopySharesEverything) {
    auto font = MakeFont(16);
    Draw(font.get(), L"A");
    // The copy is never destroyed: it owns what the original owns.
    alignas(GfxFont) static char storage[sizeof(GfxFont)];
    GfxFont* copy = new (storage) GfxFont(*font);
    EXPECT_EQ(Draw(copy, L"A").at(0).tex, Draw(font.get(), L"A").at(0).tex);
    EXPECT_EQ(gdi_seams::LiveObjects(), 2);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class HeardFont final : public GfxFont {
 public:
    HeardFont() : GfxFont(kFace, 16, 0, 0, 1) {}
    void Render(float x, float y, const wchar_t* text) override {
        heard_x = x;
        heard_y = y;
        heard = text;
    }
    float heard_x = 0, heard_y = 0;
    std::wstring heard;
};
#pragma GCC diagnostic pop

TEST_F(FontTest, PrintsFormattedTextThroughRender) {
    auto font = std::make_unique<HeardFont>();
    font->Print(3, 4, "%s %d%%", "done", 95);
    EXPECT_EQ(font->heard, L"done 95%");
    EXPECT_EQ(font->heard_x, 3);
    EXPECT_EQ(font->heard_y, 4);
    font->Print(0, 0, "%s", std::string(10239, 'x').c_str());
    EXPECT_EQ(font->heard.size(), 10239u);
    font->Print(0, 0, "%s", std::string(20000, 'x').c_str());
    EXPECT_GE(font->heard.size(), 10238u);
    EXPECT_LE(font->heard.size(), 10239u);
    if (GetACP() == 936) {
        std::string chinese = "a";
        while (chinese.size() < 20000)
            chinese += "\xd6\xd0";
        font->Print(0, 0, "%s", chinese.c_str());
        EXPECT_EQ(font->heard.substr(0, 2), L"a\u4e2d");
        EXPECT_EQ(font->heard.back(), L'\u4e2d') << "no half character at the cut";
    }
}

TEST_F(FontTest, ColoursTintTheCornersOfEveryGlyph) {
    auto font = MakeFont(16);
    font->SetColor(0xFF112233, -1);
    font->SetColor(0x80445566, 2);
    EXPECT_EQ(font->GetColor(2), 0x80445566);
    std::vector<hgeQuad> quads = Draw(font.get(), L"AB");
    EXPECT_EQ(quads[1].v[0].col, 0xFF112233);
    EXPECT_EQ(quads[1].v[2].col, 0x80445566);
}

TEST_F(FontTest, GlyphsAreWhiteWithTheCoverageInAlpha) {
    auto smooth = MakeFont(40), sharp = MakeFont(40, 0, 0), bold = MakeFont(40, 1);
    std::vector<DWORD> grey = Pixels(smooth.get(), L"S"), mono = Pixels(sharp.get(), L"S");
    EXPECT_TRUE(std::all_of(grey.begin(), grey.end(), [](DWORD pixel) {
        return (pixel & 0xFFFFFF) == 0xFFFFFF && (pixel >> 24 == 255 || (pixel >> 24) % 4 == 0);
    }));
    EXPECT_TRUE(std::any_of(grey.begin(), grey.end(), [](DWORD p) { return p >> 24 > 0 && p >> 24 < 252; }));
    EXPECT_TRUE(std::any_of(grey.begin(), grey.end(), [](DWORD p) { return p >> 24 == 255; }));
    EXPECT_TRUE(std::all_of(mono.begin(), mono.end(), [](DWORD p) { return p == 0 || p == 0xFFFFFFFF; }));
    EXPECT_NEAR(Ink(grey), Ink(mono), Ink(grey) / 10) << "the same shape";
    EXPECT_GT(Ink(Pixels(bold.get(), L"S")), Ink(grey));
}

// An L fills its left and bottom edge: rows and columns lie as in the picture, also past GDI's padding.
TEST_F(FontTest, GlyphRowsRunFromTheTop) {
    for (int antialias : {0, 1}) {
        auto font = MakeFont(37, 0, antialias);
        HTEXTURE tex = Draw(font.get(), L"L").at(0).tex;
        const RecordingHge::Texture& glyph = Recording().textures[tex];
        size_t width = static_cast<size_t>(glyph.width), height = static_cast<size_t>(glyph.height);
        for (size_t y = 1; y < height; ++y) {
            const DWORD* row = &glyph.pixels[y * width];
            EXPECT_EQ(*std::max_element(row, row + width / 3) >> 24, 255u) << "row " << y;
            if (y < height / 2 || y == height - 2) {
                EXPECT_EQ(row[width - 3] >> 24 == 0, y < height / 2) << "row " << y;
            }
        }
    }
}

}  // namespace
