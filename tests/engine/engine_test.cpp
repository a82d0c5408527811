#include <memory>

#include "drill2d/resources.h"
#include "engine/recording_sink.h"
#include "support/recording_test.h"
#include "support/win32_seams.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class EngineTest : public RecordingTest {
 protected:
    EngineTest() { win32_seams::Reset(); }

    // As a host does: start, then inside the loop what `loop` does.
    bool Start(
        std::function<void()> loop = [] {}, const char* title = "Drill", bool zbuffer = true) {
        Recording().on_start = [loop] {
            Recording().ClearCalls();
            loop();
            return true;
        };
        return engine_->InitHge(800, 600, title, zbuffer);
    }

    std::unique_ptr<C2DGameEngine> engine_ = std::make_unique<C2DGameEngine>();
    RecordingSink sink_;
};

TEST_F(EngineTest, StartsEmptyAndInert) {
    EXPECT_TRUE(!engine_->GetHge() && !engine_->GetGui() && !engine_->GetEngineSink());
    EXPECT_FALSE(engine_->IsEnableFx() || engine_->IsGameTimeEnd());
    EXPECT_FALSE(engine_->SetEngineSink(nullptr));
    RecordingControl control("control");
    control.id = 77;
    engine_->AddControl(&control);
    EXPECT_FALSE(engine_->SetCursor("cursor.png", nullptr));
    EXPECT_TRUE(!engine_->Play2DSound("a.wav") && !engine_->Play2DSound(7ul));
    engine_->PlayMusic("a.ogg", true);
    engine_->StopMusic();
    engine_->CreateFx(nullptr);
    engine_->saveImage(nullptr);
    EXPECT_TRUE(control.id == 77 && engine_->GetSoundSize() == 0);
    engine_.reset();
    EXPECT_THAT(Recording().AllCalls(), IsEmpty());
}

TEST_F(EngineTest, StartsTheFrameworkInOrder) {
    std::vector<std::string> before_loop;
    engine_->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_));
    sink_.on["OnInit"] = [this] {
        EXPECT_NE(engine_->GetGui(), nullptr);
        EXPECT_EQ(engine_->GetHge(), &Recording());
    };
    Recording().on_start = [&] {
        before_loop = Story(Recording().Calls());
        return false;
    };
    EXPECT_TRUE(engine_->InitHge(800, 600, "Drill", true)) << "the loop's result does not count";

    EXPECT_THAT(
        before_loop,
        ElementsAre("System_SetState(HGE_FRAMEFUNC, <func>)", "System_SetState(HGE_RENDERFUNC, <func>)",
                    "System_SetState(HGE_TITLE, \"\")", "System_SetState(HGE_WINDOWED, false)",
                    "System_SetState(HGE_SCREENBPP, 32)", "System_SetState(HGE_SCREENWIDTH, 800)",
                    "System_SetState(HGE_SCREENHEIGHT, 600)", "System_SetState(HGE_USESOUND, true)",
                    "System_SetState(HGE_FPS, 60)", "System_SetState(HGE_ZBUFFER, true)",
                    "System_SetState(HGE_SHOWSPLASH, false)", "System_SetState(HGE_DONTSUSPEND, true)",
                    "System_SetState(HGE_HIDEMOUSE, false)", "System_SetState(HGE_TITLE, \"Drill\")",
                    "System_SetState(HGE_LOGFILE, \"game.log\")", "System_Initiate()", "OnInit",
                    "System_Start()"));
    EXPECT_EQ(Recording().System_GetState(HGE_FRAMEFUNC), &C2DGameEngine::FrameFuc);
    EXPECT_EQ(Recording().System_GetState(HGE_RENDERFUNC), &C2DGameEngine::Render);
}

