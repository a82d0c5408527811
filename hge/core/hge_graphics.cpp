#include <utility>

#include "core/hge_impl.h"
#include "resources/image.h"

namespace hge {

namespace {

struct GiveBack {
    ResourceStore* store;
    void operator()(void* block) const { store->Free(block); }
};
using LoadedFile = std::unique_ptr<void, GiveBack>;

// Null without the file; the store has said why.
LoadedFile LoadFile(ResourceStore& store, const char* name, uint32_t* size) {
    return LoadedFile(store.Load(name, size), GiveBack{&store});
}

}  // namespace

bool HgeImpl::Gfx_BeginScene(HTARGET target) {
    return Guarded("Gfx_BeginScene", [&] {
        if (!graphics_.BeginScene(target)) return false;
        screen_scene_ = target == 0;
        return true;
    });
}

void HgeImpl::Gfx_EndScene() {
    Guarded("Gfx_EndScene", [&] {
        graphics_.EndScene();
        screen_drawn_ |= std::exchange(screen_scene_, false);
    });
}

void HgeImpl::Gfx_Clear(DWORD color) {
    Guarded("Gfx_Clear", [&] { graphics_.Clear(color); });
}

void HgeImpl::Gfx_RenderLine(float x1, float y1, float x2, float y2, DWORD color, float z) {
    Guarded("Gfx_RenderLine", [&] { graphics_.RenderLine(x1, y1, x2, y2, color, z); });
}

void HgeImpl::Gfx_RenderTriple(const hgeTriple* triple) {
    Guarded("Gfx_RenderTriple", [&] { graphics_.RenderTriple(triple); });
}

// No guard on the way that nearly all quads take, nor anything else that asks for a stack frame.
void HgeImpl::Gfx_RenderQuad(const hgeQuad* quad) {
    if (!graphics_.AddQuad(quad)) RenderUnusualQuad(quad);
}

__attribute__((noinline)) void HgeImpl::RenderUnusualQuad(const hgeQuad* quad) {
    Guarded("Gfx_RenderQuad", [&] { graphics_.RenderQuad(quad); });
}

hgeVertex* HgeImpl::Gfx_StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim) {
    return Guarded("Gfx_StartBatch", [&] { return graphics_.StartBatch(prim_type, tex, blend, max_prim); });
}

void HgeImpl::Gfx_FinishBatch(int nprim) {
    Guarded("Gfx_FinishBatch", [&] { graphics_.FinishBatch(nprim); });
}

void HgeImpl::Gfx_SetClipping(int x, int y, int w, int h) {
    Guarded("Gfx_SetClipping", [&] { graphics_.SetClipping(x, y, w, h); });
}

void HgeImpl::Gfx_SetTransform(float x, float y, float dx, float dy, float rot, float hscale, float vscale) {
    Guarded("Gfx_SetTransform", [&] { graphics_.SetTransform(x, y, dx, dy, rot, hscale, vscale); });
}

HTARGET HgeImpl::Target_Create(int width, int height, bool zbuffer) {
    return Guarded("Target_Create", [&] { return graphics_.CreateTarget(width, height, zbuffer); });
}

void HgeImpl::Target_Free(HTARGET target) {
    Guarded("Target_Free", [&] { graphics_.FreeTarget(target); });
}

HTEXTURE HgeImpl::Target_GetTexture(HTARGET target) {
    return Guarded("Target_GetTexture", [&] { return graphics_.TargetTexture(target); });
}

HTEXTURE HgeImpl::Texture_Create(int width, int height) {
    return Guarded("Texture_Create", [&] { return graphics_.CreateTexture(width, height); });
}

HTEXTURE HgeImpl::Texture_Load(const char* filename, DWORD size, bool bMipmap) {
    return Guarded("Texture_Load", [&] { return LoadTexture(filename, size, bMipmap); });
}

HTEXTURE HgeImpl::LoadTexture(const char* filename, DWORD size, bool mipmaps) {
    const char* name = size ? resources_.NameOf(filename) : filename;
    if (!name) name = size ? "(memory)" : "";
    if (!graphics_.running()) {
        log_.Fail("cannot load texture \"%s\": the system is not initiated", name);
        return 0;
    }
    uint32_t length = size;
    LoadedFile file = size ? LoadedFile() : LoadFile(resources_, filename, &length);
    const void* bytes = size ? filename : file.get();
    if (!bytes) return 0;
    Image image;
    std::string reason;
    if (DecodeImage(bytes, length, &image, &reason)) return graphics_.CreateTexture(image, mipmaps, name);
    log_.Fail("cannot load texture \"%s\": %s", name, reason.c_str());
    return 0;
}

void HgeImpl::Texture_Free(HTEXTURE tex) {
    Guarded("Texture_Free", [&] { graphics_.FreeTexture(tex); });
}

int HgeImpl::Texture_GetWidth(HTEXTURE tex, bool bOriginal) {
    return Guarded("Texture_GetWidth", [&] { return graphics_.TextureWidth(tex, bOriginal); });
}

int HgeImpl::Texture_GetHeight(HTEXTURE tex, bool bOriginal) {
    return Guarded("Texture_GetHeight", [&] { return graphics_.TextureHeight(tex, bOriginal); });
}

DWORD* HgeImpl::Texture_Lock(HTEXTURE tex, bool bReadOnly, int left, int top, int width, int height) {
    return Guarded("Texture_Lock",
                   [&] { return graphics_.LockTexture(tex, bReadOnly, left, top, width, height); });
}

void HgeImpl::Texture_Unlock(HTEXTURE tex) {
    Guarded("Texture_Unlock", [&] { graphics_.UnlockTexture(tex); });
}

bool HgeImpl::Gfx_LoadEffect(const char* filename) {
    return Guarded("Gfx_LoadEffect", [&] {
        graphics_.UnloadEffect();
        uint32_t size = 0;
        LoadedFile file = LoadFile(resources_, filename, &size);
        return file && graphics_.LoadEffect(filename, file.get(), size);
    });
}

}  // namespace hge
