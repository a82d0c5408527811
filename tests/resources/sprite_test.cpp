#include "drill2d/resources.h"
#include "support/recording_test.h"

using testing::ElementsAre;

namespace {

class SpriteTest : public RecordingTest {
 protected:
    SpriteTest() {
        Recording().files["a.png"] = "image";
        Recording().texture_load = [](const char*, DWORD, bool) {
            return Recording().AddTexture(128, 64, 100, 60);
        };
        // So that the cache takes no reference of its own, which would stay.
        CGameResourceManager::getInstance()->AttachHge(&Recording());
        manager_.AttachPacket("x.zip");
        manager_.SetCurPacket("x.zip");
    }
    static void ExpectRect(CGameSprite& sprite, float w, float h) {
        float rect[4] = {};
        sprite.GetTextureRect(&rect[0], &rect[1], &rect[2], &rect[3]);
        EXPECT_THAT(rect, ElementsAre(0, 0, w, h));
    }

    CGameResourceManager manager_{&Recording()};
};

TEST_F(SpriteTest, EmptyOnesIgnoreEverything) {
    CGameSprite sprite;
    sprite.Render(1, 2);
    sprite.RenderStretch(1, 2, 3, 4);
    sprite.SetTextureRect(1, 2, 3, 4, true);
    sprite.SetColor(1, 9);
    sprite.SetFlip(true, true, true);
    float value = 7;
    hgeRect rect(1, 2, 3, 4);
    sprite.GetHotSpot(&value, &value);
    EXPECT_FALSE(sprite.GetBoundingBox(0, 0, &rect) || sprite.GetSprite() || sprite.GetTexture());
    EXPECT_TRUE(value == 7 && rect.x2 == 3 && Recording().quads.empty());
}

TEST_F(SpriteTest, LoadersReportWhatCouldNotBeHad) {
    Recording().texture_load = [](const char*, DWORD, bool) { return 0u; };
    CGameSprite sprite;
    EXPECT_FALSE(sprite.LoadImageA("a.png", nullptr, true));
    EXPECT_FALSE(sprite.LoadImageA("missing.png", &manager_, true));
    EXPECT_FALSE(sprite.LoadImageA("missing.png", true));
    EXPECT_FALSE(sprite.load_tex("missing.png", true));
    EXPECT_FALSE(sprite.load_tex(nullptr, true));
    EXPECT_EQ(sprite.GetSprite(), nullptr);
    EXPECT_EQ(CGameSprite("missing.png").GetSprite(), nullptr);
}

TEST_F(SpriteTest, SizesAreTheTexturesAndTheImages) {
    CGameSprite original(&manager_, "a.png", true);
    EXPECT_TRUE(original.GetWidth(true) == 100 && original.GetHeight(true) == 60);
    EXPECT_TRUE(original.GetWidth(false) == 128 && original.GetHeight(false) == 64);
    ExpectRect(original, 100, 60);
    CGameSprite created(&manager_, "a.png", false);
    ExpectRect(created, 128, 64);
    created.SetTexture(Recording().AddTexture(4, 4));
    EXPECT_EQ(created.GetWidth(true), 100) << "the sizes stay those of the loaded image";
}

TEST_F(SpriteTest, PassesItsStateOn) {
    CGameSprite sprite(&manager_, "a.png", true);
    sprite.SetColor(0x80112233, 2);
    sprite.SetZ(0.25f, 1);
    sprite.RenderStretch(1, 2, 3, 4);
    sprite.Render4V(1, 2, 3, 4, 5, 6, 7, 8);
    EXPECT_THAT(Recording().CallsMatching("Gfx"),
                ElementsAre("Gfx_RenderQuad(tex 1, 1,2 3,4)", "Gfx_RenderQuad(tex 1, 1,2 5,6)"));
    EXPECT_TRUE(Recording().quads[0].v[2].col == 0x80112233 && Recording().quads[0].v[1].z == 0.25f);
}

}  // namespace
