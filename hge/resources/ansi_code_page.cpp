#include "resources/ansi_code_page.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace hge {
namespace {

std::wstring WideFromUtf8(const std::string& text) {
    int size = static_cast<int>(text.size());
    int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), length);
    return wide;
}

std::string AnsiFromWide(const std::wstring& wide) {
    // CP_UTF8 takes neither the flag nor the out-parameter for characters that do not fit.
    bool all_fit = GetACP() == CP_UTF8;
    DWORD flags = all_fit ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL replaced = FALSE;
    BOOL* note = all_fit ? nullptr : &replaced;
    int size = static_cast<int>(wide.size());
    int length = WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, nullptr, note);
    std::string text(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide.data(), size, text.data(), length, nullptr, note);
    return replaced ? std::string() : text;
}

}  // namespace

CodePage AnsiCodePage() {
    return {[](unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; },
            [](const std::string& text) { return AnsiFromWide(WideFromUtf8(text)); }};
}

}  // namespace hge
