#include "flash/flash_fixture.h"

namespace {

class FlashManagerTest : public FlashTest {
 protected:
    FlashManagerTest() { EXPECT_TRUE(FlashManager::CreatFlashManager(&Recording())); }
    ~FlashManagerTest() override {
        FlashManager::DestroyFlashManager();
        EXPECT_TRUE(Recording().textures.empty());
    }

    IFlashSprite* Playing(bool auto_render) {
        IFlashSprite* sprite = FlashManager::CreatFlashSprite(auto_render);
        sprite->LoadFlash(file_, 30, 20);
        sprite->Play();
        return sprite;
    }
    // Movies drawn by one frame.
    size_t Frame() {
        Recording().quads.clear();
        FlashManager::Render();
        return Recording().quads.size();
    }

    char file_[8] = "C:\\m";
};

TEST_F(FlashManagerTest, IsOneOrNone) {
    EXPECT_NE(FlashManager::GetFlashManager(), nullptr);
    EXPECT_FALSE(FlashManager::CreatFlashManager(&Recording()));
    FlashManager::DestroyFlashManager();
    EXPECT_EQ(FlashManager::GetFlashManager(), nullptr);
    EXPECT_FALSE(FlashManager::CreatFlashManager(nullptr));

    CFlashSprite sprite(&Recording(), false, true);
    IFlashSprite* pointer = &sprite;
    FlashManager::DestroyFlashSprite(pointer);
    EXPECT_EQ(pointer, &sprite);
    FlashManager::Render();
    EXPECT_EQ(FlashManager::CreatFlashSprite(true), nullptr);
    EXPECT_FALSE(FlashManager::StartSingleFlash(file_, 0, 0, 30, 20));
}

TEST_F(FlashManagerTest, OneShotsVanishWhereverTheyStand) {
    EXPECT_FALSE(FlashManager::StartSingleFlash(nullptr, 0, 0, 30, 20));
    EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 10, 20, 30, 20));
    EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 11, 20, 30, 20));
    IFlashSprite *looped = Playing(true), *by_hand = Playing(false);
    EXPECT_TRUE(looped->IsAutoRender() && !by_hand->IsAutoRender());
    EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 12, 20, 30, 20));
    for (int frame = 0; frame < 3; ++frame) {
        EXPECT_EQ(Frame(), 4u);
        EXPECT_EQ(Recording().quads[1].v[0].x, 11);
        control_->Step();
    }
    EXPECT_EQ(Frame(), 1u);
    by_hand->Render(40, 50);
    looped->Render(40, 50);
    EXPECT_EQ(Recording().quads.size(), 2u) << "an auto-rendered sprite is not drawn by hand";
    EXPECT_EQ(Recording().quads[1].v[0].y, 50);
    FlashManager::DestroyFlashSprite(by_hand);
    EXPECT_TRUE(control_->objects == 1 && Recording().textures.size() == 1);
    FlashManager::DestroyFlashSprite(looped);
    EXPECT_EQ(looped, nullptr);
}

TEST_F(FlashManagerTest, LeavesTheHostsSpritesAlone) {
    CFlashSprite foreign(&Recording(), false, true);
    IFlashSprite* pointer = &foreign;
    FlashManager::DestroyFlashSprite(pointer);
    EXPECT_EQ(pointer, nullptr);
    foreign.SetAutoRenderPos(1, 2);

    IFlashSprite* kept = Playing(true);
    FlashManager::StartSingleFlash(file_, 0, 0, 30, 20);
    FlashManager::DestroyFlashManager();
    EXPECT_TRUE(kept->IsPlaying() && control_->objects == 1) << "the one-shot had no other owner";
    delete kept;
}

}  // namespace
