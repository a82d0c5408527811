#include "hge/graphics/renderer_fixture.h"

#include "support/files.h"

namespace test {

hge::Log* RendererTest::log_ = nullptr;
hge::Graphics* RendererTest::graphics_ = nullptr;
HWND RendererTest::window_ = nullptr;

void RendererTest::StartRenderer(bool zbuffer) {
    window_ = CreateWindowExA(0, "STATIC", "renderer test", WS_POPUP, 0, 0, kWidth, kHeight, nullptr, nullptr,
                              nullptr, nullptr);
    log_ = new hge::Log;
    log_->Open("graphics_test.log");
    graphics_ = new hge::Graphics(*log_);
    hge::GraphicsSettings settings;
    settings.window = window_;
    settings.width = kWidth;
    settings.height = kHeight;
    settings.zbuffer = zbuffer;
    ASSERT_TRUE(graphics_->Start(settings)) << log_->LastError();
}

void RendererTest::TearDownTestSuite() {
    delete graphics_;
    delete log_;
    DestroyWindow(window_);
}

void RendererTest::TearDown() {
    gfx().EndScene();
    for (HTEXTURE texture : textures_)
        gfx().FreeTexture(texture);
    hgeCounters now = Counters();
    EXPECT_EQ(now.textures, before_.textures);
    EXPECT_EQ(now.targets, before_.targets);
}

std::string RendererTest::LogText() {
    return FileText("graphics_test.log");
}

hgeCounters RendererTest::Counters() {
    hgeCounters counters{};
    gfx().AddCounters(&counters);
    return counters;
}

hgeCounters RendererTest::Work() {
    hgeCounters now = Counters(), work = {};
    for (DWORD hgeCounters::*count : {&hgeCounters::draws, &hgeCounters::quads, &hgeCounters::buffer_maps,
                                      &hgeCounters::uploads, &hgeCounters::upload_bytes}) {
        work.*count = now.*count - before_.*count;
        before_.*count = now.*count;
    }
    return work;
}

hge::Image RendererTest::Screen(const std::function<void()>& draw, DWORD background) {
    EXPECT_TRUE(gfx().BeginScene(0));
    gfx().Clear(background);
    draw();
    gfx().EndScene();
    hge::Image screen;
    EXPECT_TRUE(gfx().ReadScreen(&screen));
    return screen;
}

void RendererTest::DrawInto(HTARGET target, const std::function<void()>& draw, DWORD background) {
    ASSERT_TRUE(gfx().BeginScene(target));
    gfx().Clear(background);
    draw();
    gfx().EndScene();
}

HTEXTURE RendererTest::MakeTexture(int width, int height,
                                   const std::function<uint32_t(int x, int y)>& pixel) {
    HTEXTURE texture = gfx().CreateTexture(MakePicture(width, height, pixel), false, "test");
    EXPECT_NE(texture, 0u) << log().LastError();
    textures_.push_back(texture);
    return texture;
}

void RendererTest::Write(HTEXTURE texture, int x, int y, int width, int height, uint32_t color) {
    DWORD* pixel = gfx().LockTexture(texture, false, x, y, width, height);
    ASSERT_NE(pixel, nullptr);
    int stride = gfx().TextureWidth(texture, false);
    for (int row = 0; row < height; ++row)
        std::fill_n(pixel + row * stride, width, color);
    gfx().UnlockTexture(texture);
}

hgeQuad RendererTest::Quad(float x, float y, float width, float height, HTEXTURE texture, DWORD color,
                           int blend) {
    return {{{x, y, 0.5f, color, 0, 0},
             {x + width, y, 0.5f, color, 1, 0},
             {x + width, y + height, 0.5f, color, 1, 1},
             {x, y + height, 0.5f, color, 0, 1}},
            texture,
            blend,
            0};
}

void RendererTest::DrawQuad(float x, float y, float width, float height, HTEXTURE texture, DWORD color,
                            int blend) {
    hgeQuad quad = Quad(x, y, width, height, texture, color, blend);
    gfx().RenderQuad(&quad);
}

}  // namespace test
