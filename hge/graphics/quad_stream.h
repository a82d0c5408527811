#pragma once

#include "graphics/quad_writer.h"
#include "graphics/texture_records.h"

namespace hge {

// The way of a quad into mapped memory. The one that needs nothing but writing is written at once; the others
// are left to the scene.
class QuadStream {
 public:
    TextureRecords& textures() { return textures_; }

    // Corners must be moved before they are added.
    void SetTransformed(bool transformed) { transformed_ = transformed; }
    // The blend bit by which quads write depth; 0 where there is no depth.
    void SetDepthBit(int bit) { depth_bit_ = bit; }

    // Starts a batch of one source and one way with depth, in memory with room for some quads.
    void Open(const TextureSource* source, int blend, DeviceVertex* room, int quads) {
        source_ = source;
        depth_ = blend & depth_bit_;
        blends_ = 0;
        first_ = next_ = room;
        end_ = room + 4 * quads;
    }
    // Ends it: how many quads were written.
    int Close() {
        int quads = pending();
        first_ = next_ = end_ = nullptr;
        ++batch_;
        return quads;
    }
    int pending() const { return static_cast<int>(next_ - first_) / 4; }
    // Of the open batch, or else of the next one; never 0.
    uint32_t batch() const { return batch_; }

    // What the quads of the open batch share, or of the last one.
    const TextureSource* source() const { return source_; }
    bool writes_depth() const { return depth_ != 0; }
    bool adds_color() const { return quad_detail::kModes[blends_ & 3] & kModeColorAdd; }
    bool Takes(const TextureSource* source, int blend) const {
        return next_ != end_ && source == source_ && SameDepth(blend);
    }
    // Only what the batch takes.
    void Write(const Vertex* corners, TextureRecord& texture, int blend) {
        WriteQuad(corners, texture.placement, blend, next_);
        next_ += 4;
        blends_ |= blend;
        texture.batch = batch_;
    }

    // False when the quad was not written: it needs more than that, or makes no sense.
    bool Add(const Vertex* corners, uint32_t texture, int blend) {
        TextureRecord& record = textures_.At(texture);
        if (record.id != texture || !Takes(record.source, blend) || !IsPlain(corners)) return false;
        Write(corners, record, blend);
        return true;
    }
    // The same for corners that were not moved yet, and with a second texture.
    bool AddAsIs(const Vertex* corners, uint32_t texture, uint32_t second, int blend) {
        return !transformed_ && !second && Add(corners, texture, blend);
    }

 private:
    bool SameDepth(int blend) const { return ((blend ^ depth_) & depth_bit_) == 0; }

    TextureRecords textures_;
    const TextureSource* source_ = nullptr;
    DeviceVertex* first_ = nullptr;
    DeviceVertex* next_ = nullptr;
    DeviceVertex* end_ = nullptr;
    uint32_t batch_ = 1;
    int depth_bit_ = 0;
    int depth_ = 0;
    int blends_ = 0;  // of all quads of the batch
    bool transformed_ = false;
};

}  // namespace hge
