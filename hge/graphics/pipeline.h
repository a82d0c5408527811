#pragma once

#include "graphics/device.h"
#include "graphics/geometry.h"

namespace hge {

// Shaders and fixed states, and what of them is set at present.
class Pipeline {
 public:
    // False with the reason in the log.
    bool Create(const Device& device, Log& log);
    void Destroy();

    // Everything that never changes while drawing.
    void Bind(const Device& device);
    void SetSurface(const Device& device, const Surface& surface);
    void SetClip(const Device& device, const Box& clip);
    // adds_color: some of the quads add their colour to the texture's.
    void SetSource(const Device& device, const TextureSource& source, bool filter, bool adds_color);
    // How an effect, whose shader and textures are set already, samples and blends; until EndEffect.
    void SetEffectSources(const Device& device, const TextureSource& first, const TextureSource& second,
                          bool filter, bool add);
    void EndEffect(const Device& device);
    // Depth is tested only where the surface has any.
    void SetDepth(const Device& device, bool write);

 private:
    bool CreateShaders(const Device& device, Log& log);
    bool CreateVertexShader(const Device& device, Log& log);
    bool CreateStates(const Device& device);
    bool CreateSamplers(const Device& device);
    ID3D11SamplerState* Sampler(const TextureSource& source, bool filter) const;

    enum { kNoDepth, kTestDepth, kWriteDepth, kDepthStates };

    ComPtr<ID3D11VertexShader> vertex_shader_;
    ComPtr<ID3D11PixelShader> pixel_shaders_[2][2];  // premultiplied, adds colour
    ComPtr<ID3D11InputLayout> layout_;
    ComPtr<ID3D11Buffer> constants_;
    ComPtr<ID3D11BlendState> blend_;
    ComPtr<ID3D11BlendState> add_;
    ComPtr<ID3D11RasterizerState> raster_;
    ComPtr<ID3D11DepthStencilState> depth_[kDepthStates];
    ComPtr<ID3D11SamplerState> samplers_[2][2][2];  // filter, wrap, mipmaps
    bool surface_has_depth_ = false;
};

}  // namespace hge
