#include "support/recording_hge.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>

using recording_text::Colour;
using recording_text::Source;

RecordingHge& Recording() {
    static RecordingHge hge;
    return hge;
}

extern "C" HGE* CALL hgeCreate(int version) {
    return Recording().Create(version);
}

namespace {

bool StartsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool IsNoise(const std::string& call) {
    static const char* const kNoise[] = {
        "hgeCreate(",  "Release(",           "System_GetState(", "System_GetErrorMessage(",
        "Texture_Get", "Target_GetTexture(", "Timer_",           "Input_"};
    return std::any_of(std::begin(kNoise), std::end(kNoise),
                       [&](const char* prefix) { return StartsWith(call, prefix); });
}

std::string Key(const char* section, const char* name) {
    return std::string(section) + "/" + name;
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
                 [&](const std::string& call) { return StartsWith(call, prefix); });
    return result;
}

void RecordingHge::ClearCalls() {
    calls_.clear();
    faults_.clear();
    quads.clear();
    triples.clear();
}

void RecordingHge::Reset() {
    *this = RecordingHge();
}

HTEXTURE RecordingHge::AddTexture(int width, int height, int orig_width, int orig_height) {
    HTEXTURE tex = NewHandle();
    size_t count = static_cast<size_t>(std::max(width, 0)) * static_cast<size_t>(std::max(height, 0));
    textures[tex] = {width,
                     height,
                     orig_width ? orig_width : width,
                     orig_height ? orig_height : height,
                     std::vector<DWORD>(count),
                     false,
                     false};
    return tex;
}

