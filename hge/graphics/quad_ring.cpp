#include "graphics/quad_ring.h"

#include <vector>

namespace hge {

namespace {

std::vector<uint16_t> QuadIndices(int quads) {
    std::vector<uint16_t> indices;
    indices.reserve(static_cast<size_t>(quads) * 6);
    for (int quad = 0; quad < quads; ++quad)
        for (int corner : {0, 1, 2, 2, 3, 0})
            indices.push_back(static_cast<uint16_t>(quad * 4 + corner));
    return indices;
}

}  // namespace

bool QuadRing::Create(const Device& device) {
    Destroy();
    D3D11_BUFFER_DESC desc{};
    desc.ByteWidth = kQuads * 4 * sizeof(DeviceVertex);
    desc.Usage = D3D11_USAGE_DYNAMIC;
    desc.BindFlags = D3D11_BIND_VERTEX_BUFFER;
    desc.CPUAccessFlags = D3D11_CPU_ACCESS_WRITE;
    if (FAILED(device->CreateBuffer(&desc, nullptr, vertices_.Put()))) return false;

    std::vector<uint16_t> indices = QuadIndices(kQuads);
    D3D11_SUBRESOURCE_DATA data{indices.data(), 0, 0};
    desc = {};
    desc.ByteWidth = static_cast<UINT>(indices.size() * sizeof indices[0]);
    desc.Usage = D3D11_USAGE_IMMUTABLE;
    desc.BindFlags = D3D11_BIND_INDEX_BUFFER;
    return SUCCEEDED(device->CreateBuffer(&desc, &data, indices_.Put()));
}

void QuadRing::Destroy() {
    vertices_.Reset();
    indices_.Reset();
    cursor_ = RingCursor(kQuads);
}

DeviceVertex* QuadRing::Map(const Device& device) {
    D3D11_MAPPED_SUBRESOURCE mapped{};
    D3D11_MAP how = cursor_.fresh() ? D3D11_MAP_WRITE_DISCARD : D3D11_MAP_WRITE_NO_OVERWRITE;
    if (FAILED(device.context()->Map(vertices_.Get(), 0, how, 0, &mapped))) return nullptr;
    ++maps_;
    return static_cast<DeviceVertex*>(mapped.pData) + 4 * cursor_.first();
}

void QuadRing::Draw(const Device& device, int quads) {
    device.context()->Unmap(vertices_.Get(), 0);
    device.context()->DrawIndexed(static_cast<UINT>(quads * 6), static_cast<UINT>(cursor_.first() * 6), 0);
    cursor_.Add(quads);
}

void QuadRing::Bind(const Device& device) const {
    ID3D11Buffer* buffer = vertices_.Get();
    UINT stride = sizeof(DeviceVertex);
    UINT offset = 0;
    device.context()->IASetVertexBuffers(0, 1, &buffer, &stride, &offset);
    device.context()->IASetIndexBuffer(indices_.Get(), DXGI_FORMAT_R16_UINT, 0);
    device.context()->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLELIST);
}

}  // namespace hge
