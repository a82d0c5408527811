// What is decided before a device sees it: areas, transformations, lines, vertices, ring places.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graphics/geometry.h"
#include "graphics/pixel_shadow.h"
#include "graphics/quad_writer.h"
#include "graphics/ring_cursor.h"

namespace test {

using hge::Box;
using hge::ClipBox;
using hge::DeviceVertex;
using hge::PixelShadow;
using hge::QuadKind;
using hge::Vertex;
using testing::ElementsAre;

TEST(ClipBoxTest, StaysOnTheSurface) {
    EXPECT_EQ(ClipBox(10, 20, 30, 40, 100, 100), (Box{10, 20, 40, 60}));
    EXPECT_EQ(ClipBox(-10, -10, 30, 300, 100, 100), (Box{0, 0, 20, 100}));
    EXPECT_EQ(ClipBox(5, 5, 0, 10, 100, 50), (Box{0, 0, 100, 50})) << "no width: no clipping";
    EXPECT_TRUE(ClipBox(200, 0, 10, 10, 100, 100).empty());
    EXPECT_TRUE(ClipBox(50, 50, -10, 10, 100, 100).empty());
    int most = std::numeric_limits<int>::max();
    EXPECT_EQ(ClipBox(most, 5, most, most, 100, 100), Box{}) << "no overflow";
    EXPECT_EQ(ClipBox(1, 2, most, most, 100, 100), (Box{1, 2, 100, 100}));
}

TEST(TransformTest, TurnsClockwiseAboutThePointAndMoves) {
    hge::Transform transform(10, 10, 5, 0, std::acos(-1.0f) / 2, 2, 3);
    float x = 11, y = 10;
    transform.Apply(&x, &y);
    EXPECT_NEAR(x, 15, 1e-4);
    EXPECT_NEAR(y, 12, 1e-4) << "the x axis points down, twice as long";
    EXPECT_TRUE(hge::Transform(10, 10, 5, 0, 1, 1, 0).identity());
}

TEST(PixelShadowTest, GivesOutOnlyAreasOfItsOwn) {
    PixelShadow shadow(8, 4);
    for (auto [left, top, width, height] : {std::tuple{8, 0, 0, 0},
                                            {0, 4, 0, 0},
                                            {-1, 0, 2, 2},
                                            {0, 0, 9, 1},
                                            {7, 0, 2, 1},
                                            {0, 0, -1, 1},
                                            {0, 0, std::numeric_limits<int>::max(), 1},
                                            {4, 3, 1, 2}})
        EXPECT_EQ(shadow.Lock(false, left, top, width, height), nullptr)
            << left << ' ' << top << ' ' << width;
    uint32_t* pixel = shadow.Lock(false, 3, 1, 2, 2);
    EXPECT_EQ(pixel, shadow.Pixel(3, 1));
    EXPECT_EQ(shadow.Lock(true, 0, 0, 0, 0), nullptr) << "locked already";
    Box changed;
    EXPECT_TRUE(shadow.Unlock(&changed));
    EXPECT_EQ(changed, (Box{3, 1, 5, 3}));
    EXPECT_FALSE(shadow.Unlock(&changed));
}

TEST(PixelShadowTest, AnUploadRepeatsTheEdgesThatItTouches) {
    PixelShadow shadow(3, 2, {1, 2, 3, 4, 5, 6});
    hge::AtlasUpload upload;
    MakeAtlasUpload(shadow, {0, 0, 3, 2}, &upload);
    EXPECT_EQ(upload.box, (Box{0, 0, 5, 4}));
    EXPECT_THAT(upload.pixels, ElementsAre(1, 1, 2, 3, 3, 1, 1, 2, 3, 3, 4, 4, 5, 6, 6, 4, 4, 5, 6, 6));
    MakeAtlasUpload(shadow, {1, 1, 2, 2}, &upload);
    EXPECT_EQ(upload.box, (Box{2, 2, 3, 4}));
    EXPECT_THAT(upload.pixels, ElementsAre(5, 5));
}

class QuadTest : public testing::Test {
 protected:
    Vertex v_[4] = {{0, 0, 0, 0xFF0000FF, 0, 0},
                    {8, 0, 0, 0xFF00FF00, 1, 0},
                    {8, 8, 0, 0xFFFF0000, 1, 1},
                    {0, 8, 0, 0x7FC00000, 0, 1}};

    QuadKind Kind() const { return hge::Classify(v_); }
};

TEST_F(QuadTest, TellsPlainFromTiledFromNonsense) {
    EXPECT_EQ(Kind(), QuadKind::kPlain) << "a colour may look like no number";
    v_[1].tx = v_[2].tx = 1.0000001f;
    EXPECT_EQ(Kind(), QuadKind::kPlain) << "rounding errors do not tile";
    v_[1].tx = 1.01f;
    EXPECT_EQ(Kind(), QuadKind::kTiled);
    v_[1].tx = 1e9f;
    EXPECT_EQ(Kind(), QuadKind::kNonsense);
    for (float bad : {std::nanf(""), -INFINITY, 1e8f, -3e38f})
        for (int corner = 0; corner < 4; ++corner)
            for (float Vertex::*field : {&Vertex::x, &Vertex::y, &Vertex::z, &Vertex::tx, &Vertex::ty}) {
                Vertex good = v_[corner];
                v_[corner].*field = bad;
                EXPECT_EQ(Kind(), QuadKind::kNonsense);
                v_[corner] = good;
            }
}

TEST_F(QuadTest, PlacesCoordinatesInTheirPage) {
    DeviceVertex out[4];
    hge::Placement placement{0.25f, 0.125f, 0.5f, 0.75f, 3};
    hge::WriteQuad(v_, placement, hge::kModeAlphaBlend | hge::kModeColorAdd, out);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(out[i].x, v_[i].x);
        EXPECT_EQ(out[i].y, v_[i].y);
        EXPECT_EQ(out[i].color, v_[i].color);
        EXPECT_EQ(out[i].u, 0.5f + 0.25f * v_[i].tx);
        EXPECT_EQ(out[i].v, 0.75f + 0.125f * v_[i].ty);
        EXPECT_EQ(out[i].mode, 0x00FFFF03u);
    }
}

TEST(RingCursorTest, StartsAfreshWhenFullAndOnlyThen) {
    hge::RingCursor cursor(3);
    EXPECT_TRUE(cursor.fresh());
    EXPECT_EQ(cursor.Add(), 0);
    cursor.Drawn();
    EXPECT_FALSE(cursor.fresh());
    EXPECT_EQ(cursor.Add(), 1);
    EXPECT_EQ(cursor.Add(), 2);
    EXPECT_TRUE(cursor.full());
    EXPECT_EQ(cursor.first(), 1);
    EXPECT_EQ(cursor.pending(), 2);
    cursor.Drawn();
    EXPECT_TRUE(cursor.fresh());
}

}  // namespace test
