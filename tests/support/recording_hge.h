#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "hge.h"
#include "support/recording_text.h"

// Stands in the framework's place (hgeCreate included): writes down every call and answers from a script.
// Handles come from one counter, so that a handle of the wrong kind is never taken for a live one.
class RecordingHge final : public HGE {
 public:
    struct Texture {
        int width, height;            // as created
        int orig_width, orig_height;  // of the source image
        std::vector<DWORD> pixels;    // width * height
        bool locked;
        bool of_target;
    };
    struct Channel {
        DWORD source;  // effect, music or stream
        bool playing, paused;
        int volume, pan;
        float pitch;
        bool loop;
    };

    // The script. Files not in `missing` load: images at image_width x image_height.
    bool create_fails = false;
    bool initiate_result = true;
    bool attach_result = true;
    bool effect_result = true;
    std::set<std::string> missing;
    std::map<std::string, std::string> files;  // contents for Resource_Load; other names fail
    int image_width = 64, image_height = 64;
    std::function<HTEXTURE(const char*, DWORD, bool)> texture_load;
    std::function<HTEXTURE(int, int)> texture_create;
    std::function<HTARGET(int, int, bool)> target_create;
    std::function<HEFFECT(const char*, DWORD)> effect_load;
    std::function<void()> on_initiate;
    std::function<bool()> on_start;  // in place of the frames below
    int frames = 0;                  // System_Start: frame function, then render function, so often
    std::string error_message;
    std::string program_folder = "C:\\game\\";
    std::vector<std::string> found_files, found_folders;
    HWND window = reinterpret_cast<HWND>(0x4D2);  // HGE_HWND once initiated
    bool initiated = false;
    float time = 0, delta = 1 / 60.0f;
    int fps = 60;
    float mouse_x = 0, mouse_y = 0;
    int mouse_wheel = 0;
    bool mouse_over = true;
    std::set<int> keys_down, keys_up, keys_held;
    int last_key = 0, last_char = 0;
    std::deque<hgeInputEvent> events;
    float channel_length = 1, channel_pos = 0;

    // What was drawn, batches included, and what is held.
    std::vector<hgeQuad> quads;
    std::vector<hgeTriple> triples;
    std::map<HTEXTURE, Texture> textures;
    std::map<HTARGET, HTEXTURE> targets;
    std::set<DWORD> effects, musics, streams;
    std::map<HCHANNEL, Channel> channels;
    std::map<void*, std::unique_ptr<char[]>> blocks;
    std::vector<std::string> packs;
    int references = 0;

    // Calls in order as `Name(arguments)`; Calls leaves out getters, input and reference counting.
    std::vector<std::string> Calls() const;
    std::vector<std::string> AllCalls() const { return calls_; }
    std::vector<std::string> CallsMatching(const std::string& prefix) const;
    // Frees of what is not live, locks left open, unbalanced scenes and releases, drawing with dead textures.
    const std::vector<std::string>& Faults() const { return faults_; }
    // Forgets calls, faults and quads; script, states and holdings stay.
    void ClearCalls();
    // As new. Objects that still hold a reference must be gone.
    void Reset();

    // orig sizes 0: as created.
    HTEXTURE AddTexture(int width, int height, int orig_width = 0, int orig_height = 0);
    // The channel has played to its end.
    void EndChannel(HCHANNEL chn) { channels[chn].playing = false; }
    // Mouse and keys of the next frame: edges and wheel are taken away.
    void NextFrame();
    void Press(int key);
    void Lift(int key);
    HGE* Create(int version);

    void CALL Release() override;
    bool CALL System_Initiate() override;
    void CALL System_Shutdown() override;
    bool CALL System_Start() override;
    char* CALL System_GetErrorMessage() override;
    void CALL System_Log(const char* format, ...) override;
    bool CALL System_Launch(const char* url) override;
    void CALL System_Snapshot(const char* filename) override;
    void CALL System_SetState(hgeBoolState state, bool value) override;
    void CALL System_SetState(hgeFuncState state, hgeCallback value) override;
    void CALL System_SetState(hgeHwndState state, HWND value) override;
    void CALL System_SetState(hgeIntState state, int value) override;
    void CALL System_SetState(hgeStringState state, const char* value) override;
    bool CALL System_GetState(hgeBoolState state) override;
    hgeCallback CALL System_GetState(hgeFuncState state) override;
    HWND CALL System_GetState(hgeHwndState state) override;
    int CALL System_GetState(hgeIntState state) override;
    const char* CALL System_GetState(hgeStringState state) override;

