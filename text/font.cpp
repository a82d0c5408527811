#include "drill2d/font.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

#include "engine/live_objects.h"
#include "engine/safely.h"
#include "hgesprite.h"
#include "text/code_page.h"

static_assert(sizeof(void*) != 4 || sizeof(GfxFont) == 4 + 65535 * 24 + 40, "the table is part of the font");

const unsigned int GfxFont::font_count;

namespace {

constexpr wchar_t kFirstFullWidth = 0x2000;
constexpr int kPrintBytes = 10240;
constexpr int kShortText = 512;
constexpr MAT2 kIdentity = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};

constexpr std::array<BYTE, 65> MakeAlphaTable() {
    std::array<BYTE, 65> table{};
    for (unsigned level = 0; level < 64; ++level)
        table[level] = static_cast<BYTE>(4 * level);
    table[64] = 255;
    return table;
}

// GDI's 65 grey levels.
constexpr std::array<BYTE, 65> kAlpha = MakeAlphaTable();

bool IsLineBreak(wchar_t c) {
    return c == L'\n' || c == L'\r';
}

void CopyGreyRow(const BYTE* source, DWORD* dest, unsigned width) {
    for (unsigned x = 0; x < width; ++x)
        dest[x] = static_cast<DWORD>(kAlpha[std::min<BYTE>(source[x], 64)]) << 24 | 0x00FFFFFF;
}

void CopyMonoRow(const BYTE* source, DWORD* dest, unsigned width) {
    for (unsigned x = 0; x < width; ++x)
        dest[x] = source[x / 8] & (0x80 >> x % 8) ? 0xFFFFFFFF : 0x00000000;
}

// GDI pads its rows to a multiple of four bytes.
void CopyBitmap(const BYTE* source, const GLYPHMETRICS& metrics, bool grey, DWORD* dest, int pitch) {
    unsigned width = metrics.gmBlackBoxX;
    unsigned row_bytes = grey ? (width + 3) / 4 * 4 : (width + 31) / 32 * 4;
    for (unsigned y = 0; y < metrics.gmBlackBoxY; ++y, source += row_bytes, dest += pitch)
        (grey ? CopyGreyRow : CopyMonoRow)(source, dest, width);
}

// GDI's picture of one character. Most fit into a buffer of the stack and need one call.
class Outline {
 public:
    Outline(HDC dc, wchar_t c, unsigned format) : format_(format) {
        size_ = GetGlyphOutlineW(dc, c, format, &metrics_, sizeof small_, small_, &kIdentity);
        if (size_ == GDI_ERROR) Enlarge(dc, c);
    }

    const GLYPHMETRICS& metrics() const { return metrics_; }
    // False for blanks and where GDI fails.
    bool has_bitmap() const { return size_ != GDI_ERROR && size_ > 0; }
    void CopyTo(DWORD* pixels, int pitch) const {
        const BYTE* bitmap = large_.empty() ? small_ : large_.data();
        CopyBitmap(bitmap, metrics_, format_ == GGO_GRAY8_BITMAP, pixels, pitch);
    }

 private:
    void Enlarge(HDC dc, wchar_t c) {
        size_ = GetGlyphOutlineW(dc, c, format_, &metrics_, 0, nullptr, &kIdentity);
        if (!has_bitmap()) return;
        large_.resize(size_);
        if (GetGlyphOutlineW(dc, c, format_, &metrics_, size_, large_.data(), &kIdentity) != size_)
            size_ = GDI_ERROR;
    }

    unsigned format_;
    GLYPHMETRICS metrics_ = {};
    DWORD size_;
    BYTE small_[8192];
    std::vector<BYTE> large_;
};

// Some frameworks make textures larger than they were asked for: a glyph is then a part of its texture.
bool g_texturesArePadded = false;

void FillGlyph(HGE* hge, HTEXTURE tex, const Outline& outline) {
    DWORD* pixels = hge->Texture_Lock(tex, false, 0, 0, 0, 0);
    if (!pixels) return;
    outline.CopyTo(pixels, hge->Texture_GetWidth(tex, false));
    hge->Texture_Unlock(tex);
}

// The quad shows its whole texture.
void SetWhole(hgeQuad* quad) {
    quad->v[0].tx = quad->v[3].tx = quad->v[0].ty = quad->v[1].ty = 0;
    quad->v[1].tx = quad->v[2].tx = quad->v[2].ty = quad->v[3].ty = 1;
}

// In one piece, as the renderer reads it: it would wait for two.
void MoveTo(hgeVertex* corner, float x, float y) {
    const __m128 xy = _mm_unpacklo_ps(_mm_set_ss(x), _mm_set_ss(y));
    _mm_storeu_ps(&corner->x, _mm_loadh_pi(xy, reinterpret_cast<const __m64*>(&corner->z)));
}

