#include "hgesprite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_hge.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const float kQuarterTurn = 1.57079633f;

class SpriteTest : public testing::Test {
 protected:
    void SetUp() override { Recording().Reset(); }
    void TearDown() override {
        EXPECT_EQ(Recording().references, 0);
        EXPECT_THAT(Recording().Faults(), IsEmpty());
    }

    // The corners of the one quad drawn, x and y in turn.
    static std::vector<float> Drawn() {
        std::vector<float> corners;
        EXPECT_EQ(Recording().quads.size(), 1u);
        for (const hgeVertex& v : Recording().quads.at(0).v) {
            corners.push_back(v.x);
            corners.push_back(v.y);
        }
        Recording().ClearCalls();
        return corners;
    }

    // Left, top, right, bottom of the quad's texture coordinates; the other corners must agree.
    static std::vector<float> Coords(const hgeSprite& sprite) {
        const hgeVertex* v = sprite.GetQuad().v;
        EXPECT_EQ(v[0].tx, v[3].tx);
        EXPECT_EQ(v[1].tx, v[2].tx);
        EXPECT_EQ(v[0].ty, v[1].ty);
        EXPECT_EQ(v[2].ty, v[3].ty);
        return {v[0].tx, v[0].ty, v[2].tx, v[2].ty};
    }

    static auto Near(std::vector<float> values) {
        std::vector<testing::Matcher<float>> matchers;
        for (float value : values)
            matchers.push_back(testing::FloatNear(value, 1e-3f));
        return testing::ElementsAreArray(matchers);
    }

    // Source 100 x 60 in a created texture of 128 x 64.
    HTEXTURE tex_ = 0;
    hgeSprite Make() {
        tex_ = Recording().AddTexture(128, 64, 100, 60);
        return hgeSprite(tex_, 32, 16, 64, 32);
    }
};

TEST_F(SpriteTest, IsNewWhiteHalfwayDeepAndBlended) {
    hgeSprite sprite = Make();
    const hgeQuad& quad = sprite.GetQuad();
    for (const hgeVertex& v : quad.v) {
        EXPECT_EQ(v.col, 0xFFFFFFFFu);
        EXPECT_EQ(v.z, 0.5f);
    }
    EXPECT_EQ(sprite.GetTexture(), tex_);
    EXPECT_EQ(quad.tex2, 0u);
    EXPECT_EQ(sprite.GetBlendMode(), BLEND_DEFAULT);
    float x = 1, y = 1;
    sprite.GetHotSpot(&x, &y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.25f, 0.25f, 0.75f, 0.75f));
}

TEST_F(SpriteTest, KeepsTheSecondTextureInItsQuad) {
    HTEXTURE first = Recording().AddTexture(8, 8), second = Recording().AddTexture(8, 8);
    hgeSprite sprite(first, 0, 0, 8, 8, second);
    sprite.Render(0, 0);
    EXPECT_EQ(Recording().quads.at(0).tex, first);
    EXPECT_EQ(Recording().quads.at(0).tex2, second);
}

TEST_F(SpriteTest, WithoutATextureIsAPlainColour) {
    hgeSprite sprite(0, 0, 0, 20, 10);
    sprite.SetColor(0x80FF0000);
    sprite.Render(1, 2);
    EXPECT_EQ(Recording().quads.at(0).tex, 0u);
    EXPECT_EQ(Recording().quads.at(0).v[2].col, 0x80FF0000u);
    EXPECT_THAT(Drawn(), ElementsAre(1, 2, 21, 2, 21, 12, 1, 12));
}

TEST_F(SpriteTest, DeadTexturesAndWrongCornersAreHarmless) {
    hgeSprite sprite(77, 0, 0, 5, 5);
    EXPECT_THAT(Coords(sprite), ElementsAre(0, 0, 5, 5));
    sprite.SetColor(1, 4);
    sprite.SetZ(1, -2);
    EXPECT_EQ(sprite.GetColor(3), 0xFFFFFFFFu);
    EXPECT_EQ(sprite.GetColor(4), 0u);
    EXPECT_EQ(sprite.GetZ(-1), 0);
    EXPECT_EQ(sprite.GetBoundingBox(0, 0, nullptr), nullptr);
    EXPECT_EQ(sprite.GetBoundingBoxEx(0, 0, 1, 1, 1, nullptr), nullptr);

    Recording().create_fails = true;
    hgeSprite without_framework(0, 0, 0, 5, 5);
    without_framework.Render(0, 0);
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(SpriteTest, DrawsItsHotSpotAtThePoint) {
    hgeSprite sprite = Make();
    sprite.SetHotSpot(10, 4);
    sprite.Render(100, 50);
    EXPECT_THAT(Drawn(), ElementsAre(90, 46, 154, 46, 154, 78, 90, 78));
    sprite.RenderEx(100, 50, 0, 2);
    EXPECT_THAT(Drawn(), ElementsAre(80, 42, 208, 42, 208, 106, 80, 106));
    sprite.RenderEx(100, 50, 0, 2, 0.5f);
    EXPECT_THAT(Drawn(), ElementsAre(80, 48, 208, 48, 208, 64, 80, 64));
    sprite.RenderEx(100, 50, kQuarterTurn);
    EXPECT_THAT(Drawn(), Near({104, 40, 104, 104, 72, 104, 72, 40}));
}

TEST_F(SpriteTest, StretchesAndTakesFourCornersAsGiven) {
    hgeSprite sprite = Make();
    sprite.SetHotSpot(10, 4);
    sprite.RenderStretch(1, 2, 30, 40);
    EXPECT_THAT(Drawn(), ElementsAre(1, 2, 30, 2, 30, 40, 1, 40));
    sprite.Render4V(1, 2, 3, 4, 5, 6, 7, 8);
    EXPECT_THAT(Drawn(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(SpriteTest, ColoursAndDepthsGoToOneCornerOrAll) {
    hgeSprite sprite = Make();
    sprite.SetColor(0xFF112233);
    sprite.SetColor(0xFF445566, 2);
    sprite.SetZ(0.25f);
    sprite.SetZ(0.75f, 1);
    EXPECT_EQ(sprite.GetColor(), 0xFF112233u);
    EXPECT_EQ(sprite.GetColor(2), 0xFF445566u);
    EXPECT_EQ(sprite.GetZ(), 0.25f);
    EXPECT_EQ(sprite.GetZ(1), 0.75f);
}

TEST_F(SpriteTest, FlipsSwapTheCoordinatesAndKeepTheCorners) {
    hgeSprite sprite = Make();
    sprite.SetFlip(true, false);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.75f, 0.25f, 0.25f, 0.75f));
    sprite.SetFlip(true, true);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.75f, 0.75f, 0.25f, 0.25f));
    sprite.SetTextureRect(0, 0, 64, 32);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.5f, 0.5f, 0, 0));
    bool x = false, y = false;
    sprite.GetFlip(&x, &y);
    EXPECT_TRUE(x && y);
    sprite.SetFlip(false, false);
    EXPECT_THAT(Coords(sprite), ElementsAre(0, 0, 0.5f, 0.5f));
}