    void* CALL Resource_Load(const char* filename, DWORD* size) override;
    void CALL Resource_Free(void* res) override;
    bool CALL Resource_AttachPack(const char* filename, const char* password) override;
    void CALL Resource_RemovePack(const char* filename) override;
    void CALL Resource_RemoveAllPacks() override;
    char* CALL Resource_MakePath(const char* filename) override;
    char* CALL Resource_EnumFiles(const char* wildcard) override;
    char* CALL Resource_EnumFolders(const char* wildcard) override;

    void CALL Ini_SetInt(const char* section, const char* name, int value) override;
    int CALL Ini_GetInt(const char* section, const char* name, int def_val) override;
    void CALL Ini_SetFloat(const char* section, const char* name, float value) override;
    float CALL Ini_GetFloat(const char* section, const char* name, float def_val) override;
    void CALL Ini_SetString(const char* section, const char* name, const char* value) override;
    char* CALL Ini_GetString(const char* section, const char* name, const char* def_val) override;
    void CALL Random_Seed(int seed) override;
    int CALL Random_Int(int min, int max) override;
    float CALL Random_Float(float min, float max) override;
    float CALL Timer_GetTime() override;
    float CALL Timer_GetDelta() override;
    int CALL Timer_GetFPS() override;

    HEFFECT CALL Effect_Load(const char* filename, DWORD size) override;
    void CALL Effect_Free(HEFFECT eff) override;
    HCHANNEL CALL Effect_Play(HEFFECT eff) override;
    HCHANNEL CALL Effect_PlayEx(HEFFECT eff, int volume, int pan, float pitch, bool loop) override;
    HMUSIC CALL Music_Load(const char* filename, DWORD size) override;
    void CALL Music_Free(HMUSIC mus) override;
    HCHANNEL CALL Music_Play(HMUSIC mus, bool loop, int volume, int order, int row) override;
    void CALL Music_SetAmplification(HMUSIC mus, int ampl) override;
    int CALL Music_GetAmplification(HMUSIC mus) override;
    int CALL Music_GetLength(HMUSIC mus) override;
    void CALL Music_SetPos(HMUSIC mus, int order, int row) override;
    bool CALL Music_GetPos(HMUSIC mus, int* order, int* row) override;
    void CALL Music_SetInstrVolume(HMUSIC mus, int instr, int volume) override;
    int CALL Music_GetInstrVolume(HMUSIC mus, int instr) override;
    void CALL Music_SetChannelVolume(HMUSIC mus, int channel, int volume) override;
    int CALL Music_GetChannelVolume(HMUSIC mus, int channel) override;
    HSTREAM CALL Stream_Load(const char* filename, DWORD size) override;
    void CALL Stream_Free(HSTREAM stream) override;
    HCHANNEL CALL Stream_Play(HSTREAM stream, bool loop, int volume) override;

    void CALL Channel_SetPanning(HCHANNEL chn, int pan) override;
    void CALL Channel_SetVolume(HCHANNEL chn, int volume) override;
    void CALL Channel_SetPitch(HCHANNEL chn, float pitch) override;
    void CALL Channel_Pause(HCHANNEL chn) override;
    void CALL Channel_Resume(HCHANNEL chn) override;
    void CALL Channel_Stop(HCHANNEL chn) override;
    void CALL Channel_PauseAll() override;
    void CALL Channel_ResumeAll() override;
    void CALL Channel_StopAll() override;
    bool CALL Channel_IsPlaying(HCHANNEL chn) override;
    float CALL Channel_GetLength(HCHANNEL chn) override;
    float CALL Channel_GetPos(HCHANNEL chn) override;
    void CALL Channel_SetPos(HCHANNEL chn, float seconds) override;
    void CALL Channel_SlideTo(HCHANNEL chn, float seconds, int volume, int pan, float pitch) override;
    bool CALL Channel_IsSliding(HCHANNEL chn) override;

