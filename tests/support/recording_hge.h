#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/recording_text.h"
#include "support/unused_hge.h"

// Stands in the framework's place (hgeCreate included): writes down every call and answers from a script.
// Handles come from one counter, so that a handle of the wrong kind is never taken for a live one.
class RecordingHge final : public UnusedHge {
 public:
    struct Texture {
        int width, height;            // as created
        int orig_width, orig_height;  // of the source image
        std::vector<DWORD> pixels;    // width * height
        bool locked = false, of_target = false;
    };
    struct Channel {
        DWORD effect;
        bool playing;
    };

    // The script. Files not in `missing` load: images at image_width x image_height.
    bool create_fails = false;
    bool initiate_result = true, attach_result = true, effect_result = true;
    std::set<std::string> missing;
    std::map<std::string, std::string> files;  // contents for Resource_Load; other names fail
    int image_width = 64, image_height = 64;
    std::function<HTEXTURE(const char*, DWORD, bool)> texture_load;
    std::function<HTEXTURE(int, int)> texture_create;
    std::function<bool()> on_start;               // in place of the loop
    HWND window = reinterpret_cast<HWND>(0x4D2);  // HGE_HWND once initiated
    bool initiated = false;
    float delta = 1 / 60.0f;
    float mouse_x = 0, mouse_y = 0;
    int mouse_wheel = 0;
    bool mouse_over = true;
    std::set<int> keys_down, keys_up, keys_held;
    int last_key = 0, last_char = 0;

    // What was drawn and what is held.
    std::vector<hgeQuad> quads;
    std::map<HTEXTURE, Texture> textures;
    std::map<HTARGET, HTEXTURE> targets;
    std::set<DWORD> effects;
    std::map<HCHANNEL, Channel> channels;
    std::map<void*, std::unique_ptr<char[]>> blocks;
    int references = 0;

    // Calls in order as `Name(arguments)`; Calls leaves out getters, input and reference counting.
    std::vector<std::string> Calls() const;
    std::vector<std::string> AllCalls() const { return calls_; }
    std::vector<std::string> CallsMatching(const std::string& prefix) const;
    // Frees of what is not live, locks left open, unbalanced scenes and releases, drawing with dead textures,
    // operations that nobody here has a use for.
    const std::vector<std::string>& Faults() const { return faults_; }
    // Forgets calls, faults and quads; script, states and holdings stay.
    void ClearCalls();
    // As new. Objects that still hold a reference must be gone.
    void Reset() { *this = RecordingHge(); }

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
    bool CALL System_Initiate() override { return initiated = Give(initiate_result, __func__); }
    void CALL System_Shutdown() override { initiated = Give(false, __func__); }
    bool CALL System_Start() override { return Give(true, __func__) && (on_start ? on_start() : initiated); }
    char* CALL System_GetErrorMessage() override { return Give(error_.data(), __func__); }
    void CALL System_Log(const char* format, ...) override;
    void CALL System_Snapshot(const char* filename) override { Record(__func__, filename); }
    void CALL System_SetState(hgeBoolState state, bool value) override { Set(state, value, value); }
    void CALL System_SetState(hgeIntState state, int value) override { Set(state, value, value); }
    void CALL System_SetState(hgeHwndState state, HWND value) override { Set(state, value, 0); }
    void CALL System_SetState(hgeFuncState state, hgeCallback value) override;
    void CALL System_SetState(hgeStringState state, const char* value) override { Set(state, value, 0); }
    bool CALL System_GetState(hgeBoolState state) override {
        return Give(numbers_[state] != 0, __func__, state);
    }
    int CALL System_GetState(hgeIntState state) override { return Give(numbers_[state], __func__, state); }
    HWND CALL System_GetState(hgeHwndState state) override;
    hgeCallback CALL System_GetState(hgeFuncState state) override;
    const char* CALL System_GetState(hgeStringState) override { return Unused(__func__); }
    float CALL Timer_GetDelta() override { return Give(delta, __func__); }

    void* CALL Resource_Load(const char* filename, DWORD* size) override;
    void CALL Resource_Free(void* res) override;
    bool CALL Resource_AttachPack(const char* filename, const char* password) override;
    void CALL Resource_RemovePack(const char* filename) override { Record(__func__, filename); }
    void CALL Resource_RemoveAllPacks() override { Record(__func__); }

    HEFFECT CALL Effect_Load(const char* filename, DWORD size) override;
    void CALL Effect_Free(HEFFECT eff) override;
    HCHANNEL CALL Effect_PlayEx(HEFFECT eff, int volume, int pan, float pitch, bool loop) override;
    bool CALL Channel_IsPlaying(HCHANNEL chn) override { return Give(Plays(chn), __func__, chn); }
    float CALL Channel_GetLength(HCHANNEL chn) override {
        return Give(Plays(chn) ? 1.0f : -1, __func__, chn);
    }
    float CALL Channel_GetPos(HCHANNEL chn) override { return Give(Plays(chn) ? 0.0f : -1, __func__, chn); }

    void CALL Input_GetMousePos(float* x, float* y) override;
    int CALL Input_GetMouseWheel() override { return Give(mouse_wheel, __func__); }
    bool CALL Input_IsMouseOver() override { return Give(mouse_over, __func__); }
    bool CALL Input_KeyDown(int key) override { return Give(keys_down.count(key) != 0, __func__, key); }
    bool CALL Input_KeyUp(int key) override { return Give(keys_up.count(key) != 0, __func__, key); }
    bool CALL Input_GetKeyState(int key) override { return Give(keys_held.count(key) != 0, __func__, key); }
    int CALL Input_GetKey() override { return Give(last_key, __func__); }
    int CALL Input_GetChar() override { return Give(last_char, __func__); }

    bool CALL Gfx_BeginScene(HTARGET target) override;
    void CALL Gfx_EndScene() override;
    void CALL Gfx_Clear(DWORD color) override { Record(__func__, recording_text::Colour{color}); }
    void CALL Gfx_RenderQuad(const hgeQuad* quad) override;
    void CALL Gfx_SetClipping(int x, int y, int w, int h) override { Record(__func__, x, y, w, h); }
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
    bool CALL Gfx_LoadEffect(const char* filename) override {
        return Give(effect_result, __func__, filename);
    }

 private:
    template <class... Args>
    void Record(const char* name, const Args&... args) {
        calls_.push_back(std::string(name) + "(" + recording_text::Joined(args...) + ")");
    }
    template <class T, class... Args>
    T Give(T answer, const char* name, const Args&... args) {
        Record(name, args...);
        return answer;
    }
    template <class State, class Value>
    void Set(State state, Value value, int number) {
        Record("System_SetState", state, value);
        numbers_[state] = number;
    }
    void Fault(const std::string& text) { faults_.push_back(text); }
    void FaultUnlessLive(bool live, const char* operation, DWORD handle);
    Nothing Unused(const char* operation) override;
    DWORD NewHandle() { return next_handle_++; }
    bool Plays(HCHANNEL chn) const;
    Texture* FindTexture(HTEXTURE tex);

    std::vector<std::string> calls_, faults_;
    DWORD next_handle_ = 1;
    std::map<int, int> numbers_ = {{HGE_SCREENWIDTH, 800}, {HGE_SCREENHEIGHT, 600}};
    std::map<int, hgeCallback> functions_;
    std::string error_;
    bool in_scene_ = false;
};

// The one that hgeCreate hands out in this program.
RecordingHge& Recording();
