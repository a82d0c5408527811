#include "support/recording_hge.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <utility>

using recording_text::Source;

RecordingHge& Recording() {
    static RecordingHge hge;
    return hge;
}

extern "C" HGE* CALL hgeCreate(int version) {
    return Recording().Create(version);
}

namespace {

bool IsNoise(const std::string& call) {
    static const char* const kNoise[] = {
        "hgeCreate(",  "Release(",           "System_GetState(", "System_GetErrorMessage(",
        "Texture_Get", "Target_GetTexture(", "Timer_",           "Input_"};
    return std::any_of(std::begin(kNoise), std::end(kNoise),
                       [&](const char* prefix) { return call.rfind(prefix, 0) == 0; });
}

}  // namespace

// ---- the test's side

std::vector<std::string> RecordingHge::Calls() const {
    std::vector<std::string> result;
    std::remove_copy_if(calls_.begin(), calls_.end(), std::back_inserter(result), IsNoise);
    return result;
}

std::vector<std::string> RecordingHge::CallsMatching(const std::string& prefix) const {
    std::vector<std::string> result;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(result),
                 [&](const std::string& call) { return call.rfind(prefix, 0) == 0; });
    return result;
}

void RecordingHge::ClearCalls() {
    calls_.clear();
    faults_.clear();
    quads.clear();
}

HTEXTURE RecordingHge::AddTexture(int width, int height, int orig_width, int orig_height) {
    HTEXTURE tex = NewHandle();
    size_t count = static_cast<size_t>(std::max(width, 0)) * static_cast<size_t>(std::max(height, 0));
    textures[tex] = {width, height, orig_width ? orig_width : width, orig_height ? orig_height : height,
                     std::vector<DWORD>(count)};
    return tex;
}

void RecordingHge::NextFrame() {
    keys_down.clear();
    keys_up.clear();
    mouse_wheel = last_key = last_char = 0;
}

void RecordingHge::Press(int key) {
    keys_down.insert(key);
    keys_held.insert(key);
    last_key = key;
}

void RecordingHge::Lift(int key) {
    keys_up.insert(key);
    keys_held.erase(key);
}

HGE* RecordingHge::Create(int version) {
    Record("hgeCreate", version);
    if (version != HGE_VERSION || create_fails) return nullptr;
    ++references;
    return this;
}

// ---- what several operations share

void RecordingHge::FaultUnlessLive(bool live, const char* operation, DWORD handle) {
    if (!live && handle) Fault(std::string(operation) + ": " + std::to_string(handle) + " is not live");
}

UnusedHge::Nothing RecordingHge::Unused(const char* operation) {
    Record(operation);
    Fault(std::string(operation) + ": not expected");
    return {};
}

bool RecordingHge::Plays(HCHANNEL chn) const {
    auto found = channels.find(chn);
    return found != channels.end() && found->second.playing;
}

RecordingHge::Texture* RecordingHge::FindTexture(HTEXTURE tex) {
    auto found = textures.find(tex);
    return found == textures.end() ? nullptr : &found->second;
}

// ---- system, resources, sound, input

void RecordingHge::Release() {
    Record("Release");
    if (--references < 0) Fault("Release: more often than hgeCreate");
}

