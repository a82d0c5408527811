#include "graphics/swap_chain.h"

namespace hge {

namespace {

LONGLONG Now() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

LONGLONG Milliseconds(int count) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart * count / 1000;
}

DXGI_SWAP_CHAIN_DESC Describe(HWND window, int width, int height) {
    DXGI_SWAP_CHAIN_DESC desc{};
    desc.BufferDesc.Width = static_cast<UINT>(width);
    desc.BufferDesc.Height = static_cast<UINT>(height);
    desc.BufferDesc.Format = DXGI_FORMAT_B8G8R8A8_UNORM;
    desc.SampleDesc.Count = 1;
    desc.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    desc.BufferCount = 1;
    desc.OutputWindow = window;
    desc.Windowed = TRUE;
    // One buffer that is copied to the window: the picture survives, so that it can be read after it was
    // shown.
    desc.SwapEffect = DXGI_SWAP_EFFECT_SEQUENTIAL;
    return desc;
}

}  // namespace

bool SwapChain::Create(const Device& device, HWND window, int width, int height, bool zbuffer, Log& log) {
    Destroy();
    ComPtr<IDXGIDevice> dxgi;
    ComPtr<IDXGIAdapter> adapter;
    ComPtr<IDXGIFactory> factory;
    device->QueryInterface(IID_IDXGIDevice, dxgi.PutVoid());
    if (dxgi) dxgi->GetAdapter(adapter.Put());
    if (adapter) adapter->GetParent(IID_IDXGIFactory, factory.PutVoid());
    DXGI_SWAP_CHAIN_DESC desc = Describe(window, width, height);
    HRESULT result = factory ? factory->CreateSwapChain(device.Get(), &desc, chain_.Put()) : E_NOINTERFACE;
    if (SUCCEEDED(result)) {
        factory->MakeWindowAssociation(window, DXGI_MWA_NO_WINDOW_CHANGES | DXGI_MWA_NO_ALT_ENTER);
        result = chain_->GetBuffer(0, IID_ID3D11Texture2D, back_buffer_.PutVoid());
    }
    if (SUCCEEDED(result)) surface_ = device.MakeSurface(back_buffer_.Get(), width, height, zbuffer);
    if (!surface_.color) {
        log.Fail("graphics: no picture of %d x %d for the window (%s)", width, height,
                 ResultText(result).c_str());
        Destroy();
        return false;
    }
    D3D11_QUERY_DESC query{D3D11_QUERY_EVENT, 0};
    device->CreateQuery(&query, frame_done_.Put());
    return true;
}

void SwapChain::Destroy() {
    *this = SwapChain();
}

// Presenting while the last frame is still being drawn keeps a core busy in some drivers; sleeping does not.
// It would cost light frames more than it saves.
void SwapChain::AwaitLastFrame(const Device& device) {
    if (!frame_pending_ || !slow_) return;
    const LONGLONG start = Now();
    while (device.context()->GetData(frame_done_.Get(), nullptr, 0, 0) == S_FALSE) {
        if (Now() - start > Milliseconds(500)) return;
        Sleep(1);
    }
}

SwapChain::Shown SwapChain::Present(const Device& device, bool vsync) {
    AwaitLastFrame(device);
    frame_pending_ = false;
    // From one to the next with the waits between: what a frame takes that waited and what one that did not.
    const LONGLONG now = Now();
    slow_ = now - last_present_ > Milliseconds(4);
    last_present_ = now;
    HRESULT result = chain_->Present(vsync ? 1 : 0, 0);
    if (result == DXGI_ERROR_DEVICE_REMOVED || result == DXGI_ERROR_DEVICE_RESET ||
        result == DXGI_ERROR_DEVICE_HUNG)
        return Shown::kDeviceLost;
    if (FAILED(result)) return Shown::kFailed;
    if (frame_done_) {
        device.context()->End(frame_done_.Get());
        frame_pending_ = true;
    }
    return Shown::kYes;
}

bool SwapChain::Read(const Device& device, Image* image) const {
    D3D11_TEXTURE2D_DESC desc{};
    back_buffer_->GetDesc(&desc);
    desc.Usage = D3D11_USAGE_STAGING;
    desc.BindFlags = desc.MiscFlags = 0;
    desc.CPUAccessFlags = D3D11_CPU_ACCESS_READ;
    ComPtr<ID3D11Texture2D> copy;
    D3D11_MAPPED_SUBRESOURCE mapped{};
    if (FAILED(device->CreateTexture2D(&desc, nullptr, copy.Put()))) return false;
    device.context()->CopyResource(copy.Get(), back_buffer_.Get());
    if (FAILED(device.context()->Map(copy.Get(), 0, D3D11_MAP_READ, 0, &mapped))) return false;
    image->width = surface_.width;
    image->height = surface_.height;
    image->pixels.clear();
    image->pixels.reserve(static_cast<size_t>(desc.Width) * desc.Height);
    for (UINT y = 0; y < desc.Height; ++y) {
        auto row =
            reinterpret_cast<const uint32_t*>(static_cast<const char*>(mapped.pData) + y * mapped.RowPitch);
        for (UINT x = 0; x < desc.Width; ++x)
            image->pixels.push_back(row[x] | 0xFF000000);
    }
    device.context()->Unmap(copy.Get(), 0);
    return true;
}

}  // namespace hge
