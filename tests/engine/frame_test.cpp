#include "engine/running_engine.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The engine has no sink at first.
class FrameTest : public RunningEngine {
 protected:
    void SetUp() override {
        RunningEngine::SetUp();
        Recording().delta = 0.5f;
        MoveMouse(10, 20);
        control_.rect.Set(100, 100, 200, 200);
        Engine()->AddControl(&control_);
        Engine()->GetGui()->SetFocus(0);
    }
    void TearDown() override {
        Engine()->RemoveControl(&control_);
        RunningEngine::TearDown();
    }

    void UseSink() { Engine()->SetEngineSink(static_cast<I2DGameEngineSink*>(&sink_)); }

    static void MoveMouse(float x, float y) {
        Recording().mouse_x = x;
        Recording().mouse_y = y;
    }

    static std::vector<std::string> Frame() {
        Recording().ClearCalls();
        EXPECT_FALSE(C2DGameEngine::FrameFuc());
        Recording().NextFrame();
        return Story(Recording().Calls());
    }

    static std::vector<std::string> Picture() {
        Recording().ClearCalls();
        EXPECT_FALSE(C2DGameEngine::Render());
        return Story(Recording().Calls());
    }

    // Static: the engine keeps the pointer from test to test.
    static RecordingSink sink_;
    RecordingControl control_{"control"};
};

RecordingSink FrameTest::sink_;

TEST_F(FrameTest, WithoutASinkTheGuiLivesOn) {
    ASSERT_EQ(Engine()->GetEngineSink(), nullptr);
    Recording().Press(HGEK_LBUTTON);
    EXPECT_THAT(Frame(), ElementsAre("control updated"));
    EXPECT_THAT(Picture(),
                ElementsAre("Gfx_BeginScene(0)", "Gfx_Clear(0x00000000)", "control drawn", "Gfx_EndScene()"));
}

TEST_F(FrameTest, ButtonEdgesComeInOneOrderAndTogether) {
    UseSink();
    for (int key : {HGEK_RBUTTON, HGEK_LBUTTON}) {
        Recording().keys_up.insert(key);
        Recording().keys_down.insert(key);
    }
    EXPECT_THAT(Frame(), ElementsAre("control updated", "OnFrame(0.5, 0)", "OnLButtonDown(10, 20)",
                                     "OnLButtonUp(10, 20)", "OnRButtonDown(10, 20)", "OnRButtonUp(10, 20)",
                                     "OnMouseMove(10, 20)"));
}

TEST_F(FrameTest, TheFrameworkIsAskedInAFixedOrder) {
    UseSink();
    C2DGameEngine::FrameFuc();
    std::vector<std::string> calls = Story(Recording().AllCalls());
    std::erase_if(calls, [](const std::string& call) {  // the GUI's
        return call == "Input_GetMouseWheel()" || call == "Input_GetKey()";
    });
    calls.erase(calls.begin(), std::find(calls.begin(), calls.end(), "OnFrame(0.5, 0)"));
    EXPECT_THAT(calls,
                ElementsAre("OnFrame(0.5, 0)", "Input_GetMousePos()", "Input_KeyDown(1)", "Input_KeyUp(1)",
                            "Input_KeyDown(2)", "Input_KeyUp(2)", "Input_GetKeyState(1)",
                            "Input_GetKeyState(2)", "System_GetState(HGE_SCREENWIDTH)",
                            "System_GetState(HGE_SCREENHEIGHT)", "OnMouseMove(10, 20)"));
}

TEST_F(FrameTest, AnInactiveWindowIsDrawnButNotPlayed) {
    UseSink();
    win32_seams::SetActiveWindow(nullptr);
    Recording().Press(HGEK_LBUTTON);
    Frame();
    EXPECT_THAT(Recording().CallsMatching("System_Log"), IsEmpty());
    EXPECT_THAT(Picture(), Contains("OnRender"));
}

TEST_F(FrameTest, TheFocusedControlKeepsTheMouseToItself) {
    UseSink();
    MoveMouse(150, 150);
    Recording().Press(HGEK_LBUTTON);
    EXPECT_THAT(Frame(), ElementsAre("control updated", "OnFrame(0.5, 0)"));
    EXPECT_EQ(Engine()->GetGui()->GetFocus(), control_.id) << "the press gave it the focus";
    Recording().Lift(HGEK_LBUTTON);
    Frame();

    MoveMouse(200, 150);
    EXPECT_THAT(Frame(), Contains("OnMouseMove(200, 150)")) << "the right edge is outside";
}

TEST_F(FrameTest, ACommandHidesTheMouseAndCyclesTheGui) {
    UseSink();
    control_.commands = true;
    std::string command = "OnFrame(0.5, " + std::to_string(control_.id) + ")";
    MoveMouse(150, 150);
    // Taken away before the engine asks for the mouse, so that it is not over the focused control.
    sink_.on["OnFrame"] = [this] { control_.rect.Set(0, 0, 1, 1); };
    Recording().Press(HGEK_LBUTTON);
    EXPECT_THAT(Frame(), ElementsAre("control updated", command, "control leaves"));
    EXPECT_THAT(Frame(), ElementsAre("control updated", "OnFrame(0.5, -1)", "control enters"));
    EXPECT_EQ(Engine()->GetGui()->GetFocus(), control_.id);
    sink_.on.clear();
}

TEST_F(FrameTest, AMouseOutsideTheScreenDoesNotMove) {
    UseSink();
    const std::tuple<float, float, bool> places[] = {
        {799, 599, true}, {800, 599, false}, {799, 600, false}, {-1, 0, false}};
    for (auto [x, y, inside] : places) {
        MoveMouse(x, y);
        Recording().Press(HGEK_LBUTTON);
        Frame();
        EXPECT_EQ(Recording().CallsMatching("System_Log(\"OnMouseMove").size(), inside ? 1u : 0u);
        EXPECT_EQ(Recording().CallsMatching("System_Log(\"OnLButtonDown").size(), 1u);
    }
}

TEST_F(FrameTest, EffectsDrawThroughTwoTargets) {
    UseSink();
    EXPECT_THAT(Picture(), ElementsAre("Gfx_BeginScene(0)", "Gfx_Clear(0x00000000)", "OnRender",
                                       "control drawn", "Gfx_EndScene()"));
    char file[] = "a.hlsl";
    Engine()->CreateFx(file);
    std::string first = std::to_string(Engine()->GetTaget());
    std::string second = std::to_string(Engine()->GetTaget1());
    EXPECT_THAT(Picture(),
                ElementsAre("Gfx_BeginScene(" + first + ")", "Gfx_Clear(0x00000000)", "OnRenderTarget",
                            "control drawn", "Gfx_EndScene()", "Gfx_BeginScene(" + second + ")",
                            "Gfx_Clear(0x00000000)", "OnRenderTarget1", "Gfx_EndScene()", "Gfx_BeginScene(0)",
                            "Gfx_Clear(0x00000000)", "OnRender", testing::EndsWith(", 0,0 800,600)"),
                            "Gfx_EndScene()"));
    const hgeQuad& back = Recording().quads.at(0);
    EXPECT_EQ(back.tex, Recording().Target_GetTexture(Engine()->GetTaget()));
    EXPECT_EQ(back.tex2, Recording().Target_GetTexture(Engine()->GetTaget1()));
    Recording().effect_result = false;
    Engine()->CreateFx(file);
    EXPECT_FALSE(Engine()->IsEnableFx());
    EXPECT_EQ(Recording().targets.size(), 4u) << "earlier targets stay";
}

}  // namespace
