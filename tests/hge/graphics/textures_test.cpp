// Textures by what can be drawn from them, and what that costs.
#include "hge/graphics/renderer_fixture.h"

namespace test {

using testing::HasSubstr;

using TexturesTest = RendererTest;

constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kBlue = 0xFF0000FF;

TEST_F(TexturesTest, ImpossibleSizesAreRefusedWithTheReason) {
    for (auto [width, height] : {std::pair{0, 5}, {5, -1}, {100000, 5}, {5, 2000000000}}) {
        EXPECT_EQ(gfx().CreateTexture(width, height), 0u);
        EXPECT_THAT(log().LastError(), HasSubstr(std::to_string(width) + " x " + std::to_string(height)));
        EXPECT_EQ(gfx().CreateTarget(width, height, false), 0u);
        EXPECT_THAT(log().LastError(), HasSubstr("a target of " + std::to_string(width)));
    }
    hge::Image torn{4, 4, std::vector<uint32_t>(15)};
    EXPECT_EQ(gfx().CreateTexture(torn, false, "torn.png"), 0u);
    EXPECT_THAT(log().LastError(), HasSubstr("torn.png"));
}

TEST_F(TexturesTest, DeadOnesAreNotDrawnAndNewOnesAreTransparent) {
    HTEXTURE dead = MakePlain(4, 4, kRed);
    gfx().FreeTexture(dead);
    HTEXTURE reused = MakePlain(4, 4, kBlue);
    EXPECT_NE(dead, reused);
    // Not even in a batch that the one in its place has started.
    hge::Image screen = Screen([&] {
        DrawQuad(20, 0, 9, 9, reused);
        DrawQuad(0, 0, 9, 9, dead);
    });
    EXPECT_EQ(At(screen, 24, 4), kBlue);
    EXPECT_EQ(At(screen, 4, 4), 0xFF000000);
    Forget(dead);
    HTEXTURE fresh = gfx().CreateTexture(33, 17);
    EXPECT_TRUE(gfx().TextureWidth(fresh, false) == 33 && gfx().TextureHeight(fresh, true) == 17);
    EXPECT_EQ(At(Screen([&] { DrawQuad(0, 0, 9, 9, fresh); }, kRed), 4, 4), kRed) << "transparent";
    gfx().FreeTexture(fresh);
}

TEST_F(TexturesTest, WritingAPartSendsThatPartOnly) {
    for (int size : {40, 300}) {
        HTEXTURE texture = MakePlain(size, size, kBlue);
        auto side = static_cast<float>(size);
        auto draw = [&] { DrawQuad(0, 0, side, side, texture); };
        Screen(draw);
        Work();
        EXPECT_EQ(gfx().LockTexture(texture, false, 4, 4, size, 1), nullptr);
        EXPECT_THAT(LogText(), HasSubstr("40 x 1 pixels at (4, 4) leave the texture of 40 x 40"));
        EXPECT_NE(gfx().LockTexture(texture, true, 0, 0, 0, 0), nullptr);
        EXPECT_EQ(gfx().LockTexture(texture, true, 0, 0, 0, 0), nullptr);
        EXPECT_THAT(LogText(), HasSubstr("the texture is locked already"));
        gfx().UnlockTexture(texture);
        Screen(draw);
        EXPECT_EQ(Work().uploads, 0u) << "reading sends nothing";

        Write(texture, 5, 6, 7, 8, kRed);
        Write(texture, 10, 7, 3, 2, kRed);
        EXPECT_EQ(Work().uploads, 0u) << "nothing is sent before it is drawn";
        hge::Image screen = Screen(draw);
        hgeCounters work = Work();
        EXPECT_EQ(work.uploads, 1u);
        EXPECT_EQ(work.upload_bytes, 8u * 8 * 4);
        EXPECT_TRUE(
            SamePicture("part" + std::to_string(size), screen, MakePicture(320, 240, [&](int x, int y) {
                            bool red = (x >= 5 && x < 12 && y >= 6 && y < 14) || (x == 12 && y >= 7 && y < 9);
                            return red ? kRed : x < size && y < size ? kBlue : 0xFF000000;
                        })));
        Screen(draw);
        EXPECT_EQ(Work().uploads, 0u);
    }
}

// Pictures of one frame show what the texture was when the quad was drawn.
TEST_F(TexturesTest, PendingQuadsKeepThePixelsThatTheyWereDrawnWith) {
    HTEXTURE texture = MakePlain(10, 10, kRed);
    hge::Image screen = Screen([&] {
        DrawQuad(0, 0, 10, 10, texture);
        Write(texture, 0, 0, 10, 10, kBlue);
        DrawQuad(10, 0, 10, 10, texture);
        gfx().FreeTexture(texture);
        HTEXTURE in_its_place = MakePlain(10, 10, 0xFF00FF00);
        DrawQuad(20, 0, 10, 10, in_its_place);
    });
    Forget(texture);
    EXPECT_EQ(At(screen, 5, 5), kRed);
    EXPECT_EQ(At(screen, 15, 5), kBlue);
    EXPECT_EQ(At(screen, 25, 5), 0xFF00FF00);
    EXPECT_EQ(Work().draws, 3u);
}

TEST_F(TexturesTest, CoordinatesBeyondOneRepeatTheTexture) {
    for (int size : {16, 260}) {
        HTEXTURE texture = MakePattern(size, size);
        hgeQuad quad = Quad(0, 0, 320, 240, texture);
        for (hgeVertex& corner : quad.v) {
            corner.tx *= 320.0f / static_cast<float>(size);
            corner.ty *= 240.0f / static_cast<float>(size);
        }
        Work();
        hge::Image screen = Screen([&] {
            DrawQuad(0, 0, 10, 10, texture);
            gfx().RenderQuad(&quad);
        });
        EXPECT_TRUE(
            SamePicture("tiled" + std::to_string(size), screen,
                        MakePicture(320, 240, [&](int x, int y) { return Pattern(x % size, y % size); })));
        Work();
        Screen([&] { gfx().RenderQuad(&quad); });
        EXPECT_EQ(Work().uploads, 0u) << "it became a repeating one once";
    }
}

TEST_F(TexturesTest, MipmapsAverageWhatIsDrawnSmall) {
    hge::Image board =
        MakePicture(64, 64, [](int x, int y) { return (x ^ y) & 1 ? 0xFFFFFFFF : 0xFF000000; });
    HTEXTURE mipmapped = gfx().CreateTexture(board, true, "board");
    auto draw_small = [&] { DrawQuad(0, 0, 8, 8, mipmapped); };
    EXPECT_NEAR(static_cast<int>(At(Screen(draw_small), 4, 4) & 0xFF), 128, 2);
    Write(mipmapped, 0, 0, 64, 64, kRed);
    EXPECT_EQ(At(Screen(draw_small), 4, 4), kRed);
    gfx().FreeTexture(mipmapped);
}

TEST_F(TexturesTest, TenThousandQuadsOfTwoThousandTexturesAreOneDraw) {
    std::vector<HTEXTURE> textures;
    for (int i = 0; i < 2000; ++i)
        textures.push_back(MakePlain(8 + i % 24, 8 + i % 17, 0xFF000000 | static_cast<uint32_t>(i) * 77));
    auto draw = [&] {
        for (int i = 0; i < 10000; ++i)
            DrawQuad(static_cast<float>(i % 300), static_cast<float>(i % 200), 8, 8,
                     textures[i * 7919 % 2000], 0x80FFFFFF,
                     i % 4 == 0   ? BLEND_ALPHAADD
                     : i % 4 == 1 ? BLEND_COLORADD
                                  : BLEND_ZWRITE);
        DrawQuad(0, 0, 3, 3, 0);
        gfx().RenderLine(0, 0, 5, 5, kRed, 0.5f);
    };
    Screen(draw);
    Work();
    Screen(draw);
    hgeCounters work = Work();
    EXPECT_EQ(work.quads, 10002u);
    EXPECT_EQ(work.draws, 1u + (work.buffer_maps > 1)) << "one more where the ring ends";
    EXPECT_EQ(work.uploads, 0u);
}

TEST_F(TexturesTest, TheRingOfQuadsGoesRoundWithoutLosingAny) {
    HTEXTURE red = MakePlain(2, 2, kRed);
    for (int round = 0; round < 3; ++round) {
        hge::Image screen = Screen([&] {
            for (int i = 0; i < 20000; ++i)
                DrawQuad(static_cast<float>(i % 200), static_cast<float>(i / 200), 1, 1, red);
        });
        hgeCounters work = Work();
        EXPECT_EQ(work.quads, 20000u);
        EXPECT_LE(work.draws, 3u);
        EXPECT_EQ(work.buffer_maps, work.draws);
        EXPECT_TRUE(SamePicture("ring", screen, MakePicture(320, 240, [](int x, int y) {
                                    return x < 200 && y < 100 ? kRed : 0xFF000000;
                                })));
    }
}

TEST_F(TexturesTest, OnlyWhatStandsAloneEndsABatch) {
    HTEXTURE small = MakePlain(9, 9, kRed), other = MakePlain(7, 7, kBlue), large = MakePlain(300, 9, kBlue);
    auto draws = [&](const std::function<void()>& draw) {
        Screen(draw);
        Work();
        Screen(draw);
        return Work().draws;
    };
    auto quad = [](HTEXTURE texture) { DrawQuad(0, 0, 9, 9, texture); };
    EXPECT_EQ(draws([&] { quad(small), quad(0), quad(other), quad(small); }), 1u);
    EXPECT_EQ(draws([&] { quad(small), quad(large), quad(large), quad(other); }), 3u);
    EXPECT_EQ(draws([&] { quad(small), gfx().SetClipping(0, 0, 9, 9), quad(small); }), 2u);
    EXPECT_EQ(draws([&] { quad(small), gfx().SetTransform(1, 1, 1, 1, 1, 1, 1), quad(small); }), 1u);
    EXPECT_EQ(draws([] {}), 0u);
}

TEST_F(TexturesTest, ThePagesGrowAndComeBackWithWhatIsOnThem) {
    std::vector<HTEXTURE> textures;
    auto color = [](int i) { return 0xFF000000 | static_cast<uint32_t>(i + 1) * 0x050301; };
    auto draw = [&] {
        for (size_t i = 0; i < textures.size(); ++i)
            DrawQuad(static_cast<float>(i), 0, 1, 240, textures[i]);
    };
    auto expected = MakePicture(320, 240, [&](int x, int) { return x < 50 ? color(x) : 0xFF000000; });
    hge::Image screen = Screen([&] {
        for (int i = 0; i < 50; ++i) {
            textures.push_back(MakePlain(250, 250, color(i)));
            DrawQuad(static_cast<float>(i), 0, 1, 240, textures.back());
        }
    });
    EXPECT_TRUE(SamePicture("pages", screen, expected));
    gfx().LoseDevice();
    EXPECT_TRUE(gfx().Present());
    EXPECT_TRUE(SamePicture("pages_restored", Screen(draw), expected));
}

TEST_F(TexturesTest, OnesRewrittenOftenLeaveTheAtlasAndAreSentWhole) {
    for (int size : {64, 300}) {
        HTEXTURE movie = MakePlain(size, size, kBlue);
        auto draw = [&] { DrawQuad(0, 0, 240, 240, movie); };
        auto next_frame = [&](int rewritten, uint32_t color) {
            Write(movie, 0, 0, rewritten, rewritten, color);
            hge::Image screen = Screen(draw);
            gfx().Present();
            return At(screen, 2, 2);
        };
        Screen(draw);
        Work();
        for (uint32_t frame = 0; frame < 12; ++frame) {
            EXPECT_EQ(next_frame(size, kRed + frame), kRed + frame);
            bool alone = Work().upload_bytes == static_cast<DWORD>(size * size * 4);
            EXPECT_EQ(alone, frame >= 8 || size == 300) << "frame " << frame;
        }
        EXPECT_EQ(next_frame(10, kBlue), kBlue);
        EXPECT_EQ(Work().upload_bytes, static_cast<DWORD>(size * size * 4));
        EXPECT_EQ(At(Screen(draw), 200, 200), kRed + 11) << "what was not rewritten stays";
    }
}

TEST_F(TexturesTest, ALostDeviceComesBackWithAllTextures) {
    HTEXTURE small = MakePattern(50, 40), large = MakePattern(300, 30), tiled = MakePattern(10, 10);
    HTEXTURE written = MakePlain(20, 20, kBlue);
    hgeQuad tiles = Quad(0, 100, 100, 20, tiled);
    for (hgeVertex& corner : tiles.v)
        corner.tx *= 10;
    auto draw = [&] {
        DrawQuad(0, 0, 50, 40, small);
        DrawQuad(0, 50, 300, 30, large);
        gfx().RenderQuad(&tiles);
        DrawQuad(200, 0, 20, 20, written);
    };
    Write(written, 3, 3, 9, 9, kRed);
    hge::Image before = Screen(draw);
    gfx().LoseDevice();
    EXPECT_FALSE(gfx().BeginScene(0));
    EXPECT_TRUE(gfx().Present()) << "rebuilt";
    EXPECT_THAT(LogText(), HasSubstr("the lost device was rebuilt"));
    EXPECT_TRUE(SamePicture("restored", Screen(draw), before));
    EXPECT_FALSE(gfx().Present());
}

}  // namespace test
