#pragma once

#include <functional>
#include <vector>

#include "graphics/atlas.h"
#include "graphics/pixel_shadow.h"

namespace hge {

// Pixels on their way into a page of the atlas.
struct AtlasUpload {
    Box box;  // on the page
    std::vector<uint32_t> pixels;
};

// The changed pixels, with those of the one-pixel gutter that repeat them. The texture's pixel (-1, -1) is
// the slot's corner.
void MakeAtlasUpload(const PixelShadow& shadow, const Box& changed, const AtlasSlot& slot,
                     AtlasUpload* upload);

// New textures on their way into the atlas. Neighbours go together: a new text is sent in a few long boxes,
// where a box for each of its characters would keep the device busy for longer than GDI takes to draw them.
class AtlasUploads {
 public:
    // The shadow must stay until it is sent.
    void Add(const AtlasSlot& slot, const PixelShadow& shadow) { pictures_.push_back({slot, &shadow}); }
    void Clear() { pictures_.clear(); }
    bool empty() const { return pictures_.empty(); }
    // Hands over everything, box by box.
    void Send(const std::function<void(int page, const AtlasUpload&)>& send);

 private:
    struct Picture {
        AtlasSlot slot;
        const PixelShadow* shadow;
    };
    using Place = std::vector<Picture>::const_iterator;

    Place EndOfRun(Place first) const;
    void MakeRun(Place first, Place last);

    std::vector<Picture> pictures_;
    AtlasUpload run_;
};

}  // namespace hge
