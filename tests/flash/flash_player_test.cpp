#include "flash/flash_fixture.h"
#include "support/gdi_objects.h"

using test::LiveGdiObjects;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct StartedPlayer : FlashPlayer {
    StartedPlayer() { StartAnimation("m.swf", 30, 20, nullptr); }
    void FlashAnimEnded() override { ++ends; }
    int ends = 0;
};

class FlashPlayerTest : public FlashTest {
 protected:
    std::string Logged() { return testing::PrintToString(Recording().CallsMatching("System_Log")); }
};

TEST_F(FlashPlayerTest, LeavesNoGdiObject) {
    long before = 0;
    for (int life = 0; life < 20; ++life) {
        StartedPlayer player;
        player.Render();
        player.RebuildBuffer();
        if (life == 0) before = LiveGdiObjects();
        EXPECT_EQ(LiveGdiObjects(), before);
    }
    EXPECT_LT(LiveGdiObjects(), before);
}

TEST_F(FlashPlayerTest, RefusesWhatCannotBeShown) {
    control_->empty = true;
    FlashPlayer().StartAnimation("m.swf", 30, 20, nullptr);
    EXPECT_THAT(Logged(), HasSubstr("flash.ocx gave none (0x80040111)"));
    control_->empty = false;
    FlashPlayer player;
    EXPECT_FALSE(player.StartAnimation("m.swf", 0, 20, nullptr));
    EXPECT_THAT(Logged(), HasSubstr("m.swf: a movie of 0 x 20 pixels cannot be shown"));
    EXPECT_FALSE(player.StartAnimation("m.swf", 1 << 30, 1 << 30, nullptr));
    EXPECT_THAT(Logged(), HasSubstr("m.swf: no memory for a movie of 1073741824 x 1073741824 pixels"));
    EXPECT_EQ(player.Render(), 0);
    control_->refuse_play = true;
    EXPECT_FALSE(player.StartAnimation("n.swf", 30, 20, nullptr));
    EXPECT_THAT(Logged(), HasSubstr("n.swf: the movie control refuses to play it (0x00000001)"));
    EXPECT_EQ(player.GetFlashBitmap(), nullptr);
    EXPECT_EQ(Recording().CallsMatching("System_Log").size(), 4u);
}

TEST_F(FlashPlayerTest, KeepsTheFrameDirtyUntilADrawSucceedsAndStandsCallsBack) {
    StartedPlayer player;
    control_->no_view = true;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(player.Render(), 0); }), IsEmpty());
    control_->no_view = false;
    control_->fail_second_draw = true;
    EXPECT_EQ(player.Render(), 0);
    control_->fail_second_draw = false;
    control_->call_site_in_draw = true;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(player.Render(), 1); }), ElementsAre("Draw -1 1", "Draw 1 0"));
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(player.Render(), 0); }), IsEmpty());
}

TEST_F(FlashPlayerTest, LeavesAKeptSiteHarmless) {
    control_->keep_site = true;
    FlashPlayer().StartAnimation("m.swf", 30, 20, nullptr);
    RECT position = {1, 1, 1, 1};
    EXPECT_EQ(control_->kept_site->InvalidateRect(nullptr, FALSE), S_OK);
    EXPECT_EQ(control_->kept_site->GetWindowContext(nullptr, nullptr, &position, nullptr, nullptr), S_OK);
    EXPECT_TRUE(IsRectEmpty(&position));
    EXPECT_EQ(control_->kept_site->Release(), 0u);
}

TEST_F(FlashPlayerTest, PassesControlTextAndMouseOn) {
    StartedPlayer player;
    EXPECT_THAT(CallsOf([&] {
                    player.Forward();
                    player.Back();
                    player.Rewind();
                    player.GotoFrame(2);
                    player.Pause();
                    player.Pause();
                    player.Unpause();
                    player.Unpause();
                    player.Stop();
                    player.Pause();
                    player.Unpause();
                    player.Play();
                    player.SetVariable("name", "\xC4\xE3\xBA\xC3");
                    player.CallLabel("/a", "go");
                    player.MouseMove(3, 2);
                    player.MouseLButtonDown(-1, 2);
                    player.MouseLButtonUp(3, -1);
                }),
                ElementsAre("Forward 1", "Play", "Back 0", "Play", "Rewind 0", "Play", "GotoFrame 2", "Play",
                            "StopPlay", "Play",  // pauses nest and never wake a stopped movie
                            "StopPlay", "Play", "SetVariable name \\20320\\22909", "TCallLabel /a go",
                            "OnWindowMessage 512 0 131075", "OnWindowMessage 513 1 196607",
                            "OnWindowMessage 514 0 -65533"));
    EXPECT_TRUE(player.GetVariable("name") == "\xC4\xE3\xBA\xC3" && player.GetVariable("none").empty());
    EXPECT_TRUE(player.IsPlaying() && player.GetCurrentFrame() == 2 && player.GetTotalFrames() == 3);
    EXPECT_EQ(player.GetCurrentLabel("/clip"), "/clip 2");
    player.SetBackgroundColor(0x123456);
    EXPECT_EQ(player.GetBackgroundColor(), 0x123456);
    EXPECT_EQ(player.GetLoopPlay(), 1);
    control_->loop_answer = 1;
    EXPECT_EQ(player.GetLoopPlay(), 0) << "true is -1 and nothing else";
}

TEST_F(FlashPlayerTest, TellsTheEndOnce) {
    StartedPlayer player;
    player.SetLoopPlay(false);
    for (int frame = 0; frame < 5; ++frame) {
        EXPECT_EQ(player.Update(), 1);
        EXPECT_EQ(player.ends, frame < 3 ? 0 : 1);
        control_->Step();
    }
}

}  // namespace
