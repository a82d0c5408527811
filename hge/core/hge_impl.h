#pragma once

#include <exception>
#include <memory>
#include <string>

#include "audio/audio.h"
#include "core/frame_pacer.h"
#include "core/frame_waiter.h"
#include "core/ini_file.h"
#include "core/log.h"
#include "core/random.h"
#include "core/states.h"
#include "graphics/graphics.h"
#include "hge.h"
#include "hgecounters.h"
#include "resources/resource_store.h"
#include "window/window.h"

namespace hge {

// The process's HGE: the published operations, handed on to the subsystems, and the frame loop.
class HgeImpl final : public HGE {
 public:
    // The one instance with a reference more; null for another version or without memory.
    static HGE* Acquire(int version);
    // False without an instance.
    static bool ReadCounters(hgeCounters* counters);

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
    void CALL Channel_SlideTo(HCHANNEL chn, float time, int volume, int pan, float pitch) override;
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
    HgeImpl();
    ~HgeImpl() = default;

    // The boundary: nothing is thrown out of an operation, which then gives 0, false or null.
    template <class F>
    auto Guarded(const char* operation, F&& body) noexcept -> decltype(body()) {
        try {
            return body();
        } catch (const std::exception& problem) {
            ReportException(operation, problem);
        }
        return decltype(body())();
    }
    void ReportException(const char* operation, const std::exception& problem) noexcept;

    // A relative name counts from the program's folder.
    std::string FullPath(const std::string& name) const;
    bool Initiate();
    bool CheckScreenSize();
    void StartAudio();
    void ApplyVolumes();
    bool OpenWindow();
    bool StartGraphics();
    void OpenLog();
    void StopAll();
    void Shutdown();
    void ReportLive();

    bool MayStart();
    bool RunFrame();
    void ReportFocus();
    bool MayClose();
    void PresentFrame();
    bool Call(hgeFuncState state);

    bool Snapshot(const std::string& path);
    std::string FreeSnapshotName() const;

    // False: fixed while the system runs, or impossible; logged.
    template <class State, class Value>
    bool Store(State state, Value value);
    bool IsFixed(int state) const;
    void Apply(hgeIntState state, int value);
    void Apply(hgeStringState state, const std::string& value);

    void CALL RenderUnusualQuad(const hgeQuad* quad);
    HTEXTURE LoadTexture(const char* filename, DWORD size, bool mipmaps);

    static HgeImpl* instance_;

    int references_ = 0;
    Log log_;
    States states_;
    ResourceStore resources_;
    IniFile ini_;
    Random random_;
    InputQueue input_;
    Window window_;
    Graphics graphics_;
    Audio audio_;
    FramePacer pacer_;
    std::unique_ptr<FrameWaiter> waiter_;
    bool initiated_ = false;
    bool looping_ = false;
    bool had_focus_ = false;
    // A scene on the screen is open, has been finished in this frame.
    bool screen_scene_ = false;
    bool screen_drawn_ = false;
};

}  // namespace hge
