#include "hgesprite.h"

#include "support/recording_test.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Floats = std::vector<float>;

const float kQuarterTurn = 1.57079633f;

class SpriteTest : public RecordingTest {
 protected:
    // The corners of the one quad drawn, x and y in turn.
    static Floats Drawn() {
        Floats corners;
        EXPECT_EQ(Recording().quads.size(), 1u);
        for (const hgeVertex& v : Recording().quads.at(0).v)
            corners.insert(corners.end(), {v.x, v.y});
        Recording().ClearCalls();
        return corners;
    }
    // Left, top, right, bottom of the quad's texture coordinates; the other corners must agree.
    static Floats Coords(const hgeSprite& sprite) {
        const hgeVertex* v = sprite.GetQuad().v;
        EXPECT_TRUE(v[0].tx == v[3].tx && v[1].tx == v[2].tx && v[0].ty == v[1].ty && v[2].ty == v[3].ty);
        return {v[0].tx, v[0].ty, v[2].tx, v[2].ty};
    }
    static Floats HotSpot(const hgeSprite& sprite) {
        Floats point(2);
        sprite.GetHotSpot(&point[0], &point[1]);
        return point;
    }
    static auto Near(const Floats& values) { return testing::Pointwise(testing::FloatNear(1e-3f), values); }

    // Part of a source of 100 x 60 in a created texture of 128 x 64.
    hgeSprite Make() { return hgeSprite(Recording().AddTexture(128, 64, 100, 60), 32, 16, 64, 32); }
};

TEST_F(SpriteTest, DrawsItsTexturesAndColoursOrAPlainColour) {
    HTEXTURE first = Recording().AddTexture(8, 8), second = Recording().AddTexture(8, 8);
    hgeSprite(first, 0, 0, 8, 8, second).Render(0, 0);
    const hgeQuad both = Recording().quads.at(0);
    EXPECT_TRUE(both.tex == first && both.tex2 == second);
    Recording().ClearCalls();

    hgeSprite sprite(0, 0, 0, 20, 10);
    EXPECT_TRUE(sprite.GetColor() == 0xFFFFFFFF && sprite.GetZ() == 0.5f);
    sprite.SetColor(0x80FF0000);
    sprite.SetColor(0xFF445566, 2);
    sprite.SetZ(0.25f);
    sprite.SetZ(0.75f, 1);
    sprite.Render(1, 2);
    const hgeQuad plain = Recording().quads.at(0);
    EXPECT_TRUE(plain.tex == 0 && plain.v[3].col == 0x80FF0000 && plain.v[2].col == 0xFF445566);
    EXPECT_TRUE(plain.v[0].z == 0.25f && plain.v[1].z == 0.75f);
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
    hgeSprite(0, 0, 0, 5, 5).Render(0, 0);
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(SpriteTest, DrawsItsHotSpotAtThePointUnlessPlacedByCorners) {
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
    sprite.RenderStretch(1, 2, 30, 40);
    EXPECT_THAT(Drawn(), ElementsAre(1, 2, 30, 2, 30, 40, 1, 40));
    sprite.Render4V(1, 2, 3, 4, 5, 6, 7, 8);
    EXPECT_THAT(Drawn(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(SpriteTest, FlipsSwapTheCoordinatesAndKeepTheCorners) {
    hgeSprite sprite = Make();
    sprite.SetFlip(true, false);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.75f, 0.25f, 0.25f, 0.75f));
    sprite.SetFlip(true, true);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.75f, 0.75f, 0.25f, 0.25f));
    sprite.SetTextureRect(0, 0, 64, 32);
    EXPECT_THAT(Coords(sprite), ElementsAre(0.5f, 0.5f, 0, 0));
    sprite.SetFlip(false, false);
    EXPECT_THAT(Coords(sprite), ElementsAre(0, 0, 0.5f, 0.5f));
}

TEST_F(SpriteTest, MirrorsTheHotSpotOnlyWhenAsked) {
    hgeSprite sprite = Make();
    sprite.SetHotSpot(10, 4);
    sprite.SetFlip(true, true);
    EXPECT_THAT(HotSpot(sprite), ElementsAre(10, 4));
    sprite.SetFlip(true, false, true);
    EXPECT_THAT(HotSpot(sprite), ElementsAre(54, 4));
    sprite.SetFlip(true, true, true);
    EXPECT_THAT(HotSpot(sprite), ElementsAre(54, 28));
    sprite.SetTextureRect(0, 0, 20, 32);
    EXPECT_THAT(HotSpot(sprite), ElementsAre(10, 28));
    sprite.SetFlip(false, false, false);
    EXPECT_THAT(HotSpot(sprite), ElementsAre(10, 4));
}

TEST_F(SpriteTest, TheRectangleStaysInPixelsAndSizesTheSpriteWhenAdjusted) {
    hgeSprite sprite = Make();
    sprite.SetTexture(Recording().AddTexture(256, 256));
    EXPECT_THAT(Coords(sprite), ElementsAre(0.125f, 0.0625f, 0.375f, 0.1875f));
    sprite.SetTexture(0);
    EXPECT_THAT(Coords(sprite), ElementsAre(32, 16, 96, 48));
    sprite.SetTextureRect(0, 32, 128, 16, false);
    EXPECT_TRUE(sprite.GetWidth() == 64 && sprite.GetHeight() == 32);
    EXPECT_THAT(Coords(sprite), ElementsAre(0, 32, 128, 48));
    sprite.SetTextureRect(0, 0, 10, 20);
    EXPECT_TRUE(sprite.GetWidth() == 10 && sprite.GetHeight() == 20);
}

TEST_F(SpriteTest, BoundingBoxesCoverWhatIsDrawn) {
    hgeSprite sprite = Make();
    sprite.SetHotSpot(10, 4);
    hgeRect box;
    EXPECT_EQ(sprite.GetBoundingBox(100, 50, &box), &box);
    EXPECT_THAT(Edges(box), ElementsAre(90, 46, 154, 78));
    sprite.GetBoundingBoxEx(100, 50, kQuarterTurn, 1, 2, &box);
    EXPECT_THAT(Edges(box), Near({44, 40, 108, 104}));
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