void RecordingHge::NextFrame() {
    keys_down.clear();
    keys_up.clear();
    mouse_wheel = last_key = last_char = 0;
    events.clear();
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

DWORD RecordingHge::LoadInto(std::set<DWORD>* kind, const char* filename, DWORD size) {
    if (IsMissing(filename, size)) return 0;
    return *kind->insert(NewHandle()).first;
}

void RecordingHge::FreeFrom(std::set<DWORD>* kind, const char* operation, DWORD handle) {
    if (!kind->erase(handle) && handle)
        Fault(std::string(operation) + ": " + std::to_string(handle) + " is not live");
    for (auto& [chn, channel] : channels)
        if (channel.source == handle) channel.playing = false;
}

HCHANNEL RecordingHge::Start(const std::set<DWORD>& kind, const Channel& channel) {
    if (!kind.count(channel.source)) return 0;
    HCHANNEL chn = NewHandle();
    channels[chn] = channel;
    return chn;
}

RecordingHge::Texture* RecordingHge::FindTexture(HTEXTURE tex) {
    auto found = textures.find(tex);
    return found == textures.end() ? nullptr : &found->second;
}

void RecordingHge::ExpectTextures(const char* operation, HTEXTURE tex, HTEXTURE tex2) {
    for (HTEXTURE handle : {tex, tex2})
        if (handle && !FindTexture(handle))
            Fault(std::string(operation) + ": texture " + std::to_string(handle) + " is not live");
}

bool RecordingHge::IsMissing(const char* filename, DWORD size) {
    if (size) return !filename;
    if (filename && !missing.count(filename)) return false;
    error_message = std::string("cannot load ") + recording_text::Text(filename);
    return true;
}

char* RecordingHge::NextFound(const char* wildcard, const std::vector<std::string>& found) {
    if (wildcard) next_found_ = 0;
    return next_found_ < found.size() ? Answer(found[next_found_++]) : nullptr;
}

char* RecordingHge::Answer(const std::string& text) {
    answer_ = text;
    return answer_.data();
}

// ---- system

void RecordingHge::Release() {
    Record("Release");
    if (--references < 0) Fault("Release: more often than hgeCreate");
}

bool RecordingHge::System_Initiate() {
    Record("System_Initiate");
    if (on_initiate) on_initiate();
    return initiated = initiate_result;
}

void RecordingHge::System_Shutdown() {
    Record("System_Shutdown");
    initiated = false;
}

bool RecordingHge::System_Start() {
    Record("System_Start");
    if (on_start) return on_start();
    for (int i = 0; i < frames; ++i) {
        hgeCallback frame = func_states_[HGE_FRAMEFUNC];
        if (frame && frame()) break;
        hgeCallback render = func_states_[HGE_RENDERFUNC];
        if (render) render();
        NextFrame();
    }
    return initiated;
}

char* RecordingHge::System_GetErrorMessage() {
    Record("System_GetErrorMessage");
    return error_message.data();
}

void RecordingHge::System_Log(const char* format, ...) {
    char text[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    Record("System_Log", static_cast<const char*>(text));
}

bool RecordingHge::System_Launch(const char* url) {
    Record("System_Launch", url);
    return true;
}

void RecordingHge::System_Snapshot(const char* filename) {
    Record("System_Snapshot", filename);
}

void RecordingHge::System_SetState(hgeBoolState state, bool value) {
    Record("System_SetState", state, value);
    bool_states_[state] = value;
}
void RecordingHge::System_SetState(hgeFuncState state, hgeCallback value) {
    Record("System_SetState", state, value);
    func_states_[state] = value;
}
void RecordingHge::System_SetState(hgeHwndState state, HWND value) {
    Record("System_SetState", state, value);
    if (state == HGE_HWNDPARENT) parent_ = value;
}
void RecordingHge::System_SetState(hgeIntState state, int value) {
    Record("System_SetState", state, value);
    int_states_[state] = value;
}
void RecordingHge::System_SetState(hgeStringState state, const char* value) {
    Record("System_SetState", state, value);
    string_states_[state] = value ? value : "";
}

bool RecordingHge::System_GetState(hgeBoolState state) {
    Record("System_GetState", state);
    return bool_states_[state];
}
hgeCallback RecordingHge::System_GetState(hgeFuncState state) {
    Record("System_GetState", state);
    return func_states_[state];
}
HWND RecordingHge::System_GetState(hgeHwndState state) {
    Record("System_GetState", state);
    if (state == HGE_HWNDPARENT) return parent_;
    return initiated ? window : nullptr;
}
int RecordingHge::System_GetState(hgeIntState state) {
    Record("System_GetState", state);
    return int_states_[state];
}
const char* RecordingHge::System_GetState(hgeStringState state) {
    Record("System_GetState", state);
    return string_states_[state].c_str();
}

// ---- resources, ini, random, timer

void* RecordingHge::Resource_Load(const char* filename, DWORD* size) {
    Record("Resource_Load", filename);
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
    Record("Resource_Free", static_cast<const void*>(res));
    if (!blocks.erase(res) && res) Fault("Resource_Free: the block is not live");
}

bool RecordingHge::Resource_AttachPack(const char* filename, const char* password) {
    Record("Resource_AttachPack", filename, password);
    if (!attach_result || IsMissing(filename, 0)) return false;
    if (std::find(packs.begin(), packs.end(), filename) == packs.end()) packs.push_back(filename);
    return true;
}

void RecordingHge::Resource_RemovePack(const char* filename) {
    Record("Resource_RemovePack", filename);
    if (filename) std::erase(packs, filename);
}

void RecordingHge::Resource_RemoveAllPacks() {
    Record("Resource_RemoveAllPacks");
    packs.clear();
}

char* RecordingHge::Resource_MakePath(const char* filename) {
    Record("Resource_MakePath", filename);
    return Answer(program_folder + (filename ? filename : ""));
}

char* RecordingHge::Resource_EnumFiles(const char* wildcard) {
    Record("Resource_EnumFiles", wildcard);
    return NextFound(wildcard, found_files);
}

char* RecordingHge::Resource_EnumFolders(const char* wildcard) {
    Record("Resource_EnumFolders", wildcard);
    return NextFound(wildcard, found_folders);
}

void RecordingHge::Ini_SetInt(const char* section, const char* name, int value) {
    Record("Ini_SetInt", section, name, value);
    ini_[Key(section, name)] = std::to_string(value);
}
int RecordingHge::Ini_GetInt(const char* section, const char* name, int def_val) {
    Record("Ini_GetInt", section, name, def_val);
    auto entry = ini_.find(Key(section, name));
    return entry == ini_.end() ? def_val : std::stoi(entry->second);
}
void RecordingHge::Ini_SetFloat(const char* section, const char* name, float value) {
    Record("Ini_SetFloat", section, name, value);
    ini_[Key(section, name)] = std::to_string(value);
}
float RecordingHge::Ini_GetFloat(const char* section, const char* name, float def_val) {
    Record("Ini_GetFloat", section, name, def_val);
    auto entry = ini_.find(Key(section, name));
    return entry == ini_.end() ? def_val : std::stof(entry->second);
}
void RecordingHge::Ini_SetString(const char* section, const char* name, const char* value) {
    Record("Ini_SetString", section, name, value);
    ini_[Key(section, name)] = value ? value : "";
}
char* RecordingHge::Ini_GetString(const char* section, const char* name, const char* def_val) {
    Record("Ini_GetString", section, name, def_val);
    auto entry = ini_.find(Key(section, name));
    return Answer(entry == ini_.end() ? def_val : entry->second);
}

void RecordingHge::Random_Seed(int seed) {
    Record("Random_Seed", seed);
}
int RecordingHge::Random_Int(int min, int max) {
    Record("Random_Int", min, max);
    return min;
}
float RecordingHge::Random_Float(float min, float max) {
    Record("Random_Float", min, max);
    return min;
}

float RecordingHge::Timer_GetTime() {
    Record("Timer_GetTime");
    return time;
}
float RecordingHge::Timer_GetDelta() {
    Record("Timer_GetDelta");
    return delta;
}
int RecordingHge::Timer_GetFPS() {
    Record("Timer_GetFPS");
    return fps;
}

// ---- input

void RecordingHge::Input_GetMousePos(float* x, float* y) {
    Record("Input_GetMousePos");
    if (x) *x = mouse_x;
    if (y) *y = mouse_y;
}
void RecordingHge::Input_SetMousePos(float x, float y) {
    Record("Input_SetMousePos", x, y);
    mouse_x = x;
    mouse_y = y;
}
int RecordingHge::Input_GetMouseWheel() {
    Record("Input_GetMouseWheel");
    return mouse_wheel;
}
bool RecordingHge::Input_IsMouseOver() {
    Record("Input_IsMouseOver");
    return mouse_over;
}
bool RecordingHge::Input_KeyDown(int key) {
    Record("Input_KeyDown", key);
    return keys_down.count(key) != 0;
}
bool RecordingHge::Input_KeyUp(int key) {
    Record("Input_KeyUp", key);
    return keys_up.count(key) != 0;
}
bool RecordingHge::Input_GetKeyState(int key) {
    Record("Input_GetKeyState", key);
    return keys_held.count(key) != 0;
}
char* RecordingHge::Input_GetKeyName(int key) {
    Record("Input_GetKeyName", key);
    return Answer("key " + std::to_string(key));
}
int RecordingHge::Input_GetKey() {
    Record("Input_GetKey");
    return last_key;
}
int RecordingHge::Input_GetChar() {
    Record("Input_GetChar");
    return last_char;
}
bool RecordingHge::Input_GetEvent(hgeInputEvent* event) {
    Record("Input_GetEvent");
    if (events.empty()) return false;
    *event = events.front();
    events.pop_front();
    return true;
}

// ---- pictures

bool RecordingHge::Gfx_BeginScene(HTARGET target) {
    Record("Gfx_BeginScene", target);
    if (in_scene_) Fault("Gfx_BeginScene: a scene is open");
    if (in_scene_ || (target && !targets.count(target))) return false;
    return in_scene_ = true;
}

void RecordingHge::Gfx_EndScene() {
    Record("Gfx_EndScene");
    if (!in_scene_) Fault("Gfx_EndScene: no scene is open");
    in_scene_ = false;
}

void RecordingHge::Gfx_Clear(DWORD color) {
    Record("Gfx_Clear", Colour{color});
}

void RecordingHge::Gfx_RenderLine(float x1, float y1, float x2, float y2, DWORD color, float z) {
    Record("Gfx_RenderLine", x1, y1, x2, y2, Colour{color}, z);
}

void RecordingHge::Gfx_RenderTriple(const hgeTriple* triple) {
    Record("Gfx_RenderTriple", triple ? triple->tex : 0, triple ? triple->blend : 0);
    if (!triple) return Fault("Gfx_RenderTriple: null");
    ExpectTextures("Gfx_RenderTriple", triple->tex, 0);
    triples.push_back(*triple);
}

void RecordingHge::Gfx_RenderQuad(const hgeQuad* quad) {
    if (!quad) return Fault("Gfx_RenderQuad: null");
    Record("Gfx_RenderQuad", *quad);
    ExpectTextures("Gfx_RenderQuad", quad->tex, quad->tex2);
    quads.push_back(*quad);
}

hgeVertex* RecordingHge::Gfx_StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim) {
    Record("Gfx_StartBatch", prim_type, tex, blend);
    ExpectTextures("Gfx_StartBatch", tex, 0);
    const int room = 1000;
    batch_.assign(static_cast<size_t>(room * prim_type), hgeVertex());
    batch_type_ = prim_type;
    batch_blend_ = blend;
    batch_tex_ = tex;
    if (max_prim) *max_prim = room;
    return batch_.data();
}

void RecordingHge::Gfx_FinishBatch(int nprim) {
    Record("Gfx_FinishBatch", nprim);
    const hgeVertex* v = batch_.data();
    for (int i = 0; i < nprim; ++i, v += batch_type_) {
        if (batch_type_ == HGEPRIM_QUADS)
            quads.push_back({{v[0], v[1], v[2], v[3]}, batch_tex_, batch_blend_, 0});
        else if (batch_type_ == HGEPRIM_TRIPLES)
            triples.push_back({{v[0], v[1], v[2]}, batch_tex_, batch_blend_});
    }
}

void RecordingHge::Gfx_SetClipping(int x, int y, int w, int h) {
    Record("Gfx_SetClipping", x, y, w, h);
}

void RecordingHge::Gfx_SetTransform(float x, float y, float dx, float dy, float rot, float hscale,
                                    float vscale) {
    Record("Gfx_SetTransform", x, y, dx, dy, rot, hscale, vscale);
}

HTARGET RecordingHge::Target_Create(int width, int height, bool zbuffer) {
    Record("Target_Create", width, height, zbuffer);
    if (target_create) return target_create(width, height, zbuffer);
    HTARGET target = NewHandle();
    targets[target] = AddTexture(width, height);
    textures[targets[target]].of_target = true;
    return target;
}

void RecordingHge::Target_Free(HTARGET target) {
    Record("Target_Free", target);
    auto found = targets.find(target);
    if (found == targets.end()) {
        if (target) Fault("Target_Free: " + std::to_string(target) + " is not live");
        return;
    }
    textures.erase(found->second);
    targets.erase(found);
}

HTEXTURE RecordingHge::Target_GetTexture(HTARGET target) {
    Record("Target_GetTexture", target);
    auto found = targets.find(target);
    return found == targets.end() ? 0 : found->second;
}

HTEXTURE RecordingHge::Texture_Create(int width, int height) {
    Record("Texture_Create", width, height);
    if (texture_create) return texture_create(width, height);
    return width > 0 && height > 0 ? AddTexture(width, height) : 0;
}

HTEXTURE RecordingHge::Texture_Load(const char* filename, DWORD size, bool bMipmap) {
    Record("Texture_Load", Source{filename, size}, size, bMipmap);
    if (texture_load) return texture_load(filename, size, bMipmap);
    return IsMissing(filename, size) ? 0 : AddTexture(image_width, image_height);
}

void RecordingHge::Texture_Free(HTEXTURE tex) {
    Record("Texture_Free", tex);
    Texture* texture = FindTexture(tex);
    if (!texture && tex) Fault("Texture_Free: " + std::to_string(tex) + " is not live");
    if (!texture) return;
    if (texture->of_target) return Fault("Texture_Free: " + std::to_string(tex) + " belongs to a target");
    if (texture->locked) Fault("Texture_Free: " + std::to_string(tex) + " is locked");
    textures.erase(tex);
}

int RecordingHge::Texture_GetWidth(HTEXTURE tex, bool bOriginal) {
    Record("Texture_GetWidth", tex, bOriginal);
    const Texture* texture = FindTexture(tex);
    if (!texture) return 0;
    return bOriginal ? texture->orig_width : texture->width;
}

int RecordingHge::Texture_GetHeight(HTEXTURE tex, bool bOriginal) {
    Record("Texture_GetHeight", tex, bOriginal);
    const Texture* texture = FindTexture(tex);
    if (!texture) return 0;
    return bOriginal ? texture->orig_height : texture->height;
}

DWORD* RecordingHge::Texture_Lock(HTEXTURE tex, bool bReadOnly, int left, int top, int width, int height) {
    Record("Texture_Lock", tex, bReadOnly, left, top, width, height);
    Texture* texture = FindTexture(tex);
    if (!texture || texture->of_target || texture->pixels.empty()) return nullptr;
    if (left < 0 || top < 0 || left + width > texture->width || top + height > texture->height)
        return nullptr;
    if (texture->locked) Fault("Texture_Lock: " + std::to_string(tex) + " is locked already");
    if (texture->locked) return nullptr;
    texture->locked = true;
    return texture->pixels.data() + top * texture->width + left;
}

void RecordingHge::Texture_Unlock(HTEXTURE tex) {
    Record("Texture_Unlock", tex);
    Texture* texture = FindTexture(tex);
    if (!texture || !texture->locked)
        return Fault("Texture_Unlock: " + std::to_string(tex) + " is not locked");
    texture->locked = false;
}

bool RecordingHge::Gfx_LoadEffect(const char* filename) {
    Record("Gfx_LoadEffect", filename);
    return effect_result && !IsMissing(filename, 0);
}
