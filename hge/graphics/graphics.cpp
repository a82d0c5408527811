#include "graphics/graphics.h"

#include <algorithm>
#include <new>
#include <vector>

#include "graphics/scene.h"
#include "graphics/swap_chain.h"

namespace hge {

namespace {

static_assert(sizeof(Vertex) == sizeof(hgeVertex) && offsetof(Vertex, color) == offsetof(hgeVertex, col) &&
              offsetof(Vertex, tx) == offsetof(hgeVertex, tx));

constexpr int kLongestWait = 600;  // frames

struct Target {
    HTEXTURE texture = 0;
    int width = 0, height = 0;
    bool zbuffer = false;
    Surface surface;
};

// Primitives that the host writes before they are drawn.
struct HostBatch {
    static constexpr int kMost = 4096;

    std::vector<hgeVertex> vertices;
    int corners = 0;  // of one primitive; 0 when no batch is open
    HTEXTURE texture = 0;
    int blend = 0;
};

}  // namespace

struct Graphics::Impl {
    Impl(Log& the_log, QuadStream& stream)
        : log(the_log),
          textures(log, device, stream, [this] { scene.Flush(); }),
          scene(log, device, stream, textures) {}

    bool CheckSettings() const;
    bool CreateDevice();
    bool Rebuild();
    bool RestoreTargets();
    bool CheckSize(const char* what, int width, int height);
    HTEXTURE CreateTexture(int width, int height, const std::vector<uint32_t>* pixels, bool mipmaps,
                           const char* name);
    bool MakeTarget(Target* target, TextureSource* source);
    const Surface* FindSurface(HTARGET id);
    // Whether a scene is open.
    bool Drawing(const char* operation) { return scene.open() || RefuseDrawing(operation); }
    bool RefuseDrawing(const char* operation);
    bool Refuse(const char* why);
    void DrawHostBatch(int count);

