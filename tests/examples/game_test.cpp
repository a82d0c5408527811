#include "game.h"

#include <gtest/gtest.h>
#include <hgecounters.h>

#include <cstdio>

#include "support/recording_hge.h"
#include "support/win32_seams.h"

using namespace training;

// The recording framework counts nothing.
extern "C" bool CALL hgeGetCounters(hgeCounters* counters) {
    *counters = {};
    return false;
}

namespace {

// The whole game on the recording framework. The engine is one for the life of the process, so this is one
// run.
class GameRun : public testing::Test {
 protected:
    void SetUp() override {
        for (const char* image :
             {"background.png",    "logo.png",       "spark.png",     "button.png",     "button_small.png",
              "icon_settings.png", "icon_close.png", "icon_plus.png", "icon_minus.png", "icon_back.png",
              "check.png",         "window.png",     "board.png",     "card.png",       "lamp.png",
              "burst.png",         "heart.png",      "star.png",      "light.png",      "glint.png"})
            hge_.files[image] = "picture";
        // As the strip of a large button.
        hge_.image_width = 1200;
        hge_.image_height = 64;
        win32_seams::SetTick(1000000);
        win32_seams::SetActiveWindow(hge_.window);
    }
    void Frame(int count = 1) {
        for (; count > 0; --count) {
            C2DGameEngine::FrameFuc();
            C2DGameEngine::Render();
            hge_.NextFrame();
            win32_seams::AdvanceTick(16);
        }
    }
    void Click(int x, int y) {
        win32_seams::AdvanceTick(1000);
        hge_.mouse_x = static_cast<float>(x);
        hge_.mouse_y = static_cast<float>(y);
        Frame(2);
        hge_.Press(HGEK_LBUTTON);
        Frame();
        hge_.Lift(HGEK_LBUTTON);
        Frame(4);
    }
    bool Logged(const std::string& text) { return !hge_.CallsMatching("System_Log(\"" + text).empty(); }
    // Presses the lamps that the log names until the scene changes.
    int PlayWell() {
        int presses = 0;
        for (int frames = 0; frames < 10000 && !Logged("scene: result"); ++frames) {
            Frame();
            std::vector<std::string> cues = hge_.CallsMatching("System_Log(\"press ");
            if (static_cast<int>(cues.size()) == presses) continue;
            int x = 0, y = 0;
            EXPECT_EQ(std::sscanf(cues.back().c_str(), "System_Log(\"press %d %d", &x, &y), 2);
            ++presses;
            Click(x, y);
        }
        return presses;
    }

    RecordingHge& hge_ = Recording();
    I2DGameEngine* engine_ = C2DGameEngine::Get2DGameEngineInstance();
};

}  // namespace

TEST_F(GameRun, FromTheFirstSceneToTheLast) {
    auto game = std::make_unique<Game>(engine_, Options::Parse("--seed 7 --limit 600"));
    engine_->SetEngineSink(static_cast<I2DGameEngineSink*>(game.get()));
    hge_.on_start = [&] {
        EXPECT_EQ(hge_.packs.size(), 2u);
        EXPECT_TRUE(Logged("scene: start"));
        Frame();
        EXPECT_FALSE(hge_.CallsMatching("Effect_Load(\"music.ogg\"").empty());

        hge_.ClearCalls();
        Click(650, 46);
        // Without Chinese in the code page the button is not there.
        size_t changes = CodePageHas(L"\u4e2d\u6587") ? 1 : 0;
        EXPECT_EQ(hge_.CallsMatching("Ini_SetString(\"training\", \"language\", \"zh\"").size(), changes);

        Click(268, 432);
        EXPECT_TRUE(Logged("scene: play"));
        hge_.ClearCalls();
        int presses = PlayWell();
        EXPECT_TRUE(Logged("scene: result"));
        EXPECT_GE(presses, 20);
        EXPECT_EQ(hge_.CallsMatching("Effect_Load(\"hit.wav\"").size(), static_cast<size_t>(presses));
        EXPECT_TRUE(hge_.CallsMatching("Effect_Load(\"miss.wav\"").empty());
        EXPECT_EQ(hge_.CallsMatching("Ini_SetString(\"best\", \"reaction\"").size(), 1u);

        hge_.ClearCalls();
        Click(532, 508);
        EXPECT_TRUE(Logged("scene: start"));
        Click(532, 432);
        EXPECT_TRUE(Logged("scene: play"));
        Click(46, 46);
        EXPECT_EQ(hge_.CallsMatching("System_Log(\"scene: start").size(), 2u);

        hge_.Press(HGEK_F12);
        Frame();
        EXPECT_EQ(hge_.CallsMatching("System_Snapshot(").size(), 1u);
        hge_.Press(HGEK_ESCAPE);
        Frame();
        EXPECT_EQ(win32_seams::QuitMessages(), std::vector<int>{0});

        win32_seams::AdvanceTick(600 * 1000);
        Frame();
        EXPECT_TRUE(engine_->PlayGameOpr()) << "the training time is over";
        return true;
    };
    EXPECT_TRUE(engine_->InitHge(800, 600, "Lamplight", false));
    game.reset();
    delete engine_;
    EXPECT_TRUE(hge_.Faults().empty()) << hge_.Faults().front();
}
