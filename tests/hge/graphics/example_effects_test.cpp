// The effects of the example, pixel by pixel against the same computed here.
#include <cmath>

#include "hge/graphics/renderer_fixture.h"
#include "support/files.h"

namespace test {

// A colour multiplied by its alpha, 0..1 a channel.
struct Color {
    float r = 0, g = 0, b = 0, a = 0;
};

Color operator+(const Color& x, const Color& y) {
    return {x.r + y.r, x.g + y.g, x.b + y.b, x.a + y.a};
}
Color operator*(const Color& x, float y) {
    return {x.r * y, x.g * y, x.b * y, x.a * y};
}

// What a target holds.
Color Stored(uint32_t straight) {
    auto channel = [straight](int shift) { return static_cast<float>(straight >> shift & 0xFF) / 255; };
    float alpha = channel(24);
    return {channel(16) * alpha, channel(8) * alpha, channel(0) * alpha, alpha};
}

// Of a pixel over black.
uint32_t OnScreen(const Color& color) {
    auto byte = [](float value) {
        return static_cast<uint32_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255));
    };
    return 0xFF000000 | byte(color.r) << 16 | byte(color.g) << 8 | byte(color.b);
}

// A picture as big as the screen. Coordinates are 0..1, blended between pixels, its edge going on.
class Sampled {
 public:
    explicit Sampled(hge::Image picture) : picture_(std::move(picture)) {}

    Color operator()(float u, float v) const {
        float x = u * static_cast<float>(picture_.width) - 0.5f;
        float y = v * static_cast<float>(picture_.height) - 0.5f;
        int left = static_cast<int>(std::floor(x));
        int top = static_cast<int>(std::floor(y));
        float right = x - static_cast<float>(left);
        float lower = y - static_cast<float>(top);
        return (Texel(left, top) * (1 - right) + Texel(left + 1, top) * right) * (1 - lower) +
               (Texel(left, top + 1) * (1 - right) + Texel(left + 1, top + 1) * right) * lower;
    }

 private:
    Color Texel(int x, int y) const {
        return Stored(
            At(picture_, std::clamp(x, 0, picture_.width - 1), std::clamp(y, 0, picture_.height - 1)));
    }
    hge::Image picture_;
};

class ExampleEffectsTest : public RendererTest {
 protected:
    const Tolerance kRounding = {2, "coordinates and weights of a device have few binary places"};

    ExampleEffectsTest() : first(Scene(0)), second(Scene(1)) {}

    void SetUp() override {
        RendererTest::SetUp();
        for (HTARGET& target : targets_)
            target = gfx().CreateTarget(kWidth, kHeight, false);
        FillTarget(0, Scene(0));
        FillTarget(1, Scene(1));
    }
    void TearDown() override {
        gfx().UnloadEffect();
        for (HTARGET target : targets_)
            gfx().FreeTarget(target);
        RendererTest::TearDown();
    }

    // Two that change slowly from pixel to pixel and differ everywhere.
    static hge::Image Scene(int number) {
        return MakePicture(kWidth, kHeight, [number](int x, int y) {
            auto wave = [](int at, int length) {
                return static_cast<uint32_t>(std::lround(127.5 + 127.5 * std::sin(at * 6.28318 / length)));
            };
            return number ? 0xFF000000 | wave(x + y, 300) << 16 | wave(x - 40, 260) << 8 | wave(y, 410)
                          : 0xFF000000 | wave(x, 200) << 16 | wave(y + 30, 180) << 8 | wave(x + 2 * y, 500);
        });
    }

    void FillTarget(int number, const hge::Image& picture) {
        HTEXTURE texture = gfx().CreateTexture(picture, false, "scene");
        DrawInto(targets_[number], [&] { DrawQuad(0, 0, kWidth, kHeight, texture); });
        gfx().FreeTexture(texture);
    }

    // The screen after the sprite over both targets was drawn, seconds after the effect was loaded.
    hge::Image Picture(const char* file, DWORD color = 0xFFFFFFFF, float seconds = 0) {
        std::string text = FileText(std::string(EXAMPLE_EFFECTS) + file);
        gfx().SetTime(10);
        EXPECT_TRUE(gfx().LoadEffect(file, text.data(), text.size())) << log().LastError();
        gfx().SetTime(10 + seconds);
        return Screen([&] {
            hgeQuad quad = Quad(0, 0, kWidth, kHeight, gfx().TargetTexture(targets_[0]), color);
            quad.tex2 = gfx().TargetTexture(targets_[1]);
            gfx().RenderQuad(&quad);
        });
    }

