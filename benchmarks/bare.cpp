#include "bare.h"

#include <d3dcompiler.h>

#include <algorithm>
#include <cfloat>
#include <cstring>
#include <iterator>

#include "stage.h"

namespace bench {

namespace {

using hge::ComPtr;
using hge::DeviceVertex;

constexpr char kShaders[] = R"(
struct Corner { float3 place : POSITION; float4 color : COLOR0; float2 uv : TEXCOORD0; float4 mode : TEXCOORD1; };
struct Fragment { float4 place : SV_POSITION; float4 color : COLOR0; float3 uv : TEXCOORD0; float blend : TEXCOORD1; };
Texture2DArray first : register(t0);
Texture2DArray second : register(t1);
SamplerState filter : register(s0);

Fragment PlaceCorner(Corner corner)
{
    Fragment fragment;
    fragment.place = float4(corner.place.x / 400.0 - 1.0, 1.0 - corner.place.y / 300.0, corner.place.z, 1.0);
    fragment.color = corner.color.zyxw;
    fragment.uv = float3(corner.uv, corner.mode.x * 255.0);
    fragment.blend = corner.mode.y;
    return fragment;
}

float4 Texel(Fragment fragment) : SV_TARGET
{
    float4 color = first.Sample(filter, fragment.uv) * fragment.color;
    return float4(color.rgb * color.a, color.a * fragment.blend);
}

float4 Mix(Fragment fragment) : SV_TARGET
{
    return lerp(first.Sample(filter, fragment.uv), second.Sample(filter, fragment.uv), 0.25) * fragment.color;
}
)";

void Check(HRESULT result, const char* what) {
    if (FAILED(result)) Fail(std::string("bare device: ") + what + " " + hge::ResultText(result));
}

ComPtr<ID3DBlob> Compile(const char* entry, const char* model) {
    ComPtr<ID3DBlob> code, messages;
    Check(D3DCompile(kShaders, sizeof kShaders - 1, nullptr, nullptr, nullptr, entry, model, 0, 0, code.Put(),
                     messages.Put()),
          entry);
    return code;
}

}  // namespace

Bare& Bare::Get() {
    static Bare bare;
    return bare;
}

std::vector<DeviceVertex> Bare::WholeScreens(int count, uint32_t color) {
    constexpr float w = kScreenWidth, h = kScreenHeight;
    constexpr uint32_t kAlpha = 255 << 8;
    std::vector<DeviceVertex> vertices;
    for (int i = 0; i < count; ++i)
        vertices.insert(vertices.end(), {{0, 0, 0, color, 0, 0, kAlpha},
                                         {w, 0, 0, color, 1, 0, kAlpha},
                                         {w, h, 0, color, 1, 1, kAlpha},
                                         {0, h, 0, color, 0, 1, kAlpha}});
    return vertices;
}

