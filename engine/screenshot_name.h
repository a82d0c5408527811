#pragma once

#include <ctime>
#include <string>

// prefix (null for none), the local time, the microseconds since 1970 and ".bmp". code_page: CP_ACP or a
// number; a character that it lacks becomes "_".
std::string ScreenshotName(const char* prefix, const std::tm& local, unsigned long long microseconds,
                           unsigned int code_page);
