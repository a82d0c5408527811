#include "graphics/texture_store.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace hge {

namespace {

constexpr int kPageSize = 1024;
constexpr int kMaxPages = 64;
constexpr int kLargestInAtlas = 256;
// A movie's pictures, also of one that has fewer a second than the game.
constexpr int kOften = 8;
constexpr uint32_t kFramesBetween = 30;

int64_t Area(const Box& box) {
    return int64_t{box.width()} * box.height();
}

}  // namespace

TextureStore::TextureStore(Log& log, const Device& device, QuadStream& stream, std::function<void()> flush)
    : log_(log), device_(device), stream_(stream), flush_(std::move(flush)), atlas_(kPageSize, kMaxPages) {}

bool TextureStore::Start() {
    Stop();
    uploads_ = upload_bytes_ = 0;
    white_ = Texture();
    white_.width = white_.height = 1;
    white_.shadow = PixelShadow(1, 1, {0xFFFFFFFF});
    if (!Place(white_)) return false;
    // Its middle, wherever in it a quad's corners are.
    Placement& placement = RecordOf(white_).placement;
    placement.u_offset += placement.u_scale / 2;
    placement.v_offset += placement.v_scale / 2;
    placement.u_scale = placement.v_scale = 0;
    return true;
}

void TextureStore::Stop() {
    DropWaiting();
    textures_.Clear();
    stream_.textures().Clear();
    atlas_ = Atlas(kPageSize, kMaxPages);
    pages_ = {};
    slices_ = 0;
}

bool TextureStore::Restore() {
    DropWaiting();
    pages_ = {};
    slices_ = 0;
    bool whole = GrowPages(atlas_.pages());
    MarkDirty(white_, white_.whole());
    textures_.ForEach([&](uint32_t, Texture& texture) {
        if (texture.target) return;
        bool wrap = texture.own.wrap;
        bool placed = texture.in_atlas || texture.own;
        if (!placed)
            whole &= Place(texture);
        else if (!texture.in_atlas)
            whole &= StandAlone(texture);
        texture.own.wrap = wrap;
        MarkDirty(texture, texture.whole());
    });
    return whole;
}

uint32_t TextureStore::Insert(std::unique_ptr<Texture> texture) {
    // Whatever slot it gets, also one that an earlier life has left.
    stream_.textures().Reserve(textures_.slots() + 1);
    uint32_t id = textures_.Insert(std::move(texture));
    if (!id) return 0;
    Find(id)->id = id;
    stream_.textures().Start(id);
    return id;
}

uint32_t TextureStore::Create(PixelShadow shadow, bool mipmaps, const char* name) {
    auto made = std::make_unique<Texture>();
    Texture& texture = *made;
    texture.width = shadow.width();
    texture.height = shadow.height();
    texture.shadow = std::move(shadow);
    texture.mipmaps = mipmaps;
    uint32_t id = Insert(std::move(made));
    if (!id) {
        log_.Fail("cannot create the texture \"%s\": there are too many", name);
    } else if (!PlaceOrForget(id, texture)) {
        log_.Fail("cannot create the texture \"%s\": the device or the memory has no room", name);
        id = 0;
    }
    return id;
}

// A device that was lost in this frame takes nothing; the one after it will.
bool TextureStore::PlaceOrForget(uint32_t id, Texture& texture) {
    try {
        if (Place(texture) || device_.lost()) return true;
    } catch (const std::bad_alloc&) {
    }
    textures_.Remove(id);
    return false;
}

uint32_t TextureStore::CreateForTarget(uint32_t target, int width, int height, TextureSource source) {
    auto texture = std::make_unique<Texture>();
    texture->width = width;
    texture->height = height;
    texture->target = target;
    texture->own = std::move(source);
    return Insert(std::move(texture));
}

void TextureStore::Free(uint32_t id) {
    Texture* texture = Find(id);
    if (!texture) return;
    FlushIfPending(*texture);
    LeaveAtlas(*texture);
    RecordOf(*texture).source = nullptr;
    textures_.Remove(id);
}