void Place(hgeQuad* quad, float x, float y, float width, float height) {
    MoveTo(&quad->v[0], x, y);
    MoveTo(&quad->v[1], x + width, y);
    MoveTo(&quad->v[2], x + width, y + height);
    MoveTo(&quad->v[3], x, y + height);
}

HDC CreateMemoryDC(HWND window) {
    HDC window_dc = GetDC(window);
    HDC memory_dc = CreateCompatibleDC(window_dc);
    if (window_dc) ReleaseDC(window, window_dc);
    return memory_dc;
}

// Controls print their captions through "%s", in every frame. False when it takes more than that.
bool PrintAsIs(GfxFont* font, float x, float y, const char* format, va_list arguments) {
    if (std::strcmp(format, "%s") != 0) return false;
    const char* text = va_arg(arguments, const char*);
    wchar_t wide[kShortText];
    if (!text || strnlen(text, kShortText) == kShortText) return false;
    code_page::ToWide(CP_THREAD_ACP, text, wide, kShortText);
    font->Render(x, y, wide);
    return true;
}

void PrintFormatted(GfxFont* font, float x, float y, const char* format, va_list arguments) {
    // Buffers of the stack: printing a text again allocates nothing.
    char text[kPrintBytes];
    text[0] = 0;
    int length = std::vsnprintf(text, sizeof text, format, arguments);
    // What is too long ends with a whole character.
    if (length >= kPrintBytes) code_page::CopyText(CP_THREAD_ACP, text, sizeof text - 1, text);
    wchar_t wide[kPrintBytes];
    code_page::ToWide(CP_THREAD_ACP, text, wide, kPrintBytes);
    font->Render(x, y, wide);
}

}  // namespace

