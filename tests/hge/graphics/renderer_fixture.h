#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "graphics/graphics.h"
#include "support/picture.h"

namespace test {

// A renderer on a hidden window of its own, started once for all tests of a suite.
class RendererTest : public testing::Test {
 protected:
    static constexpr int kWidth = 320;
    static constexpr int kHeight = 240;

    static void SetUpTestSuite() { StartRenderer(false); }
    static void TearDownTestSuite();
    static void StartRenderer(bool zbuffer);

    void SetUp() override { before_ = Counters(); }
    // Nothing that a test makes outlives it.
    void TearDown() override;

    static hge::Graphics& gfx() { return *graphics_; }
    static hge::Log& log() { return *log_; }
    static std::string LogText();
    static hgeCounters Counters();
    // Work done since the test began, or since the last call.
    hgeCounters Work();

    // The screen after drawing on a background.
    static hge::Image Screen(const std::function<void()>& draw, DWORD background = 0xFF000000);

    // A scene of a target.
    static void DrawInto(HTARGET target, const std::function<void()>& draw, DWORD background = 0);

    HTEXTURE MakeTexture(int width, int height, const std::function<uint32_t(int x, int y)>& pixel);
    HTEXTURE MakePlain(int width, int height, uint32_t color) {
        return MakeTexture(width, height, [color](int, int) { return color; });
    }
    HTEXTURE MakePattern(int width, int height) { return MakeTexture(width, height, Pattern); }
    void Write(HTEXTURE texture, int x, int y, int width, int height, uint32_t color);
    void Forget(HTEXTURE texture) { textures_.erase(std::find(textures_.begin(), textures_.end(), texture)); }

    static hgeQuad Quad(float x, float y, float width, float height, HTEXTURE texture,
                        DWORD color = 0xFFFFFFFF, int blend = BLEND_DEFAULT);
    static void DrawQuad(float x, float y, float width, float height, HTEXTURE texture,
                         DWORD color = 0xFFFFFFFF, int blend = BLEND_DEFAULT);

 private:
    static hge::Log* log_;
    static hge::Graphics* graphics_;
    static HWND window_;

    std::vector<HTEXTURE> textures_;
    hgeCounters before_{};
};

}  // namespace test
