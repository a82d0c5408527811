#include "fonts.h"

#include <cmath>

#include "palette.h"

namespace training {

namespace {

std::unique_ptr<GfxFont> MakeFont(int size, bool bold) {
    return std::make_unique<GfxFont>(FaceName().c_str(), size, bold, false, true);
}

}  // namespace

std::string ToAnsi(const wchar_t* text, const char* fallback) {
    if (!CodePageHas(text)) return fallback;
    int length = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), length, nullptr, nullptr);
    narrow.pop_back();
    return narrow;
}

// With UTF-8 as the code page everything is there, and the call does not take the flag.
bool CodePageHas(const wchar_t* text) {
    if (GetACP() == CP_UTF8) return true;
    BOOL lost = FALSE;
    int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text, -1, nullptr, 0, nullptr, &lost);
    return length > 0 && !lost;
}

std::string FaceName() {
    return ToAnsi(L"宋体", "SimSun");
}

Fonts::Fonts()
    : small_(MakeFont(18, false)),
      body_(MakeFont(22, false)),
      large_(MakeFont(44, true)),
      caption_(MakeFont(22, false)) {
    caption_->SetColor(kInk, -1);
}

// At whole pixels: between two of them the letters would be blurred.
void Fonts::Draw(Size size, Align align, float x, float y, DWORD color, const std::wstring& text) {
    if (align == kCentre) x -= Width(size, text) * 0.5f;
    if (align == kRight) x -= Width(size, text);
    Get(size).SetColor(color, -1);
    Get(size).Render(std::floor(x), std::floor(y), text.c_str());
}

}  // namespace training