    void CALL Input_GetMousePos(float* x, float* y) override;
    void CALL Input_SetMousePos(float x, float y) override;
    int CALL Input_GetMouseWheel() override;
    bool CALL Input_IsMouseOver() override;
    bool CALL Input_KeyDown(int key) override;
    bool CALL Input_KeyUp(int key) override;
    bool CALL Input_GetKeyState(int key) override;
    char* CALL Input_GetKeyName(int key) override;
    int CALL Input_GetKey() override;
    int CALL Input_GetChar() override;
    bool CALL Input_GetEvent(hgeInputEvent* event) override;

    bool CALL Gfx_BeginScene(HTARGET target) override;
    void CALL Gfx_EndScene() override;
    void CALL Gfx_Clear(DWORD color) override;
    void CALL Gfx_RenderLine(float x1, float y1, float x2, float y2, DWORD color, float z) override;
    void CALL Gfx_RenderTriple(const hgeTriple* triple) override;
    void CALL Gfx_RenderQuad(const hgeQuad* quad) override;
    hgeVertex* CALL Gfx_StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim) override;
    void CALL Gfx_FinishBatch(int nprim) override;
    void CALL Gfx_SetClipping(int x, int y, int w, int h) override;
    void CALL Gfx_SetTransform(float x, float y, float dx, float dy, float rot, float hscale,
                               float vscale) override;
    HTARGET CALL Target_Create(int width, int height, bool zbuffer) override;
    void CALL Target_Free(HTARGET target) override;
    HTEXTURE CALL Target_GetTexture(HTARGET target) override;
    HTEXTURE CALL Texture_Create(int width, int height) override;
    HTEXTURE CALL Texture_Load(const char* filename, DWORD size, bool bMipmap) override;
    void CALL Texture_Free(HTEXTURE tex) override;
    int CALL Texture_GetWidth(HTEXTURE tex, bool bOriginal) override;
    int CALL Texture_GetHeight(HTEXTURE tex, bool bOriginal) override;
    DWORD* CALL Texture_Lock(HTEXTURE tex, bool bReadOnly, int left, int top, int width, int height) override;
    void CALL Texture_Unlock(HTEXTURE tex) override;
    bool CALL Gfx_LoadEffect(const char* filename) override;

 private:
    template <class... Args>
    void Record(const char* name, const Args&... args) {
        calls_.push_back(std::string(name) + "(" + recording_text::Joined(args...) + ")");
    }
    void Fault(const std::string& text) { faults_.push_back(text); }
    DWORD NewHandle() { return next_handle_++; }
    DWORD LoadInto(std::set<DWORD>* kind, const char* filename, DWORD size);
    void FreeFrom(std::set<DWORD>* kind, const char* operation, DWORD handle);
    HCHANNEL Start(const std::set<DWORD>& kind, const Channel& channel);
    Channel* FindPlaying(HCHANNEL chn);
    Texture* FindTexture(HTEXTURE tex);
    void ExpectTextures(const char* operation, HTEXTURE tex, HTEXTURE tex2);
    bool IsMissing(const char* filename, DWORD size);
    char* NextFound(const char* wildcard, const std::vector<std::string>& found);
    char* Answer(const std::string& text);

    std::vector<std::string> calls_, faults_;
    DWORD next_handle_ = 1;
    std::map<int, bool> bool_states_;
    std::map<int, hgeCallback> func_states_;
    std::map<int, int> int_states_ = {{HGE_SCREENWIDTH, 800}, {HGE_SCREENHEIGHT, 600}};
    std::map<int, std::string> string_states_;
    HWND parent_ = nullptr;
    std::map<std::string, std::string> ini_;
    std::string answer_;
    size_t next_found_ = 0;
    bool in_scene_ = false;
    std::vector<hgeVertex> batch_;
    int batch_type_ = 0, batch_blend_ = 0;
    HTEXTURE batch_tex_ = 0;
};

// The one that hgeCreate hands out in this program.
RecordingHge& Recording();