uint32_t* TextureStore::Lock(uint32_t id, bool read_only, int left, int top, int width, int height) {
    Texture* texture = Find(id);
    if (!texture) {
        log_.WriteOnce("lock dead", "Texture_Lock: %08X is no texture", id);
        return nullptr;
    }
    if (texture->target) {
        log_.WriteOnce("lock target", "Texture_Lock: a target's texture cannot be locked");
        return nullptr;
    }
    if (texture->shadow.locked()) {
        log_.WriteOnce("lock twice", "Texture_Lock: the texture is locked already");
        return nullptr;
    }
    // Quads that were drawn already show what it is now.
    if (!read_only && IsWaiting(*texture)) SendWaiting();
    uint32_t* pixels = texture->shadow.Lock(read_only, left, top, width, height);
    if (!pixels)
        log_.WriteOnce("lock outside",
                       "Texture_Lock: %d x %d pixels at (%d, %d) leave the texture of %d x %d", width, height,
                       left, top, texture->width, texture->height);
    return pixels;
}

void TextureStore::Unlock(uint32_t id) {
    Texture* texture = Find(id);
    Box changed;
    if (!texture || !texture->shadow.Unlock(&changed)) {
        log_.WriteOnce("unlock", "Texture_Unlock: %08X is no locked texture", id);
        return;
    }
    if (!changed.empty()) MarkDirty(*texture, Union(texture->dirty, changed));
}

void TextureStore::MarkDirty(Texture& texture, const Box& box) {
    texture.dirty = box;
    RecordOf(texture).source = nullptr;
}

bool TextureStore::Place(Texture& texture) {
    MarkDirty(texture, texture.whole());
    bool small = std::max(texture.width, texture.height) <= kLargestInAtlas;
    if (small && !texture.mipmaps && PlaceInAtlas(texture)) return true;
    return StandAlone(texture);
}

bool TextureStore::PlaceInAtlas(Texture& texture) {
    auto slot = atlas_.Allocate(texture.width + 2, texture.height + 2);
    if (!slot) return false;
    if (!GrowPages(atlas_.pages())) {
        atlas_.Free(*slot);
        return false;
    }
    constexpr float kTexel = 1.0f / kPageSize;
    texture.in_atlas = true;
    texture.slot = *slot;
    RecordOf(texture).placement = {
        static_cast<float>(texture.width) * kTexel, static_cast<float>(texture.height) * kTexel,
        static_cast<float>(slot->x + 1) * kTexel, static_cast<float>(slot->y + 1) * kTexel,
        static_cast<uint32_t>(slot->page)};
    return true;
}

void TextureStore::LeaveAtlas(Texture& texture) {
    if (!texture.in_atlas) return;
    if (IsWaiting(texture)) SendWaiting();
    atlas_.Free(texture.slot);
    texture.in_atlas = false;
    RecordOf(texture).placement = {};
}

bool TextureStore::GrowPages(int pages) {
    if (pages <= slices_) return true;
    int slices = std::max(slices_, 1);
    while (slices < pages)
        slices *= 2;
    TextureSource grown = device_.MakeTexture(kPageSize, kPageSize, slices, Device::Use::kSample);
    if (!grown) return false;
    for (int slice = 0; slice < slices_; ++slice)
        device_.context()->CopySubresourceRegion(grown.texture.Get(), static_cast<UINT>(slice), 0, 0, 0,
                                                 pages_.texture.Get(), static_cast<UINT>(slice), nullptr);
    pages_ = std::move(grown);
    slices_ = slices;
    return true;
}

bool TextureStore::StandAlone(Texture& texture) {
    auto use = texture.mipmaps ? Device::Use::kSampleMipmaps : Device::Use::kSample;
    texture.own = device_.MakeTexture(texture.width, texture.height, 1, use);
    return static_cast<bool>(texture.own);
}

// Repeating needs the device's own addressing, which knows whole textures only.
bool TextureStore::Repeat(Texture& texture) {
    FlushIfPending(texture);
    if (texture.in_atlas) {
        if (!StandAlone(texture)) return false;
        LeaveAtlas(texture);
        MarkDirty(texture, texture.whole());
    }
    return texture.own.wrap = true;
}

bool TextureStore::RewrittenOften(Texture& texture) {
    if (texture.upload_frame != frame_) {
        bool soon = frame_ - texture.upload_frame <= kFramesBetween;
        texture.frames_rewritten = soon ? texture.frames_rewritten + 1 : 0;
        texture.upload_frame = frame_;
    }
    return texture.frames_rewritten >= kOften;
}

