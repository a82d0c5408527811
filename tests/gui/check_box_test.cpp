#include "gui/gui_test.h"

namespace {

using CheckBoxTest = GuiTest;

TEST_F(CheckBoxTest, TellsWhenItBecomesCheckedAndShowsIt) {
    CGameCheckBox* box = Add(new CGameCheckBox);
    EXPECT_FALSE(box->LoadImageInfo(nullptr, "box.png"));
    EXPECT_TRUE(box->LoadImageInfo("box.png"));
    EXPECT_EQ(SourceLeft(), 0);
    MoveMouse(5, 5);
    EXPECT_EQ(SourceLeft(), 125);
    Press();
    EXPECT_THAT(log_.Take(), ElementsAre("#1 checked 1"));
    EXPECT_EQ(SourceLeft(), 375);
    Lift();
    Press();
    Lift();
    EXPECT_THAT(log_.Take(), IsEmpty()) << "unchecking is silent";
    EXPECT_FALSE(box->getCheck());
    box->SetState(STATE_CHECKED | STATE_DISABLED);
    EXPECT_FALSE(box->MouseLButton(true));
    EXPECT_TRUE(box->getCheck()) << "disabled it keeps its state";
    EXPECT_THAT(log_.Take(), IsEmpty());
}

TEST_F(CheckBoxTest, TheFrameCountOnlySetsTheFramesWidth) {
    CGameCheckBox* box = Add(new CGameCheckBox);
    box->SetFrame(8);
    box->setFrame(0);
    EXPECT_TRUE(box->LoadImageInfo("box.png"));
    EXPECT_EQ(box->GetRect().x2, 0);
    box->setFrame(10);
    EXPECT_TRUE(box->LoadImageInfo("box.png"));
    box->SetState(STATE_CHECKED);
    EXPECT_EQ(SourceLeft(), 100) << "still the third frame";
}

}  // namespace
