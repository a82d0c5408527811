#include <gtest/gtest.h>

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

    hgeCounters before_;
};

TEST_F(PacketsTest, SwitchingPacketsForALongTimeLeavesNothingBehind) {
    CGameResourceManager manager(hge_);
    for (int round = 0; round < kRounds; ++round) {
        for (std::string name : {"one", "two"}) {
            std::string pack = Pack(name);
            manager.AttachPacket(pack.c_str());
            ASSERT_TRUE(manager.IsExistsPacket(pack)) << hge_->System_GetErrorMessage();
            manager.SetCurPacket(pack);
            for (int i = 0; i < kImages; ++i)
                ASSERT_NE(
                    manager.GetImage((name + std::to_string(1000 + i).replace(0, 1, "_") + ".png").c_str()),
                    0u);
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

}  // namespace
