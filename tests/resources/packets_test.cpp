#include <gtest/gtest.h>

#include <cstdio>

#include "drill2d/resources.h"
#include "support/framework_fixture.h"

namespace {

constexpr int kImages = 200, kRounds = 100;

class PacketsTest : public FrameworkTest {
 protected:
    void SetUp() override { before_ = Counters(); }

    void ExpectNothingMoreIsHeld() {
        hgeCounters now = Counters();
        EXPECT_EQ(now.textures, before_.textures);
        EXPECT_EQ(now.resource_blocks, before_.resource_blocks);
        EXPECT_EQ(now.packs, before_.packs);
        EXPECT_EQ(now.references, before_.references);
    }

    static std::string Pack(const std::string& name) { return TEST_DATA "\\" + name + ".zip"; }

    static std::string ImageName(const std::string& pack, int index) {
        char name[32];
        std::snprintf(name, sizeof name, "%s_%03d.png", pack.c_str(), index);
        return name;
    }

    hgeCounters before_;
};

TEST_F(PacketsTest, SwitchingPacketsForALongTimeLeavesNothingBehind) {
    CGameResourceManager manager(hge_);
    for (int round = 0; round < kRounds; ++round) {
        for (const char* name : {"one", "two"}) {
            std::string pack = Pack(name);
            manager.AttachPacket(pack.c_str());
            ASSERT_TRUE(manager.IsExistsPacket(pack)) << hge_->System_GetErrorMessage();
            manager.SetCurPacket(pack);
            for (int i = 0; i < kImages; ++i)
                ASSERT_NE(manager.GetImage(ImageName(name, i).c_str()), 0u);
        }
        EXPECT_EQ(Counters().textures, before_.textures + 2 * kImages);
        EXPECT_EQ(Counters().resource_blocks, before_.resource_blocks + 2 * kImages);
        for (const char* name : {"one", "two"}) {
            manager.FreePacketResource(Pack(name));
            manager.RemovePacket(Pack(name));
        }
        ExpectNothingMoreIsHeld();
    }
}

TEST_F(PacketsTest, ASpriteWhosePacketWasFreedDrawsNothing) {
    {
        CGameResourceManager manager(hge_);
        manager.AttachPacket(Pack("one").c_str());
        manager.SetCurPacket(Pack("one"));
        CGameSprite sprite(&manager, "one_000.png", true);
        manager.FreePacketResource(Pack("one"));
        manager.GetImage("one_001.png");
        hge::Image picture = Picture([&] {
            sprite.Render(100, 100);
            sprite.RenderEx(300, 300, 1, 2, 2);
        });
        for (uint32_t pixel : picture.pixels)
            ASSERT_EQ(pixel, 0xFF000000u) << "not even another image in its place";
        manager.FreePacketResource(Pack("one"));
    }
    ExpectNothingMoreIsHeld();
}

TEST_F(PacketsTest, EachOwnerFreesItsOwnTextures) {
    CGameResourceManager manager(hge_);
    manager.AttachPacket(Pack("one").c_str());
    manager.SetCurPacket(Pack("one"));
    auto more = [this] { return Counters().textures - before_.textures; };
    {
        CGameSprite by_manager(&manager, "one_000.png", true), again(&manager, "one_000.png", true);
        CGameSprite by_file("one_001.png");
        CGameSprite over(hge_->Texture_Create(8, 8), 0);
        CGameSprite cached;
        EXPECT_TRUE(cached.load_tex("one_002.png", true));
        EXPECT_EQ(more(), 4u);
    }
    EXPECT_EQ(more(), 2u) << "the manager's and the cache's";
    manager.FreePacketResource(Pack("one"));
    EXPECT_EQ(more(), 1u) << "the cache keeps its own";
    hge_->Texture_Free(CGameResourceManager::getInstance()->find_tex("one_002.png"));
}

}  // namespace
