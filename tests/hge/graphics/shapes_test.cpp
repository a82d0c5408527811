// What is decided before a device sees it: areas, uploads, kinds of quads.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "graphics/atlas_uploads.h"
#include "graphics/geometry.h"
#include "graphics/pixel_shadow.h"
#include "graphics/quad_stream.h"

namespace test {

using hge::Box;
using hge::ClipBox;
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

TEST(PixelShadowTest, GivesOutOnlyAreasOfItsOwn) {
    PixelShadow shadow(8, 4);
    int most = std::numeric_limits<int>::max();
    const int areas[][4] = {{8, 0, 0, 0}, {0, 4, 0, 0},  {-1, 0, 2, 2},   {0, 0, 9, 1},
                            {7, 0, 2, 1}, {0, 0, -1, 1}, {0, 0, most, 1}, {4, 3, 1, 2}};
    for (auto [left, top, width, height] : areas)
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

TEST(AtlasUploadTest, RepeatsTheEdgesThatItTouches) {
    PixelShadow shadow(3, 2, {1, 2, 3, 4, 5, 6});
    hge::AtlasUpload upload;
    MakeAtlasUpload(shadow, {0, 0, 3, 2}, {0, 10, 20, 5, 4}, &upload);
    EXPECT_EQ(upload.box, (Box{10, 20, 15, 24}));
    EXPECT_THAT(upload.pixels, ElementsAre(1, 1, 2, 3, 3, 1, 1, 2, 3, 3, 4, 4, 5, 6, 6, 4, 4, 5, 6, 6));
    MakeAtlasUpload(shadow, {1, 1, 2, 2}, {0, 10, 20, 5, 4}, &upload);
    EXPECT_EQ(upload.box, (Box{12, 22, 13, 24}));
    EXPECT_THAT(upload.pixels, ElementsAre(5, 5));
}

TEST(AtlasUploadTest, NeighboursOfAShelfGoTogether) {
    PixelShadow low(1, 1, {7}), high(1, 2, {8, 9}), large(200, 200);
    hge::AtlasUploads uploads;
    uploads.Add({0, 3, 0, 3, 4}, high);
    uploads.Add({1, 6, 0, 3, 3}, low);
    uploads.Add({0, 0, 0, 3, 3}, low);
    uploads.Add({0, 9, 0, 3, 3}, low);
    uploads.Add({0, 0, 4, 3, 3}, low);
    uploads.Add({2, 0, 0, 202, 202}, large);
    uploads.Add({2, 202, 0, 202, 202}, large);
    std::vector<std::pair<int, Box>> sent;
    std::vector<std::vector<uint32_t>> pixels;
    uploads.Send([&](int page, const hge::AtlasUpload& upload) {
        sent.push_back({page, upload.box});
        pixels.push_back(upload.pixels);
    });
    EXPECT_THAT(pixels[0],
                ElementsAre(7, 7, 7, 8, 8, 8, 7, 7, 7, 8, 8, 8, 7, 7, 7, 9, 9, 9, 0, 0, 0, 9, 9, 9));
    EXPECT_THAT(sent, ElementsAre(std::pair(0, Box{0, 0, 6, 4}), std::pair(0, Box{9, 0, 12, 3}),
                                  std::pair(0, Box{0, 4, 3, 7}), std::pair(1, Box{6, 0, 9, 3}),
                                  std::pair(2, Box{0, 0, 202, 202}), std::pair(2, Box{202, 0, 404, 202})));
    EXPECT_TRUE(uploads.empty());
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

// A stream into plain memory, between bytes that must stay as they are.
class StreamTest : public QuadTest {
 protected:
    StreamTest() {
        std::memset(room_, 0x5A, sizeof room_);
        stream_.textures().Reserve(3);
        hge::TextureRecord& record = stream_.textures().Start(kTexture);
        record.placement = {0.5f, 0.25f, 0.125f, 0.0625f, 7};
        record.source = kSource;
        stream_.Open(kSource, 0, room_, 2);
    }

    static constexpr uint32_t kTexture = 0x10040002;
    const hge::TextureSource* const kSource = reinterpret_cast<const hge::TextureSource*>(this);
    hge::QuadStream stream_;
    hge::DeviceVertex room_[9];
};

TEST_F(StreamTest, WritesEveryCornerWhereTheTextureLies) {
    for (int i = 0; i < 4; ++i)
        v_[i].z = static_cast<float>(i) / 4;
    ASSERT_TRUE(stream_.Add(v_, kTexture, 3));
    EXPECT_EQ(stream_.pending(), 1);
    for (int i = 0; i < 4; ++i) {
        const hge::DeviceVertex& out = room_[i];
        EXPECT_EQ(std::memcmp(&out, &v_[i], 16), 0) << "position and colour";
        EXPECT_EQ(out.u, v_[i].tx * 0.5f + 0.125f);
        EXPECT_EQ(out.v, v_[i].ty * 0.25f + 0.0625f);
        EXPECT_EQ(out.mode, hge::kModeAlphaBlend | hge::kModeColorAdd | 7);
    }
    EXPECT_EQ(room_[4].mode, 0x5A5A5A5Au);
    EXPECT_TRUE(stream_.Add(v_, kTexture, 0));
    EXPECT_FALSE(stream_.Add(v_, kTexture, 0)) << "full";
    EXPECT_EQ(room_[8].color, 0x5A5A5A5Au);
    EXPECT_EQ(room_[7].mode, 7u);
}

TEST_F(StreamTest, LeavesToTheSceneWhatNeedsMoreThanWriting) {
    for (uint32_t other : {0u, 0x10080002u, 0x10040000u, 0x10040006u, 0xFFFFFFFFu})
        EXPECT_FALSE(stream_.Add(v_, other, 0)) << std::hex << other;
    EXPECT_FALSE(stream_.AddAsIs(v_, kTexture, kTexture, 0));
    stream_.SetTransformed(true);
    EXPECT_FALSE(stream_.AddAsIs(v_, kTexture, 0, 0));
    stream_.SetDepthBit(4);
    EXPECT_FALSE(stream_.Add(v_, kTexture, 4));
    stream_.textures().At(kTexture).source = nullptr;
    EXPECT_FALSE(stream_.Add(v_, kTexture, 0)) << "its pixels have changed";
    EXPECT_EQ(stream_.pending(), 0);
    stream_.textures().At(kTexture).source = kSource;
    EXPECT_TRUE(stream_.Add(v_, kTexture, 0));
    EXPECT_EQ(stream_.Close(), 1);
    EXPECT_FALSE(stream_.Add(v_, kTexture, 0)) << "no batch is open";
}

}  // namespace test
