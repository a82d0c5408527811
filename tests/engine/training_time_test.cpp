#include "drill2d/controls.h"
#include "engine/running_engine.h"
#include "text/code_page.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr float kWidth = 320, kHeight = 200;

// The end of a run marks the process for good, so this program has no other tests and these run in order.
class TrainingTimeTest : public RunningEngine {
 protected:
    static void SetUpTestSuite() {
        RunningEngine::SetUpTestSuite();
        window_ = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, static_cast<int>(kWidth),
                                  static_cast<int>(kHeight), nullptr, nullptr, nullptr, nullptr);
        Engine()->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_));
    }
    static void TearDownTestSuite() { DestroyWindow(window_); }

    void SetUp() override {
        RunningEngine::SetUp();
        Recording().window = window_;
        win32_seams::SetTick(10000);
        win32_seams::SetActiveWindow(window_);
        Engine()->stop_game_time();
        Engine()->GetGui()->SetFocus(0);
        Recording().mouse_x = 400;
        Recording().mouse_y = 300;
    }
    static void StartRun(DWORD total) {
        Engine()->setGameTimeTotal(total);
        Engine()->initPlayTime();
        Engine()->playGame();
    }
    // What one frame with a click in it told the host.
    static std::vector<std::string> Frame() {
        Recording().ClearCalls();
        Recording().Press(HGEK_LBUTTON);
        EXPECT_FALSE(C2DGameEngine::FrameFuc());
        Recording().Lift(HGEK_LBUTTON);
        Recording().NextFrame();
        std::vector<std::string> told;
        for (const std::string& line : Story(Recording().Calls()))
            if (line.rfind("On", 0) == 0) told.push_back(line.substr(0, line.find('(')));
        return told;
    }
    static CGameLableEx* Notice() {
        return dynamic_cast<CGameLableEx*>(Engine()->GetGui()->GetCtrl(Engine()->GetGui()->GetFocus()));
    }

    static HWND window_;
    static RecordingSink sink_;
};

HWND TrainingTimeTest::window_ = nullptr;
RecordingSink TrainingTimeTest::sink_;

TEST_F(TrainingTimeTest, WithoutATotalOrAStartThereIsNoLimit) {
    Engine()->initPlayTime();
    win32_seams::AdvanceTick(1000000);
    EXPECT_FALSE(Engine()->PlayGameOpr());
    EXPECT_EQ(Engine()->getPlayTimed(), 1000000);
    Engine()->stop_game_time();
    EXPECT_EQ(Engine()->getPlayTimed(), 0);
    Engine()->setGameTimeTotal(1000);
    EXPECT_FALSE(Engine()->PlayGameOpr());
    EXPECT_EQ(Engine()->getPlayTimed(), 0);
}

TEST_F(TrainingTimeTest, PausesCount) {
    StartRun(1000);
    Engine()->PauseGame();
    win32_seams::AdvanceTick(999);
    Engine()->playGame();
    EXPECT_EQ(Engine()->getPlayTimed(), 999);
    EXPECT_THAT(Frame(), ElementsAre("OnFrame", "OnLButtonDown", "OnMouseMove"));
}

TEST_F(TrainingTimeTest, TheLimitHoldsOverTheWrapOfTheTickCounter) {
    win32_seams::SetTick(0xFFFFFF00);
    StartRun(0x200);
    win32_seams::SetTick(0xFF);
    EXPECT_FALSE(Engine()->PlayGameOpr());
    EXPECT_EQ(Engine()->getPlayTimed(), 0x1FF);
}

TEST_F(TrainingTimeTest, TheEndIsShownForFiveSecondsThenTheProgramQuits) {
    StartRun(1000);
    Engine()->PauseGame();
    win32_seams::AdvanceTick(1000);
    EXPECT_THAT(Frame(), IsEmpty()) << "the host gets neither frames nor the mouse";
    CGameLableEx* notice = Notice();
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(notice->GetRect().x2 == kWidth && notice->GetRect().y2 == kHeight);
    if (GetACP() == 936 || GetACP() == CP_UTF8) {
        EXPECT_EQ(code_page::ToWide(CP_ACP, notice->getText()),
                  L" \u5c0a\u656c\u7684\u7528\u6237,\u8bad\u7ec3\u65f6\u95f4\u5df2\u5230\uff0c"
                  L"\u6e38\u620f\u5373\u5c06\u9000\u51fa!");
    }
    Recording().ClearCalls();
    C2DGameEngine::Render();
    ASSERT_GT(Recording().quads.size(), 20u);
    EXPECT_EQ(Recording().quads[0].v[2].x, kWidth) << "the screen is dimmed";
    EXPECT_EQ(Recording().quads[0].v[2].col, 0x96000000);
    EXPECT_EQ(Recording().quads[1].v[0].col, 0x96FFFFFF);
    EXPECT_THAT(Story(Recording().Calls()), Contains("OnRender"));
    win32_seams::AdvanceTick(4999);
    Engine()->playGame();
    EXPECT_FALSE(notice->IsWindowVisible());
    EXPECT_EQ(Engine()->GetGui()->GetFocus(), 0);
    EXPECT_THAT(Frame(), IsEmpty());
    EXPECT_TRUE(notice->IsWindowVisible()) << "the run is still over";
    EXPECT_THAT(win32_seams::QuitMessages(), IsEmpty());
    EXPECT_FALSE(Engine()->IsGameTimeEnd());
    win32_seams::AdvanceTick(1);
    EXPECT_THAT(Frame(), IsEmpty());
    EXPECT_THAT(win32_seams::QuitMessages(), ElementsAre(0));
    EXPECT_TRUE(Engine()->IsGameTimeEnd());
    win32_seams::AdvanceTick(500);
    EXPECT_EQ(Engine()->getPlayTimed(), 1000);
}

TEST_F(TrainingTimeTest, ALaterEndQuitsAtOnceWithANoticeOfItsOwn) {
    EXPECT_THAT(Frame(), Contains("OnFrame")) << "the host plays again";
    win32_seams::SetTick(50000);
    StartRun(100);
    win32_seams::AdvanceTick(100);
    EXPECT_THAT(Frame(), IsEmpty());
    CGameLableEx* notice = Notice();
    ASSERT_NE(notice, nullptr);
    EXPECT_THAT(win32_seams::QuitMessages(), ElementsAre(0));
    Engine()->stop_game_time();
    EXPECT_EQ(notice->gui, nullptr) << "taken out of the GUI, not deleted";
}

}  // namespace
