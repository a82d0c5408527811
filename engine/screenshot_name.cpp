#include "engine/screenshot_name.h"

#include <windows.h>

#include <sstream>

namespace {

// UTF-8 takes no substitute, and lacks no character.
bool IsUtf8(unsigned int code_page) {
    return code_page == CP_UTF8 || (code_page == CP_ACP && GetACP() == CP_UTF8);
}

}  // namespace

std::string ScreenshotName(const char* prefix, const std::tm& local, unsigned long long microseconds,
                           unsigned int code_page) {
    auto narrow = [code_page](const wchar_t* character) {
        char buffer[16] = {};
        // File names may hold the substitute.
        WideCharToMultiByte(code_page, 0, character, -1, buffer, sizeof buffer,
                            IsUtf8(code_page) ? nullptr : "_", nullptr);
        return std::string(buffer);
    };
    std::ostringstream name;
    name << (prefix ? prefix : "") << local.tm_year + 1900 << narrow(L"\u5e74") << local.tm_mon + 1
         << narrow(L"\u6708") << local.tm_mday << narrow(L"\u65e5") << ' ' << local.tm_hour
         << narrow(L"\u65f6") << local.tm_min << narrow(L"\u5206") << local.tm_sec << narrow(L"\u79d2") << '_'
         << microseconds << ".bmp";
    return name.str();
}
