#pragma once

#include "graphics/device.h"
#include "resources/image.h"

namespace hge {

// The window's picture and its way to the display.
class SwapChain {
 public:
    // False with the reason in the log.
    bool Create(const Device& device, HWND window, int width, int height, bool zbuffer, Log& log);
    void Destroy();

    const Surface& surface() const { return surface_; }

    enum class Shown { kYes, kDeviceLost, kFailed };
    // The picture stays as it is for the next frame.
    Shown Present(const Device& device, bool vsync);
    // Opaque. False when the device refuses.
    bool Read(const Device& device, Image* image) const;

 private:
    void AwaitLastFrame(const Device& device);

    ComPtr<IDXGISwapChain> chain_;
    ComPtr<ID3D11Texture2D> back_buffer_;
    ComPtr<ID3D11Query> frame_done_;
    Surface surface_;
    bool frame_pending_ = false;
    bool slow_ = false;  // the frames take longer than a few milliseconds
    LONGLONG last_present_ = 0;
};

}  // namespace hge
