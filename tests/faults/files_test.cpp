// Full and read-only disks, and packs that somebody else changes: what was saved before stays.
#include <gmock/gmock.h>

#include <future>
#include <thread>

#include "faults/fault_seams.h"
#include "support/files.h"
#include "support/framework_fixture.h"

namespace {

using testing::HasSubstr;

class FilesTest : public FrameworkTest {
 protected:
    void TearDown() override { fault_seams::LimitDisk(-1); }

    static std::string Path(const char* name) { return hge_->Resource_MakePath(name); }
    // Setting the ini file waits for what goes to the one before.
    static void UseIni(const char* name) { hge_->System_SetState(HGE_INIFILE, name); }
    static size_t FilesLike(const char* pattern) { return test::FilesIn(Path(""), pattern).size(); }
};

TEST_F(FilesTest, AFullDiskLeavesThePictureThatWasThere) {
    std::string path = Path("full.bmp");
    Scene([] {}, 0xFF112233);
    hge_->System_Snapshot("full.bmp");
    std::string saved = test::FileText(path);
    ASSERT_GT(saved.size(), 1000u);
    Scene([] {}, 0xFF445566);
    for (long long room : {0LL, 100LL, 1000000LL}) {
        fault_seams::LimitDisk(room);
        hge_->System_Snapshot("full.bmp");
        EXPECT_THAT(hge_->System_GetErrorMessage(), HasSubstr("full.bmp\": Disk full"));
        EXPECT_EQ(test::FileText(path), saved) << room;
        EXPECT_EQ(FilesLike("full.bmp*"), 1u) << "no half of a file";
    }
    fault_seams::LimitDisk(-1);
    hge_->System_Snapshot("full.bmp");
    EXPECT_NE(test::FileText(path), saved);
    DeleteFileA(path.c_str());
}

TEST_F(FilesTest, AFullOrReadOnlyDiskLeavesTheSettingsThatWereSaved) {
    std::string path = Path("full.ini");
    DeleteFileA(path.c_str());
    UseIni("full.ini");
    hge_->Ini_SetString("best", "player", "1200");
    UseIni("full.ini");
    std::string saved = test::FileText(path);
    for (long long room : {0LL, 5LL, 20LL}) {
        fault_seams::LimitDisk(room);
        hge_->Ini_SetString("best", "player", "1300 and some more than before");
        UseIni("full.ini");
        EXPECT_EQ(test::FileText(path), saved) << room;
        EXPECT_STREQ(hge_->Ini_GetString("best", "player", ""), "1200");
        EXPECT_EQ(FilesLike("full.ini*"), 1u);
    }
    fault_seams::LimitDisk(-1);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    hge_->Ini_SetString("best", "player", "1400");
    EXPECT_EQ(test::FileText(path), saved);
    EXPECT_THAT(LogText(), HasSubstr("cannot write ini file \"" + path + "\": "));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    hge_->Ini_SetString("best", "player", "1400");
    UseIni("full.ini");
    EXPECT_STREQ(hge_->Ini_GetString("best", "player", ""), "1400");
    DeleteFileA(path.c_str());
}

TEST_F(FilesTest, ABusyDiskHoldsUpNoFrameAndLosesNoSetting) {
    std::string path = Path("busy.ini");
    DeleteFileA(path.c_str());
    UseIni("busy.ini");
    hge_->Ini_SetInt("best", "first", 1);
    UseIni("busy.ini");
    std::string saved = test::FileText(path);
    std::promise<void> stalled, shutting_down;
    std::thread disk([&] {
        auto busy = fault_seams::StallDisk();
        stalled.set_value();
        shutting_down.get_future().wait();
        // Longer than all else that shutting down does.
        Sleep(1500);
    });
    stalled.get_future().wait();
    for (int i = 0; i < 50; ++i)
        hge_->Ini_SetInt("scores", std::to_string(i).c_str(), i);
    EXPECT_EQ(hge_->Ini_GetInt("scores", "49", -1), 49);
    EXPECT_EQ(hge_->Ini_GetInt("best", "first", -1), 1);
    EXPECT_EQ(hge_->Ini_GetInt("scores", "50", -1), -1);
    EXPECT_EQ(test::FileText(path), saved);
    shutting_down.set_value();
    hge_->System_Shutdown();
    saved = test::FileText(path);
    EXPECT_THAT(saved, testing::AllOf(HasSubstr("first=1"), HasSubstr("\n0=0"), HasSubstr("\n49=49")));
    disk.join();

    ASSERT_TRUE(hge_->System_Initiate());
    {
        auto busy = fault_seams::StallDisk();
        fault_seams::LimitDisk(0);
        hge_->Ini_SetInt("scores", "50", 50);
    }
    UseIni("");
    EXPECT_EQ(test::FileText(path), saved);
    EXPECT_THAT(LogText(), HasSubstr("cannot write ini file \"" + path + "\": Disk full"));
    DeleteFileA(path.c_str());
}

TEST_F(FilesTest, ALogThatCannotBeWrittenStopsNothing) {
    for (const char* log : {"Z:\\dev\\full", "Z:\\proc\\no.log", "."}) {
        hge_->System_Shutdown();
        hge_->System_SetState(HGE_LOGFILE, log);
        EXPECT_TRUE(hge_->System_Initiate()) << log;
        hge_->System_Log("nowhere");
        EXPECT_EQ(hge_->Texture_Load("missing.png"), 0u);
        EXPECT_THAT(hge_->System_GetErrorMessage(), HasSubstr("missing.png"));
    }
    hge_->System_Shutdown();
    hge_->System_SetState(HGE_LOGFILE, "framework_test.log");
    ASSERT_TRUE(hge_->System_Initiate());
}

TEST_F(FilesTest, APackThatIsCutOrReplacedWhileAttachedSaysSo) {
    std::string path = Path("changed.zip"), whole = test::FileText(Path(TEST_DATA "faults.zip"));
    std::ofstream(path, std::ios::binary) << whole;
    ASSERT_TRUE(hge_->Resource_AttachPack("changed.zip"));
    void* before = hge_->Resource_Load("picture.png");
    EXPECT_NE(before, nullptr);
    hge_->Resource_Free(before);
    const std::string replaced[] = {whole.substr(0, 60), "", std::string(whole.size(), 'x')};
    for (const std::string& bytes : replaced) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
        for (const char* name : {"picture.png", "tone.ogg"}) {
            DWORD size = 7;
            EXPECT_EQ(hge_->Resource_Load(name, &size), nullptr) << bytes.size();
            EXPECT_EQ(size, 0u);
            EXPECT_THAT(hge_->System_GetErrorMessage(), HasSubstr("pack \"changed.zip\": "));
        }
    }
    // Deleting needs the pack to go first, as long as nobody does it past the system.
    hge_->Resource_RemovePack("changed.zip");
    EXPECT_TRUE(DeleteFileA(path.c_str()));
    EXPECT_EQ(hge_->Resource_Load("picture.png"), nullptr);
}

}  // namespace