    Log& log;
    GraphicsSettings settings;
    bool running = false;
    bool device_lost = false;
    int rebuild_wait = 0, next_wait = 1;  // frames until the next attempt, and after a failure of that
    DWORD frames = 0;
    Device device;
    SwapChain screen;
    TextureStore textures;
    Scene scene;
    HandleTable<Target, HandleKind::kTarget> targets;
    HostBatch batch;
};

bool Graphics::Impl::CheckSettings() const {
    if (IsWindow(settings.window) && settings.width > 0 && settings.height > 0) return true;
    log.Fail("graphics: no window, or no picture of %d x %d in it", settings.width, settings.height);
    return false;
}

bool Graphics::Impl::CreateDevice() {
    return device.Create(log) &&
           screen.Create(device, settings.window, settings.width, settings.height, settings.zbuffer, log) &&
           scene.Start();
}

// Everything that was lost comes back; only what was drawn into targets does not.
bool Graphics::Impl::Rebuild() {
    if (rebuild_wait-- > 0) return false;
    rebuild_wait = next_wait;
    next_wait = std::min(next_wait * 2, kLongestWait);
    scene.Stop();
    screen.Destroy();
    device.Destroy();
    batch.corners = 0;
    device_lost = !(CreateDevice() && textures.Restore() && RestoreTargets());
    if (device_lost) {
        log.WriteOnce("rebuild", "graphics: the lost device could not be rebuilt yet");
        return false;
    }
    log.Write("graphics: the lost device was rebuilt");
    rebuild_wait = 0;
    next_wait = 1;
    return true;
}

bool Graphics::Impl::RestoreTargets() {
    bool all = true;
    targets.ForEach([&](HTARGET, Target& target) {
        Texture* texture = textures.Find(target.texture);
        bool wrap = texture->own.wrap;
        all &= MakeTarget(&target, &texture->own);
        texture->own.wrap = wrap;
    });
    return all;
}

bool Graphics::Impl::CheckSize(const char* what, int width, int height) {
    int most = device.max_texture_size();
    if (!running)
        log.Fail("cannot create %s: the graphics do not run", what);
    else if (width < 1 || height < 1 || width > most || height > most)
        log.Fail("cannot create %s of %d x %d pixels: each side must be 1 to %d", what, width, height, most);
    else
        return true;
    return false;
}

HTEXTURE Graphics::Impl::CreateTexture(int width, int height, const std::vector<uint32_t>* pixels,
                                       bool mipmaps, const char* name) {
    try {
        PixelShadow shadow = pixels ? PixelShadow(width, height, *pixels) : PixelShadow(width, height);
        return textures.Create(std::move(shadow), mipmaps, name);
    } catch (const std::bad_alloc&) {
        log.Fail("cannot create the texture \"%s\" of %d x %d pixels: out of memory", name, width, height);
        return 0;
    }
}

bool Graphics::Impl::MakeTarget(Target* target, TextureSource* source) {
    *source = device.MakeTexture(target->width, target->height, 1, Device::Use::kTarget);
    if (!*source) return false;
    target->surface =
        device.MakeSurface(source->texture.Get(), target->width, target->height, target->zbuffer);
    if (!target->surface.color) return false;
    const float nothing[4] = {};
    device.context()->ClearRenderTargetView(target->surface.color.Get(), nothing);
    return true;
}

const Surface* Graphics::Impl::FindSurface(HTARGET id) {
    if (!id) return &screen.surface();
    Target* target = targets.Find(id);
    return target ? &target->surface : nullptr;
}

bool Graphics::Impl::RefuseDrawing(const char* operation) {
    log.WriteOnce(operation, "%s: no scene is open", operation);
    return false;
}

bool Graphics::Impl::Refuse(const char* why) {
    log.WriteOnce(why, "Gfx_BeginScene: %s", why);
    return false;
}

void Graphics::Impl::DrawHostBatch(int count) {
    const Vertex* v = Corners(batch.vertices.data());
    for (int i = 0; i < count; ++i, v += batch.corners) {
        if (batch.corners == HGEPRIM_QUADS)
            scene.Quad(v, batch.texture, batch.blend);
        else if (batch.corners == HGEPRIM_TRIPLES)
            scene.Triple(v, batch.texture, batch.blend);
        else
            scene.Line(v[0], v[1], batch.texture, batch.blend);
    }
}

Graphics::Graphics(Log& log) : impl_(std::make_unique<Impl>(log, stream_)) {}

Graphics::~Graphics() {
    Stop();
}

bool Graphics::Start(const GraphicsSettings& settings) {
    Stop();
    impl_->settings = settings;
    impl_->frames = 0;
    impl_->running = impl_->CheckSettings() && impl_->CreateDevice() && impl_->textures.Start();
    if (!impl_->running) {
        Stop();
        return false;
    }
    impl_->scene.SetFilter(settings.texture_filter);
    impl_->scene.ResetCounters();
    return true;
}

void Graphics::Stop() {
    impl_->targets.Clear();
    impl_->scene.Stop();
    impl_->scene.effect().Unload();
    impl_->textures.Stop();
    impl_->screen.Destroy();
    impl_->device.Destroy();
    impl_->batch = {};
    impl_->running = impl_->device_lost = false;
}

bool Graphics::running() const {
    return impl_->running;
}

void Graphics::SetTextureFilter(bool on) {
    impl_->settings.texture_filter = on;
    impl_->scene.SetFilter(on);
}

void Graphics::SetVSync(bool on) {
    impl_->settings.vsync = on;
}

void Graphics::LoseDevice() {
    impl_->device_lost = impl_->running;
}

bool Graphics::device_lost() const {
    return impl_->device_lost;
}

bool Graphics::BeginScene(HTARGET target) {
    if (!impl_->running || impl_->device_lost) return impl_->Refuse("the graphics do not run");
    if (impl_->scene.open()) return impl_->Refuse("a scene is open already");
    const Surface* surface = impl_->FindSurface(target);
    if (!surface) return impl_->Refuse("the handle names no target");
    if (!surface->color) return impl_->Refuse("the target was made on a lost device and waits for another");
    impl_->scene.Begin(*surface, target);
    return true;
}

void Graphics::EndScene() {
    impl_->batch.corners = 0;
    if (impl_->scene.open()) impl_->scene.End();
}

bool Graphics::Present() {
    if (!impl_->running) return false;
    EndScene();
    if (!impl_->device_lost) {
        SwapChain::Shown shown = impl_->screen.Present(impl_->device, impl_->settings.vsync);
        impl_->device_lost = shown == SwapChain::Shown::kDeviceLost;
        if (shown == SwapChain::Shown::kFailed)
            impl_->log.WriteOnce("present", "graphics: a frame cannot be shown");
        if (shown == SwapChain::Shown::kYes) ++impl_->frames;
    }
    impl_->textures.NextFrame();
    return impl_->device_lost && impl_->Rebuild();
}

void Graphics::Clear(DWORD color) {
    if (impl_->Drawing("Gfx_Clear")) impl_->scene.Clear(color);
}

void Graphics::RenderLine(float x1, float y1, float x2, float y2, DWORD color, float z) {
    if (!impl_->Drawing("Gfx_RenderLine")) return;
    Vertex from{x1, y1, z, color, 0, 0};
    Vertex to{x2, y2, z, color, 0, 0};
    impl_->scene.Line(from, to, 0, BLEND_DEFAULT);
}

void Graphics::RenderTriple(const hgeTriple* triple) {
    if (triple && impl_->Drawing("Gfx_RenderTriple"))
        impl_->scene.Triple(Corners(triple->v), triple->tex, triple->blend);
}

void Graphics::RenderQuad(const hgeQuad* quad) {
    if (!quad || !impl_->Drawing("Gfx_RenderQuad")) return;
    if (quad->tex2 && impl_->scene.effect().loaded())
        impl_->scene.QuadThroughEffect(Corners(quad->v), quad->tex, quad->tex2, quad->blend);
    else
        impl_->scene.Quad(Corners(quad->v), quad->tex, quad->blend);
}

hgeVertex* Graphics::StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim) {
    if (max_prim) *max_prim = 0;
    if (!impl_->Drawing("Gfx_StartBatch")) return nullptr;
    if (prim_type < HGEPRIM_LINES || prim_type > HGEPRIM_QUADS || !max_prim) {
        impl_->log.WriteOnce("batch kind",
                             "Gfx_StartBatch: no such kind of primitive, or no place for their number");
        return nullptr;
    }
    HostBatch& batch = impl_->batch;
    batch.vertices.resize(HostBatch::kMost * HGEPRIM_QUADS);
    batch.corners = prim_type;
    batch.texture = tex;
    batch.blend = blend;
    *max_prim = HostBatch::kMost;
    return batch.vertices.data();
}

