#include "gui/gui_test.h"

using testing::ElementsAre;

namespace {

// A control of the host's own that hides its interface.
class MuteButton : public CGameButton {
 public:
    void* QueryInterface(const GUID& /*iid*/, unsigned long /*version*/) override { return nullptr; }
};

class LayoutTest : public GuiTest {
 protected:
    LayoutTest() {
        owner_.MoveWindow(0, 0, 300, 200, true);
        layout_ = std::make_unique<CLayout>(&owner_);
    }
    ~LayoutTest() override { layout_->RemoveAll(); }
    // By id, newest first.
    std::vector<int> Children() {
        std::vector<int> ids;
        for (unsigned i = 0; hgeGUIObject* child = layout_->EnumControl(i); ++i)
            ids.push_back(child->id);
        return ids;
    }
    void AddThree() {
        for (CGameButton& child : children_) {
            child.id = static_cast<int>(&child - children_) + 1;
            EXPECT_TRUE(layout_->AddControl(&child));
        }
    }

    CGameWindow owner_;
    std::unique_ptr<CLayout> layout_;
    CGameButton children_[3];
};

TEST_F(LayoutTest, StartsEmptyWithItsOwnersRectangle) {
    EXPECT_EQ(layout_->GetCount(), 0u);
    EXPECT_EQ(layout_->EnumControl(0), nullptr);
    EXPECT_EQ(layout_->GetTail(), nullptr);
    EXPECT_FALSE(layout_->RemoveAt(1));
    layout_->RemoveAll();
    layout_->ReBuildZ();
    EXPECT_FALSE(layout_->ShowWindow(true) || layout_->EnableWindow(true));
    EXPECT_THAT(Edges(layout_->GetRect()), ElementsAre(0, 0, 300, 200));
    EXPECT_THAT(Edges(layout_->GetClientRect()), ElementsAre(0, 0, 0, 0));
    CLayout orphan(nullptr);
    orphan.MoveWindow(1, 2, 3, 4, true);
    EXPECT_THAT(Edges(orphan.GetRect()), ElementsAre(0, 0, 0, 0));
}

TEST_F(LayoutTest, TheNewestIsFirstAndIdsFollowTheCount) {
    AddThree();
    EXPECT_THAT(Children(), ElementsAre(3, 2, 1));
    EXPECT_EQ(layout_->GetTail()->control, &children_[0]);
    EXPECT_EQ(layout_->GetTail()->id, 1u);
    layout_->ReBuildZ();
    EXPECT_EQ(layout_->GetTail()->id, 3u);
    EXPECT_TRUE(layout_->RemoveAt(1));
    EXPECT_THAT(Children(), ElementsAre(2, 1)) << "after renumbering the newest had id 1";
    EXPECT_EQ(layout_->GetCount(), 2u);
}

TEST_F(LayoutTest, OfTwoWithOneIdTheNewerGoesFirst) {
    layout_->AddControl(&children_[0]);
    layout_->AddControl(&children_[1]);
    EXPECT_TRUE(layout_->RemoveAt(1));
    layout_->AddControl(&children_[2]);
    EXPECT_TRUE(layout_->RemoveAt(2));
    EXPECT_EQ(layout_->EnumControl(0), &children_[1]);
    EXPECT_TRUE(layout_->RemoveAt(2));
    EXPECT_FALSE(layout_->RemoveAt(2));
    EXPECT_EQ(layout_->GetCount(), 0u);
    AddThree();
    EXPECT_TRUE(layout_->RemoveAt(2)) << "from the middle";
    EXPECT_EQ(layout_->GetTail()->prev->control, &children_[2]);
}

TEST_F(LayoutTest, ChildrenFollowTheirOwner) {
    AddThree();
    owner_.SetLayOut(layout_.get());
    children_[0].MoveWindow(10, 20, 30, 40, layout_.get(), true);
    owner_.MoveWindow(100, 50, 0, 0, false);
    EXPECT_THAT(Edges(layout_->GetRect()), ElementsAre(100, 50, 400, 250));
    EXPECT_THAT(Edges(children_[0].GetRect()), ElementsAre(110, 70, 140, 110));
    EXPECT_THAT(Edges(children_[0].GetClientRect()), ElementsAre(10, 20, 40, 60));
    layout_->MoveWindow(5, 6, 70, 80, true);
    EXPECT_THAT(Edges(layout_->GetClientRect()), ElementsAre(0, 0, 70, 80));
    EXPECT_THAT(Edges(children_[0].GetRect()), ElementsAre(115, 76, 145, 116));
    children_[0].MoveWindow(1, 2, 0, 0, layout_.get(), false);
    EXPECT_THAT(Edges(children_[0].GetRect()), ElementsAre(106, 58, 136, 98)) << "keeps its size";
    owner_.ShowWindow(false);
    EXPECT_FALSE(children_[2].IsWindowVisible());
    owner_.ShowWindow(true);
    owner_.EnableWindow(false);
    EXPECT_TRUE(children_[2].IsWindowVisible());
    EXPECT_FALSE(children_[2].IsWindowEnabled());
}

TEST_F(LayoutTest, AChildThatDoesNotAnswerIsPassedOver) {
    class Stranger : public hgeGUIObject {
        void Render() override {}
    };
    MuteButton mute;
    Stranger stranger;
    layout_->AddControl(&children_[0]);
    layout_->AddControl(&mute);
    layout_->AddControl(&stranger);
    layout_->AddControl(nullptr);
    layout_->AddControl(&children_[1]);
    owner_.MoveWindow(100, 50, 0, 0, false);
    layout_->MoveWindow(0, 0, 0, 0, false);
    layout_->ShowWindow(false);
    EXPECT_EQ(children_[0].GetRect().x1, 100);
    EXPECT_EQ(children_[1].GetRect().x1, 100);
    EXPECT_EQ(mute.GetRect().x1, 0);
    EXPECT_TRUE(mute.IsWindowVisible());
    EXPECT_FALSE(children_[0].IsWindowVisible());
}

}  // namespace
