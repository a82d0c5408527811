#include "drill2d/font.h"
#include "drill2d/resources.h"
#include "gui/gui_test.h"

namespace {

class ButtonTest : public GuiTest {
 protected:
    // A strip of five frames of 100 x 40 pixels.
    CGameButton* AddButton(float x, float y) {
        CGameButton* button = Add(new CGameButton);
        EXPECT_TRUE(button->LoadImageInfo("button.png"));
        button->MoveWindow(x, y, 100, 40, true);
        return button;
    }
};

TEST_F(ButtonTest, StandsInMemoryAsHostsExpect) {
    CGameLable label;
    auto offset = [](hgeGUIObject* control, void* part) {
        return reinterpret_cast<char*>(part) - reinterpret_cast<char*>(control);
    };
    EXPECT_EQ(offset(&label, static_cast<IControlOpera*>(&label)), 48);
    EXPECT_EQ(offset(&label, static_cast<IControlMyselOperator*>(&label)), 52);
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
    CGameButton* button = AddButton(0, 0);
    EXPECT_FALSE(button->SetINotifyMsg(nullptr));
    MoveMouse(5, 5);
    EXPECT_THAT(log_.Take(), ElementsAre("#1 over 1")) << "the old sink stays";
    log_.answers = false;
    EXPECT_FALSE(button->SetINotifyMsg(&log_));
    MoveMouse(500, 500);
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
    EXPECT_TRUE(button.MouseLButton(false)) << "outside its empty rectangle";
    button.rect.x2 = 1;
    EXPECT_FALSE(button.MouseLButton(false)) << "a click that nobody hears is no command";
    button.Render();
    button.MoveWindow(1, 2, 3, 4, nullptr, true);
    EXPECT_THAT(Edges(button.GetRect()), ElementsAre(0, 0, 1, 40));
}

TEST_F(ButtonTest, ShowsTheFrameOfItsState) {
    CGameButton* button = AddButton(10, 20);
    auto shown = [this] {
        Frame();
        return SourceLeft();
    };
    EXPECT_EQ(shown(), 0);
    MoveMouse(50, 40);
    EXPECT_EQ(shown(), 200);
    Press();
    EXPECT_EQ(shown(), 100);
    Lift();
    EXPECT_EQ(shown(), 200);
    MoveMouse(500, 500);
    button->EnableWindow(false);
    EXPECT_EQ(SourceLeft(), 400);
    EXPECT_EQ(Draw().at(0).v[2].x, 110) << "stretched over the rectangle";
    button->ShowWindow(false);
    button->EnableWindow(true);
    EXPECT_FALSE(button->bEnabled) << "hidden stays out of reach";
    EXPECT_THAT(Draw(), IsEmpty());
    button->ShowWindow(true);
    button->SetManual(true);
    EXPECT_THAT(Draw(), IsEmpty());
    button->DrawManual();
    EXPECT_EQ(Recording().quads.size(), 1u) << "drawn by the host";
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
}

TEST_F(ButtonTest, ADragOutlastsTheMouseBeingLetThrough) {
    CGameButton* button = AddButton(10, 20);
    button->SetDragCtl(true);
    MoveMouse(50, 40);
    Press();
    log_.Take();
    button->SetMouseThrough(false);
    MoveMouse(70.9f, 50);
    EXPECT_THAT(log_.Take(), ElementsAre("#1 drag 0 60,30"));
}

TEST_F(ButtonTest, TheAnimationPlaysWhileTheMouseIsOver) {
    CGameResourceManager::getInstance()->AttachHge(&Recording());
    Recording().files["sparkle.png"] = "bytes";
    CGameButton* button = AddButton(0, 0);
    EXPECT_TRUE(button->loadMouseAni("sparkle.png", 5, 4, 0, 0));
    EXPECT_EQ(Draw().size(), 1u);
    MoveMouse(50, 20);
    Frame();
    Frame();
    std::vector<hgeQuad> quads = Draw();
    ASSERT_EQ(quads.size(), 2u);
    EXPECT_GT(quads[1].v[0].tx, 0) << "the animation has stepped";
    MoveMouse(500, 500);
    EXPECT_EQ(Draw().size(), 1u);
    EXPECT_TRUE(button->loadMouseAni(nullptr, 1, 1, 1, 1)) << "replaces it by an empty one";
}

TEST_F(ButtonTest, CaptionsAreAlignedToTheRectangleOfTheMoment) {
    GfxFont font("WenQuanYi Zen Hei", 16, 0, 0, 1);
    font.Render(0, 0, L"O");
    hgeVertex origin = Recording().quads.at(0).v[0];
    CGameButton* button = AddButton(0, 0);
    button->SetFont(&font);
    auto caption_at = [&] {
        hgeVertex corner = Draw().at(1).v[0];
        return std::vector<float>{corner.x - origin.x, corner.y - origin.y};
    };
    struct {
        int flags;
        float x, y;
    } const kCases[] = {{ALIGN_LEFT | ALIGN_TOP, 0, 0},
                        {ALIGN_RIGHT, 100, 0},
                        {ALIGN_BOTTOM, 100, 40},
                        {ALIGN_LEFT | ALIGN_CENTER, 38, 8}};
    for (const auto& c : kCases) {
        button->SetTextAlign(c.flags);
        button->SetCaption("OK");
        EXPECT_THAT(caption_at(), ElementsAre(c.x, c.y)) << c.flags;
    }
    button->MoveWindow(10, 20, 0, 0, false);
    EXPECT_THAT(caption_at(), ElementsAre(10, 20)) << "the caption jumps to the corner";
    button->SetCaption("100% %s %n");
    EXPECT_EQ(Draw().size(), 1 + 10u) << "shown as it is";
    button->SetCaption(std::string(300, 'x').c_str());
    EXPECT_EQ(Draw().size(), 1 + 255u);
}

TEST_F(ButtonTest, TakesItsStripFromAPartOfAnImage) {
    CGameButton* button = AddButton(0, 0);
    EXPECT_TRUE(button->LoadImageInfo("sheet.png", 0, 10, 60, 30));
    EXPECT_THAT(Edges(button->GetClientRect()), ElementsAre(0, 0, 60, 30));
    button->SetState(STATE_HOVER);
    Frame();
    EXPECT_EQ(SourceLeft(), 120);
}

}  // namespace
