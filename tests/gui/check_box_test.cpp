#include "gui/gui_test.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CheckBoxTest : public GuiTest {
 protected:
    // A strip of four frames of 16 x 20 pixels, at (100, 50).
    CGameCheckBox* AddCheckBox() {
        Recording().image_width = 64;
        Recording().image_height = 20;
        CGameCheckBox* box = Add(new CGameCheckBox);
        EXPECT_TRUE(box->LoadImageInfo("box.png"));
        box->MoveWindow(100, 50, 0, 0, false);
        return box;
    }
    void Click() {
        Press();
        Lift();
    }
};

TEST_F(CheckBoxTest, StartsUncheckedAndRefusesMissingManagers) {
    CGameCheckBox box;
    EXPECT_EQ(box.GetControlType(), 6u);
    EXPECT_FALSE(box.getCheck());
    EXPECT_EQ(box.GetSprite(), nullptr);
    EXPECT_FALSE(box.LoadImageInfo(nullptr, "box.png"));
    box.Render();
    box.setFrame(0);
    EXPECT_TRUE(box.LoadImageInfo("box.png"));
    EXPECT_EQ(box.GetRect().x2, 0);
}

TEST_F(CheckBoxTest, PressedThreeTimesItNotifiesTwice) {
    CGameCheckBox* box = AddCheckBox();
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(0, 16));
    MoveMouse(105, 60);
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(16, 32));
    Click();
    EXPECT_TRUE(box->getCheck());
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(48, 64));
    EXPECT_THAT(log_.Take(), ElementsAre("#1 checked 1"));
    Click();
    EXPECT_FALSE(box->getCheck());
    EXPECT_THAT(log_.Take(), IsEmpty());
    Click();
    EXPECT_THAT(log_.Take(), ElementsAre("#1 checked 1"));
    MoveMouse(0, 0);
    hgeQuad quad = Draw().at(0);
    EXPECT_THAT(SourceX(quad), ElementsAre(32, 48));
    EXPECT_EQ(quad.v[2].x - quad.v[0].x, 16) << "at its natural size";
    EXPECT_EQ(quad.v[0].x, 100);
}

TEST_F(CheckBoxTest, KeepsItsStateWhileDisabled) {
    CGameCheckBox* box = AddCheckBox();
    box->EnableWindow(false);
    MoveMouse(105, 60);
    Click();
    EXPECT_FALSE(box->MouseLButton(true)) << "also when it is pressed by hand";
    EXPECT_FALSE(box->getCheck());
    box->SetState(STATE_CHECKED);
    EXPECT_TRUE(box->getCheck());
    EXPECT_THAT(log_.Take(), IsEmpty()) << "SetState tells nobody";
}

TEST_F(CheckBoxTest, TheFrameCountOnlySetsTheFramesWidth) {
    CGameCheckBox* box = AddCheckBox();
    box->SetFrame(8);
    box->setFrame(2);
    box->LoadImageInfo("box.png");
    box->MoveWindow(0, 0, 32, 20, true);
    box->SetState(STATE_CHECKED);
    EXPECT_THAT(SourceX(Draw().at(0)), ElementsAre(64, 96)) << "still the third frame";
}

}  // namespace
