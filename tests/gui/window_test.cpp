#include "drill2d/engine.h"
#include "gui/gui_test.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class WindowTest : public GuiTest {
 protected:
    CGameWindow* AddWindow() {
        Recording().image_width = 200;
        Recording().image_height = 100;
        CGameWindow* window = Add(new CGameWindow);
        EXPECT_TRUE(window->InitWindow("panel.png", {200, 100}));
        return window;
    }
};

TEST_F(WindowTest, TakesTheImagesSize) {
    CGameWindow* window = AddWindow();
    EXPECT_EQ(window->GetControlType(), 2u);
    EXPECT_EQ(window->GetWidth(), 200);
    EXPECT_EQ(window->GetHeight(), 100);
    EXPECT_EQ(window->GetLayout(), nullptr);
    EXPECT_EQ(Draw().at(0).v[2].x, 200);
    EXPECT_TRUE(window->KeyClick(13, 13) && window->MouseRButton(true));
}

TEST_F(WindowTest, WithoutAnImageItKeepsItsPlace) {
    Recording().missing = {"none.png"};
    CGameWindow window;
    EXPECT_TRUE(window.InitWindow("none.png", {50, 60}));
    EXPECT_TRUE(window.InitWindow(nullptr, "none.png", {50, 60}));
    EXPECT_EQ(window.GetWidth(), 0);
    window.centerwindow();
    window.MoveWindow(1, 2, 3, 4, nullptr, true);
    EXPECT_THAT(Edges(window.GetRect()), ElementsAre(0, 0, 0, 0)) << "no engine, no layout";
    window.Render();
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(WindowTest, IsDraggedWithItsChildren) {
    CGameWindow* window = AddWindow();
    CGameButton* child = Add(new CGameButton);
    CLayout layout(window);
    layout.AddControl(child);
    child->MoveWindow(10, 20, 30, 30, &layout, true);
    window->SetLayOut(&layout);

    MoveMouse(100, 50);
    Press();
    MoveMouse(120, 80);
    EXPECT_THAT(Edges(window->GetRect()), ElementsAre(20, 30, 220, 130));
    EXPECT_THAT(Edges(child->GetRect()), ElementsAre(30, 50, 60, 80));
    window->DragWindow(false);
    MoveMouse(150, 90);
    EXPECT_EQ(window->GetRect().x1, 20);
    window->DragWindow(true);
    MoveMouse(151, 90);
    EXPECT_EQ(window->GetRect().x1, 21) << "the way it was held fast for is not made up for";
    Lift();
    MoveMouse(160, 95);
    EXPECT_EQ(window->GetRect().x1, 21);
    EXPECT_THAT(log_.Take(), IsEmpty()) << "a window tells nobody";
    layout.RemoveAll();
    window->SetLayOut(nullptr);
}

TEST_F(WindowTest, ADisabledWindowStaysWhereItIs) {
    CGameWindow* window = AddWindow();
    window->EnableWindow(false);
    MoveMouse(100, 50);
    Press();
    MoveMouse(120, 80);
    EXPECT_EQ(window->GetRect().x1, 0);
    window->MouseOver(true);
    EXPECT_FALSE(window->IsWindowEnabled());
    window->MouseOver(false);
    EXPECT_TRUE(window->IsWindowEnabled()) << "leaving clears the whole state";
    EXPECT_FALSE(window->bEnabled);
}

TEST_F(WindowTest, CentresByItsCornersOffset) {
    C2DGameEngine* engine = static_cast<C2DGameEngine*>(C2DGameEngine::Get2DGameEngineInstance());
    Recording().on_start = [] { return true; };
    engine->InitHge(800, 600, "centre", false);
    CGameWindow* window = AddWindow();
    window->centerwindow();
    EXPECT_THAT(Edges(window->GetRect()), ElementsAre(300, 250, 500, 350));
    window->MoveWindow(10, 10, 0, 0, false);
    window->centerwindow();
    EXPECT_EQ(window->GetRect().x1, 310);
    EXPECT_EQ(window->GetRect().y1, 260);
}

TEST_F(WindowTest, ReleasesEveryReferenceAndTextureInAnyOrder) {
    int references = Recording().references;
    size_t textures = Recording().textures.size();
    for (int order = 0; order < 3; ++order) {
        CGameWindow* window = new CGameWindow;
        window->InitWindow("panel.png", {200, 100});
        CGameButton* button = new CGameButton;
        button->LoadImageInfo("button.png");
        button->LoadImageInfo("other.png");
        CGameCheckBox* box = new CGameCheckBox;
        box->LoadImageInfo("box.png");
        CLayout* layout = new CLayout(window);
        layout->AddControl(button);
        layout->AddControl(box);
        window->SetLayOut(layout);
        if (order == 0) window->Release();
        layout->RemoveAll();
        if (order == 1) delete layout;
        EXPECT_TRUE(static_cast<IControlMyselOperator*>(box)->Release());
        EXPECT_TRUE(button->Release());
        if (order != 1) delete layout;
        if (order != 0) window->Release();
        EXPECT_EQ(Recording().references, references);
        EXPECT_EQ(Recording().textures.size(), textures);
    }
}

}  // namespace
