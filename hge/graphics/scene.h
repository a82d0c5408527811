#pragma once

#include "graphics/effect.h"
#include "graphics/pipeline.h"
#include "graphics/quad_ring.h"
#include "graphics/quad_stream.h"
#include "graphics/texture_store.h"

namespace hge {

// Draws quads to a surface, as many as possible with each draw call.
class Scene {
 public:
    Scene(Log& log, const Device& device, QuadStream& stream, TextureStore& textures);

    // False with the reason in the log.
    bool Start();
    void Stop();

    bool open() const { return open_; }
    uint32_t target() const { return target_; }
    // target is the handle of the surface's target, 0 for the screen.
    void Begin(const Surface& surface, uint32_t target);
    void End();
    void Clear(uint32_t color);
    // Draws what is pending.
    void Flush();

    void SetFilter(bool on);
    void SetClipping(int x, int y, int w, int h);
    void SetTransform(const Transform& transform);

    void Line(const Vertex& from, const Vertex& to, uint32_t texture, int blend);
    void Triple(const Vertex* corners, uint32_t texture, int blend);
    void Quad(const Vertex* corners, uint32_t texture, int blend);
    // Through the effect, which must be loaded.
    void QuadThroughEffect(const Vertex* corners, uint32_t first, uint32_t second, int blend);
    Effect& effect() { return effect_; }

    DWORD draws() const { return draws_; }
    DWORD quads() const { return quads_ + static_cast<DWORD>(stream_.pending()); }
    DWORD maps() const { return ring_.maps(); }
    void ResetCounters();

 private:
    void Submit(const Vertex* corners, uint32_t texture, int blend);
    void SubmitSlowly(const Vertex* corners, uint32_t texture, int blend);
    Texture* FindTexture(uint32_t id);
    Texture* RefuseTexture(uint32_t id, const Texture* texture);
    void RefuseNonsense();
    void RefuseRoom();
    void MoveCorner(Vertex* corner) const { transform_.Apply(&corner->x, &corner->y); }
    bool MakeRoom(const TextureSource* source, int blend);
    bool MakeInput(uint32_t id, bool tiled, EffectInput* input);
    void DrawThroughEffect(const EffectInput& first, const EffectInput& second, int blend);

    Log& log_;
    const Device& device_;
    QuadStream& stream_;
    TextureStore& textures_;
    Pipeline pipeline_;
    QuadRing ring_;
    Effect effect_;
    Surface surface_;
    uint32_t target_ = 0;
    bool open_ = false;
    bool filter_ = true;
    Transform transform_;
    Box clip_;
    DWORD draws_ = 0;
    DWORD quads_ = 0;  // that were drawn
};

}  // namespace hge