void Graphics::FinishBatch(int nprim) {
    if (!impl_->batch.corners || !impl_->Drawing("Gfx_FinishBatch")) return;
    impl_->DrawHostBatch(std::min(nprim, HostBatch::kMost));
    impl_->batch.corners = 0;
}

void Graphics::SetClipping(int x, int y, int w, int h) {
    if (impl_->scene.open()) impl_->scene.SetClipping(x, y, w, h);
}

void Graphics::SetTransform(float x, float y, float dx, float dy, float rot, float hscale, float vscale) {
    if (impl_->scene.open()) impl_->scene.SetTransform(Transform(x, y, dx, dy, rot, hscale, vscale));
}

bool Graphics::LoadEffect(const char* name, const void* bytes, size_t size) {
    UnloadEffect();
    if (impl_->running) return impl_->scene.effect().Load(impl_->device, name, bytes, size, impl_->log);
    impl_->log.Fail("cannot load effect \"%s\": the graphics do not run", name);
    return false;
}

void Graphics::UnloadEffect() {
    impl_->scene.Flush();
    impl_->scene.effect().Unload();
}

void Graphics::SetTime(float seconds) {
    impl_->scene.effect().SetTime(seconds);
}

HTARGET Graphics::CreateTarget(int width, int height, bool zbuffer) {
    if (!impl_->CheckSize("a target", width, height)) return 0;
    auto target = std::make_unique<Target>();
    target->width = width;
    target->height = height;
    target->zbuffer = zbuffer;
    TextureSource source;
    if (!impl_->MakeTarget(target.get(), &source) && !impl_->device.lost()) {
        impl_->log.Fail("cannot create a target of %d x %d pixels: the device has no room", width, height);
        return 0;
    }
    Target& made = *target;
    HTARGET id = impl_->targets.Insert(std::move(target));
    try {
        if (id) made.texture = impl_->textures.CreateForTarget(id, width, height, std::move(source));
    } catch (const std::bad_alloc&) {
    }
    if (id && made.texture) return id;
    impl_->log.Fail("cannot create a target: too many targets or textures, or no memory");
    impl_->targets.Remove(id);
    return 0;
}