GfxFont::GfxFont(const char* face, int size, int bold, int italic, int antialias)
    : m_format(antialias ? GGO_GRAY8_BITMAP : GGO_BITMAP),
      m_ascent(0),
      m_reserved(0),
      m_fontSize(static_cast<float>(size)),
      m_kerningWidth(0),
      m_kerningHeight(0),
      m_hge(hgeCreate(HGE_VERSION)),
      m_sprite(nullptr),
      m_memDC(nullptr),
      m_font(nullptr) {
    live::Born(live::kFont);
    std::memset(m_glyphs, 0, sizeof m_glyphs);
    if (!m_hge) return;
    m_memDC = CreateMemoryDC(m_hge->System_GetState(HGE_HWND));
    if (!m_memDC) return;
    SetMapMode(m_memDC, MM_TEXT);
    SetTextColor(m_memDC, 0xFFFFFF);
    SetBkColor(m_memDC, 0);
    m_font =
        CreateFontA(-size, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, italic != 0, FALSE, FALSE, DEFAULT_CHARSET,
                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, face);
    if (!m_font) return;
    SelectObject(m_memDC, m_font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(m_memDC, &metrics);
    m_ascent = metrics.tmAscent;
    m_sprite = new (std::nothrow) hgeSprite(0, 0, 0, 0, 0);
    if (!m_sprite) ReportTrouble("GfxFont");
    SetColor(0xFFFFFFFF, -1);
}

GfxFont::~GfxFont() {
    live::Gone(live::kFont);
    if (!m_hge) return;
    for (const Glyph& glyph : m_glyphs)
        if (glyph.tex) m_hge->Texture_Free(glyph.tex);
    // The DC first: a font cannot go while it is selected.
    if (m_memDC) DeleteDC(m_memDC);
    if (m_font) DeleteObject(m_font);
    delete m_sprite;
    m_hge->Release();
}

void GfxFont::Print(float x, float y, const char* format, ...) {
    if (!format) return;
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    if (!PrintAsIs(this, x, y, format, arguments)) PrintFormatted(this, x, y, format, again);
    va_end(again);
    va_end(arguments);
}

void GfxFont::Render(float x, float y, const wchar_t* text) {
    if (!text || !m_sprite) return;
    hgeQuad quad = m_sprite->GetQuad();
    SetWhole(&quad);
    const float half_cell = GetWidthFromCharacter(0, false);
    float pen_x = x, pen_y = y;
    for (const wchar_t* c = text; *c; ++c) {
        if (IsLineBreak(*c)) {
            StartLine(x, &pen_x, &pen_y);
            continue;
        }
        unsigned int index = GetGlyphByCharacter(*c);
        if (index < font_count && m_glyphs[index].tex) DrawGlyph(m_glyphs[index], pen_x, pen_y, &quad);
        pen_x += m_kerningWidth + (*c < kFirstFullWidth ? half_cell : m_fontSize);
    }
}

// quad comes with the font's colours and shows whole textures.
void GfxFont::DrawGlyph(const Glyph& glyph, float pen_x, float pen_y, hgeQuad* quad) {
    const float x = pen_x - glyph.offsetX, y = pen_y - glyph.offsetY;
    if (g_texturesArePadded) {
        m_sprite->SetTexture(glyph.tex);
        m_sprite->SetTextureRect(0, 0, glyph.width, glyph.height, true);
        m_sprite->Render(x, y);
        return;
    }
    quad->tex = glyph.tex;
    Place(quad, x, y, glyph.width, glyph.height);
    m_hge->Gfx_RenderQuad(quad);
}

void GfxFont::StartLine(float left, float* x, float* y) const {
    *x = left;
    *y += m_kerningHeight + m_fontSize;
}

SIZE GfxFont::GetTextSize(const wchar_t* text) {
    SIZE size = {0, static_cast<LONG>(m_fontSize)};
    float line = 0;
    for (const wchar_t* c = text ? text : L""; *c; ++c) {
        if (IsLineBreak(*c)) {
            size.cy += static_cast<LONG>(m_kerningHeight + m_fontSize);
            size.cx = std::max(size.cx, static_cast<LONG>(line));
            line = 0;
            continue;
        }
        GetGlyphByCharacter(*c);
        line += m_kerningWidth + GetWidthFromCharacter(*c, false);
    }
    size.cx = std::max(size.cx, static_cast<LONG>(line));
    return size;
}

wchar_t GfxFont::GetCharacterFromPos(const wchar_t* text, float x, float y) {
    float pen_x = 0, pen_y = 0;
    for (const wchar_t* c = text ? text : L""; *c; ++c) {
        if (IsLineBreak(*c)) {
            // The unit behind a line break has a cell, a second line break too.
            if (!*++c) return 0;
            StartLine(0, &pen_x, &pen_y);
        }
        GetGlyphByCharacter(*c);
        float width = GetWidthFromCharacter(*c, false);
        if (pen_x < x && x <= pen_x + width && pen_y < y && y <= pen_y + m_fontSize) return *c;
        pen_x += width + m_kerningWidth;
    }
    return 0;
}

unsigned int GfxFont::GetGlyphByCharacter(wchar_t c) {
    unsigned int index = c;
    CacheCharacter(index, c);
    return index;
}

// The glyph's own advance is not used for layout: text stands on a grid of half and full cells.
float GfxFont::GetWidthFromCharacter(wchar_t c, bool exact) {
    if (exact && c != 0 && c != 0xFFFF) return m_glyphs[GetGlyphByCharacter(c)].advance;
    if (c >= kFirstFullWidth) return m_fontSize;
    // Rounds ties to even: 13 gives 6, 15 gives 8.
    return static_cast<float>(std::lrint(m_fontSize * 0.5f));
}

void GfxFont::CacheCharacter(unsigned int index, wchar_t c) {
    if (index < font_count && !m_glyphs[index].tex && m_font) Safely("a glyph", [&] { Rasterise(index, c); });
}

void GfxFont::Rasterise(unsigned int index, wchar_t c) {
    Outline outline(m_memDC, c, m_format);
    const GLYPHMETRICS& metrics = outline.metrics();
    const int width = static_cast<int>(metrics.gmBlackBoxX), height = static_cast<int>(metrics.gmBlackBoxY);
    HTEXTURE tex = m_hge->Texture_Create(width, height);
    if (!tex) return;
    g_texturesArePadded |=
        m_hge->Texture_GetWidth(tex, false) != width || m_hge->Texture_GetHeight(tex, false) != height;
    if (outline.has_bitmap()) FillGlyph(m_hge, tex, outline);
    m_glyphs[index] = {tex,
                       static_cast<float>(metrics.gmBlackBoxX),
                       static_cast<float>(metrics.gmBlackBoxY),
                       static_cast<float>(-metrics.gmptGlyphOrigin.x),
                       static_cast<float>(metrics.gmptGlyphOrigin.y - m_ascent),
                       static_cast<float>(metrics.gmCellIncX)};
}

void GfxFont::SetColor(DWORD color, int i) {
    if (m_sprite) m_sprite->SetColor(color, i);
}

DWORD GfxFont::GetColor(int i) {
    return m_sprite ? m_sprite->GetColor(i) : 0;
}

void GfxFont::SetKerningWidth(float kerning) {
    m_kerningWidth = kerning;
}
void GfxFont::SetKerningHeight(float kerning) {
    m_kerningHeight = kerning;
}
float GfxFont::GetKerningWidth() {
    return m_kerningWidth;
}
float GfxFont::GetKerningHeight() {
    return m_kerningHeight;
}
float GfxFont::GetFontSize() {
    return m_fontSize;
}
