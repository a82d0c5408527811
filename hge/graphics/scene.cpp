#include "graphics/scene.h"

#include <cstring>

#include "hge.h"

namespace hge {

namespace {

static_assert(quad_detail::kModes[BLEND_ALPHABLEND] == kModeAlphaBlend &&
              quad_detail::kModes[BLEND_COLORADD] == kModeColorAdd);

// White is the same everywhere, whatever a host left in the coordinates.
const Vertex* WithoutCoordinates(const Vertex* corners, Vertex (&flat)[4]) {
    std::memcpy(flat, corners, sizeof flat);
    for (Vertex& corner : flat)
        corner.tx = corner.ty = 0;
    return flat;
}

float Channel(uint32_t color, int shift) {
    return static_cast<float>(color >> shift & 0xFF) / 255;
}

}  // namespace

Scene::Scene(Log& log, const Device& device, QuadStream& stream, TextureStore& textures)
    : log_(log), device_(device), stream_(stream), textures_(textures) {}

bool Scene::Start() {
    Stop();
    if (!pipeline_.Create(device_, log_)) return false;
    if (!ring_.Create(device_) || !effect_.Restore(device_)) {
        log_.Fail("graphics: the device refuses the vertex buffer or the effect");
        return false;
    }
    pipeline_.Bind(device_);
    ring_.Bind(device_);
    return true;
}

void Scene::Stop() {
    open_ = false;
    surface_ = {};
    stream_.Close();
    effect_.Release();
    ring_.Destroy();
    pipeline_.Destroy();
}

void Scene::ResetCounters() {
    draws_ = quads_ = 0;
    ring_.ResetMaps();
}

void Scene::Begin(const Surface& surface, uint32_t target) {
    surface_ = surface;
    target_ = target;
    open_ = true;
    SetTransform({});
    stream_.SetDepthBit(surface.depth ? BLEND_ZWRITE : 0);
    stream_.textures().Fetch();
    clip_ = ClipBox(0, 0, 0, 0, surface.width, surface.height);
    pipeline_.SetSurface(device_, surface);
    pipeline_.SetClip(device_, clip_);
}

void Scene::End() {
    Flush();
    open_ = false;
    target_ = 0;
    surface_ = {};
}

// A target keeps colours multiplied by alpha; the screen is opaque.
void Scene::Clear(uint32_t color) {
    Flush();
    float alpha = target_ ? Channel(color, 24) : 1;
    const float rgba[] = {Channel(color, 16) * alpha, Channel(color, 8) * alpha, Channel(color, 0) * alpha,
                          alpha};
    device_.context()->ClearRenderTargetView(surface_.color.Get(), rgba);
    if (surface_.depth)
        device_.context()->ClearDepthStencilView(surface_.depth.Get(), D3D11_CLEAR_DEPTH, 1, 0);
}

void Scene::Flush() {
    textures_.SendWaiting();
    if (!stream_.pending()) return;
    pipeline_.SetSource(device_, *stream_.source(), filter_, stream_.adds_color());
    pipeline_.SetDepth(device_, stream_.writes_depth());
    int quads = stream_.Close();
    ring_.Draw(device_, quads);
    quads_ += static_cast<DWORD>(quads);
    ++draws_;
}

void Scene::SetFilter(bool on) {
    if (on == filter_) return;
    Flush();
    filter_ = on;
}

void Scene::SetClipping(int x, int y, int w, int h) {
    Box clip = ClipBox(x, y, w, h, surface_.width, surface_.height);
    if (clip == clip_) return;
    Flush();
    clip_ = clip;
    pipeline_.SetClip(device_, clip_);
}

void Scene::SetTransform(const Transform& transform) {
    transform_ = transform;
    stream_.SetTransformed(!transform.identity());
}

Texture* Scene::RefuseTexture(uint32_t id, const Texture* texture) {
    if (texture)
        log_.WriteOnce("draw self", "graphics: a target cannot be drawn into itself");
    else
        log_.WriteOnce("draw dead", "graphics: drawing with %08X, which is no texture", id);
    return nullptr;
}

Texture* Scene::FindTexture(uint32_t id) {
    if (!id) return &textures_.white();
    Texture* texture = textures_.Find(id);
    bool usable = texture && (!texture->target || texture->target != target_);
    return usable ? texture : RefuseTexture(id, texture);
}

void Scene::RefuseNonsense() {
    log_.WriteOnce("nonsense", "graphics: positions or texture coordinates are no numbers or far too large");
}

void Scene::RefuseRoom() {
    log_.WriteOnce("room", "graphics: the device has no room for a texture or for vertices; quads are lost");
}

bool Scene::MakeRoom(const TextureSource* source, int blend) {
    if (stream_.Takes(source, blend)) return true;
    Flush();
    DeviceVertex* room = ring_.Map(device_);
    if (room) stream_.Open(source, blend, room, ring_.room());
    return room != nullptr;
}

inline void Scene::Submit(const Vertex* corners, uint32_t texture, int blend) {
    if (!stream_.Add(corners, texture, blend)) SubmitSlowly(corners, texture, blend);
}

// Whatever the quad's texture, the batch or the device need first.
void Scene::SubmitSlowly(const Vertex* corners, uint32_t id, int blend) {
    Texture* texture = FindTexture(id);
    if (!texture) return;
    Vertex flat[4];
    if (!id) corners = WithoutCoordinates(corners, flat);
    QuadKind kind = Classify(corners);
    if (kind == QuadKind::kNonsense) return RefuseNonsense();
    const TextureSource* source = textures_.Prepare(*texture, kind == QuadKind::kTiled);
    if (!source || !MakeRoom(source, blend)) return RefuseRoom();
    stream_.Write(corners, stream_.textures().At(id), blend);
}

bool Scene::MakeInput(uint32_t id, bool tiled, EffectInput* input) {
    Texture* texture = FindTexture(id);
    if (!texture) return false;
    input->source = textures_.Prepare(*texture, id && tiled);
    if (!input->source) RefuseRoom();
    input->placement = stream_.textures().At(id).placement;
    input->width = texture->width;
    input->height = texture->height;
    return input->source != nullptr;
}

// A draw call of its own: what it is told of its textures holds for one pair of them.
void Scene::QuadThroughEffect(const Vertex* corners, uint32_t first, uint32_t second, int blend) {
    Vertex moved[4];
    std::memcpy(moved, corners, sizeof moved);
    for (Vertex& corner : moved)
        MoveCorner(&corner);
    QuadKind kind = Classify(moved);
    if (kind == QuadKind::kNonsense) return RefuseNonsense();
    Flush();
    EffectInput inputs[2];
    bool tiled = kind == QuadKind::kTiled;
    if (!MakeInput(first, tiled, &inputs[0]) || !MakeInput(second, tiled, &inputs[1])) return;
    textures_.SendWaiting();
    DeviceVertex* room = ring_.Map(device_);
    if (!room) return RefuseRoom();
    WriteQuad(moved, Placement(), 0, room);
    DrawThroughEffect(inputs[0], inputs[1], blend);
}

void Scene::DrawThroughEffect(const EffectInput& first, const EffectInput& second, int blend) {
    effect_.Bind(device_, first, second, surface_);
    pipeline_.SetEffectSources(device_, *first.source, *second.source, filter_, !(blend & BLEND_ALPHABLEND));
    pipeline_.SetDepth(device_, blend & BLEND_ZWRITE);
    ring_.Draw(device_, 1);
    pipeline_.EndEffect(device_);
    ++quads_;
    ++draws_;
}

void Scene::Line(const Vertex& from, const Vertex& to, uint32_t texture, int blend) {
    Vertex ends[] = {from, to};
    if (!transform_.identity())
        for (Vertex& end : ends)
            MoveCorner(&end);
    Vertex corners[4];
    MakeLine(ends[0], ends[1], corners);
    Submit(corners, texture, blend);
}

void Scene::Triple(const Vertex* corners, uint32_t texture, int blend) {
    Vertex four[4];
    std::memcpy(four, corners, 3 * sizeof(Vertex));
    four[3] = four[2];
    Quad(four, texture, blend);
}

void Scene::Quad(const Vertex* corners, uint32_t texture, int blend) {
    if (transform_.identity()) return Submit(corners, texture, blend);
    Vertex moved[4];
    std::memcpy(moved, corners, sizeof moved);
    for (Vertex& corner : moved)
        MoveCorner(&corner);
    Submit(moved, texture, blend);
}

}  // namespace hge
