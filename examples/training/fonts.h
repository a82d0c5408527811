#pragma once

#include <drill2d/font.h>

#include <memory>
#include <string>

namespace training {

// Controls take texts in the system's ANSI code page; the fallback is for code pages that lack a character.
std::string ToAnsi(const wchar_t* text, const char* fallback);
// Whether the system's ANSI code page has every character of the text.
bool CodePageHas(const wchar_t* text);
// The face of all texts, in the ANSI code page.
std::string FaceName();

// The fonts that scenes draw with. A font carries a large table of glyphs: all scenes share these.
class Fonts {
 public:
    enum Size { kSmall, kBody, kLarge };
    enum Align { kLeft, kCentre, kRight };

    // The framework must run.
    Fonts();

    // x: the text's left edge, middle or right edge; y: its top; screen pixels.
    void Draw(Size size, Align align, float x, float y, DWORD color, const std::wstring& text);
    // Pixels.
    float Width(Size size, const std::wstring& text) {
        return static_cast<float>(Get(size).GetTextSize(text.c_str()).cx);
    }
    // For captions of buttons, which share its colour.
    GfxFont* Caption() { return caption_.get(); }

 private:
    GfxFont& Get(Size size) { return size == kSmall ? *small_ : size == kBody ? *body_ : *large_; }

    std::unique_ptr<GfxFont> small_, body_, large_, caption_;
};

}  // namespace training