void RecordingHge::System_Log(const char* format, ...) {
    char text[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    Record("System_Log", static_cast<const char*>(text));
}

void RecordingHge::System_SetState(hgeFuncState state, hgeCallback value) {
    Record(__func__, state, value);
    functions_[state] = value;
}
HWND RecordingHge::System_GetState(hgeHwndState state) {
    Record(__func__, state);
    return initiated && state == HGE_HWND ? window : nullptr;
}
hgeCallback RecordingHge::System_GetState(hgeFuncState state) {
    return Give(functions_[state], __func__, state);
}

void* RecordingHge::Resource_Load(const char* filename, DWORD* size) {
    Record(__func__, filename);
    auto file = filename ? files.find(filename) : files.end();
    if (file == files.end()) return nullptr;
    const std::string& content = file->second;
    auto block = std::make_unique<char[]>(content.size() + 1);
    std::memcpy(block.get(), content.c_str(), content.size() + 1);
    if (size) *size = static_cast<DWORD>(content.size());
    void* address = block.get();
    blocks[address] = std::move(block);
    return address;
}

void RecordingHge::Resource_Free(void* res) {
    Record(__func__, static_cast<const void*>(res));
    if (!blocks.erase(res) && res) Fault("Resource_Free: the block is not live");
}

bool RecordingHge::Resource_AttachPack(const char* filename, const char* password) {
    Record(__func__, filename, password);
    return attach_result && filename;
}

HEFFECT RecordingHge::Effect_Load(const char* filename, DWORD size) {
    Record(__func__, Source{filename, size}, size);
    return !filename || missing.count(filename) ? 0 : *effects.insert(NewHandle()).first;
}

void RecordingHge::Effect_Free(HEFFECT eff) {
    Record(__func__, eff);
    FaultUnlessLive(effects.erase(eff) != 0, __func__, eff);
    for (auto& [chn, channel] : channels)
        if (channel.effect == eff) channel.playing = false;
}

HCHANNEL RecordingHge::Effect_PlayEx(HEFFECT eff, int volume, int pan, float pitch, bool loop) {
    Record(__func__, eff, volume, pan, pitch, loop);
    if (!effects.count(eff)) return 0;
    HCHANNEL chn = NewHandle();
    channels[chn] = {eff, true};
    return chn;
}

void RecordingHge::Input_GetMousePos(float* x, float* y) {
    Record(__func__);
    if (x) *x = mouse_x;
    if (y) *y = mouse_y;
}

// ---- pictures

bool RecordingHge::Gfx_BeginScene(HTARGET target) {
    Record(__func__, target);
    if (in_scene_) Fault("Gfx_BeginScene: a scene is open");
    if (in_scene_ || (target && !targets.count(target))) return false;
    return in_scene_ = true;
}

void RecordingHge::Gfx_EndScene() {
    Record(__func__);
    if (!in_scene_) Fault("Gfx_EndScene: no scene is open");
    in_scene_ = false;
}

void RecordingHge::Gfx_RenderQuad(const hgeQuad* quad) {
    if (!quad) return Fault("Gfx_RenderQuad: null");
    Record(__func__, *quad);
    for (HTEXTURE tex : {quad->tex, quad->tex2})
        FaultUnlessLive(FindTexture(tex), __func__, tex);
    quads.push_back(*quad);
}

HTARGET RecordingHge::Target_Create(int width, int height, bool zbuffer) {
    Record(__func__, width, height, zbuffer);
    HTARGET target = NewHandle();
    targets[target] = AddTexture(width, height);
    textures[targets[target]].of_target = true;
    return target;
}

void RecordingHge::Target_Free(HTARGET target) {
    Record(__func__, target);
    auto found = targets.find(target);
    FaultUnlessLive(found != targets.end(), __func__, target);
    if (found == targets.end()) return;
    textures.erase(found->second);
    targets.erase(found);
}

HTEXTURE RecordingHge::Target_GetTexture(HTARGET target) {
    Record(__func__, target);
    auto found = targets.find(target);
    return found == targets.end() ? 0 : found->second;
}

HTEXTURE RecordingHge::Texture_Create(int width, int height) {
    Record(__func__, width, height);
    if (texture_create) return texture_create(width, height);
    return width > 0 && height > 0 ? AddTexture(width, height) : 0;
}

HTEXTURE RecordingHge::Texture_Load(const char* filename, DWORD size, bool bMipmap) {
    Record(__func__, Source{filename, size}, size, bMipmap);
    if (texture_load) return texture_load(filename, size, bMipmap);
    bool absent = !filename || (!size && missing.count(filename));
    return absent ? 0 : AddTexture(image_width, image_height);
}

void RecordingHge::Texture_Free(HTEXTURE tex) {
    Record(__func__, tex);
    Texture* texture = FindTexture(tex);
    FaultUnlessLive(texture, __func__, tex);
    if (!texture) return;
    if (texture->of_target) return Fault("Texture_Free: " + std::to_string(tex) + " belongs to a target");
    if (texture->locked) Fault("Texture_Free: " + std::to_string(tex) + " is locked");
    textures.erase(tex);
}

int RecordingHge::Texture_GetWidth(HTEXTURE tex, bool bOriginal) {
    Record(__func__, tex, bOriginal);
    const Texture* texture = FindTexture(tex);
    return texture ? (bOriginal ? texture->orig_width : texture->width) : 0;
}

int RecordingHge::Texture_GetHeight(HTEXTURE tex, bool bOriginal) {
    Record(__func__, tex, bOriginal);
    const Texture* texture = FindTexture(tex);
    return texture ? (bOriginal ? texture->orig_height : texture->height) : 0;
}

DWORD* RecordingHge::Texture_Lock(HTEXTURE tex, bool bReadOnly, int left, int top, int width, int height) {
    Record(__func__, tex, bReadOnly, left, top, width, height);
    Texture* texture = FindTexture(tex);
    if (!texture || texture->of_target || texture->pixels.empty()) return nullptr;
    if (left < 0 || top < 0 || left + width > texture->width || top + height > texture->height)
        return nullptr;
    if (texture->locked) Fault("Texture_Lock: " + std::to_string(tex) + " is locked already");
    return std::exchange(texture->locked, true) ? nullptr
                                                : texture->pixels.data() + top * texture->width + left;
}

void RecordingHge::Texture_Unlock(HTEXTURE tex) {
    Record(__func__, tex);
    Texture* texture = FindTexture(tex);
    if (!texture || !texture->locked)
        return Fault("Texture_Unlock: " + std::to_string(tex) + " is not locked");
    texture->locked = false;
}
