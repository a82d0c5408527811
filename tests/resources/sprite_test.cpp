#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drill2d/resources.h"
#include "hgesprite.h"
#include "support/recording_hge.h"

using testing::IsEmpty;

namespace {

class SpriteTest : public testing::Test {
 protected:
    void SetUp() override {
        Recording().Reset();
        Recording().files["a.png"] = "image";
        Recording().texture_load = [](const char*, DWORD, bool) {
            return Recording().AddTexture(128, 64, 100, 60);
        };
        // So that the cache takes no reference of its own, which would stay.
        CGameResourceManager::getInstance()->AttachHge(&Recording());
        manager_.AttachPacket("x.zip");
        manager_.SetCurPacket("x.zip");
    }
    void TearDown() override {
        EXPECT_EQ(Recording().references, 0);
        EXPECT_THAT(Recording().Faults(), IsEmpty());
    }

    static void ExpectRect(CGameSprite& sprite, float w, float h) {
        float rect[4] = {};
        sprite.GetTextureRect(&rect[0], &rect[1], &rect[2], &rect[3]);
        EXPECT_THAT(rect, testing::ElementsAre(0, 0, w, h));
    }

    CGameResourceManager manager_{&Recording()};
};

TEST_F(SpriteTest, EmptyOnesIgnoreEverything) {
    CGameSprite sprite;
    sprite.Render(1, 2);
    sprite.RenderEx(1, 2, 3, 4, 5);
    sprite.RenderStretch(1, 2, 3, 4);
    sprite.Render4V(1, 2, 3, 4, 5, 6, 7, 8);
    sprite.SetTexture(5);
    sprite.SetTextureRect(1, 2, 3, 4, true);
    sprite.SetColor(1, 9);
    sprite.SetZ(1, 9);
    sprite.SetBlendMode(1);
    sprite.SetHotSpot(1, 2);
    sprite.SetFlip(true, true, true);
    float value = 7;
    bool flag = true;
    hgeRect rect(1, 2, 3, 4);
    sprite.GetTextureRect(&value, &value, &value, &value);
    sprite.GetHotSpot(&value, &value);
    sprite.GetFlip(&flag, &flag);
    EXPECT_TRUE(value == 7 && flag);
    EXPECT_TRUE(!sprite.GetBoundingBox(0, 0, &rect) && !sprite.GetBoundingBoxEx(0, 0, 0, 1, 1, &rect));
    EXPECT_TRUE(rect.x2 == 3 && !sprite.GetSprite() && Recording().quads.empty());
    EXPECT_TRUE(!sprite.GetTexture() && !sprite.GetColor(0) && !sprite.GetBlendMode() && !sprite.GetZ(0));
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
}

TEST_F(SpriteTest, EachTextureIsFreedByItsOwnerAlone) {
    auto live = [] { return Recording().textures.size(); };
    { CGameSprite by_manager(&manager_, "a.png", true); }
    EXPECT_EQ(live(), 1u) << "the manager's index owns it";
    { CGameSprite by_file("b.png"); }
    EXPECT_EQ(live(), 1u) << "the sprite freed its own";
    HTEXTURE second = Recording().AddTexture(8, 8);
    {
        CGameSprite over(Recording().AddTexture(16, 32), second);
        ExpectRect(over, 16, 32);
        EXPECT_EQ(over.GetSprite()->GetQuad().tex2, second);
    }
    EXPECT_EQ(live(), 2u) << "the first texture was the sprite's, the second was not";
    CGameSprite cached, again;
    EXPECT_TRUE(cached.load_tex("c.png", true));
    EXPECT_TRUE(again.load_tex("c.png", true));
    EXPECT_EQ(cached.GetTexture(), again.GetTexture());
    EXPECT_EQ(live(), 3u);
    manager_.FreePacketResource("x.zip");
    EXPECT_EQ(live(), 2u);
}

TEST_F(SpriteTest, StateAndDrawingGoToThePlatformSprite) {
    CGameSprite sprite(&manager_, "a.png", true);
    sprite.SetHotSpot(10, 20);
    sprite.Render(200, 100);
    sprite.RenderEx(200, 100, 0, 2, 3);
    sprite.RenderEx(200, 100, 3.14159265f, 1, 1);
    sprite.RenderStretch(1, 2, 30, 40);
    sprite.Render4V(1, 2, 3, 4, 5, 6, 7, 8);
    EXPECT_THAT(
        Recording().CallsMatching("Gfx"),
        testing::ElementsAre("Gfx_RenderQuad(tex 1, 190,80 290,140)", "Gfx_RenderQuad(tex 1, 180,40 380,220)",
                             "Gfx_RenderQuad(tex 1, 210,120 110,60)", "Gfx_RenderQuad(tex 1, 1,2 30,40)",
                             "Gfx_RenderQuad(tex 1, 1,2 5,6)"));
    sprite.SetTextureRect(10, 20, 30, 40, true);
    sprite.SetColor(0x80112233, 2);
    sprite.SetZ(0.25f, 1);
    sprite.SetBlendMode(BLEND_COLORADD);
    sprite.SetHotSpot(5, 6);
    sprite.SetFlip(true, false, false);
    EXPECT_TRUE(sprite.GetColor(2) == 0x80112233 && sprite.GetColor(0) == 0xFFFFFFFF);
    EXPECT_TRUE(sprite.GetZ(1) == 0.25f && sprite.GetBlendMode() == BLEND_COLORADD);
    bool flip_x = false, flip_y = true;
    sprite.GetFlip(&flip_x, &flip_y);
    EXPECT_TRUE(flip_x && !flip_y);
    hgeRect box;
    EXPECT_EQ(sprite.GetBoundingBox(100, 200, &box), &box);
    EXPECT_THAT((std::vector<float>{box.x1, box.y1, box.x2, box.y2}),
                testing::ElementsAre(95, 194, 125, 234));
    sprite.SetTexture(Recording().AddTexture(4, 4));
    EXPECT_EQ(sprite.GetWidth(true), 100) << "the sizes stay those of the loaded image";
}

}  // namespace
