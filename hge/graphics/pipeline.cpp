#include "graphics/pipeline.h"

#include <cfloat>
#include <iterator>

#include "graphics/shader_compiler.h"
#include "graphics/shaders.h"
#include "graphics/vertex.h"

namespace hge {

namespace {

ComPtr<ID3DBlob> Compile(const char* entry, const char* model, Log& log) {
    std::string reason;
    ComPtr<ID3DBlob> code = CompileShader(kShaderSource, nullptr, entry, model, &reason);
    if (!code) log.Fail("graphics: shader %s does not compile: %s", entry, reason.c_str());
    return code;
}

D3D11_INPUT_ELEMENT_DESC Element(const char* name, UINT index, DXGI_FORMAT format, UINT offset) {
    return {name, index, format, 0, offset, D3D11_INPUT_PER_VERTEX_DATA, 0};
}

bool RefusedShaders(Log& log) {
    log.Fail("graphics: the device refuses the shaders");
    return false;
}

}  // namespace

bool Pipeline::Create(const Device& device, Log& log) {
    Destroy();
    if (!CreateShaders(device, log)) return false;
    if (CreateStates(device) && CreateSamplers(device)) return true;
    log.Fail("graphics: the device refuses the drawing states");
    return false;
}

void Pipeline::Destroy() {
    *this = Pipeline();
}

bool Pipeline::CreateShaders(const Device& device, Log& log) {
    static const char* const kEntries[2][2] = {{"TintStraight", "TintOrAddStraight"},
                                               {"TintPremultiplied", "TintOrAddPremultiplied"}};
    if (!CreateVertexShader(device, log)) return false;
    for (int premultiplied : {0, 1})
        for (int adds_color : {0, 1}) {
            ComPtr<ID3DBlob> code = Compile(kEntries[premultiplied][adds_color], "ps_4_0", log);
            if (!code) return false;
            ID3D11PixelShader** shader = pixel_shaders_[premultiplied][adds_color].Put();
            if (FAILED(device->CreatePixelShader(code->GetBufferPointer(), code->GetBufferSize(), nullptr,
                                                 shader)))
                return RefusedShaders(log);
        }
    return true;
}

bool Pipeline::CreateVertexShader(const Device& device, Log& log) {
    ComPtr<ID3DBlob> code = Compile("PlaceCorner", "vs_4_0", log);
    if (!code) return false;
    const D3D11_INPUT_ELEMENT_DESC elements[] = {
        Element("POSITION", 0, DXGI_FORMAT_R32G32B32_FLOAT, offsetof(DeviceVertex, x)),
        Element("COLOR", 0, DXGI_FORMAT_R8G8B8A8_UNORM, offsetof(DeviceVertex, color)),
        Element("TEXCOORD", 0, DXGI_FORMAT_R32G32_FLOAT, offsetof(DeviceVertex, u)),
        Element("TEXCOORD", 1, DXGI_FORMAT_R8G8B8A8_UNORM, offsetof(DeviceVertex, mode))};
    const void* bytes = code->GetBufferPointer();
    const SIZE_T size = code->GetBufferSize();
    return (SUCCEEDED(device->CreateVertexShader(bytes, size, nullptr, vertex_shader_.Put())) &&
            SUCCEEDED(
                device->CreateInputLayout(elements, std::size(elements), bytes, size, layout_.Put()))) ||
           RefusedShaders(log);
}

bool Pipeline::CreateStates(const Device& device) {
    D3D11_BUFFER_DESC constants{};
    constants.ByteWidth = 4 * sizeof(float);
    constants.BindFlags = D3D11_BIND_CONSTANT_BUFFER;

    D3D11_BLEND_DESC blend{};
    auto& over = blend.RenderTarget[0];
    over.BlendEnable = TRUE;
    over.SrcBlend = over.SrcBlendAlpha = D3D11_BLEND_ONE;
    over.DestBlend = over.DestBlendAlpha = D3D11_BLEND_INV_SRC_ALPHA;
    over.BlendOp = over.BlendOpAlpha = D3D11_BLEND_OP_ADD;
    over.RenderTargetWriteMask = D3D11_COLOR_WRITE_ENABLE_ALL;

    D3D11_BLEND_DESC add = blend;
    auto& light = add.RenderTarget[0];
    light.DestBlend = light.DestBlendAlpha = D3D11_BLEND_ONE;
    light.SrcBlendAlpha = D3D11_BLEND_ZERO;

    D3D11_RASTERIZER_DESC raster{};
    raster.FillMode = D3D11_FILL_SOLID;
    raster.CullMode = D3D11_CULL_NONE;
    raster.DepthClipEnable = raster.ScissorEnable = TRUE;

    for (int i = 0; i < kDepthStates; ++i) {
        D3D11_DEPTH_STENCIL_DESC depth{};
        depth.DepthEnable = i != kNoDepth;
        depth.DepthWriteMask = i == kWriteDepth ? D3D11_DEPTH_WRITE_MASK_ALL : D3D11_DEPTH_WRITE_MASK_ZERO;
        depth.DepthFunc = D3D11_COMPARISON_LESS_EQUAL;
        if (FAILED(device->CreateDepthStencilState(&depth, depth_[i].Put()))) return false;
    }
    return SUCCEEDED(device->CreateBuffer(&constants, nullptr, constants_.Put())) &&
           SUCCEEDED(device->CreateBlendState(&blend, blend_.Put())) &&
           SUCCEEDED(device->CreateBlendState(&add, add_.Put())) &&
           SUCCEEDED(device->CreateRasterizerState(&raster, raster_.Put()));
}

bool Pipeline::CreateSamplers(const Device& device) {
    for (bool filter : {false, true})
        for (bool wrap : {false, true})
            for (bool mipmaps : {false, true}) {
                D3D11_SAMPLER_DESC desc{};
                desc.Filter = !filter   ? D3D11_FILTER_MIN_MAG_MIP_POINT
                              : mipmaps ? D3D11_FILTER_MIN_MAG_MIP_LINEAR
                                        : D3D11_FILTER_MIN_MAG_LINEAR_MIP_POINT;
                desc.AddressU = desc.AddressV = desc.AddressW =
                    wrap ? D3D11_TEXTURE_ADDRESS_WRAP : D3D11_TEXTURE_ADDRESS_CLAMP;
                desc.MaxLOD = FLT_MAX;
                desc.MaxAnisotropy = 1;
                desc.ComparisonFunc = D3D11_COMPARISON_NEVER;
                if (FAILED(device->CreateSamplerState(&desc, samplers_[filter][wrap][mipmaps].Put())))
                    return false;
            }
    return true;
}

void Pipeline::Bind(const Device& device) {
    ID3D11DeviceContext* context = device.context();
    ID3D11Buffer* constants = constants_.Get();
    context->IASetInputLayout(layout_.Get());
    context->VSSetShader(vertex_shader_.Get(), nullptr, 0);
    context->VSSetConstantBuffers(0, 1, &constants);
    context->RSSetState(raster_.Get());
    context->OMSetBlendState(blend_.Get(), nullptr, 0xFFFFFFFF);
}

void Pipeline::SetSurface(const Device& device, const Surface& surface) {
    ID3D11DeviceContext* context = device.context();
    // A target that was drawn from cannot be drawn to before it is let go.
    ID3D11ShaderResourceView* nothing[2] = {};
    context->PSSetShaderResources(0, std::size(nothing), nothing);
    ID3D11RenderTargetView* color = surface.color.Get();
    context->OMSetRenderTargets(1, &color, surface.depth.Get());
    auto width = static_cast<float>(surface.width);
    auto height = static_cast<float>(surface.height);
    D3D11_VIEWPORT viewport{0, 0, width, height, 0, 1};
    context->RSSetViewports(1, &viewport);
    const float to_clip[] = {2 / width, -2 / height, -1, 1};
    context->UpdateSubresource(constants_.Get(), 0, nullptr, to_clip, 0, 0);
    surface_has_depth_ = static_cast<bool>(surface.depth);
}

void Pipeline::SetClip(const Device& device, const Box& clip) {
    D3D11_RECT rect{clip.left, clip.top, clip.right, clip.bottom};
    device.context()->RSSetScissorRects(1, &rect);
}

ID3D11SamplerState* Pipeline::Sampler(const TextureSource& source, bool filter) const {
    return samplers_[filter][source.wrap][source.mipmaps].Get();
}

void Pipeline::SetSource(const Device& device, const TextureSource& source, bool filter, bool adds_color) {
    ID3D11ShaderResourceView* view = source.view.Get();
    ID3D11SamplerState* sampler = Sampler(source, filter);
    device.context()->PSSetShader(pixel_shaders_[source.premultiplied][adds_color].Get(), nullptr, 0);
    device.context()->PSSetShaderResources(0, 1, &view);
    device.context()->PSSetSamplers(0, 1, &sampler);
}

void Pipeline::SetEffectSources(const Device& device, const TextureSource& first, const TextureSource& second,
                                bool filter, bool add) {
    ID3D11SamplerState* samplers[] = {Sampler(first, filter), Sampler(second, filter)};
    device.context()->PSSetSamplers(0, std::size(samplers), samplers);
    device.context()->OMSetBlendState(add ? add_.Get() : blend_.Get(), nullptr, 0xFFFFFFFF);
}

void Pipeline::EndEffect(const Device& device) {
    device.context()->OMSetBlendState(blend_.Get(), nullptr, 0xFFFFFFFF);
}

void Pipeline::SetDepth(const Device& device, bool write) {
    int state = !surface_has_depth_ ? kNoDepth : write ? kWriteDepth : kTestDepth;
    device.context()->OMSetDepthStencilState(depth_[state].Get(), 0);
}

}  // namespace hge
