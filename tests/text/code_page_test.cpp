#include "text/code_page.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

constexpr unsigned kChinese = 936, kWestern = 1252;

TEST(CodePage, TextThatIsTooLongEndsWithAWholeCharacter) {
    struct {
        unsigned code_page;
        const char* text;
        size_t size;
        const char* copied;
    } const kCases[] = {
        {kWestern, "abcdef", 4, "abc"},
        {kChinese, "\xd6\xd0\xce\xc4", 5, "\xd6\xd0\xce\xc4"},
        {kChinese, "\xd6\xd0\xce\xc4", 4, "\xd6\xd0"},
        {kChinese, "a\xd6\xd0\xce\xc4", 4, "a\xd6\xd0"},
        {CP_UTF8, "\xe4\xb8\xad\xe6\x96\x87", 6, "\xe4\xb8\xad"},
        {CP_UTF8, "\xe4\xb8\xad\xe6\x96\x87", 3, ""},
        {CP_UTF8, "ab\xe4\xb8\xad", 6, "ab\xe4\xb8\xad"},
    };
    for (const auto& c : kCases) {
        char buffer[8];
        std::fill(std::begin(buffer), std::end(buffer), '#');
        code_page::CopyText(c.code_page, buffer, c.size, c.text);
        EXPECT_STREQ(buffer, c.copied);
        EXPECT_EQ(buffer[c.size - 1], '\0') << "the rest is cleared";
        EXPECT_EQ(buffer[c.size], '#') << "nothing behind the buffer is touched";
    }
}

TEST(CodePage, ConvertsBothWays) {
    EXPECT_EQ(code_page::ToWide(kChinese, "a\xd6\xd0"), L"a\u4e2d");
    EXPECT_EQ(code_page::FromWide(CP_UTF8, L"a\u4e2d"), "a\xe4\xb8\xad");
    wchar_t small[3] = L"##";
    code_page::ToWide(kWestern, "abc", small, 3);
    EXPECT_STREQ(small, L"") << "what does not fit is no text";
}

TEST(CodePage, SystemTextFallsBackWhenTheCodePageLacksACharacter) {
    EXPECT_EQ(code_page::SystemText(L"end", "x"), "end");
    EXPECT_EQ(code_page::SystemText(L"\xd800", "half a pair"), "half a pair");
    if (GetACP() == kChinese) {
        EXPECT_EQ(code_page::SystemText(L"\u4e2d", "x"), "\xd6\xd0");
    }
}

}  // namespace
