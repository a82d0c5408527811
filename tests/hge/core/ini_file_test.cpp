#include "core/ini_file.h"

#include <gmock/gmock.h>

#include <climits>
#include <clocale>

#include "core/ini_text.h"
#include "hge/resources/test_data.h"

namespace {

using hge::IniFile;
using hge::Log;
using test::FileText;
using test_data::Out;
using testing::HasSubstr;

class IniFileTest : public testing::Test {
 protected:
    IniFileTest() {
        DeleteFileA(Out("settings.ini").c_str());
        log_.Open(Out("ini.log"));
    }
    std::string LogText() { return FileText(Out("ini.log")); }
    std::string Saved() {
        ini_.Flush();
        return FileText(Out("settings.ini"));
    }

    Log log_;
    IniFile ini_{log_, Out("settings.ini")};
};

TEST_F(IniFileTest, WithoutAFileGettersGiveTheDefaultAndSettersDoNothing) {
    IniFile none(log_, "");
    none.SetInt("a", "b", 1);
    none.SetString("a", "b", "c");
    EXPECT_EQ(none.GetInt("a", "b", 7), 7);
    EXPECT_STREQ(none.GetString("a", "b", "seven"), "seven");
    EXPECT_THAT(LogText(), testing::ContainsRegex("^............ no ini file is set: nothing is saved\r\n$"));
}

TEST_F(IniFileTest, BadInputIsHarmless) {
    EXPECT_EQ(ini_.GetInt(nullptr, "b", 7), 7);
    EXPECT_STREQ(ini_.GetString("a", nullptr, nullptr), "");
    ini_.SetInt(nullptr, "b", 1);
    EXPECT_THAT(LogText(), HasSubstr("a null section or name"));
    ini_.SetString("a", "b", "two\nlines");
    EXPECT_THAT(LogText(), HasSubstr("a value with a line break was not written"));
    EXPECT_EQ(Saved(), "");

    IniFile lost(log_, Out("no such folder\\x.ini"));
    lost.SetInt("a", "b", 1);
    lost.Flush();
    EXPECT_THAT(LogText(), HasSubstr("no such folder\\x.ini\": "));
}

TEST_F(IniFileTest, NumbersComeBackExactlyAndJunkGivesTheDefault) {
    for (int value : {0, -1, INT_MIN, INT_MAX}) {
        ini_.SetInt("n", "int", value);
        EXPECT_EQ(ini_.GetInt("n", "int", 5), value);
    }
    for (float value : {0.1f, -3.4e38f, 1e-38f, 12345.678f}) {
        ini_.SetFloat("n", "float", value);
        EXPECT_EQ(ini_.GetFloat("n", "float", 5), value);
    }
    EXPECT_EQ(ini_.GetInt("n", "missing", 5), 5);
    ini_.SetString("n", "junk", "many");
    EXPECT_EQ(ini_.GetInt("n", "junk", 5), 5);
    EXPECT_EQ(ini_.GetFloat("n", "junk", 2.5f), 2.5f);
    ini_.SetString("n", "mixed", " +12 apples");
    EXPECT_EQ(ini_.GetInt("n", "mixed", 5), 12);
    ini_.SetString("n", "huge", "99999999999");
    EXPECT_EQ(ini_.GetInt("n", "huge", 5), 5);
    ini_.SetString("n", "word", "nan");
    EXPECT_EQ(ini_.GetFloat("n", "word", 2.5f), 2.5f);
}

TEST_F(IniFileTest, TextComesBackAsItWas) {
    std::string longer(5000, 'y');
    for (const char* value :
         {"plain", "", "  blanks  ", "\"quoted\"", "'single'", "a=b;c", "\xcd\xbc\xc6\xac", longer.c_str()}) {
        ini_.SetString("text", "key", value);
        EXPECT_STREQ(ini_.GetString("text", "key", "default"), value);
    }
    ini_.SetString("text", "key", "old");
    char* text = ini_.GetString("text", "key", "");
    EXPECT_STREQ(ini_.GetString("text", "missing", text), "old");
}

TEST_F(IniFileTest, TheFileIsOrdinaryAndFoundAgainByAnother) {
    ini_.SetInt("screen", "width", 800);
    EXPECT_THAT(Saved(), testing::ContainsRegex("\\[screen\\]\r?\nwidth ?= ?800"));
    IniFile other(log_, "");
    other.SetPath(Out("settings.ini"));
    EXPECT_EQ(other.GetInt("SCREEN", "Width", 0), 800);
}

// A text that has not reached the disk yet is read by our own reader.
TEST_F(IniFileTest, TheTextIsReadAsTheSystemReadsIt) {
    const std::string text =
        "\xEF\xBB\xBFstray=0\r\n [ One ] \r\n; note=1\n  key  =  a = b  \r\nquoted=\" x \"\nsingle='y'\r\n"
        "half=\"z\nempty=\nkey=second\n\n[Two]\nkey=\"\"\n[one]\nlate=1\n[last]\nend=9";
    std::ofstream(Out("text.ini"), std::ios::binary) << text;
    for (const char* section : {"One", "one ", "TWO", "last", "none"})
        for (const char* name : {"stray", "; note", "KEY", " key ", "quoted", "single", "half", "empty",
                                 "late", "end", "none"}) {
            char system[100];
            GetPrivateProfileStringA(section, name, "(none)", system, sizeof system, Out("text.ini").c_str());
            std::string own = "(none)";
            hge::GetIniValue(text, section, name, &own);
            EXPECT_EQ(own, system) << section << '.' << name;
        }
}

}  // namespace
