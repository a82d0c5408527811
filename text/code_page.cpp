#include "text/code_page.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "text/known_characters.h"
#include "text/whole_characters.h"

namespace code_page {
namespace {

// The longest run of whole characters within limit bytes of a text that is longer.
size_t WholeCharacters(unsigned int code_page, const char* text, size_t limit) {
    CPINFOEXW info = {};
    if (GetCPInfoExW(code_page, 0, &info) && info.CodePage == CP_UTF8) return WholeUtf8(text, limit);
    auto is_lead_byte = [&](unsigned char byte) { return IsDBCSLeadByteEx(info.CodePage, byte) != FALSE; };
    return WholeDoubleBytes(text, limit, is_lead_byte);
}

// Null but for what is drawn: texts in the code page of the thread that draws.
KnownCharacters* KnownFor(unsigned int code_page) {
    static const DWORD drawing_thread = GetCurrentThreadId();
    static std::unique_ptr<KnownCharacters> known;
    if (code_page != CP_THREAD_ACP || GetCurrentThreadId() != drawing_thread) return nullptr;
    if (!known || !known->Are(code_page)) known.reset(new (std::nothrow) KnownCharacters(code_page));
    return known.get();
}

}  // namespace

void CopyText(unsigned int code_page, char* dest, size_t size, const char* text) {
    size_t length = std::strlen(text);
    if (length >= size) length = WholeCharacters(code_page, text, size - 1);
    std::memmove(dest, text, length);
    std::memset(dest + length, 0, size - length);
}

void ToWide(unsigned int code_page, const char* text, wchar_t* dest, int size) {
    KnownCharacters* known = KnownFor(code_page);
    if (known && known->ToWide(text, dest, size)) return;
    if (MultiByteToWideChar(code_page, 0, text, -1, dest, size) == 0) dest[0] = 0;
}

std::wstring ToWide(unsigned int code_page, const char* text) {
    int length = MultiByteToWideChar(code_page, 0, text, -1, nullptr, 0);
    if (length <= 0) return std::wstring();
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(code_page, 0, text, -1, &wide[0], length);
    wide.resize(wide.size() - 1);
    return wide;
}

std::string FromWide(unsigned int code_page, const wchar_t* text) {
    int length = WideCharToMultiByte(code_page, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (length <= 0) return std::string();
    std::string narrow(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(code_page, 0, text, -1, &narrow[0], length, nullptr, nullptr);
    narrow.resize(narrow.size() - 1);
    return narrow;
}

// Question marks tell a user nothing; the round trip shows what the code page lost.
std::string SystemText(const wchar_t* text, const char* fallback) {
    std::string narrow = FromWide(CP_ACP, text);
    return ToWide(CP_ACP, narrow.c_str()) == text ? narrow : fallback;
}

}  // namespace code_page
