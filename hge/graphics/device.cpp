#include "graphics/device.h"

#include <iterator>

namespace hge {

std::string ResultText(HRESULT result) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(result));
    return text;
}

bool Device::Create(Log& log) {
    Destroy();
    const D3D_FEATURE_LEVEL levels[] = {D3D_FEATURE_LEVEL_11_0, D3D_FEATURE_LEVEL_10_1,
                                        D3D_FEATURE_LEVEL_10_0};
    HRESULT result = E_FAIL;
    D3D_FEATURE_LEVEL level = D3D_FEATURE_LEVEL_10_0;
    for (D3D_DRIVER_TYPE type : {D3D_DRIVER_TYPE_HARDWARE, D3D_DRIVER_TYPE_WARP}) {
        result = D3D11CreateDevice(
            nullptr, type, nullptr, D3D11_CREATE_DEVICE_SINGLETHREADED | D3D11_CREATE_DEVICE_BGRA_SUPPORT,
            levels, std::size(levels), D3D11_SDK_VERSION, device_.Put(), &level, context_.Put());
        if (SUCCEEDED(result)) break;
    }
    if (FAILED(result)) {
        Destroy();
        log.Fail("graphics: no Direct3D 11 device (%s)", ResultText(result).c_str());
        return false;
    }
    log.Write("graphics: Direct3D 11 at feature level %x", static_cast<unsigned>(level));
    max_texture_size_ = level >= D3D_FEATURE_LEVEL_11_0 ? 16384 : 8192;
    return true;
}

void Device::Destroy() {
    if (context_) context_->ClearState();
    context_.Reset();
    device_.Reset();
}

TextureSource Device::MakeTexture(int width, int height, int slices, Use use) const {
    D3D11_TEXTURE2D_DESC desc{};
    desc.Width = static_cast<UINT>(width);
    desc.Height = static_cast<UINT>(height);
    desc.MipLevels = use == Use::kSampleMipmaps ? 0 : 1;
    desc.ArraySize = static_cast<UINT>(slices);
    desc.Format = DXGI_FORMAT_B8G8R8A8_UNORM;
    desc.SampleDesc.Count = 1;
    desc.BindFlags = D3D11_BIND_SHADER_RESOURCE;
    if (use == Use::kTarget) desc.BindFlags |= D3D11_BIND_RENDER_TARGET;
    if (use == Use::kStream) {
        desc.Usage = D3D11_USAGE_DYNAMIC;
        desc.CPUAccessFlags = D3D11_CPU_ACCESS_WRITE;
    }

    D3D11_SHADER_RESOURCE_VIEW_DESC view{};
    view.Format = desc.Format;
    view.ViewDimension = D3D11_SRV_DIMENSION_TEXTURE2DARRAY;
    view.Texture2DArray.MipLevels = static_cast<UINT>(-1);
    view.Texture2DArray.ArraySize = desc.ArraySize;

    if (!device_) return {};
    TextureSource source;
    source.mipmaps = use == Use::kSampleMipmaps;
    source.premultiplied = use == Use::kTarget;
    source.streamed = use == Use::kStream;
    if (FAILED(device_->CreateTexture2D(&desc, nullptr, source.texture.Put())) ||
        FAILED(device_->CreateShaderResourceView(source.texture.Get(), &view, source.view.Put())))
        return {};
    return source;
}

ComPtr<ID3D11DepthStencilView> Device::MakeDepth(int width, int height) const {
    D3D11_TEXTURE2D_DESC desc{};
    desc.Width = static_cast<UINT>(width);
    desc.Height = static_cast<UINT>(height);
    desc.MipLevels = desc.ArraySize = desc.SampleDesc.Count = 1;
    desc.Format = DXGI_FORMAT_D24_UNORM_S8_UINT;
    desc.BindFlags = D3D11_BIND_DEPTH_STENCIL;
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11DepthStencilView> view;
    if (SUCCEEDED(device_->CreateTexture2D(&desc, nullptr, texture.Put())))
        device_->CreateDepthStencilView(texture.Get(), nullptr, view.Put());
    return view;
}

Surface Device::MakeSurface(ID3D11Texture2D* texture, int width, int height, bool zbuffer) const {
    Surface surface;
    surface.width = width;
    surface.height = height;
    if (FAILED(device_->CreateRenderTargetView(texture, nullptr, surface.color.Put()))) return {};
    if (zbuffer) surface.depth = MakeDepth(width, height);
    if (zbuffer && !surface.depth) return {};
    return surface;
}

}  // namespace hge
