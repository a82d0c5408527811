#include "graphics/atlas_uploads.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace hge {

namespace {

// More would be copied about without need.
constexpr int kMostPixels = 65536;

void AppendRow(const PixelShadow& shadow, int y, const Box& box, std::vector<uint32_t>* out) {
    int row = std::clamp(y, 0, shadow.height() - 1);
    int from = std::max(box.left, 0);
    int to = std::min(box.right, shadow.width());
    if (box.left < 0) out->push_back(*shadow.Pixel(0, row));
    out->insert(out->end(), shadow.Pixel(from, row), shadow.Pixel(from, row) + (to - from));
    if (box.right > shadow.width()) out->push_back(*shadow.Pixel(shadow.width() - 1, row));
}

// The whole picture with its gutter.
void CopyFramed(const PixelShadow& shadow, uint32_t* out, int stride) {
    const int width = shadow.width();
    for (int y = -1; y <= shadow.height(); ++y, out += stride) {
        const uint32_t* row = shadow.Pixel(0, std::clamp(y, 0, shadow.height() - 1));
        out[0] = row[0];
        std::memcpy(out + 1, row, static_cast<size_t>(width) * 4);
        out[width + 1] = row[width - 1];
    }
}

}  // namespace

void MakeAtlasUpload(const PixelShadow& shadow, const Box& changed, const AtlasSlot& slot,
                     AtlasUpload* upload) {
    Box box = changed;
    if (box.left == 0) box.left = -1;
    if (box.top == 0) box.top = -1;
    if (box.right == shadow.width()) ++box.right;
    if (box.bottom == shadow.height()) ++box.bottom;
    upload->pixels.clear();
    for (int y = box.top; y < box.bottom; ++y)
        AppendRow(shadow, y, box, &upload->pixels);
    const int left = slot.x + 1, top = slot.y + 1;
    upload->box = {left + box.left, top + box.top, left + box.right, top + box.bottom};
}

void AtlasUploads::Send(const std::function<void(int page, const AtlasUpload&)>& send) {
    std::sort(pictures_.begin(), pictures_.end(), [](const Picture& a, const Picture& b) {
        return std::tie(a.slot.page, a.slot.y, a.slot.x) < std::tie(b.slot.page, b.slot.y, b.slot.x);
    });
    for (Place first = pictures_.begin(); first != pictures_.end();) {
        const Place last = EndOfRun(first);
        MakeRun(first, last);
        send(first->slot.page, run_);
        first = last;
    }
    pictures_.clear();
}

AtlasUploads::Place AtlasUploads::EndOfRun(Place first) const {
    int right = first->slot.x + first->slot.width, height = first->slot.height;
    Place next = first + 1;
    for (; next != pictures_.end(); ++next) {
        const AtlasSlot& slot = next->slot;
        if (slot.page != first->slot.page || slot.y != first->slot.y || slot.x != right) break;
        height = std::max(height, slot.height);
        right += slot.width;
        if ((right - first->slot.x) * height > kMostPixels) break;
    }
    return next;
}

// Below the lower ones of a shelf lies nothing that anyone draws.
void AtlasUploads::MakeRun(Place first, Place last) {
    const AtlasSlot& corner = first->slot;
    Box box{corner.x, corner.y, corner.x, corner.y};
    for (Place picture = first; picture != last; ++picture) {
        box.right += picture->slot.width;
        box.bottom = std::max(box.bottom, corner.y + picture->slot.height);
    }
    run_.box = box;
    run_.pixels.assign(static_cast<size_t>(box.width()) * static_cast<size_t>(box.height()), 0);
    for (Place picture = first; picture != last; ++picture)
        CopyFramed(*picture->shadow, &run_.pixels[static_cast<size_t>(picture->slot.x - box.left)],
                   box.width());
}

}  // namespace hge
