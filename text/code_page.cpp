#include "text/code_page.h"

#include <windows.h>

#include <cstring>

namespace code_page {
namespace {

bool IsUtf8Continuation(char byte) {
    return (byte & 0xC0) == 0x80;
}

// The longest run of whole characters within limit bytes of a text that is longer.
size_t WholeCharacters(unsigned int code_page, const char* text, size_t limit) {
    CPINFOEXW info = {};
    if (GetCPInfoExW(code_page, 0, &info) && info.CodePage == CP_UTF8) {
        while (limit > 0 && IsUtf8Continuation(text[limit]))
            --limit;
        return limit;
    }
    size_t length = 0;
    while (length < limit) {
        size_t next = length + (IsDBCSLeadByteEx(info.CodePage, static_cast<BYTE>(text[length])) ? 2 : 1);
        if (next > limit) break;
        length = next;
    }
    return length;
}

}  // namespace

void CopyText(unsigned int code_page, char* dest, size_t size, const char* text) {
    size_t length = std::strlen(text);
    if (length >= size) length = WholeCharacters(code_page, text, size - 1);
    std::memmove(dest, text, length);
    std::memset(dest + length, 0, size - length);
}

void ToWide(unsigned int code_page, const char* text, wchar_t* dest, int size) {
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
