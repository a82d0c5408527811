#include "gui/ellipsis.h"

namespace {

// Full-width forms count two half cells, all other characters one.
bool IsFullWidthForm(wchar_t c) {
    return c >= 0xFF00 && c <= 0xFFEF;
}

// The first index from the end at which what is left of the text's width fits; -1 when it never does.
int CutIndex(const std::wstring& text, int text_width, int width, float font_size) {
    int remaining = text_width;
    for (int i = static_cast<int>(text.size()) - 1; i >= 0; --i) {
        float cells = IsFullWidthForm(text[static_cast<size_t>(i)]) ? 2.0f : 1.0f;
        remaining = static_cast<int>(static_cast<float>(remaining) - font_size * cells * 0.5f);
        if (remaining <= width) return i;
    }
    return -1;
}

}  // namespace

bool CutWithDots(std::wstring* text, int text_width, int width, float font_size) {
    int cut = CutIndex(*text, text_width, width, font_size);
    if (cut < 0) return false;
    auto index = static_cast<size_t>(cut);
    // The dots take the room of the character they stand for.
    const wchar_t* dots = IsFullWidthForm((*text)[index]) ? L"." : L"..";
    text->replace(index, std::wstring::npos, dots);
    return true;
}