Bare::Bare() {
    hge::Log log;
    Require(device_.Create(log), log.LastErrorText());
    window_.reset(CreateWindowExA(WS_EX_NOACTIVATE, "STATIC", "bare", WS_POPUP, 0, 0, kScreenWidth,
                                  kScreenHeight, nullptr, nullptr, nullptr, nullptr));
    Require(window_ != nullptr, "no window for the bare device");
    SetWindowPos(window_.get(), HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    ComPtr<IDXGIDevice> dxgi;
    ComPtr<IDXGIAdapter> adapter;
    ComPtr<IDXGIFactory> factory;
    device_->QueryInterface(IID_IDXGIDevice, dxgi.PutVoid());
    Check(dxgi->GetAdapter(adapter.Put()), "adapter");
    Check(adapter->GetParent(IID_IDXGIFactory, factory.PutVoid()), "factory");
    DXGI_SWAP_CHAIN_DESC desc{};
    desc.BufferDesc = {kScreenWidth, kScreenHeight, {}, DXGI_FORMAT_B8G8R8A8_UNORM, {}, {}};
    desc.SampleDesc.Count = desc.BufferCount = 1;
    desc.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    desc.OutputWindow = window_.get();
    desc.Windowed = TRUE;
    desc.SwapEffect = DXGI_SWAP_EFFECT_SEQUENTIAL;
    Check(factory->CreateSwapChain(device_.Get(), &desc, chain_.Put()), "swap chain");
    ComPtr<ID3D11Texture2D> buffer;
    Check(chain_->GetBuffer(0, IID_ID3D11Texture2D, buffer.PutVoid()), "back buffer");
    screen_ = device_.MakeSurface(buffer.Get(), kScreenWidth, kScreenHeight, false);
    page_ = device_.MakeTexture(1024, 1024, 1, hge::Device::Use::kSample);
    for (int i : {0, 1}) {
        pictures_[i] = device_.MakeTexture(kScreenWidth, kScreenHeight, 1, hge::Device::Use::kTarget);
        picture_surfaces_[i] =
            device_.MakeSurface(pictures_[i].texture.Get(), kScreenWidth, kScreenHeight, false);
    }
    MakeBuffers();
    MakeShaders();
    MakeStates();
}

void Bare::MakeBuffers() {
    D3D11_BUFFER_DESC desc{};
    desc.ByteWidth = kRingQuads * 4 * sizeof(DeviceVertex);
    desc.Usage = D3D11_USAGE_DYNAMIC;
    desc.BindFlags = D3D11_BIND_VERTEX_BUFFER;
    desc.CPUAccessFlags = D3D11_CPU_ACCESS_WRITE;
    Check(device_->CreateBuffer(&desc, nullptr, vertices_.Put()), "vertices");
    std::vector<uint16_t> indices;
    for (int quad = 0; quad < kRingQuads; ++quad)
        for (int corner : {0, 1, 2, 2, 3, 0})
            indices.push_back(static_cast<uint16_t>(quad * 4 + corner));
    D3D11_SUBRESOURCE_DATA data{indices.data(), 0, 0};
    desc = {};
    desc.ByteWidth = static_cast<UINT>(indices.size() * sizeof indices[0]);
    desc.Usage = D3D11_USAGE_IMMUTABLE;
    desc.BindFlags = D3D11_BIND_INDEX_BUFFER;
    Check(device_->CreateBuffer(&desc, &data, indices_.Put()), "indices");
}

void Bare::MakeShaders() {
    auto code = Compile("PlaceCorner", "vs_4_0");
    Check(
        device_->CreateVertexShader(code->GetBufferPointer(), code->GetBufferSize(), nullptr, corner_.Put()),
        "vertex shader");
    const D3D11_INPUT_ELEMENT_DESC elements[] = {
        {"POSITION", 0, DXGI_FORMAT_R32G32B32_FLOAT, 0, 0, D3D11_INPUT_PER_VERTEX_DATA, 0},
        {"COLOR", 0, DXGI_FORMAT_R8G8B8A8_UNORM, 0, 12, D3D11_INPUT_PER_VERTEX_DATA, 0},
        {"TEXCOORD", 0, DXGI_FORMAT_R32G32_FLOAT, 0, 16, D3D11_INPUT_PER_VERTEX_DATA, 0},
        {"TEXCOORD", 1, DXGI_FORMAT_R8G8B8A8_UNORM, 0, 24, D3D11_INPUT_PER_VERTEX_DATA, 0}};
    Check(device_->CreateInputLayout(elements, std::size(elements), code->GetBufferPointer(),
                                     code->GetBufferSize(), layout_.Put()),
          "layout");
    code = Compile("Texel", "ps_4_0");
    Check(device_->CreatePixelShader(code->GetBufferPointer(), code->GetBufferSize(), nullptr, texel_.Put()),
          "pixel shader");
    code = Compile("Mix", "ps_4_0");
    Check(device_->CreatePixelShader(code->GetBufferPointer(), code->GetBufferSize(), nullptr, mix_.Put()),
          "pixel shader");
}

void Bare::MakeStates() {
    D3D11_BLEND_DESC blend{};
    auto& over = blend.RenderTarget[0];
    over.BlendEnable = TRUE;
    over.SrcBlend = over.SrcBlendAlpha = D3D11_BLEND_ONE;
    over.DestBlend = over.DestBlendAlpha = D3D11_BLEND_INV_SRC_ALPHA;
    over.BlendOp = over.BlendOpAlpha = D3D11_BLEND_OP_ADD;
    over.RenderTargetWriteMask = D3D11_COLOR_WRITE_ENABLE_ALL;
    Check(device_->CreateBlendState(&blend, blend_.Put()), "blending");
    D3D11_RASTERIZER_DESC raster{};
    raster.FillMode = D3D11_FILL_SOLID;
    raster.CullMode = D3D11_CULL_NONE;
    raster.ScissorEnable = TRUE;
    Check(device_->CreateRasterizerState(&raster, raster_.Put()), "rasterizer");
    D3D11_SAMPLER_DESC sampler{};
    sampler.Filter = D3D11_FILTER_MIN_MAG_LINEAR_MIP_POINT;
    sampler.AddressU = sampler.AddressV = sampler.AddressW = D3D11_TEXTURE_ADDRESS_CLAMP;
    sampler.MaxLOD = FLT_MAX;
    sampler.MaxAnisotropy = 1;
    sampler.ComparisonFunc = D3D11_COMPARISON_NEVER;
    Check(device_->CreateSamplerState(&sampler, sampler_.Put()), "sampler");
    const D3D11_QUERY_DESC query{D3D11_QUERY_EVENT, 0};
    Check(device_->CreateQuery(&query, done_.Put()), "query");

    ID3D11DeviceContext* context = device_.context();
    ID3D11Buffer* buffer = vertices_.Get();
    ID3D11SamplerState* samplers[] = {sampler_.Get(), sampler_.Get()};
    const UINT stride = sizeof(DeviceVertex), offset = 0;
    const D3D11_VIEWPORT viewport{0, 0, kScreenWidth, kScreenHeight, 0, 1};
    context->IASetInputLayout(layout_.Get());
    context->IASetVertexBuffers(0, 1, &buffer, &stride, &offset);
    context->IASetIndexBuffer(indices_.Get(), DXGI_FORMAT_R16_UINT, 0);
    context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLELIST);
    context->VSSetShader(corner_.Get(), nullptr, 0);
    context->PSSetSamplers(0, 2, samplers);
    context->RSSetState(raster_.Get());
    context->RSSetViewports(1, &viewport);
    context->OMSetBlendState(blend_.Get(), nullptr, 0xFFFFFFFF);
    ID3D11RenderTargetView* target = screen_.color.Get();
    context->OMSetRenderTargets(1, &target, nullptr);
}

