#pragma once

#include "graphics/device.h"
#include "graphics/ring_cursor.h"
#include "graphics/vertex.h"

namespace hge {

// The vertex buffer that quads are written into, straight into mapped memory.
class QuadRing {
 public:
    static constexpr int kQuads = 16384;

    // False when the device refuses.
    bool Create(const Device& device);
    void Destroy();

    bool full() const { return cursor_.full(); }
    bool pending() const { return cursor_.pending() > 0; }
    // Room for the next quad's four corners; null when the device refuses. Not when full.
    DeviceVertex* Next(const Device& device) {
        if (!mapped_ && !Map(device)) return nullptr;
        return mapped_ + 4 * cursor_.Add();
    }
    // Draws what was written since the last time.
    void Draw(const Device& device);
    void Bind(const Device& device) const;

    DWORD maps() const { return maps_; }
    void ResetMaps() { maps_ = 0; }

 private:
    bool Map(const Device& device);

    ComPtr<ID3D11Buffer> vertices_;
    ComPtr<ID3D11Buffer> indices_;
    RingCursor cursor_{kQuads};
    DeviceVertex* mapped_ = nullptr;
    DWORD maps_ = 0;
};

}  // namespace hge
