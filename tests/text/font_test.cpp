#include "drill2d/font.h"

#include <algorithm>
#include <memory>

#include "support/gdi_objects.h"
#include "support/recording_test.h"

using test::LiveGdiObjects;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

bool g_fonts_fail = false;

// The linker takes this in place of the import library's pointer.
HFONT WINAPI FontOrNone(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                        DWORD underline, DWORD strike_out, DWORD charset, DWORD out, DWORD clip,
                        DWORD quality, DWORD pitch, LPCSTR face) {
    if (g_fonts_fail) return nullptr;
    auto real = reinterpret_cast<decltype(&FontOrNone)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("gdi32"), "CreateFontA")));
    return real(height, width, escapement, orientation, weight, italic, underline, strike_out, charset, out,
                clip, quality, pitch, face);
}

}  // namespace

extern "C" {
decltype(&FontOrNone) imported_create_font __asm__("__imp__CreateFontA@56") = FontOrNone;
}

namespace {

std::unique_ptr<GfxFont> MakeFont(int size, int bold = 0, int antialias = 1) {
    return std::make_unique<GfxFont>("WenQuanYi Zen Hei", size, bold, 0, antialias);
}

class FontTest : public RecordingTest {
 protected:
    // With the first one come objects that stay.
    static void SetUpTestSuite() { MakeFont(16); }
    ~FontTest() override {
        EXPECT_EQ(LiveGdiObjects(), gdi_before_);
        EXPECT_THAT(Recording().textures, IsEmpty());
    }
    // Draws at (0, 0) and gives the quads.
    static std::vector<hgeQuad> Draw(const std::unique_ptr<GfxFont>& font, const wchar_t* text) {
        Recording().ClearCalls();
        font->Render(0, 0, text);
        return Recording().quads;
    }
    static const RecordingHge::Texture& Glyph(const std::unique_ptr<GfxFont>& font, const wchar_t* text) {
        return Recording().textures[Draw(font, text).at(0).tex];
    }
    static unsigned Ink(const RecordingHge::Texture& glyph) {
        unsigned sum = 0;
        for (DWORD pixel : glyph.pixels)
            sum += pixel >> 24;
        return sum;
    }
    const long gdi_before_ = LiveGdiObjects();
};

TEST_F(FontTest, WithoutAFontOrATextNothingIsDrawn) {
    g_fonts_fail = true;
    auto font = MakeFont(16);
    g_fonts_fail = false;
    Recording().create_fails = true;
    auto lost = MakeFont(16);
    for (const auto& broken : {std::ref(font), std::ref(lost)}) {
        broken.get()->SetColor(0xFF112233, -1);
        EXPECT_EQ(broken.get()->GetColor(0), 0u);
        EXPECT_THAT(Draw(broken.get(), L"A"), IsEmpty());
        EXPECT_EQ(broken.get()->GetTextSize(L"A").cx, 8);
    }
    Recording().create_fails = false;
    auto good = MakeFont(16);
    EXPECT_EQ(LiveGdiObjects(), gdi_before_ + 1 + 2) << "the broken one's DC, a DC and a font";
    good->Print(0, 0, nullptr);
    EXPECT_THAT(Draw(good, nullptr), IsEmpty());
    EXPECT_EQ(good->GetTextSize(nullptr).cx, 0);
    EXPECT_EQ(good->GetCharacterFromPos(nullptr, 1, 1), 0);
}

TEST_F(FontTest, TextStandsOnAGridOfHalfAndFullCells) {
    struct {
        int size;
        const wchar_t* text;
        LONG width;
    } const kCases[] = {{13, L"A", 6},       {15, L"A", 8},
                        {16, L"A", 8},       {12, L"iiii", 24},
                        {16, L"\x1fff", 8},  {16, L"\x2000", 16},
                        {16, L"\u4e2d", 16}, {13, L"\u4e2d\u6587", 26},
                        {16, L" ", 8},       {16, L"\xd83d\xde00", 32},
                        {16, L"\xffff", 16}, {3, L"A", 2}};
    for (const auto& c : kCases)
        EXPECT_EQ(MakeFont(c.size)->GetTextSize(c.text).cx, c.width) << c.size << " px, " << c.text;
}

TEST_F(FontTest, MeasuresLinesAndKerning) {
    auto font = MakeFont(16);
    auto size = [&](const wchar_t* text) {
        SIZE s = font->GetTextSize(text);
        return std::vector<LONG>{s.cx, s.cy};
    };
    EXPECT_THAT(size(L""), ElementsAre(0, 16));
    EXPECT_THAT(size(L"ab\r\nabcd"), ElementsAre(32, 48)) << "CR LF is two lines";
    font->SetKerningWidth(1.5f);
    font->SetKerningHeight(2.75f);
    EXPECT_THAT(size(L"abc\nd"), ElementsAre(28, 34)) << "28.5 and 18.75 are cut";
}

TEST_F(FontTest, EveryCellOwnsItsRightAndBottomEdge) {
    auto font = MakeFont(16);
    font->SetKerningWidth(2);
    struct {
        const wchar_t* text;
        float x, y;
        wchar_t found;
    } const kCases[] = {{L"ab", 0, 8, 0},          {L"ab", 0.5f, 8, L'a'}, {L"ab", 8, 8, L'a'},
                        {L"ab", 10, 8, 0},         {L"ab", 18, 8, L'b'},   {L"ab", 19, 8, 0},
                        {L"ab", 4, 0, 0},          {L"ab", 4, 16, L'a'},   {L"ab", 4, 16.5f, 0},
                        {L"a\nb", 4, 20, L'b'},    {L"a\n", 4, 20, 0},     {L"a\r\nb", 4, 20, L'\n'},
                        {L"a\r\nb", 14, 20, L'b'}, {L"", 4, 4, 0}};
    for (const auto& c : kCases)
        EXPECT_EQ(font->GetCharacterFromPos(c.text, c.x, c.y), c.found) << c.text << " " << c.x << "," << c.y;
}

TEST_F(FontTest, GlyphsFollowThePen) {
    auto font = MakeFont(16);
    font->SetKerningWidth(1);
    font->SetKerningHeight(3);
    font->SetColor(0x80445566, 2);
    std::vector<hgeQuad> quads = Draw(font, L"HH\u4e2dH\nH\r\nH");
    ASSERT_EQ(quads.size(), 6u);
    float left = quads[0].v[0].x, top = quads[0].v[0].y;
    EXPECT_EQ(quads[1].v[0].x - left, 9);
    EXPECT_EQ(quads[3].v[0].x - left, 9 + 9 + 17);
    EXPECT_EQ(quads[4].v[0].x, left);
    EXPECT_EQ(quads[4].v[0].y - top, 19);
    EXPECT_EQ(quads[5].v[0].y - top, 3 * 19) << "CR LF is two lines";
    EXPECT_EQ(quads[0].v[2].y, 15) << "an H stands on the base line, the face's ascent below the top";
    EXPECT_EQ(quads[5].v[0].col, 0xFFFFFFFF);
    EXPECT_EQ(quads[5].v[2].col, 0x80445566);
}

TEST_F(FontTest, ACharacterIsRasterisedOnceItHasATexture) {
    auto font = MakeFont(16);
    Recording().texture_create = [](int, int) { return 0u; };
    EXPECT_THAT(Draw(font, L"A"), IsEmpty());
    Recording().texture_create = nullptr;
    EXPECT_EQ(Draw(font, L"A\u4e2dA").size(), 3u);
    EXPECT_EQ(Recording().CallsMatching("Texture_Create").size(), 2u);
    Draw(font, L"\u4e2dAA");
    EXPECT_THAT(Recording().CallsMatching("Texture_Create"), IsEmpty());
}

TEST_F(FontTest, BlanksMissingCharactersAndCodeUnitsWithoutARecord) {
    auto font = MakeFont(16);
    EXPECT_EQ(Draw(font, L" \x3000").size(), 2u);
    EXPECT_THAT(Recording().CallsMatching("Texture_Lock"), IsEmpty());
    EXPECT_EQ(Draw(font, L"\xe123\xd83d\xde00").size(), 3u) << "each in the face's own box";
    EXPECT_EQ(Draw(font,
                   L"\xffff\xffff"
                   L"A")
                  .size(),
              1u);
}

TEST_F(FontTest, PrintsFormattedTextAndCutsItWhenTooLong) {
    auto font = MakeFont(16);
    font->Print(0, 0, "%s%d%%", "ab", 95);
    EXPECT_EQ(Recording().quads.size(), 5u);
    font->Print(0, 0, "%s", std::string(20000, 'x').c_str());
    EXPECT_EQ(Recording().quads.size(), 5u + 10238);
    Recording().ClearCalls();
}

TEST_F(FontTest, GlyphsAreWhiteWithTheCoverageInAlpha) {
    auto smooth = MakeFont(40), sharp = MakeFont(40, 0, 0), bold = MakeFont(40, 1);
    const RecordingHge::Texture &grey = Glyph(smooth, L"S"), &mono = Glyph(sharp, L"S");
    bool has_edges = false;
    for (DWORD pixel : grey.pixels) {
        EXPECT_EQ(pixel & 0xFFFFFF, 0xFFFFFFu);
        EXPECT_TRUE(pixel >> 24 == 255 || (pixel >> 24) % 4 == 0);
        has_edges |= pixel >> 24 > 0 && pixel >> 24 < 255;
    }
    EXPECT_TRUE(has_edges);
    for (DWORD pixel : mono.pixels)
        EXPECT_TRUE(pixel == 0 || pixel == 0xFFFFFFFF);
    EXPECT_NEAR(Ink(grey), Ink(mono), Ink(grey) / 10) << "the same shape";
    EXPECT_GT(Ink(Glyph(bold, L"S")), Ink(grey));
}

// An L fills its left and bottom edge: rows and columns lie as in the picture, also past GDI's padding.
TEST_F(FontTest, GlyphRowsRunFromTheTop) {
    for (int size : {35, 36, 37, 38, 39, 40, 41, 42}) {
        auto font = MakeFont(size, 0, size % 2);
        const RecordingHge::Texture& glyph = Glyph(font, L"L");
        int width = glyph.width, height = glyph.height;
        for (int y = 1; y < height; ++y) {
            const DWORD* row = &glyph.pixels[static_cast<size_t>(y * width)];
            EXPECT_EQ(*std::max_element(row, row + width / 3) >> 24, 255u) << size << " px, row " << y;
            if (y < height / 2 || y == height - 2) {
                EXPECT_EQ(row[width - 3] >> 24 == 0, y < height / 2) << size << " px, row " << y;
            }
        }
    }
}

}  // namespace
