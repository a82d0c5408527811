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

    // Memory for the next quads' corners, four each, for room() quads; null when the device refuses.
    DeviceVertex* Map(const Device& device);
    int room() const { return cursor_.room(); }
    // Draws the quads, at least one, that were written since.
    void Draw(const Device& device, int quads);
    void Bind(const Device& device) const;

    DWORD maps() const { return maps_; }
    void ResetMaps() { maps_ = 0; }

 private:
    ComPtr<ID3D11Buffer> vertices_;
    ComPtr<ID3D11Buffer> indices_;
    RingCursor cursor_{kQuads};
    DWORD maps_ = 0;
};

}  // namespace hge