// Handing over a part waits for the device; a whole picture in memory that is thrown away each time does not.
void TextureStore::StreamIfOften(Texture& texture) {
    if (texture.own.streamed || texture.mipmaps || !RewrittenOften(texture)) return;
    if (!texture.in_atlas && Area(texture.dirty) * 4 < Area(texture.whole())) return;
    TextureSource streamed = device_.MakeTexture(texture.width, texture.height, 1, Device::Use::kStream);
    if (!streamed) return;
    streamed.wrap = texture.own.wrap;
    texture.own = std::move(streamed);
    LeaveAtlas(texture);
}

void TextureStore::FlushIfPending(const Texture& texture) {
    if (RecordOf(texture).batch == stream_.batch()) flush_();
}

const TextureSource* TextureStore::Prepare(Texture& texture, bool tiled) {
    if (tiled && !texture.own.wrap && !Repeat(texture)) return nullptr;
    if (!texture.in_atlas && !texture.own) return nullptr;
    if (!texture.dirty.empty()) Upload(texture);
    const TextureSource* source = texture.in_atlas ? &pages_ : &texture.own;
    RecordOf(texture).source = source;
    return source;
}

void TextureStore::Upload(Texture& texture) {
    FlushIfPending(texture);
    StreamIfOften(texture);
    if (texture.in_atlas)
        UploadToAtlas(texture);
    else if (texture.own.streamed)
        Stream(texture);
    else
        UploadAlone(texture);
    texture.dirty = {};
}

void TextureStore::Stream(const Texture& texture) {
    D3D11_MAPPED_SUBRESOURCE mapped{};
    ID3D11Texture2D* memory = texture.own.texture.Get();
    if (FAILED(device_.context()->Map(memory, 0, D3D11_MAP_WRITE_DISCARD, 0, &mapped))) return;
    auto row = static_cast<char*>(mapped.pData);
    for (int y = 0; y < texture.height; ++y, row += mapped.RowPitch)
        std::memcpy(row, texture.shadow.Pixel(0, y), static_cast<size_t>(texture.width) * 4);
    device_.context()->Unmap(memory, 0);
    CountUpload(texture.whole());
}

void TextureStore::UploadToAtlas(Texture& texture) {
    if (texture.dirty == texture.whole()) {
        if (IsWaiting(texture)) return;
        waiting_.Add(texture.slot, texture.shadow);
        texture.waiting = round_;
    } else {
        MakeAtlasUpload(texture.shadow, texture.dirty, texture.slot, &staging_);
        SendToPage(texture.slot.page, staging_);
    }
}

void TextureStore::SendWaiting() {
    if (waiting_.empty()) return;
    waiting_.Send([this](int page, const AtlasUpload& upload) { SendToPage(page, upload); });
    ++round_;
}

void TextureStore::DropWaiting() {
    waiting_.Clear();
    ++round_;
}

void TextureStore::SendToPage(int page, const AtlasUpload& upload) {
    const Box& box = upload.box;
    const D3D11_BOX where{static_cast<UINT>(box.left),  static_cast<UINT>(box.top),    0,
                          static_cast<UINT>(box.right), static_cast<UINT>(box.bottom), 1};
    device_.context()->UpdateSubresource(pages_.texture.Get(), static_cast<UINT>(page), &where,
                                         upload.pixels.data(), static_cast<UINT>(box.width()) * 4, 0);
    CountUpload(box);
}

void TextureStore::UploadAlone(const Texture& texture) {
    SendLevel(texture, 0, texture.shadow, texture.dirty);
    if (!texture.mipmaps) return;
    UINT level = 0;
    PixelShadow smaller;
    for (const PixelShadow* last = &texture.shadow; last->width() > 1 || last->height() > 1;
         last = &smaller) {
        smaller = Halved(*last);
        SendLevel(texture, ++level, smaller, {0, 0, smaller.width(), smaller.height()});
    }
}

void TextureStore::SendLevel(const Texture& texture, UINT level, const PixelShadow& pixels, const Box& box) {
    D3D11_BOX where{static_cast<UINT>(box.left),  static_cast<UINT>(box.top),    0,
                    static_cast<UINT>(box.right), static_cast<UINT>(box.bottom), 1};
    device_.context()->UpdateSubresource(texture.own.texture.Get(), level, &where,
                                         pixels.Pixel(box.left, box.top),
                                         static_cast<UINT>(pixels.width()) * 4, 0);
    CountUpload(box);
}

void TextureStore::CountUpload(const Box& box) {
    ++uploads_;
    upload_bytes_ += static_cast<DWORD>(box.width()) * static_cast<DWORD>(box.height()) * 4;
}

}  // namespace hge
