#include "engine/running_engine.h"
#include "engine/screenshot_name.h"
#include "support/files.h"

using test::ProgramFolder;
using testing::ElementsAre;

namespace {

constexpr unsigned kChinese = 936, kTraditional = 950, kWestern = 1252;

std::tm At(int year, int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

// Where the code page has no ideographs, a line stands for each of them.
TEST(ScreenshotName, HasThePartsOfTheDateWithoutLeadingZeros) {
    auto name = [](const char* prefix, const std::tm& time, unsigned long long microseconds) {
        return ScreenshotName(prefix, time, microseconds, kWestern);
    };
    EXPECT_EQ(name("shot", At(2013, 5, 7, 9, 3, 4), 1367888584000123),
              "shot2013_5_7_ 9_3_4__1367888584000123.bmp");
    EXPECT_EQ(name("", At(1999, 12, 31, 23, 59, 59), 1), "1999_12_31_ 23_59_59__1.bmp");
    EXPECT_EQ(name(nullptr, At(2000, 1, 1, 0, 0, 0), 0), "2000_1_1_ 0_0_0__0.bmp");
    EXPECT_EQ(name("a\\b ", At(2024, 2, 29, 12, 30, 60), 99), "a\\b 2024_2_29_ 12_30_60__99.bmp");
}

TEST(ScreenshotName, WritesItsIdeographsInTheCodePage) {
    auto name = [](unsigned code_page) { return ScreenshotName("x", At(1, 2, 3, 4, 5, 6), 7, code_page); };
    EXPECT_EQ(name(kChinese),
              "x1\xc4\xea"
              "2\xd4\xc2"
              "3\xc8\xd5 4\xca\xb1"
              "5\xb7\xd6"
              "6\xc3\xeb_7.bmp");
    EXPECT_EQ(name(kTraditional),
              "x1\xa6\x7e"
              "2\xa4\xeb"
              "3\xa4\xe9 4_5\xa4\xc0"
              "6\xac\xed_7.bmp");
    EXPECT_EQ(name(CP_ACP), name(GetACP()));
}

bool IsFolder(const std::string& path) {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
}

// The time of the last shot is the process's own: every test goes on from where the last one was.
class ScreenshotTest : public RunningEngine {
 protected:
    static void SetUpTestSuite() {
        RunningEngine::SetUpTestSuite();
        // Local time is not the world's.
        _putenv("TZ=CST-8");
        _tzset();
    }
    static void Save(const char* prefix, DWORD tick) {
        win32_seams::SetTick(tick);
        Engine()->saveImage(prefix);
    }
    static std::vector<std::string> Shots() { return Recording().CallsMatching("System_Snapshot"); }
};

TEST_F(ScreenshotTest, GoesIntoAFolderBesideTheProgramUnderTheLocalTime) {
    RemoveDirectoryA((ProgramFolder() + "pic").c_str());
    __time64_t before = _time64(nullptr);
    Save("a\\b", 100000);
    std::string shot = Shots().at(0);
    unsigned long long microseconds = std::stoull(shot.substr(shot.rfind('_') + 1));
    __time64_t seconds = static_cast<__time64_t>(microseconds / 1000000);
    EXPECT_TRUE(seconds >= before && seconds <= _time64(nullptr)) << shot;
    EXPECT_EQ(shot, "System_Snapshot(\"" + ProgramFolder() + "pic\\" +
                        ScreenshotName("a\\b", *_localtime64(&seconds), microseconds, CP_ACP) + "\")");
    EXPECT_TRUE(IsFolder(ProgramFolder() + "pic"));
    EXPECT_FALSE(IsFolder(ProgramFolder() + "pic\\a")) << "the folders of a prefix are the host's";
    RemoveDirectoryA((ProgramFolder() + "pic").c_str());
}

TEST_F(ScreenshotTest, OneIsTakenIn300Milliseconds) {
    // Ticks start anew after 2^32.
    for (DWORD start : {DWORD{200000}, DWORD{0xFFFFFFFF} - 100}) {
        Recording().ClearCalls();
        Save("a", start);
        Save("b", start + 299);
        Save("c", start + 300);
        EXPECT_THAT(Shots(), ElementsAre(testing::HasSubstr("pic\\a"), testing::HasSubstr("pic\\c")))
            << start;
    }
}

}  // namespace