TEST_F(SpriteTest, MirrorsTheHotSpotOnlyWhenAsked) {
    hgeSprite sprite = Make();
    float x = 0, y = 0;
    const auto hot_spot = [&] {
        sprite.GetHotSpot(&x, &y);
        return std::vector<float>{x, y};
    };
    sprite.SetHotSpot(10, 4);
    sprite.SetFlip(true, true);
    EXPECT_THAT(hot_spot(), ElementsAre(10, 4));
    sprite.SetFlip(true, false, true);
    EXPECT_THAT(hot_spot(), ElementsAre(54, 4));
    sprite.SetFlip(true, true, true);
    EXPECT_THAT(hot_spot(), ElementsAre(54, 28));
    sprite.SetTextureRect(0, 0, 20, 32);
    EXPECT_THAT(hot_spot(), ElementsAre(10, 28));
    sprite.SetFlip(false, false, false);
    EXPECT_THAT(hot_spot(), ElementsAre(10, 4));
}

TEST_F(SpriteTest, TheDrawnSizeFollowsTheRectangleOnlyWhenAdjusted) {
    hgeSprite sprite = Make();
    sprite.SetTextureRect(0, 32, 128, 16, false);
    EXPECT_EQ(sprite.GetWidth(), 64);
    EXPECT_EQ(sprite.GetHeight(), 32);
    EXPECT_THAT(Coords(sprite), ElementsAre(0, 0.5f, 1, 0.75f));
    float x, y, w, h;
    sprite.GetTextureRect(&x, &y, &w, &h);
    EXPECT_THAT((std::vector<float>{x, y, w, h}), ElementsAre(0, 32, 128, 16));
    sprite.SetTextureRect(0, 0, 10, 20);
    EXPECT_EQ(sprite.GetWidth(), 10);
    EXPECT_EQ(sprite.GetHeight(), 20);
}

TEST_F(SpriteTest, AnotherTextureKeepsTheRectangleInPixels) {
    hgeSprite sprite = Make();
    sprite.SetTexture(Recording().AddTexture(256, 256));
    EXPECT_THAT(Coords(sprite), ElementsAre(0.125f, 0.0625f, 0.375f, 0.1875f));
    sprite.SetTexture(0);
    EXPECT_THAT(Coords(sprite), ElementsAre(32, 16, 96, 48));
}

TEST_F(SpriteTest, BoundingBoxesCoverWhatIsDrawn) {
    hgeSprite sprite = Make();
    sprite.SetHotSpot(10, 4);
    hgeRect box;
    EXPECT_EQ(sprite.GetBoundingBox(100, 50, &box), &box);
    EXPECT_THAT((std::vector<float>{box.x1, box.y1, box.x2, box.y2}), ElementsAre(90, 46, 154, 78));
    sprite.GetBoundingBoxEx(100, 50, kQuarterTurn, 1, 2, &box);
    EXPECT_THAT((std::vector<float>{box.x1, box.y1, box.x2, box.y2}), Near({44, 40, 108, 104}));
    EXPECT_FALSE(box.IsClean());
}

TEST_F(SpriteTest, CopiesDrawAlikeAndHoldTheirOwnReference) {
    hgeSprite sprite = Make();
    sprite.SetFlip(true, false);
    sprite.SetHotSpot(1, 2);
    hgeSprite copy(sprite), assigned(0, 0, 0, 1, 1);
    assigned = sprite;
    EXPECT_EQ(Recording().references, 3);
    for (hgeSprite* other : {&copy, &assigned}) {
        EXPECT_THAT(Coords(*other), ElementsAre(0.75f, 0.25f, 0.25f, 0.75f));
        other->Render(1, 2);
        EXPECT_THAT(Drawn(), ElementsAre(0, 0, 64, 0, 64, 32, 0, 32));
    }
}

}  // namespace
