#pragma once

#include "drill2d/export.h"
#include "hge.h"

class hgeSprite;

#if defined(__GNUC__)
// Nothing derives from a font, so its destructor needs no slot in the table.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// Text in an installed TrueType face, on a grid: code units below U+2000 take half the font size, all others
// the whole size. A character is rasterised at its first use and kept until the font is destroyed. The table
// of glyphs makes a font 1.5 MB large: make few and keep them. Copies are shallow: never destroy two.
class DRILL2D_API GfxFont {
 public:
    // Code units 0..font_count - 1 can be drawn.
    static const unsigned int font_count = 65535;

    // face: installed name, in the ANSI code page. size: character height in pixels. The three flags: 0 or 1.
    // A font that cannot be had draws nothing.
    GfxFont(const char* face, int size, int bold, int italic, int antialias);
    GfxFont(const GfxFont& other) = default;
    GfxFont& operator=(const GfxFont& other) = default;
    ~GfxFont();

    // As printf, in the thread's ANSI code page; texts of 10240 bytes or more are cut. (x, y): top left,
    // screen pixels.
    virtual void Print(float x, float y, const char* format, ...);
    // CR and LF each start a new line.
    virtual void Render(float x, float y, const wchar_t* text);
    // i: corner of every glyph 0..3 clockwise from the top left, -1 for all.
    virtual void SetColor(DWORD color, int i);
    virtual DWORD GetColor(int i);
    // Pixels, the kerning after the last character included.
    virtual SIZE GetTextSize(const wchar_t* text);
    // The character at (x, y) of a text drawn at (0, 0); 0 when there is none. CR LF is one line here.
    virtual wchar_t GetCharacterFromPos(const wchar_t* text, float x, float y);
    // Added to each cell's width and each line's height, pixels; 0 at first.
    virtual void SetKerningWidth(float kerning);
    virtual void SetKerningHeight(float kerning);
    virtual float GetKerningWidth();
    virtual float GetKerningHeight();
    virtual float GetFontSize();

 private:
    struct Glyph {
        HTEXTURE tex;  // 0: not rasterised yet
        float width, height;
        float offsetX, offsetY;  // subtracted from the pen
        float advance;
    };
    static_assert(sizeof(Glyph) == 24, "six 32-bit values");

    unsigned int GetGlyphByCharacter(wchar_t c);
    float GetWidthFromCharacter(wchar_t c, bool exact);
    void Rasterise(unsigned int index, wchar_t c);
    void CacheCharacter(unsigned int index, wchar_t c);
    void DrawGlyph(const Glyph& glyph, float pen_x, float pen_y, hgeQuad* quad);
    void StartLine(float left, float* x, float* y) const;

    Glyph m_glyphs[font_count];
    unsigned int m_format;
    int m_ascent;
    unsigned int m_reserved;
    float m_fontSize;
    float m_kerningWidth;
    float m_kerningHeight;
    HGE* m_hge;
    hgeSprite* m_sprite;
    HDC m_memDC;
    HFONT m_font;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
