#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "resources/image.h"
#include "support/files.h"

// The files that make_data.sh made, and a folder to write to; all relative to the test program.
namespace test_data {

inline std::string Folder() {
    return test::ProgramFolder() + TEST_DATA + "\\";
}
inline std::string Pack(const std::string& name) {
    return Folder() + "packs\\" + name;
}
inline std::string Out(const std::string& name) {
    return Folder() + "out\\" + name;
}

inline std::vector<uint8_t> ReadBytes(const std::string& path) {
    std::string text = test::FileText(path);
    return {text.begin(), text.end()};
}
inline bool WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    return static_cast<bool>(file << text << std::flush);
}

// The colours that make_data.sh gives the sample picture, 7 x 5.
inline hge::Image Sample() {
    hge::Image image{7, 5, {}};
    for (uint32_t y = 0; y < 5; ++y)
        for (uint32_t x = 0; x < 7; ++x)
            image.pixels.push_back(((x + y) % 3 * 127 + 1) << 24 | x * 40 << 16 | y * 60 << 8 |
                                   (250 - x * 30));
    return image;
}

inline hge::Image Opaque(hge::Image image) {
    for (uint32_t& pixel : image.pixels)
        pixel |= 0xFF000000;
    return image;
}

}  // namespace test_data

#define SKIP_UNLESS_CODE_PAGE_936() \
    if (GetACP() != 936) GTEST_SKIP() << "the ANSI code page is " << GetACP() << ", not 936"

#define SKIP_WITHOUT_CHINESE_FILES()                           \
    if (!test_data::WriteFile(test_data::Out("\xcd\xbc"), "")) \
    GTEST_SKIP() << "Chinese file names do not work here: is the system's locale missing?"