void Bare::SetClip(bool clipped) {
    const D3D11_RECT rect{0, 0, clipped ? 1 : kScreenWidth, clipped ? 1 : kScreenHeight};
    device_.context()->RSSetScissorRects(1, &rect);
}

void Bare::SetSource(hge::TextureSource* first, hge::TextureSource* second, ID3D11PixelShader* shader) {
    ID3D11ShaderResourceView* views[] = {first->view.Get(), second ? second->view.Get() : nullptr};
    device_.context()->PSSetShaderResources(0, 2, views);
    device_.context()->PSSetShader(shader, nullptr, 0);
}

void Bare::DrawRing(const DeviceVertex* vertices, size_t quads) {
    D3D11_MAPPED_SUBRESOURCE mapped{};
    Check(device_.context()->Map(vertices_.Get(), 0, D3D11_MAP_WRITE_DISCARD, 0, &mapped), "map");
    std::memcpy(mapped.pData, vertices, quads * 4 * sizeof *vertices);
    device_.context()->Unmap(vertices_.Get(), 0);
    device_.context()->DrawIndexed(static_cast<UINT>(quads * 6), 0, 0);
}

void Bare::Submit(const std::vector<DeviceVertex>& vertices, bool clipped) {
    SetClip(clipped);
    SetSource(&page_, nullptr, texel_.Get());
    for (size_t first = 0; first < vertices.size(); first += kRingQuads * 4)
        DrawRing(&vertices[first], std::min<size_t>(kRingQuads, (vertices.size() - first) / 4));
}

void Bare::Clear() {
    const float black[4] = {0, 0, 0, 1};
    device_.context()->ClearRenderTargetView(screen_.color.Get(), black);
}

void Bare::DrawPictures() {
    const float colors[2][4] = {{0, 0, 1, 1}, {0, 1, 0, 1}};
    for (int i : {0, 1})
        device_.context()->ClearRenderTargetView(picture_surfaces_[i].color.Get(), colors[i]);
    SetClip(false);
    SetSource(&pictures_[0], &pictures_[1], mix_.Get());
    DrawRing(WholeScreens(1, 0xFFFFFFFF).data(), 1);
}

void Bare::Present() {
    chain_->Present(0, 0);
}

void Bare::Wait() {
    device_.context()->End(done_.Get());
    while (device_.context()->GetData(done_.Get(), nullptr, 0, 0) == S_FALSE)
        Sleep(1);
}

double Bare::FrameTime(int count, bool paced, const std::function<void()>& draw) {
    constexpr int kFilling = 3;
    double start = 0;
    for (int frame = 0; frame < count + kFilling; ++frame) {
        if (frame == kFilling) start = Now();
        draw();
        if (paced && frame > 0)
            while (device_.context()->GetData(done_.Get(), nullptr, 0, 0) == S_FALSE)
                Sleep(1);
        Present();
        if (paced) device_.context()->End(done_.Get());
    }
    const double time = (Now() - start) / count;
    Wait();
    return time;
}

}  // namespace bench