TEST_F(EngineTest, AFailedStartGivesTheFrameworkBackOnce) {
    Recording().initiate_result = false;
    engine_->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_));
    EXPECT_FALSE(Start([] {}, nullptr, false));
    EXPECT_THAT(Recording().CallsMatching("System_SetState(HGE_TITLE"),
                ElementsAre("System_SetState(HGE_TITLE, \"\")"))
        << "a null title leaves it empty";
    EXPECT_FALSE(Recording().System_GetState(HGE_ZBUFFER));
    Recording().ClearCalls();
    EXPECT_FALSE(Start());
    std::vector<std::string> calls = Recording().AllCalls();
    calls.erase(calls.begin(), std::find(calls.begin(), calls.end(), "System_Initiate()"));
    EXPECT_THAT(calls, ElementsAre("System_Initiate()", "System_Shutdown()", "Release()"));
    EXPECT_EQ(engine_->GetGui(), nullptr);
}

TEST_F(EngineTest, TrainingTimeSetInOnInitIsCleared) {
    win32_seams::SetTick(1000);
    engine_->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_));
    sink_.on["OnInit"] = [this] {
        engine_->setGameTimeTotal(10);
        engine_->initPlayTime();
        engine_->playGame();
    };
    Start([this] {
        win32_seams::AdvanceTick(500);
        EXPECT_EQ(engine_->getPlayTimed(), 0);
        engine_->initPlayTime();
        win32_seams::AdvanceTick(70);
        EXPECT_EQ(engine_->getPlayTimed(), 70);
    });
}

TEST_F(EngineTest, ControlsGetRisingIdsAndTheFocus) {
    Start([this] {
        auto* first = new RecordingControl("first");
        auto* second = new RecordingControl("second");
        for (RecordingControl* added : {first, second}) {
            engine_->AddControl(added);
            EXPECT_EQ(engine_->GetGui()->GetFocus(), added->id);
        }
        engine_->RemoveControl(second);
        EXPECT_EQ(engine_->GetGui()->GetCtrl(second->id), nullptr);
        engine_->AddControl(second);
        EXPECT_EQ(second->id, first->id + 2) << "ids rise and are not used again";

        Recording().ClearCalls();
        engine_->GotoTailControl(first);
        engine_->GotoTailControl(first);
        engine_->GetGui()->Render();
        EXPECT_THAT(Story(Recording().Calls()), ElementsAre("second drawn", "first drawn"));
        engine_->AddControl(nullptr);
        engine_->RemoveControl(nullptr);
        engine_->GotoTailControl(nullptr);
    });
}

TEST_F(EngineTest, ADifferentCursorReplacesTheFirst) {
    Recording().files["cursor.png"] = "image";
    Start([this] {
        CGameResourceManager manager(&Recording());
        manager.AttachPacket("pack.zip");
        manager.SetCurPacket("pack.zip");
        int before = Recording().references;
        EXPECT_TRUE(engine_->SetCursor("cursor.png", &manager));
        EXPECT_TRUE(engine_->SetCursor("cursor.png", &manager));
        EXPECT_EQ(Recording().references, before + 2) << "one CGameSprite with one hgeSprite";

        Recording().mouse_x = 40;
        Recording().mouse_y = 30;
        engine_->GetGui()->Render();
        EXPECT_THAT(Recording().CallsMatching("Gfx"), ElementsAre("Gfx_RenderQuad(tex 1, 40,30 104,94)"));
        Recording().quads.clear();
        EXPECT_TRUE(engine_->SetCursor("missing.png", &manager)) << "the sprite is kept, empty";
        engine_->GetGui()->Render();
        EXPECT_TRUE(Recording().quads.empty());
        manager.FreePacketResource("pack.zip");
    });
}

TEST_F(EngineTest, EndsInOrderAndGivesEverythingBack) {
    engine_->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_));
    Start([this] {
        engine_->AddControl(new RecordingControl("control"));
        engine_->SetCursor("cursor.png", nullptr);
    });
    Recording().ClearCalls();
    engine_.reset();
    EXPECT_THAT(
        Story(Recording().Calls()),
        ElementsAre("control deleted", "shutdown: still alive in the kit: 2 sprites", "System_Shutdown()"));
    EXPECT_EQ(Recording().AllCalls().back(), "Release()");
}

}  // namespace
