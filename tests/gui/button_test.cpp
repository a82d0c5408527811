#include "drill2d/font.h"
#include "gui/gui_test.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ButtonTest : public GuiTest {
 protected:
    // A strip of five frames of 100 x 40 pixels.
    CGameButton* AddButton(float x, float y) {
        Recording().image_width = 500;
        Recording().image_height = 40;
        CGameButton* button = Add(new CGameButton);
        EXPECT_TRUE(button->LoadImageInfo("button.png"));
        button->MoveWindow(x, y, 100, 40, true);
        return button;
    }
    float ShownLeft() { return SourceX(Draw().at(0))[0]; }
};

TEST_F(ButtonTest, StandsInMemoryAsHostsExpect) {
    CGameButton button;
    auto address = [](void* part) { return reinterpret_cast<char*>(part); };
    EXPECT_EQ(address(static_cast<hgeGUIObject*>(&button)), address(&button));
    EXPECT_EQ(address(static_cast<IControlOpera*>(&button)), address(&button) + sizeof(hgeGUIObject));
    EXPECT_FALSE(button.bStatic);
    EXPECT_TRUE(button.bVisible && button.bEnabled);
    EXPECT_EQ(button.color, 0xFFFFFFFF);
    EXPECT_EQ(button.GetControlType(), 1u);
    EXPECT_EQ(button.GetState(), 0);
    EXPECT_EQ(button.getTag(), 0u);
    button.setTag(7);
    EXPECT_EQ(button.getTag(), 7u);
    EXPECT_TRUE(button.KeyClick(13, 13));
}

TEST_F(ButtonTest, AnswersItsInterfaceByKindAndVersion) {
    CGameButton button;
    IControlOpera* view = &button;
    for (unsigned long good : {0x01010100ul, 0x01010000ul, 0x010101FFul})
        EXPECT_EQ(button.QueryInterface(IID_IControlOpera, good), view) << good;
    EXPECT_EQ(button.QueryInterface(IID_IUnknownEx, CONTROL_INTERFACE_VERSION), view);
    for (unsigned long bad : {0x02020200ul, 0x01000100ul, 0x01010200ul, 0x00010100ul})
        EXPECT_EQ(button.QueryInterface(IID_IControlOpera, bad), nullptr) << bad;
    EXPECT_EQ(button.QueryInterface(IID_INotifyMsg, CONTROL_INTERFACE_VERSION), nullptr);
}

TEST_F(ButtonTest, RefusesASinkThatTakesNoNotifications) {
    CGameButton button;
    EXPECT_TRUE(button.SetINotifyMsg(&log_));
    EXPECT_FALSE(button.SetINotifyMsg(nullptr));
    button.MouseOver(true);
    EXPECT_THAT(log_.Take(), ElementsAre("#0 over 1")) << "the old sink stays";
    log_.answers = false;
    EXPECT_FALSE(button.SetINotifyMsg(&log_));
    button.MouseOver(false);
    EXPECT_THAT(log_.Take(), IsEmpty());
}

TEST_F(ButtonTest, WorksWithoutImageFontAndSink) {
    Recording().missing = {"none.png"};
    CGameButton button;
    EXPECT_FALSE(button.LoadImageInfo(nullptr, "none.png"));
    EXPECT_TRUE(button.LoadImageInfo("none.png")) << "the button is there, empty";
    button.SetFrame(0);
    EXPECT_TRUE(button.LoadImageInfo("button.png"));
    button.SetCaption(nullptr);
    button.SetFontColor(0xFF000000);
    button.MouseLButton(true);
    EXPECT_TRUE(button.MouseLButton(false)) << "outside its empty rectangle";
    button.Update(1);
    button.Render();
    button.MoveWindow(1, 2, 3, 4, nullptr, true);
    EXPECT_THAT(Edges(button.GetRect()), ElementsAre(0, 0, 0, 64));
}

