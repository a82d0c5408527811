#pragma once

#include <memory>

#include "core/log.h"
#include "graphics/quad_stream.h"
#include "hge.h"
#include "hgecounters.h"
#include "resources/image.h"

namespace hge {

struct GraphicsSettings {
    HWND window = nullptr;
    int width = 800;  // pixels of the screen and of the window's client area
    int height = 600;
    bool zbuffer = false;
    bool texture_filter = true;
    bool vsync = false;
};

// The renderer behind HGE::Gfx_*, Target_* and Texture_*: same arguments, same results.
// Textures and targets can be made only while it runs; Stop frees all of them.
class Graphics {
 public:
    explicit Graphics(Log& log);
    ~Graphics();

    bool Start(const GraphicsSettings& settings);
    void Stop();
    bool running() const;

    void SetTextureFilter(bool on);
    void SetVSync(bool on);

    bool BeginScene(HTARGET target);
    void EndScene();
    // Shows the frame that was drawn to the screen. Rebuilds a lost device first; true when it did so.
    bool Present();
    // Nothing is drawn until Present has rebuilt the device. Textures and targets can be made meanwhile.
    bool device_lost() const;
    // For tests: the device counts as lost from now on.
    void LoseDevice();
    void Clear(DWORD color);
    void RenderLine(float x1, float y1, float x2, float y2, DWORD color, float z);
    void RenderTriple(const hgeTriple* triple);
    // False when the quad is not drawn yet: RenderQuad sees to what it needs.
    bool AddQuad(const hgeQuad* quad) {
        return quad && stream_.AddAsIs(Corners(quad->v), quad->tex, quad->tex2, quad->blend);
    }
    void RenderQuad(const hgeQuad* quad);
    hgeVertex* StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim);
    void FinishBatch(int nprim);
    void SetClipping(int x, int y, int w, int h);
    void SetTransform(float x, float y, float dx, float dy, float rot, float hscale, float vscale);

    // The shader for quads with a second texture, from the text of an effect file; false with the reason in
    // the log, and no effect then. name is for the log.
    bool LoadEffect(const char* name, const void* bytes, size_t size);
    void UnloadEffect();
    // Seconds of the program's clock, for the effect.
    void SetTime(float seconds);

    HTARGET CreateTarget(int width, int height, bool zbuffer);
    void FreeTarget(HTARGET target);
    HTEXTURE TargetTexture(HTARGET target);

    HTEXTURE CreateTexture(int width, int height);
    // name is for the log.
    HTEXTURE CreateTexture(const Image& image, bool mipmaps, const char* name);
    void FreeTexture(HTEXTURE tex);
    int TextureWidth(HTEXTURE tex, bool original) const;
    int TextureHeight(HTEXTURE tex, bool original) const;
    DWORD* LockTexture(HTEXTURE tex, bool read_only, int left, int top, int width, int height);
    void UnlockTexture(HTEXTURE tex);

    // The screen as drawn so far in this frame, or as last shown; false without a device.
    bool ReadScreen(Image* image);
    // Fills the fields that the renderer knows.
    void AddCounters(hgeCounters* counters) const;

 private:
    struct Impl;

    static const Vertex* Corners(const hgeVertex* v) { return reinterpret_cast<const Vertex*>(v); }

    // Here, where quads need no call to reach it.
    QuadStream stream_;
    std::unique_ptr<Impl> impl_;
};

}  // namespace hge
