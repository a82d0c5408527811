#include "core/win32_error.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>

namespace hge {

std::string Win32ErrorText(unsigned long code) {
    char text[256];
    DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    DWORD length = FormatMessageA(flags, nullptr, code, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), text,
                                  256, nullptr);
    if (!length) length = FormatMessageA(flags, nullptr, code, 0, text, 256, nullptr);
    while (length && (text[length - 1] == ' ' || text[length - 1] == '.'))
        --length;

    char number[32];
    std::snprintf(number, sizeof number, code > 0xFFFF ? "error 0x%08lX" : "error %lu", code);
    if (!length) return number;
    return std::string(text, length) + " (" + number + ")";
}

}  // namespace hge