void Graphics::FreeTarget(HTARGET target) {
    Target* found = impl_->targets.Find(target);
    if (!found) {
        if (target) impl_->log.WriteOnce("free target", "Target_Free: %08lX is no target", target);
        return;
    }
    if (impl_->scene.open() && impl_->scene.target() == target) EndScene();
    impl_->textures.Free(found->texture);
    impl_->targets.Remove(target);
}

HTEXTURE Graphics::TargetTexture(HTARGET target) {
    Target* found = impl_->targets.Find(target);
    if (!found) impl_->log.WriteOnce("target texture", "Target_GetTexture: %08lX is no target", target);
    return found ? found->texture : 0;
}

HTEXTURE Graphics::CreateTexture(int width, int height) {
    if (!impl_->CheckSize("a texture", width, height)) return 0;
    return impl_->CreateTexture(width, height, nullptr, false, "");
}

HTEXTURE Graphics::CreateTexture(const Image& image, bool mipmaps, const char* name) {
    if (!name) name = "";
    if (!impl_->CheckSize(name, image.width, image.height)) return 0;
    if (image.pixels.size() != static_cast<size_t>(image.width) * static_cast<size_t>(image.height)) {
        impl_->log.Fail("cannot create the texture \"%s\": its pixels do not fit its size", name);
        return 0;
    }
    return impl_->CreateTexture(image.width, image.height, &image.pixels, mipmaps, name);
}

void Graphics::FreeTexture(HTEXTURE tex) {
    Texture* texture = impl_->textures.Find(tex);
    if (texture && !texture->target)
        impl_->textures.Free(tex);
    else if (tex)
        impl_->log.WriteOnce("free texture", "Texture_Free: %08lX is no texture, or a target's", tex);
}

int Graphics::TextureWidth(HTEXTURE tex, bool original) const {
    Texture* texture = impl_->textures.Find(tex);
    return texture ? texture->width : 0;
}

int Graphics::TextureHeight(HTEXTURE tex, bool original) const {
    Texture* texture = impl_->textures.Find(tex);
    return texture ? texture->height : 0;
}

DWORD* Graphics::LockTexture(HTEXTURE tex, bool read_only, int left, int top, int width, int height) {
    return reinterpret_cast<DWORD*>(impl_->textures.Lock(tex, read_only, left, top, width, height));
}

void Graphics::UnlockTexture(HTEXTURE tex) {
    impl_->textures.Unlock(tex);
}

bool Graphics::ReadScreen(Image* image) {
    if (!impl_->running || impl_->device_lost) return false;
    impl_->scene.Flush();
    return impl_->screen.Read(impl_->device, image);
}

void Graphics::AddCounters(hgeCounters* counters) const {
    counters->frames = impl_->frames;
    counters->draws = impl_->scene.draws();
    counters->quads = impl_->scene.quads();
    counters->buffer_maps = impl_->scene.maps();
    counters->uploads = impl_->textures.uploads();
    counters->upload_bytes = impl_->textures.upload_bytes();
    counters->textures = static_cast<DWORD>(impl_->textures.size());
    counters->targets = static_cast<DWORD>(impl_->targets.size());
}

}  // namespace hge
