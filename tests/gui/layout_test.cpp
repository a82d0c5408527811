#include "gui/gui_test.h"

namespace {

class LayoutTest : public testing::Test {
 protected:
    LayoutTest() {
        owner_.MoveWindow(0, 0, 300, 200, true);
        layout_ = std::make_unique<CLayout>(&owner_);
    }
    ~LayoutTest() override { layout_->RemoveAll(); }

    CGameWindow owner_;
    std::unique_ptr<CLayout> layout_;
    CGameButton k1_, k2_, k3_;
};

TEST_F(LayoutTest, StartsEmptyWithItsOwnersRectangle) {
    EXPECT_EQ(layout_->EnumControl(0), nullptr);
    EXPECT_EQ(layout_->GetTail(), nullptr);
    EXPECT_FALSE(layout_->RemoveAt(1));
    layout_->RemoveAll();
    layout_->ReBuildZ();
    EXPECT_FALSE(layout_->ShowWindow(true) || layout_->EnableWindow(true));
    EXPECT_THAT(Edges(layout_->GetRect()), ElementsAre(0, 0, 300, 200));
    CLayout orphan(nullptr);
    orphan.MoveWindow(1, 2, 3, 4, true);
    EXPECT_THAT(Edges(orphan.GetRect()), ElementsAre(0, 0, 0, 0));
}

TEST_F(LayoutTest, IdsFollowTheCountUntilTheyAreBuiltAnew) {
    for (CGameButton* child : {&k1_, &k2_, &k3_})
        EXPECT_TRUE(layout_->AddControl(child));
    EXPECT_EQ(layout_->EnumControl(0), &k3_);
    EXPECT_EQ(layout_->EnumControl(2), &k1_);
    EXPECT_EQ(layout_->EnumControl(3), nullptr);
    EXPECT_EQ(layout_->GetTail()->id, 1u);
    layout_->ReBuildZ();
    EXPECT_EQ(layout_->GetTail()->id, 3u);
    EXPECT_TRUE(layout_->RemoveAt(2)) << "from the middle";
    EXPECT_EQ(layout_->GetTail()->prev->control, &k3_);
    EXPECT_TRUE(layout_->RemoveAt(1)) << "the newest";
    EXPECT_EQ(layout_->GetCount(), 1u);
    EXPECT_EQ(layout_->EnumControl(0), &k1_);
    EXPECT_EQ(layout_->GetTail()->prev, nullptr);
}

TEST_F(LayoutTest, OfTwoWithOneIdTheNewerGoesFirst) {
    layout_->AddControl(&k1_);
    layout_->AddControl(&k2_);
    EXPECT_TRUE(layout_->RemoveAt(1));
    layout_->AddControl(&k3_);
    EXPECT_TRUE(layout_->RemoveAt(2));
    EXPECT_EQ(layout_->EnumControl(0), &k2_);
    EXPECT_TRUE(layout_->RemoveAt(2));
    EXPECT_EQ(layout_->GetCount(), 0u);
}

TEST_F(LayoutTest, ChildrenFollowTheirOwner) {
    owner_.SetLayOut(layout_.get());
    layout_->AddControl(&k1_);
    k1_.MoveWindow(10, 20, 30, 40, layout_.get(), true);
    owner_.MoveWindow(100, 50, 0, 0, false);
    EXPECT_THAT(Edges(layout_->GetRect()), ElementsAre(100, 50, 400, 250));
    EXPECT_THAT(Edges(k1_.GetRect()), ElementsAre(110, 70, 140, 110));
    EXPECT_THAT(Edges(k1_.GetClientRect()), ElementsAre(10, 20, 40, 60));
    layout_->MoveWindow(5, 6, 70, 80, true);
    EXPECT_THAT(Edges(layout_->GetClientRect()), ElementsAre(0, 0, 70, 80));
    EXPECT_THAT(Edges(k1_.GetRect()), ElementsAre(115, 76, 145, 116));
    k1_.MoveWindow(1, 2, 0, 0, layout_.get(), false);
    EXPECT_THAT(Edges(k1_.GetRect()), ElementsAre(106, 58, 136, 98)) << "keeps its size";
    owner_.ShowWindow(false);
    EXPECT_FALSE(k1_.IsWindowVisible());
    owner_.ShowWindow(true);
    owner_.EnableWindow(false);
    EXPECT_TRUE(k1_.IsWindowVisible());
    EXPECT_FALSE(k1_.IsWindowEnabled());
}

TEST_F(LayoutTest, AChildThatDoesNotAnswerIsPassedOver) {
    struct Mute : CGameButton {
        void* QueryInterface(const GUID& /*iid*/, unsigned long /*version*/) override { return nullptr; }
    } mute;
    struct Stranger : hgeGUIObject {
        void Render() override {}
    } stranger;
    for (hgeGUIObject* child : std::initializer_list<hgeGUIObject*>{&k1_, &mute, &stranger, nullptr, &k2_})
        layout_->AddControl(child);
    owner_.MoveWindow(100, 50, 0, 0, false);
    layout_->MoveWindow(0, 0, 0, 0, false);
    layout_->ShowWindow(false);
    EXPECT_EQ(k1_.GetRect().x1, 100);
    EXPECT_EQ(k2_.GetRect().x1, 100);
    EXPECT_EQ(mute.GetRect().x1, 0);
    EXPECT_TRUE(mute.IsWindowVisible());
    EXPECT_FALSE(k1_.IsWindowVisible());
}

}  // namespace
