#include "drill2d/resources.h"
#include "support/recording_test.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ResourceManagerTest : public RecordingTest {
 protected:
    ResourceManagerTest() { Recording().files = {{"a.png", "image"}, {"b.png", "image"}}; }

    static std::vector<std::string> TakeCalls() {
        std::vector<std::string> calls = Recording().Calls();
        Recording().ClearCalls();
        return calls;
    }
    void Use(const char* packet) {
        manager_.AttachPacket(packet);
        manager_.SetCurPacket(packet);
        TakeCalls();
    }

    CGameResourceManager manager_{&Recording()};
};

TEST_F(ResourceManagerTest, ConstructingASecondOneReplacesTheSingleton) {
    CGameResourceManager* first = CGameResourceManager::getInstance();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(CGameResourceManager::getInstance(), first);
    CGameResourceManager with_hge(&Recording());
    EXPECT_EQ(CGameResourceManager::getInstance(), first) << "only the default constructor forgets it";
    CGameResourceManager plain;
    plain.AttachHge(&Recording());
    CGameResourceManager* second = CGameResourceManager::getInstance();
    EXPECT_NE(second, first);
    EXPECT_NE(second, &plain);
}

TEST_F(ResourceManagerTest, WithoutHgeImagesAreNotHadButTheCacheHelpsItself) {
    CGameResourceManager bare;
    EXPECT_FALSE(bare.AttachHge(nullptr));
    EXPECT_EQ(bare.GetImage("a.png"), 0u);
    EXPECT_THAT(Recording().AllCalls(), IsEmpty());
    EXPECT_NE(bare.create_tex("a.png"), 0u);
    EXPECT_NE(bare.GetImage("a.png"), 0u) << "the reference serves GetImage too";
    EXPECT_EQ(std::exchange(Recording().references, 0), 1) << "kept for the life of the process";
}

TEST_F(ResourceManagerTest, APacketIsAttachedOnceAndAFailureOnlyShowsInTheList) {
    EXPECT_FALSE(manager_.AttachPacket(nullptr));
    EXPECT_TRUE(manager_.AttachPacket("x.zip"));
    EXPECT_TRUE(manager_.AttachPacket("x.zip"));
    EXPECT_THAT(TakeCalls(), ElementsAre("Resource_AttachPack(\"x.zip\", null)"));
    EXPECT_TRUE(manager_.IsExistsPacket("x.zip"));
    EXPECT_FALSE(manager_.IsExistsPacket("X.zip")) << "names are compared byte by byte";

    Recording().attach_result = false;
    EXPECT_TRUE(manager_.AttachPacket("broken.zip"));
    EXPECT_FALSE(manager_.IsExistsPacket("broken.zip"));
}

TEST_F(ResourceManagerTest, AnUnknownPacketDoesNotBecomeCurrent) {
    EXPECT_NE(manager_.GetImage("a.png"), manager_.GetImage("a.png")) << "recorded in no packet";
    EXPECT_EQ(manager_.findData("", "a.png"), nullptr);
    Use("x.zip");
    HTEXTURE tex = manager_.GetImage("a.png");
    manager_.SetCurPacket("unknown.zip");
    manager_.GetImage("b.png");
    manager_.FreePacketResource("unknown.zip");
    EXPECT_NE(manager_.findData("x.zip", "b.png"), nullptr);
    EXPECT_EQ(manager_.GetImage("a.png"), tex);
}

TEST_F(ResourceManagerTest, AnImageIsLoadedOnceAndSharedAcrossPackets) {
    Use("x.zip");
    HTEXTURE tex = manager_.GetImage("a.png");
    EXPECT_NE(tex, 0u);
    EXPECT_THAT(TakeCalls(), ElementsAre("Resource_Load(\"a.png\")", "Texture_Load(<ptr>, 5, false)"));
    Use("y.zip");
    EXPECT_EQ(manager_.GetImage("a.png"), tex);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(manager_.findData("nowhere", "a.png")->tex, tex);
    EXPECT_EQ(manager_.findData("x.zip", "A.png"), nullptr);
}

TEST_F(ResourceManagerTest, AFailedDecodeIsRememberedAMissingFileIsNot) {
    Use("x.zip");
    Recording().texture_load = [](const char*, DWORD, bool) { return 0u; };
    EXPECT_EQ(manager_.GetImage("a.png"), 0u);
    TakeCalls();
    EXPECT_EQ(manager_.GetImage("a.png"), 0u);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(manager_.GetImage("missing.png"), 0u);
    EXPECT_EQ(manager_.GetImage("missing.png"), 0u);
    EXPECT_EQ(Recording().CallsMatching("Resource_Load").size(), 2u);
}

TEST_F(ResourceManagerTest, FreeingAPacketReturnsEverythingAndItCanBeLoadedAnew) {
    Use("x.zip");
    HTEXTURE a = manager_.GetImage("a.png");
    manager_.GetImage("b.png");
    TakeCalls();
    manager_.FreePacketResource("x.zip");
    EXPECT_TRUE(Recording().textures.empty());
    EXPECT_TRUE(Recording().blocks.empty());
    EXPECT_THAT(TakeCalls(), ElementsAre("Resource_Free(<ptr>)", "Texture_Free(" + std::to_string(a) + ")",
                                         "Resource_Free(<ptr>)", testing::StartsWith("Texture_Free(")));
    EXPECT_NE(manager_.GetImage("a.png"), 0u);
    EXPECT_NE(manager_.findData("x.zip", "a.png"), nullptr) << "the packet is still current";
}

TEST_F(ResourceManagerTest, RemovingAPacketKeepsItsImages) {
    {
        CGameResourceManager other(&Recording());
        other.AttachPacket("y.zip");
        other.SetCurPacket("y.zip");
        other.GetImage("b.png");
        TakeCalls();
    }
    EXPECT_THAT(TakeCalls(), ElementsAre("Resource_RemoveAllPacks()")) << "its end, too, frees no texture";
    Use("x.zip");
    HTEXTURE tex = manager_.GetImage("a.png");
    manager_.RemovePacket("x.zip");
    EXPECT_FALSE(manager_.IsExistsPacket("x.zip"));
    EXPECT_EQ(manager_.GetImage("a.png"), tex);
    manager_.RemovePacket("never.zip");
    EXPECT_THAT(TakeCalls(), Contains("Resource_RemovePack(\"never.zip\")"));
}

TEST_F(ResourceManagerTest, TheCacheKeepsTexturesAndRetriesFailures) {
    HTEXTURE tex = manager_.create_tex("a.png");
    EXPECT_EQ(manager_.create_tex("a.png"), tex);
    EXPECT_EQ(manager_.find_tex("a.png"), tex);
    EXPECT_THAT(TakeCalls(), ElementsAre("Texture_Load(\"a.png\", 0, false)"));

    Recording().missing.insert("late.png");
    EXPECT_EQ(manager_.create_tex("late.png"), 0u);
    EXPECT_EQ(manager_.find_tex("late.png"), 0u);
    Recording().missing.clear();
    EXPECT_NE(manager_.create_tex("late.png"), 0u);
}

}  // namespace
