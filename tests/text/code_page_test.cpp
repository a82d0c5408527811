#include "text/code_page.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cwchar>

#include "text/known_characters.h"

namespace {

TEST(CodePage, TextThatIsTooLongEndsWithAWholeCharacter) {
    struct {
        unsigned code_page;
        const char* text;
        size_t size;
        const char* copied;
    } const kCases[] = {{1252, "abcdef", 4, "abc"},
                        {936, "\xd6\xd0\xce\xc4", 5, "\xd6\xd0\xce\xc4"},
                        {936, "\xd6\xd0\xce\xc4", 4, "\xd6\xd0"},
                        {936, "a\xd6\xd0\xce\xc4", 4, "a\xd6\xd0"},
                        {CP_UTF8, "\xe4\xb8\xad\xe6\x96\x87", 6, "\xe4\xb8\xad"},
                        {CP_UTF8, "\xe4\xb8\xad\xe6\x96\x87", 3, ""}};
    for (const auto& c : kCases) {
        char buffer[] = "#######";
        code_page::CopyText(c.code_page, buffer, c.size, c.text);
        EXPECT_STREQ(buffer, c.copied);
        EXPECT_EQ(buffer[c.size - 1], '\0') << "the rest is cleared";
        EXPECT_EQ(buffer[c.size], '#') << "nothing behind the buffer is touched";
    }
}

TEST(CodePage, ConvertsWhatItCanAndFallsBackElse) {
    EXPECT_EQ(code_page::ToWide(936, "a\xd6\xd0"), L"a\u4e2d");
    EXPECT_EQ(code_page::FromWide(CP_UTF8, L"a\u4e2d"), "a\xe4\xb8\xad");
    wchar_t small[3] = L"##";
    code_page::ToWide(1252, "abc", small, 3);
    EXPECT_STREQ(small, L"");
    EXPECT_EQ(code_page::SystemText(L"end", "x"), "end");
    EXPECT_EQ(code_page::SystemText(L"\xd800", "half a pair"), "half a pair");
}

// Every pair of bytes, with a character behind it.
TEST(CodePage, KnownCharactersAreThoseOfTheSystem) {
    struct {
        unsigned code_page;
        int fewest;
    } const kCases[] = {{936, 20000}, {932, 6000}, {1252, 15000}, {CP_UTF8, 127 * 127}};
    for (const auto& c : kCases) {
        code_page::KnownCharacters characters(c.code_page);
        int known = 0, different = 0;
        for (int first = 1; first < 256; ++first)
            for (int second = 0; second < 256; ++second) {
                const char text[] = {static_cast<char>(first), static_cast<char>(second), 'z', '\0'};
                wchar_t ours[8], theirs[8];
                if (!characters.ToWide(text, ours, 8)) continue;
                ++known;
                MultiByteToWideChar(c.code_page, 0, text, -1, theirs, 8);
                different += std::wcscmp(ours, theirs) != 0;
            }
        EXPECT_EQ(different, 0) << c.code_page;
        EXPECT_GE(known, c.fewest) << c.code_page;
        wchar_t small[3];
        EXPECT_TRUE(characters.ToWide("ab", small, 3));
        EXPECT_FALSE(characters.ToWide("abc", small, 3)) << "there is no room for the end";
    }
}

}  // namespace
