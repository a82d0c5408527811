#pragma once

#include <functional>

#include "core/handle_table.h"
#include "graphics/atlas.h"
#include "graphics/atlas_uploads.h"
#include "graphics/device.h"
#include "graphics/pixel_shadow.h"
#include "graphics/quad_stream.h"

namespace hge {

struct Texture {
    uint32_t id = 0;
    Box dirty;            // pixels that the device does not have yet
    uint32_t target = 0;  // the target that it belongs to; such a texture has no shadow
    bool in_atlas = false;
    AtlasSlot slot;     // where in the atlas
    TextureSource own;  // else its own
    int width = 0, height = 0;
    bool mipmaps = false;
    PixelShadow shadow;
    uint32_t upload_frame = 0;
    int frames_rewritten = 0;  // shortly one after the other
    uint32_t waiting = 0;      // the round of uploads that it waits for

    Box whole() const { return {0, 0, width, height}; }
};

// Owns the textures. Small ones share the pages of an atlas, so that changing between them costs no draw
// call; large, repeating, mipmapped and constantly rewritten ones and those of targets stand alone.
class TextureStore {
 public:
    // flush draws what is pending; it is called before pixels change that pending quads show.
    TextureStore(Log& log, const Device& device, QuadStream& stream, std::function<void()> flush);

    // False when the device refuses.
    bool Start();
    void Stop();
    // Gives a new device all textures but those of targets.
    bool Restore();

    // 0 with the reason in the log. name is for the log.
    uint32_t Create(PixelShadow shadow, bool mipmaps, const char* name);
    uint32_t CreateForTarget(uint32_t target, int width, int height, TextureSource source);
    // Not for a target's texture: that one ends with its target.
    void Free(uint32_t id);
    Texture* Find(uint32_t id) const { return textures_.Find(id); }
    // A white texel, for quads without a texture.
    Texture& white() { return white_; }

    // Null with the reason in the log.
    uint32_t* Lock(uint32_t id, bool read_only, int left, int top, int width, int height);
    void Unlock(uint32_t id);

    // What to draw the texture from, its pixels up to date; null when the device refuses.
    // Small new ones wait for SendWaiting, which must come before the draw call.
    const TextureSource* Prepare(Texture& texture, bool tiled);
    void SendWaiting();
    void NextFrame() { ++frame_; }

    size_t size() const { return textures_.size(); }
    DWORD uploads() const { return uploads_; }
    DWORD upload_bytes() const { return upload_bytes_; }

 private:
    TextureRecord& RecordOf(const Texture& texture) { return stream_.textures().At(texture.id); }
    void MarkDirty(Texture& texture, const Box& box);
    // 0 when there are too many.
    uint32_t Insert(std::unique_ptr<Texture> texture);
    bool PlaceOrForget(uint32_t id, Texture& texture);
    bool Place(Texture& texture);
    bool PlaceInAtlas(Texture& texture);
    void LeaveAtlas(Texture& texture);
    bool GrowPages(int pages);
    bool StandAlone(Texture& texture);
    bool Repeat(Texture& texture);
    bool RewrittenOften(Texture& texture);
    void StreamIfOften(Texture& texture);
    void FlushIfPending(const Texture& texture);
    void Upload(Texture& texture);
    void UploadToAtlas(Texture& texture);
    void DropWaiting();
    void SendToPage(int page, const AtlasUpload& upload);
    bool IsWaiting(const Texture& texture) const { return texture.waiting == round_; }
    void UploadAlone(const Texture& texture);
    void Stream(const Texture& texture);
    void SendLevel(const Texture& texture, UINT level, const PixelShadow& pixels, const Box& box);
    void CountUpload(const Box& box);

    Log& log_;
    const Device& device_;
    QuadStream& stream_;
    std::function<void()> flush_;
    HandleTable<Texture, HandleKind::kTexture> textures_;
    Texture white_;
    Atlas atlas_;
    TextureSource pages_;
    int slices_ = 0;
    AtlasUploads waiting_;
    uint32_t round_ = 1;
    AtlasUpload staging_;
    uint32_t frame_ = 100;  // so that a texture never sent was not sent shortly before
    DWORD uploads_ = 0;
    DWORD upload_bytes_ = 0;
};

}  // namespace hge
