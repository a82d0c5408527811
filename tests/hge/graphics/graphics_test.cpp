#include "graphics/graphics.h"

#include <cmath>
#include <set>

#include "hge/graphics/renderer_fixture.h"

namespace test {

using testing::HasSubstr;

using GraphicsTest = RendererTest;

constexpr uint32_t kBlack = 0xFF000000;
constexpr uint32_t kWhite = 0xFFFFFFFF;

// The screen, black but for one rectangle.
hge::Image Rectangle(int left, int top, int width, int height,
                     const std::function<uint32_t(int, int)>& pixel) {
    return MakePicture(320, 240, [=](int x, int y) {
        bool inside = x >= left && x < left + width && y >= top && y < top + height;
        return inside ? pixel(x - left, y - top) : kBlack;
    });
}

std::set<std::pair<int, int>> LitPixels(const hge::Image& screen) {
    std::set<std::pair<int, int>> lit;
    for (int y = 0; y < screen.height; ++y)
        for (int x = 0; x < screen.width; ++x)
            if (At(screen, x, y) != kBlack) lit.insert({x, y});
    return lit;
}

TEST_F(GraphicsTest, WithoutAWindowOrASizeItSaysWhyItDoesNotStart) {
    hge::Log quiet;
    hge::Graphics other(quiet);
    hge::GraphicsSettings settings;
    settings.window = reinterpret_cast<HWND>(0x1234);
    EXPECT_FALSE(other.Start(settings));
    EXPECT_THAT(quiet.LastError(), HasSubstr("graphics: "));
    settings.width = 0;
    EXPECT_FALSE(other.Start(settings));
    EXPECT_FALSE(other.running());
    EXPECT_FALSE(other.Present());
    EXPECT_FALSE(other.BeginScene(0));
    EXPECT_EQ(other.CreateTexture(4, 4), 0u);
    EXPECT_EQ(other.CreateTarget(4, 4, false), 0u);
    hge::Image screen;
    EXPECT_FALSE(other.ReadScreen(&screen));
}

TEST_F(GraphicsTest, DrawingOutsideASceneIsIgnoredAndLoggedOnce) {
    for (int i = 0; i < 3; ++i)
        DrawQuad(0, 0, 10, 10, 0);
    gfx().Clear(0xFF123456);
    int room = 5;
    EXPECT_EQ(gfx().StartBatch(HGEPRIM_QUADS, 0, BLEND_DEFAULT, &room), nullptr);
    EXPECT_EQ(room, 0);
    gfx().FinishBatch(3);
    EXPECT_EQ(Work().quads, 0u);
    std::string log = LogText();
    size_t first = log.find("Gfx_RenderQuad: no scene is open");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(log.find("Gfx_RenderQuad: no scene is open", first + 1), std::string::npos);

    EXPECT_TRUE(gfx().BeginScene(0));
    EXPECT_FALSE(gfx().BeginScene(0));
    EXPECT_FALSE(gfx().BeginScene(0x1234));
    EXPECT_THAT(LogText(), HasSubstr("a scene is open already"));
    gfx().EndScene();
    EXPECT_FALSE(gfx().BeginScene(0x1234));
    EXPECT_THAT(LogText(), HasSubstr("the handle names no target"));
}

TEST_F(GraphicsTest, NonsenseDrawsNothing) {
    hge::Image screen = Screen([&] {
        gfx().RenderQuad(nullptr);
        gfx().RenderTriple(nullptr);
        for (float bad : {std::nanf(""), INFINITY, -INFINITY, 1e30f}) {
            DrawQuad(bad, 0, 10, 10, 0);
            DrawQuad(0, 0, 10, bad, 0);
            gfx().RenderLine(0, 0, bad, 10, kWhite, 0.5f);
            gfx().SetTransform(0, 0, bad, bad, 0, 1, 1);
            DrawQuad(0, 0, 10, 10, 0);
            gfx().SetTransform(0, 0, 0, 0, 0, 0, 0);
        }
        DrawQuad(0, 0, 10, 10, 0xDEADBEEF);
        gfx().SetClipping(1000, 1000, 5, 5);
        DrawQuad(0, 0, 320, 240, 0);
    });
    EXPECT_TRUE(LitPixels(screen).empty());
    EXPECT_THAT(LogText(), HasSubstr("drawing with DEADBEEF, which is no texture"));
    EXPECT_THAT(LogText(), HasSubstr("no numbers or far too large"));
}

TEST_F(GraphicsTest, DrawsTexturesOfAnySizePixelByPixel) {
    for (auto [width, height] : {std::pair{1, 1}, {100, 60}, {256, 200}, {300, 220}}) {
        HTEXTURE texture = MakePattern(width, height);
        hge::Image screen =
            Screen([&] { DrawQuad(7, 5, static_cast<float>(width), static_cast<float>(height), texture); });
        EXPECT_TRUE(
            SamePicture("texture" + std::to_string(width), screen, Rectangle(7, 5, width, height, Pattern)));
    }
    HTEXTURE large = MakePattern(4096, 4096);
    hge::Image screen = Screen([&] { DrawQuad(-2000, -3000, 4096, 4096, large); });
    EXPECT_TRUE(SamePicture("texture4096", screen, Rectangle(0, 0, 320, 240, [](int x, int y) {
                                return Pattern(x + 2000, y + 3000);
                            })));
}

// One channel of a quad over a background, as the blend bits say.
int Blended(int texel, int texel_alpha, int color, int color_alpha, int below, int blend) {
    double t = texel / 255.0, c = color / 255.0;
    double mixed = blend & BLEND_COLORADD ? std::min(1.0, t + c) : t * c;
    double alpha = texel_alpha / 255.0 * color_alpha / 255.0;
    double under = blend & BLEND_ALPHABLEND ? below * (1 - alpha) : below;
    return static_cast<int>(std::lround(std::min(255.0, mixed * alpha * 255 + under)));
}

TEST_F(GraphicsTest, BlendsAsTheBitsSay) {
    HTEXTURE texture = MakePlain(4, 4, 0xC0806020);
    constexpr DWORD kColor = 0x80F0A040, kBelow = 0xFF305070;
    for (int blend = 0; blend < 8; ++blend) {
        hge::Image screen = Screen([&] { DrawQuad(0, 0, 4, 4, texture, kColor, blend); }, kBelow);
        auto red = static_cast<uint32_t>(Blended(0x80, 0xC0, 0xF0, 0x80, 0x30, blend));
        auto green = static_cast<uint32_t>(Blended(0x60, 0xC0, 0xA0, 0x80, 0x50, blend));
        auto blue = static_cast<uint32_t>(Blended(0x20, 0xC0, 0x40, 0x80, 0x70, blend));
        uint32_t mixed = kBlack | red << 16 | green << 8 | blue;
        hge::Image expected =
            MakePicture(320, 240, [&](int x, int y) { return x < 4 && y < 4 ? mixed : kBelow; });
        EXPECT_TRUE(SamePicture("blend" + std::to_string(blend), screen, expected,
                                {1, "the device rounds products of eight-bit colours"}));
    }
}

TEST_F(GraphicsTest, LinesCoverOnePixelPerStep) {
    struct Case {
        float x1, y1, x2, y2;
        std::set<std::pair<int, int>> pixels;
    };
    const Case cases[] = {
        {10, 20, 13, 20, {{10, 20}, {11, 20}, {12, 20}, {13, 20}}},
        {13, 20, 10, 20, {{10, 20}, {11, 20}, {12, 20}, {13, 20}}},
        {5, 7, 5, 4, {{5, 4}, {5, 5}, {5, 6}, {5, 7}}},
        {0, 0, 3, 3, {{0, 0}, {1, 1}, {2, 2}, {3, 3}}},
        {9, 3, 6, 6, {{9, 3}, {8, 4}, {7, 5}, {6, 6}}},
        {0, 0, 6, 2, {{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 1}, {5, 2}, {6, 2}}},
        {30, 40, 30, 40, {{30, 40}}},
    };
    for (const Case& line : cases) {
        hge::Image screen =
            Screen([&] { gfx().RenderLine(line.x1, line.y1, line.x2, line.y2, kWhite, 0.5f); });
        EXPECT_EQ(LitPixels(screen), line.pixels)
            << line.x1 << ',' << line.y1 << " - " << line.x2 << ',' << line.y2;
    }
}

TEST_F(GraphicsTest, BatchesTriplesAndTintsAreDrawn) {
    HTEXTURE texture = MakePlain(2, 2, 0xFF0000FF);
    hge::Image screen = Screen([&] {
        int room = 0;
        EXPECT_EQ(gfx().StartBatch(7, texture, BLEND_DEFAULT, &room), nullptr);
        hgeVertex* corners = gfx().StartBatch(HGEPRIM_QUADS, texture, BLEND_DEFAULT, &room);
        ASSERT_NE(corners, nullptr);
        ASSERT_GE(room, 2);
        std::copy_n(Quad(0, 0, 10, 10, 0).v, 4, corners);
        std::copy_n(Quad(10, 0, 10, 10, 0).v, 4, corners + 4);
        gfx().FinishBatch(2);
        gfx().FinishBatch(2);
        // A triple covers its half of a square; its colours run from corner to corner.
        hgeQuad square = Quad(100, 100, 128, 128, MakePlain(3, 3, kWhite));
        square.v[0].col = square.v[3].col = kBlack;
        square.v[1].col = 0xFFFF0000;
        hgeTriple triple{{square.v[0], square.v[1], square.v[3]}, square.tex, square.blend};
        gfx().RenderTriple(&triple);
        corners = gfx().StartBatch(HGEPRIM_LINES, 0, BLEND_DEFAULT, &room);
        corners[0] = {0, 30, 0.5f, 0xFF0000FF, 0, 0};
        corners[1] = {19, 30, 0.5f, 0xFF0000FF, 0, 0};
        gfx().FinishBatch(1);
    });
    EXPECT_EQ(Work().quads, 4u);
    EXPECT_TRUE(SamePicture("batch", screen,
                            MakePicture(320, 240,
                                        [](int x, int y) {
                                            if (x >= 100 && y >= 100 && x + y < 327)
                                                return kBlack | static_cast<uint32_t>(2 * x - 199) << 16;
                                            return x < 20 && (y < 10 || y == 30) ? 0xFF0000FF : kBlack;
                                        }),
                            {1, "interpolated colours are rounded by the device"}));
}

TEST_F(GraphicsTest, ClippingAndTransformationHoldUntilTheNextScene) {
    HTEXTURE texture = MakePattern(20, 10);
    hge::Image screen = Screen([&] {
        gfx().SetTransform(100, 100, 10, 20, std::acos(-1.0f) / 2, 1, 1);
        DrawQuad(100, 100, 20, 10, texture);
        gfx().SetTransform(10, 10, 40, 50, 0, 2, 3);
        gfx().SetClipping(50, 65, 30, 30);
        DrawQuad(0, 0, 100, 60, 0);
    });
    EXPECT_TRUE(SamePicture("turned", screen,
                            MakePicture(320, 240,
                                        [](int x, int y) {
                                            if (x >= 50 && x < 80 && y >= 65 && y < 95) return kWhite;
                                            bool inside = x >= 100 && x < 110 && y >= 120 && y < 140;
                                            return inside ? Pattern(y - 120, 109 - x) : kBlack;
                                        }),
                            {1, "the turned corners lie on whole pixels only up to rounding"}));
    screen = Screen([&] { DrawQuad(100, 100, 20, 10, texture); }, 0x00000000);
    EXPECT_TRUE(SamePicture("not_turned", screen, Rectangle(100, 100, 20, 10, Pattern)))
        << "and it is opaque";
    EXPECT_FALSE(gfx().Present()) << "nothing was rebuilt";
    hge::Image shown;
    ASSERT_TRUE(gfx().ReadScreen(&shown));
    EXPECT_TRUE(SamePicture("shown", shown, screen));
}

// What a clamped texture looks like when it is enlarged.
uint32_t Enlarged(int x, int y, int factor, int size) {
    auto weigh = [&](int at) { return std::clamp((at + 0.5) / factor - 0.5, 0.0, size - 1.0); };
    double u = weigh(x), v = weigh(y);
    int left = static_cast<int>(u), top = static_cast<int>(v);
    int right = std::min(left + 1, size - 1), bottom = std::min(top + 1, size - 1);
    uint32_t mixed = kBlack;
    for (int shift : {0, 8, 16}) {
        auto channel = [&](int tx, int ty) { return Pattern(tx, ty) >> shift & 0xFF; };
        double upper = channel(left, top) * (1 - u + left) + channel(right, top) * (u - left);
        double lower = channel(left, bottom) * (1 - u + left) + channel(right, bottom) * (u - left);
        mixed |= static_cast<uint32_t>(std::lround(upper * (1 - v + top) + lower * (v - top))) << shift;
    }
    return mixed;
}

TEST_F(GraphicsTest, FilteringClampsAtTheEdgesOfSmallTexturesToo) {
    MakePlain(8, 8, kWhite);
    HTEXTURE texture = MakePattern(8, 8);
    MakePlain(8, 8, 0xFF00FF00);
    hge::Image screen = Screen([&] { DrawQuad(16, 16, 128, 128, texture); });
    EXPECT_TRUE(SamePicture("filter", screen,
                            Rectangle(16, 16, 128, 128, [](int x, int y) { return Enlarged(x, y, 16, 8); }),
                            {3, "devices weigh texels with eight bits or fewer"}));
    gfx().SetTextureFilter(false);
    screen = Screen([&] { DrawQuad(16, 16, 128, 128, texture); });
    gfx().SetTextureFilter(true);
    EXPECT_TRUE(SamePicture("no_filter", screen, Rectangle(16, 16, 128, 128, [](int x, int y) {
                                return Pattern(x / 16, y / 16);
                            })));
}

}  // namespace test
