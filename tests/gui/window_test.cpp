#include "drill2d/engine.h"
#include "gui/gui_test.h"

namespace {

using WindowTest = GuiTest;

TEST_F(WindowTest, WithoutAnImageItKeepsItsPlace) {
    Recording().missing = {"none.png"};
    CGameWindow window;
    EXPECT_TRUE(window.InitWindow("none.png", {50, 60}));
    EXPECT_TRUE(window.InitWindow(nullptr, "none.png", {50, 60}));
    window.centerwindow();
    window.MoveWindow(1, 2, 3, 4, nullptr, true);
    EXPECT_THAT(Edges(window.GetRect()), ElementsAre(0, 0, 0, 0)) << "no engine, no layout";
    window.Render();
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(WindowTest, IsDraggedUnlessHeldFast) {
    CGameWindow* window = Add(new CGameWindow);
    EXPECT_TRUE(window->InitWindow("panel.png", {200, 100}));
    EXPECT_EQ(window->GetWidth(), 500);
    MoveMouse(100, 20);
    Press();
    MoveMouse(120, 50);
    EXPECT_THAT(Edges(window->GetRect()), ElementsAre(20, 30, 520, 70));
    window->DragWindow(false);
    MoveMouse(150, 60);
    EXPECT_EQ(window->GetRect().x1, 20);
    window->DragWindow(true);
    MoveMouse(151, 60);
    EXPECT_EQ(window->GetRect().x1, 21) << "the way it was held fast for is not made up for";
    Lift();
    MoveMouse(160, 65);
    EXPECT_EQ(window->GetRect().x1, 21);
    EXPECT_THAT(log_.Take(), IsEmpty()) << "a window tells nobody";
}

TEST_F(WindowTest, ADisabledWindowStaysWhereItIs) {
    CGameWindow* window = Add(new CGameWindow);
    window->MoveWindow(0, 0, 200, 100, true);
    window->EnableWindow(false);
    MoveMouse(100, 50);
    Press();
    MoveMouse(120, 80);
    EXPECT_EQ(window->GetRect().x1, 0);
    window->MouseOver(false);
    EXPECT_TRUE(window->IsWindowEnabled()) << "leaving clears the whole state";
    EXPECT_FALSE(window->bEnabled);
}

TEST_F(WindowTest, CentresByItsCornersOffset) {
    Recording().on_start = [] { return true; };
    C2DGameEngine::Get2DGameEngineInstance()->InitHge(800, 600, "centre", false);
    CGameWindow window;
    window.MoveWindow(0, 0, 200, 100, true);
    window.centerwindow();
    EXPECT_THAT(Edges(window.GetRect()), ElementsAre(300, 250, 500, 350));
    window.MoveWindow(10, 10, 0, 0, false);
    window.centerwindow();
    EXPECT_THAT(Edges(window.GetRect()), ElementsAre(310, 260, 510, 360));
    // The engine's outlive the test, the one of the fixture's GUI does not.
    Recording().references = 1;
}

}  // namespace
