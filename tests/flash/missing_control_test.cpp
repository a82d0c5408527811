
#include <memory>

#include "drill2d/flash.h"
#include "flash/control/movie_control.h"
#include "support/files.h"
#include "support/recording_test.h"

// This program has no flash.ocx beside it.

namespace {

// Registers the control while it lives: for this user, and where COM looks only at the machine's classes
// there.
class Registration {
 public:
    Registration() {
        std::string path = test::ProgramFolder() + "registered_control.dll";
        for (HKEY classes : {user_classes_, HKEY_CLASSES_ROOT}) {
            RegSetKeyValueA(classes, kServer, nullptr, REG_SZ, path.c_str(), path.size() + 1);
            RegSetKeyValueA(classes, kServer, "ThreadingModel", REG_SZ, "Apartment", 10);
        }
    }
    ~Registration() {
        for (HKEY classes : {user_classes_, HKEY_CLASSES_ROOT})
            RegDeleteTreeA(classes, kClass);
        RegCloseKey(user_classes_);
    }

 private:
    static HKEY OpenUserClasses() {
        HKEY key = nullptr;
        RegCreateKeyA(HKEY_CURRENT_USER, "Software\\Classes", &key);
        return key;
    }

    static constexpr char kClass[] = "CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540000}";
    static constexpr char kServer[] = "CLSID\\{D27CDB6E-AE6D-11CF-96B8-444553540000}\\InprocServer32";
    HKEY user_classes_ = OpenUserClasses();
};

class MissingControlTest : public RecordingTest {
 protected:
    MissingControlTest() { FlashManager::CreatFlashManager(&Recording()); }
    ~MissingControlTest() override { FlashManager::DestroyFlashManager(); }

    char file_[8] = "C:\\m";
};

TEST_F(MissingControlTest, EveryOperationStands) {
    FlashPlayer player;
    EXPECT_FALSE(player.StartAnimation(file_, 30, 20, nullptr));
    player.Play();
    player.Pause();
    player.Unpause();
    player.Stop();
    player.GotoFrame(1);
    player.CallLabel("/", "a");
    player.SetVariable("a", "b");
    player.SetLoopPlay(true);
    player.MouseMove(1, 1);
    EXPECT_TRUE(!player.IsPlaying() && player.GetCurrentFrame() == -1 && player.GetTotalFrames() == -1);
    EXPECT_TRUE(player.GetVariable("a").empty() && player.GetCurrentLabel("/").empty());
    EXPECT_TRUE(player.GetBackgroundColor() == 0 && player.GetLoopPlay() == 0);
    EXPECT_TRUE(player.Update() == 1 && player.Render() == 0 && player.Render(nullptr) == 0);
    EXPECT_EQ(FlashPlayer::GetFlashVersion(), 0.0);
}

TEST_F(MissingControlTest, ShowsNothingAndLogsOneLine) {
    IFlashSprite* sprite = FlashManager::CreatFlashSprite(true);
    EXPECT_TRUE(sprite->LoadFlash(file_, 30, 20));
    sprite->Play();
    EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 0, 0, 30, 20));
    FlashManager::Render();
    EXPECT_TRUE(Recording().quads.empty() && Recording().textures.empty());
    FlashManager::DestroyFlashSprite(sprite);

    std::vector<std::string> log = Recording().CallsMatching("System_Log");
    ASSERT_EQ(log.size(), 1u);
    EXPECT_THAT(log[0], testing::HasSubstr("No movie control found: neither flash.ocx with the program ("));
    EXPECT_THAT(log[0], testing::HasSubstr("missing_control_test.exe"));
    EXPECT_THAT(log[0], testing::HasSubstr("class {D27CDB6E-AE6D-11CF-96B8-444553540000} (0x80040154)"));
}

TEST_F(MissingControlTest, ARegisteredControlIsFound) {
    auto registration = std::make_unique<Registration>();
    EXPECT_EQ(FlashPlayer::GetFlashVersion(), 10.000030517578125);
    EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 0, 0, 30, 20));
    FlashManager::Render();
    EXPECT_EQ(Recording().quads.size(), 1u);
    EXPECT_THAT(Recording().CallsMatching("System_Log"), testing::IsEmpty());

    HMODULE module = GetModuleHandleA("registered_control.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(ControlOf(module)->objects, 1);
    FlashManager::DestroyFlashManager();
    EXPECT_TRUE(ControlOf(module)->objects == 0 && ControlOf(module)->class_references == 0);
    registration.reset();
    EXPECT_EQ(FlashPlayer::GetFlashVersion(), 0.0);
}

}  // namespace
