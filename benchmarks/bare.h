#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "graphics/device.h"
#include "graphics/vertex.h"

namespace bench {

// What Direct3D alone takes for the same picture: a device of its own with a window below the framework's.
class Bare {
 public:
    // The one of the program, made at its first use.
    static Bare& Get();
    // Quads over the whole screen, white texels of the page.
    static std::vector<hge::DeviceVertex> WholeScreens(int count, uint32_t color);

    // Maps, copies and draws, in rings as large as the framework's. Only the first pixel is drawn when
    // clipped.
    void Submit(const std::vector<hge::DeviceVertex>& vertices, bool clipped);
    void Clear();
    // Two pictures of the screen's size, then both over the screen.
    void DrawPictures();
    void Present();
    // Returns when everything has been drawn.
    void Wait();
    // As Stage::FrameTime. paced: presents when the frame before has been drawn, as the framework does.
    double FrameTime(int count, bool paced, const std::function<void()>& draw);

 private:
    static constexpr int kRingQuads = 16384;

    Bare();
    void MakeBuffers();
    void MakeShaders();
    void MakeStates();
    void SetClip(bool clipped);
    void SetSource(hge::TextureSource* first, hge::TextureSource* second, ID3D11PixelShader* shader);
    void DrawRing(const hge::DeviceVertex* vertices, size_t quads);

    struct CloseWindow {
        void operator()(HWND window) const { DestroyWindow(window); }
    };

    // Its own: two devices that present into one window get into each other's way.
    std::unique_ptr<HWND__, CloseWindow> window_;
    hge::Device device_;
    hge::ComPtr<IDXGISwapChain> chain_;
    hge::Surface screen_, picture_surfaces_[2];
    hge::TextureSource page_, pictures_[2];
    hge::ComPtr<ID3D11Buffer> vertices_, indices_;
    hge::ComPtr<ID3D11VertexShader> corner_;
    hge::ComPtr<ID3D11PixelShader> texel_, mix_;
    hge::ComPtr<ID3D11InputLayout> layout_;
    hge::ComPtr<ID3D11BlendState> blend_;
    hge::ComPtr<ID3D11RasterizerState> raster_;
    hge::ComPtr<ID3D11SamplerState> sampler_;
    hge::ComPtr<ID3D11Query> done_;
};

}  // namespace bench
