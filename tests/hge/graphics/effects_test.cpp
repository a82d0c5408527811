// Quads with a second texture, drawn through an effect of the host.
#include <cmath>

#include "graphics/effect_text.h"
#include "hge/graphics/renderer_fixture.h"
#include "support/files.h"

namespace test {

using testing::HasSubstr;
using testing::Not;

constexpr uint32_t kBlue = 0xFF0000FF;
constexpr int kSide = 16;

std::string Returning(const std::string& expression) {
    return "float4 Effect(Fragment at) : SV_TARGET\n{\n    return " + expression + ";\n}\n";
}

size_t Occurrences(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

class EffectsTest : public RendererTest {
 protected:
    void TearDown() override {
        gfx().UnloadEffect();
        RendererTest::TearDown();
    }

    static bool Load(const std::string& text) {
        return gfx().LoadEffect("water.hlsl", text.data(), text.size());
    }
    static void Use(const std::string& expression) {
        ASSERT_TRUE(Load(Returning(expression))) << log().LastError();
    }

    static void DrawBoth(float x, float y, HTEXTURE first, HTEXTURE second, DWORD color = 0xFFFFFFFF,
                         int blend = BLEND_DEFAULT) {
        hgeQuad quad = Quad(x, y, kSide, kSide, first, color, blend);
        quad.tex2 = second;
        gfx().RenderQuad(&quad);
    }

    // A target with a picture of colour (not multiplied by its alpha).
    HTARGET MakeTarget(uint32_t color) {
        HTARGET target = gfx().CreateTarget(kSide, kSide, false);
        DrawInto(
            target, [] {}, color);
        return target;
    }
};

TEST(EffectTextTest, MessagesOfBothCompilersNameTheHostsFileAndLine) {
    std::string text, reason;
    ASSERT_TRUE(hge::MakeEffectText("\xEF\xBB\xBF// \x81\\\nx", 10, &text, &reason));
    EXPECT_EQ(text.substr(text.size() - 7),
              "// ?"
              "?\nx")
        << "the mark of UTF-8 and ideographs are gone";
    auto line = std::to_string(std::count(text.begin(), text.end(), '\n') + 1);
    EXPECT_EQ(hge::EffectMessages("effect:" + line + ":9: E5005: no effect:9\n\n", "a.hlsl"),
              "a.hlsl:2:9: E5005: no effect:9");
    EXPECT_EQ(
        hge::EffectMessages("C:\\game\\effect(" + line + ",3-5): error X1: no\r\nwarning\n\0", "a.hlsl"),
        "a.hlsl(2,3-5): error X1: no; warning");
    EXPECT_EQ(hge::EffectMessages("effect(99999999999999999999): X1", "a.hlsl"),
              "a.hlsl(99999999999999999999): X1");
    EXPECT_EQ(hge::EffectMessages("effect: E1: no entry", "a.hlsl"), "a.hlsl: E1: no entry");
    EXPECT_EQ(hge::EffectMessages("", "a.hlsl"), "the compiler does not say why");
}

TEST_F(EffectsTest, WhatDoesNotCompileSaysWhyOnceAndLeavesPlainQuads) {
    struct {
        std::string text, reason;
    } const kCases[] = {
        {" \r\n", "it is empty"},
        {std::string("float4\0", 7), "it holds bytes that are no text"},
        {"float4 Other(Fragment at) : SV_TARGET { return First(at.uv); }", "Effect"},
        {"\n\n\nfloat4 Effect(Fragment at) : SV_TARGET\n{\n  return nowhere;\n}", "water.hlsl:6:"},
        {"// \xd6\xd0\xce\xc4\n" + Returning("First(at.uv) +"), "water.hlsl:4:"},
        {"#include \"other.hlsl\"\n", "other.hlsl"},
        {std::string(4096, '{'), "water.hlsl:1:"},
    };
    HTEXTURE red = MakePlain(kSide, kSide, 0xFFFF0000);
    for (const auto& c : kCases) {
        ASSERT_TRUE(Load(Returning("Second(at.uv)")));
        size_t before = Occurrences(LogText(), "cannot load effect");
        EXPECT_FALSE(Load(c.text)) << c.text;
        EXPECT_THAT(log().LastError(), HasSubstr("cannot load effect \"water.hlsl\": "));
        EXPECT_THAT(log().LastError(), HasSubstr(c.reason));
        EXPECT_THAT(log().LastError(), Not(HasSubstr("\n")));
        EXPECT_EQ(Occurrences(LogText(), "cannot load effect"), before + 1);
        hge::Image screen = Screen([&] { DrawBoth(0, 0, red, MakePlain(kSide, kSide, kBlue)); });
        EXPECT_EQ(At(screen, 5, 5), 0xFFFF0000) << "the one before is gone too";
    }
}

TEST_F(EffectsTest, WithoutOneASecondTextureCostsNothing) {
    HTEXTURE first = MakePlain(kSide, kSide, 0xFF00FF00);
    HTEXTURE second = MakePlain(kSide, kSide, kBlue);
    Screen([&] { DrawQuad(0, 0, 1, 1, first); });
    auto draw = [&] {
        for (int i = 0; i < 100; ++i)
            DrawBoth(static_cast<float>(i), 0, first, i % 2 ? second : 0);
    };
    Work();
    Screen(draw);
    hgeCounters work = Work();
    EXPECT_EQ(work.draws, 1u);
    EXPECT_EQ(work.uploads, 0u) << "the second texture is not looked at";
}

TEST_F(EffectsTest, SeesBothTexturesWhereverTheyLive) {
    Use("float4(First(at.uv).r, Second(at.uv).g, First(at.uv).b * 0.5 + Second(at.uv).b * 0.5, 1.0)");
    MakePattern(5, 3);  // so that the next one does not begin its page
    hge::Image picture = MakePicture(kSide, kSide, Pattern);
    HTARGET target = gfx().CreateTarget(kSide, kSide, false);
    HTEXTURE small = MakePattern(kSide, kSide);
    HTEXTURE alone = gfx().CreateTexture(picture, true, "with mipmaps");
    DrawInto(target, [&] { DrawQuad(0, 0, kSide, kSide, small); });
    const HTEXTURE textures[] = {small, alone, gfx().TargetTexture(target)};
    hge::Image screen = Screen([&] {
        for (int first = 0; first < 3; ++first)
            for (int second = 0; second < 3; ++second)
                DrawBoth(static_cast<float>(first * kSide), static_cast<float>(second * kSide),
                         textures[first], textures[second]);
    });
    hge::Image expected = MakePicture(320, 240, [](int x, int y) {
        return x < 3 * kSide && y < 3 * kSide ? Pattern(x % kSide, y % kSide) : 0xFF000000;
    });
    EXPECT_TRUE(SamePicture("effect_sources", screen, expected, {1, "two halves of a channel are rounded"}));
    gfx().FreeTexture(alone);
    gfx().FreeTarget(target);
}

TEST_F(EffectsTest, EndsAtTheEdgeOrRepeatsAsTheQuadDoes) {
    Use("First(at.uv + float2(0.5, 0.0))");
    HTEXTURE halves = MakeTexture(kSide, kSide, [](int x, int) { return x < 8 ? 0xFFFF0000 : kBlue; });
    MakePlain(kSide, kSide, 0xFFFFFFFF);
    hge::Image screen = Screen([&] {
        DrawBoth(0, 0, halves, halves);
        hgeQuad tiled = Quad(0, 32, 32, kSide, halves);
        tiled.tex2 = halves;
        tiled.v[1].tx = tiled.v[2].tx = 2;
        gfx().RenderQuad(&tiled);
    });
    for (int x = 0; x < kSide; ++x)
        EXPECT_EQ(At(screen, x, 5), kBlue) << x;
    for (int x : {2, 10, 18, 26})
        EXPECT_EQ(At(screen, x, 40), x % kSide < 8 ? kBlue : 0xFFFF0000) << x;
}

TEST_F(EffectsTest, ATintedTextureLooksAsItDoesPlainly) {
    const uint32_t kSheer = 0x80C04020;
    HTARGET target = MakeTarget(kSheer);
    for (HTEXTURE texture : {MakePlain(kSide, kSide, kSheer), gfx().TargetTexture(target)})
        for (DWORD color : {0xFFFFFFFFu, 0x60FF8040u})
            for (int blend : {BLEND_DEFAULT, static_cast<int>(BLEND_ALPHAADD)}) {
                gfx().UnloadEffect();
                auto draw = [&] { DrawBoth(3, 3, texture, texture, color, blend); };
                hge::Image plain = Screen(draw, 0xFF406080);
                Use("Tinted(First(at.uv), at.color)");
                EXPECT_TRUE(SamePicture("tinted", Screen(draw, 0xFF406080), plain, {1, "rounded elsewhere"}));
                Use("Tinted(Second(at.uv), at.color)");
                EXPECT_TRUE(
                    SamePicture("tinted2", Screen(draw, 0xFF406080), plain, {1, "rounded elsewhere"}));
            }
    gfx().FreeTarget(target);
}

TEST_F(EffectsTest, KnowsTimePlaceAndSizes) {
    HTEXTURE wide = MakePlain(40, 20, 0xFFFFFFFF);
    HTEXTURE tall = MakePlain(10, 30, 0xFFFFFFFF);
    gfx().SetTime(100);
    Use("float4(time / 10.0, screen_size.x / 1000.0, at.place.x / 255.0, 1.0)");
    gfx().SetTime(104);
    uint32_t pixel = At(Screen([&] { DrawBoth(100, 0, wide, tall); }), 107, 3);
    EXPECT_NEAR(pixel >> 16 & 0xFF, 4 * 25.5, 1) << "seconds since it was loaded";
    EXPECT_NEAR(pixel >> 8 & 0xFF, 0.32 * 255, 1);
    EXPECT_NEAR(pixel & 0xFF, 107.5, 1);
    Use("float4(first_size.x + first_size.y * 2.0, second_size.x + second_size.y * 2.0, 0.0, 255.0) / 255.0");
    EXPECT_EQ(At(Screen([&] { DrawBoth(0, 0, wide, tall); }), 3, 3), 0xFF504600);
    // The size is that of what is drawn to.
    Use("float4(screen_size.x, screen_size.y, 0.0, 255.0) / 255.0");
    HTARGET target = MakeTarget(0);
    DrawInto(target, [&] { DrawBoth(0, 0, wide, tall); });
    EXPECT_EQ(At(Screen([&] { DrawQuad(0, 0, kSide, kSide, gfx().TargetTexture(target)); }), 5, 5),
              0xFF101000);
    gfx().FreeTarget(target);
}

TEST_F(EffectsTest, IsADrawCallOfItsOwnBetweenPlainQuads) {
    Use("Second(at.uv)");
    HTEXTURE red = MakePlain(kSide, kSide, 0xFFFF0000);
    HTEXTURE blue = MakePlain(kSide, kSide, kBlue);
    auto draw = [&] {
        for (int i = 0; i < 10; ++i)
            DrawQuad(0, 0, kSide, kSide, i % 2 ? red : blue);
        gfx().SetClipping(0, 0, 12, 240);
        gfx().SetTransform(0, 0, 4, 0, 0, 1, 1);
        DrawBoth(0, 0, red, blue);
        gfx().SetTransform(0, 0, 0, 0, 0, 0, 0);
        for (int i = 0; i < 10; ++i)
            DrawQuad(8, 0, 4, 4, i % 2 ? red : blue, 0x80FFFFFF, BLEND_ALPHAADD);
    };
    Screen(draw);
    Work();
    hge::Image screen = Screen(draw);
    EXPECT_EQ(Work().draws, 3u);
    EXPECT_EQ(At(screen, 2, 10), 0xFFFF0000) << "the last of the plain quads; the effect is moved away";
    EXPECT_EQ(At(screen, 11, 10), kBlue);
    EXPECT_EQ(At(screen, 13, 10), 0xFFFF0000) << "clipped";
    EXPECT_EQ(At(screen, 10, 2), 0xFFFF00FF) << "plain again, added";
}

TEST_F(EffectsTest, DeadTexturesAndTheTargetItselfAreRefused) {
    Use("First(at.uv) + Second(at.uv)");
    HTARGET target = MakeTarget(kBlue);
    HTEXTURE own = gfx().TargetTexture(target);
    HTEXTURE red = MakePlain(kSide, kSide, 0xFFFF0000);
    Work();
    ASSERT_TRUE(gfx().BeginScene(target));
    DrawBoth(0, 0, red, own);
    DrawBoth(0, 0, own, red);
    DrawBoth(0, 0, red, 0x1234);
    DrawBoth(std::nanf(""), 0, red, red);
    gfx().EndScene();
    EXPECT_EQ(Work().draws, 0u);
    EXPECT_THAT(LogText(), HasSubstr("a target cannot be drawn into itself"));
    EXPECT_THAT(LogText(), HasSubstr("drawing with 00001234, which is no texture"));
    // Without a first texture there is white.
    EXPECT_EQ(At(Screen([&] { DrawBoth(0, 0, 0, own); }), 3, 3), 0xFFFFFFFF);
    gfx().FreeTarget(target);
}

// One pixel, left of where the first scene changes its colour.
TEST_F(EffectsTest, TheExamplesMixTheScenesAsTheySay) {
    HTEXTURE first =
        MakeTexture(kWidth, kHeight, [](int x, int) { return x < 160 ? 0xFF804020 : 0xFFE0A060; });
    HTEXTURE second = MakePlain(kWidth, kHeight, 0xFFC080FF);
    struct {
        const char* file;
        DWORD color;
        int red, green, blue;
    } const kCases[] = {{"ripple.hlsl", 0xFFFFFFFF, 178, 114, 50},  // ten pixels further right, in the shade
                        {"lantern.hlsl", 0xFFFFFFFF, 120, 46, 77},
                        {"crossfade.hlsl", 0xFF000000, 0x80, 0x40, 0x20},
                        {"crossfade.hlsl", 0xFFFF0000, 0xC0, 0x80, 0xFF},
                        {"../../../docs/snippets/light.hlsl", 0xFFFFFFFF, 0x60, 0x20, 0x20}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.file);
        std::string text = FileText(std::string(EXAMPLE_EFFECTS) + c.file);
        ASSERT_TRUE(gfx().LoadEffect(c.file, text.data(), text.size())) << log().LastError();
        hgeQuad quad = Quad(0, 0, kWidth, kHeight, first, c.color);
        quad.tex2 = second;
        auto pixel = static_cast<int>(At(Screen([&] { gfx().RenderQuad(&quad); }), 155, 120) & 0xFFFFFF);
        EXPECT_NEAR(pixel >> 16, c.red, 2);
        EXPECT_NEAR(pixel >> 8 & 0xFF, c.green, 2);
        EXPECT_NEAR(pixel & 0xFF, c.blue, 2);
    }
}

TEST_F(EffectsTest, ComesBackFromALostDevice) {
    Use("Second(at.uv)");
    HTEXTURE red = MakePlain(kSide, kSide, 0xFFFF0000);
    HTEXTURE blue = MakePlain(kSide, kSide, kBlue);
    gfx().LoseDevice();
    Use("Second(at.uv)");
    EXPECT_TRUE(gfx().Present());
    gfx().LoseDevice();
    EXPECT_TRUE(gfx().Present());
    EXPECT_EQ(At(Screen([&] { DrawBoth(0, 0, red, blue); }), 3, 3), kBlue);
}

}  // namespace test