    static hge::Image Computed(const std::function<Color(float u, float v)>& effect) {
        return MakePicture(kWidth, kHeight, [&](int x, int y) {
            return OnScreen(
                effect((static_cast<float>(x) + 0.5f) / kWidth, (static_cast<float>(y) + 0.5f) / kHeight));
        });
    }

    Sampled first, second;

 private:
    HTARGET targets_[2] = {};
};

TEST_F(ExampleEffectsTest, RippleShiftsBySecondScene) {
    // Shifts in all directions, past the edges too, and none in a transparent quarter.
    hge::Image waves = MakePicture(kWidth, kHeight, [](int x, int y) {
        if (x > kWidth / 2 && y > kHeight / 2) return 0u;
        return 0xFF000000 | static_cast<uint32_t>(x * 255 / kWidth) << 16 |
               static_cast<uint32_t>(255 - y * 255 / kHeight) << 8;
    });
    FillTarget(1, waves);
    Sampled shifts(waves);
    hge::Image expected = Computed([&](float u, float v) {
        Color wave = shifts(u, v);
        float x = wave.r * 2 - wave.a;
        float y = wave.g * 2 - wave.a;
        float slope = -0.35f * (x + y);
        return first(u + x * 20 / kWidth, v + y * 20 / kHeight) + Color{slope, slope, slope, 0};
    });
    EXPECT_TRUE(SamePicture("ripple", Picture("ripple.hlsl"), expected, kRounding));
}

TEST_F(ExampleEffectsTest, LanternLightsTheFirstWithTheSecond) {
    for (float seconds : {0.0f, 0.2f, 7.0f}) {
        float phase = seconds * 2.5f - std::floor(seconds * 2.5f);
        float strength = 0.9f + 0.4f * phase * (1 - phase);
        hge::Image expected = Computed([&](float u, float v) {
            Color scene = first(u, v);
            Color light = second(u, v) * strength;
            return Color{scene.r * (0.08f + light.r) + light.r * light.r * 0.2f,
                         scene.g * (0.10f + light.g) + light.g * light.g * 0.2f,
                         scene.b * (0.20f + light.b) + light.b * light.b * 0.2f, scene.a};
        });
        EXPECT_TRUE(
            SamePicture("lantern", Picture("lantern.hlsl", 0xFFFFFFFF, seconds), expected, kRounding));
    }
}

TEST_F(ExampleEffectsTest, CrossfadeGoesFromTheFirstToTheSecond) {
    for (DWORD red : {0u, 120u, 255u}) {
        hge::Image expected = Computed([&](float u, float v) {
            float radius = static_cast<float>(red) / 255 * (0.85f + 0.15f);
            float away = std::hypot((u - 0.5f) * kWidth / kHeight, v - 0.5f);
            float inside = std::clamp((radius - away) / 0.15f, 0.0f, 1.0f);
            float shown = inside * inside * (3 - 2 * inside);
            float glow = shown * (1 - shown) * 2;
            return first(u, v) * (1 - shown) + second(u, v) * shown +
                   Color{glow, 0.6f * glow, 0.2f * glow, 0};
        });
        EXPECT_TRUE(
            SamePicture("crossfade", Picture("crossfade.hlsl", 0xFF000000 | red << 16), expected, kRounding));
        if (red == 120) continue;
        hge::Image one = Scene(red ? 1 : 0);
        EXPECT_TRUE(SamePicture("one_scene", expected, one, {1, "computed in floats"}));
    }
}

TEST_F(ExampleEffectsTest, GuidesEffectMultipliesTheScenes) {
    hge::Image expected = Computed([&](float u, float v) {
        Color scene = first(u, v);
        Color light = second(u, v);
        return Color{scene.r * light.r, scene.g * light.g, scene.b * light.b, 1};
    });
    EXPECT_TRUE(SamePicture("light", Picture("../../../docs/snippets/light.hlsl"), expected, kRounding));
}

}  // namespace test