TEST_F(ButtonTest, AClickIsHoverPressAndReleaseInside) {
    CGameButton* button = AddButton(10, 20);
    Frame();
    EXPECT_EQ(ShownLeft(), 0);
    MoveMouse(50, 40);
    Frame();
    EXPECT_EQ(ShownLeft(), 200);
    Press();
    Frame();
    EXPECT_EQ(ShownLeft(), 100);
    Lift();
    Frame();
    EXPECT_EQ(ShownLeft(), 200);
    MoveMouse(500, 500);
    Frame();
    EXPECT_EQ(ShownLeft(), 0);
    EXPECT_THAT(log_.Take(), ElementsAre("#1 over 1", "#1 down 1", "#1 click 1", "#1 over 0"));
    button->EnableWindow(false);
    EXPECT_EQ(ShownLeft(), 400);
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(400, 500));
    EXPECT_EQ(Draw().at(0).v[2].x, 110) << "stretched over the rectangle";
}

TEST_F(ButtonTest, ReleasedOutsideItIsNotClicked) {
    CGameButton* button = AddButton(0, 0);
    MoveMouse(50, 20);
    Press();
    MoveMouse(300, 300);
    Lift();
    EXPECT_EQ(button->GetState(), 0);
    std::vector<std::string> told = log_.Take();
    ASSERT_GE(told.size(), 2u);
    EXPECT_EQ(told[1], "#1 down 1");
    EXPECT_THAT(told, testing::Not(testing::Contains("#1 click 1")));
}

TEST_F(ButtonTest, APressBlocksPressesOnAllButtonsFor500Milliseconds) {
    CGameButton* first = AddButton(0, 0);
    CGameButton* second = AddButton(200, 0);
    auto click = [&](CGameButton* button, DWORD later) {
        win32_seams::AdvanceTick(later);
        MoveMouse(button->rect.x1 + 5, 5);
        log_.Take();
        Press();
        EXPECT_TRUE(button->GetState() & STATE_PRESSED);
        Lift();
        return log_.Take();
    };
    EXPECT_THAT(click(first, 0), ElementsAre("#1 down 1", "#1 click 1"));
    EXPECT_THAT(click(second, 300), ElementsAre("#2 click 1"));
    EXPECT_THAT(click(second, 200), ElementsAre("#2 click 1")) << "500 is too soon";
    EXPECT_THAT(click(second, 1), ElementsAre("#2 down 1", "#2 click 1"));
    // Over the wrap of the tick counter.
    win32_seams::SetTick(0xFFFFFF00);
    EXPECT_THAT(click(first, 0), ElementsAre("#1 click 1")) << "a tick far back is no later one";
}

TEST_F(ButtonTest, DragsNotifyOnlyWhenAskedFor) {
    CGameButton* button = AddButton(10, 20);
    MoveMouse(50, 40);
    Press();
    MoveMouse(60.9f, 45);
    log_.Take();
    button->SetDragCtl(true);
    MoveMouse(70.9f, 50);
    EXPECT_THAT(log_.Take(), ElementsAre("#1 drag 0 at 60,30"));
    button->SetMouseThrough(false);
    MoveMouse(80, 50);
    EXPECT_THAT(log_.Take(), ElementsAre("#1 drag 0 at 70,30")) << "of the press before";
    Lift();
    EXPECT_THAT(log_.Take(), IsEmpty());
}

TEST_F(ButtonTest, AClickThroughButtonIgnoresTheMouse) {
    CGameButton* button = AddButton(0, 0);
    button->SetMouseThrough(false);
    MoveMouse(50, 20);
    Press();
    Lift();
    EXPECT_EQ(button->GetState(), 0);
    EXPECT_THAT(log_.Take(), IsEmpty());
}

TEST_F(ButtonTest, HiddenAndDisabledButtonsGetNoMouse) {
    CGameButton* button = AddButton(0, 0);
    button->EnableWindow(false);
    EXPECT_FALSE(button->IsWindowEnabled());
    MoveMouse(50, 20);
    Press();
    Lift();
    button->ShowWindow(false);
    button->EnableWindow(true);
    EXPECT_FALSE(button->bEnabled) << "hidden stays out of reach";
    EXPECT_THAT(Draw(), IsEmpty());
    button->ShowWindow(true);
    EXPECT_TRUE(button->bEnabled && button->IsWindowVisible());
    EXPECT_THAT(log_.Take(), IsEmpty());
}

