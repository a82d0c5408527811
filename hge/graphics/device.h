#pragma once

#include <d3d11.h>

#include "core/com_ptr.h"
#include "core/log.h"

namespace hge {

// "0x887A0005"-like text of a result code.
std::string ResultText(HRESULT result);

// What is drawn from: one slice or more of equal size, seen by the shader as an array.
struct TextureSource {
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11ShaderResourceView> view;
    bool mipmaps = false;
    bool wrap = false;           // coordinates repeat; else they are clamped
    bool premultiplied = false;  // what was drawn into a target is
    bool streamed = false;       // takes whole pictures through a mapping

    explicit operator bool() const { return static_cast<bool>(view); }
};

// What is drawn to. Without a depth view there is no depth test.
struct Surface {
    ComPtr<ID3D11RenderTargetView> color;
    ComPtr<ID3D11DepthStencilView> depth;
    int width = 0, height = 0;
};

// The Direct3D device: hardware, else the software one of the system.
class Device {
 public:
    // False with the reason in the log.
    bool Create(Log& log);
    void Destroy();

    explicit operator bool() const { return static_cast<bool>(device_); }
    ID3D11Device* operator->() const { return device_.Get(); }
    ID3D11Device* Get() const { return device_.Get(); }
    ID3D11DeviceContext* context() const { return context_.Get(); }
    int max_texture_size() const { return max_texture_size_; }
    // It takes nothing any more, another one must be made.
    bool lost() const { return !device_ || FAILED(device_->GetDeviceRemovedReason()); }

    enum class Use { kSample, kSampleMipmaps, kStream, kTarget };
    // Empty when the device refuses.
    TextureSource MakeTexture(int width, int height, int slices, Use use) const;
    // A surface on a texture of the same size; its views are null when the device refuses.
    Surface MakeSurface(ID3D11Texture2D* texture, int width, int height, bool zbuffer) const;

 private:
    ComPtr<ID3D11DepthStencilView> MakeDepth(int width, int height) const;

    ComPtr<ID3D11Device> device_;
    ComPtr<ID3D11DeviceContext> context_;
    int max_texture_size_ = 0;
};

}  // namespace hge