TEST_F(ButtonTest, TheAnimationPlaysWhileTheMouseIsOver) {
    CGameResourceManager manager;
    CGameResourceManager::getInstance()->AttachHge(hgeCreate(HGE_VERSION));
    Recording().files["sparkle.png"] = "bytes";
    CGameButton* button = AddButton(0, 0);
    EXPECT_TRUE(button->loadMouseAni("sparkle.png", 5, 4, 0, 0));
    EXPECT_EQ(Draw().size(), 1u);
    MoveMouse(50, 20);
    Frame();
    Frame();
    std::vector<hgeQuad> quads = Draw();
    ASSERT_EQ(quads.size(), 2u);
    EXPECT_GT(SourceX(quads[1])[0], 0) << "the animation has stepped";
    MoveMouse(500, 500);
    EXPECT_EQ(Draw().size(), 1u);
    EXPECT_TRUE(button->loadMouseAni(nullptr, 1, 1, 1, 1)) << "replaces it by an empty one";
}

TEST_F(ButtonTest, CaptionsAreAlignedToTheRectangleOfTheMoment) {
    GfxFont font("WenQuanYi Zen Hei", 16, 0, 0, 1);
    CGameButton* button = AddButton(0, 0);
    button->SetFont(&font);
    auto caption_at = [&] {
        std::vector<hgeQuad> quads = Draw();
        Recording().ClearCalls();
        font.Render(0, 0, L"O");
        return std::vector<float>{quads.at(1).v[0].x - Recording().quads.at(0).v[0].x,
                                  quads.at(1).v[0].y - Recording().quads.at(0).v[0].y};
    };
    struct {
        int flags;
        float x, y;
    } const kCases[] = {{ALIGN_LEFT | ALIGN_TOP, 0, 0},
                        {ALIGN_RIGHT, 100, 0},
                        {ALIGN_BOTTOM, 100, 40},
                        {ALIGN_LEFT | ALIGN_RIGHT, 100, 40},
                        {ALIGN_LEFT | ALIGN_CENTER, 38, 8}};
    for (const auto& c : kCases) {
        button->SetTextAlign(c.flags);
        button->SetCaption("OK");
        EXPECT_THAT(caption_at(), ElementsAre(c.x, c.y)) << c.flags;
    }
    button->MoveWindow(10, 20, 0, 0, false);
    EXPECT_THAT(caption_at(), ElementsAre(10, 20)) << "the caption jumps to the corner";
    button->SetTextPos(3, 4);
    EXPECT_THAT(caption_at(), ElementsAre(3, 4));
    button->SetCaption("100% %s %n");
    EXPECT_EQ(Draw().size(), 1 + 10u) << "shown as it is";
    button->SetCaption(std::string(300, 'x').c_str());
    EXPECT_EQ(Draw().size(), 1 + 255u);
}

TEST_F(ButtonTest, AManualButtonIsDrawnByTheHost) {
    CGameButton* button = AddButton(0, 0);
    button->DrawManual();
    EXPECT_THAT(Recording().quads, IsEmpty());
    button->SetManual(true);
    EXPECT_THAT(Draw(), IsEmpty());
    button->DrawManual();
    EXPECT_EQ(Recording().quads.size(), 1u);
}

TEST_F(ButtonTest, TakesItsStripFromAPartOfAnImage) {
    CGameButton* button = AddButton(0, 0);
    EXPECT_TRUE(button->LoadImageInfo("sheet.png", 0, 10, 60, 30));
    EXPECT_THAT(Edges(button->GetClientRect()), ElementsAre(0, 0, 60, 30));
    button->SetState(STATE_HOVER);
    EXPECT_EQ(button->GetState(), STATE_HOVER);
    Frame();
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(120, 180));
    button->SetFrame(2);
    button->LoadImageInfo("strip.png");
    EXPECT_EQ(button->GetRect().x2, 250);
}

}  // namespace
