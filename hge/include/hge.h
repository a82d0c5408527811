#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#define HGE_VERSION 0x180
#define CALL __stdcall

// Handles are 32-bit ids; 0 is none. A dead or foreign handle is harmless in every operation.
typedef DWORD HTEXTURE;
typedef DWORD HTARGET;
typedef DWORD HEFFECT;
typedef DWORD HMUSIC;
typedef DWORD HSTREAM;
typedef DWORD HCHANNEL;

// Colours are 0xAARRGGBB.
#define ARGB(a, r, g, b) ((DWORD(a) << 24) + (DWORD(r) << 16) + (DWORD(g) << 8) + DWORD(b))
#define GETA(col) ((col) >> 24)
#define GETR(col) (((col) >> 16) & 0xFF)
#define GETG(col) (((col) >> 8) & 0xFF)
#define GETB(col) ((col)&0xFF)
#define SETA(col, a) (((col)&0x00FFFFFF) + (DWORD(a) << 24))
#define SETR(col, r) (((col)&0xFF00FFFF) + (DWORD(r) << 16))
#define SETG(col, g) (((col)&0xFFFF00FF) + (DWORD(g) << 8))
#define SETB(col, b) (((col)&0xFFFFFF00) + DWORD(b))

// Blend bits.
#define BLEND_COLORMUL 0
#define BLEND_COLORADD 1  // vertex colour is added to the texel; without it they multiply
#define BLEND_ALPHAADD 0
#define BLEND_ALPHABLEND 2  // blended by alpha; without it added to the picture
#define BLEND_NOZWRITE 0
#define BLEND_ZWRITE 4
#define BLEND_DEFAULT (BLEND_COLORMUL | BLEND_ALPHABLEND | BLEND_NOZWRITE)
#define BLEND_DEFAULT_Z (BLEND_COLORMUL | BLEND_ALPHABLEND | BLEND_ZWRITE)

enum hgeBoolState {
    HGE_WINDOWED = 1,       // default false
    HGE_ZBUFFER = 2,        // default false
    HGE_TEXTUREFILTER = 3,  // default true
    HGE_USESOUND = 4,       // default true; false: sounds load and run, nothing is heard
    HGE_DONTSUSPEND = 5,    // keep running while inactive; default false
    HGE_HIDEMOUSE = 6,      // default true
    HGE_SHOWSPLASH = 7      // kept and reported; no splash is drawn
};

enum hgeFuncState {
    HGE_FRAMEFUNC = 8,        // true ends the loop
    HGE_RENDERFUNC = 9,       // result ignored
    HGE_FOCUSLOSTFUNC = 10,   // result ignored
    HGE_FOCUSGAINFUNC = 11,   // result ignored
    HGE_GFXRESTOREFUNC = 12,  // after a lost display was rebuilt; target contents are gone
    HGE_EXITFUNC = 13         // the window is being closed; false keeps running
};

enum hgeHwndState {
    HGE_HWND = 15,       // read only; null before System_Initiate
    HGE_HWNDPARENT = 16  // host window; set before System_Initiate
};

enum hgeIntState {
    HGE_SCREENWIDTH = 17,   // pixels, default 800
    HGE_SCREENHEIGHT = 18,  // pixels, default 600
    HGE_SCREENBPP = 19,     // 16 or 32, default 32
    HGE_SAMPLERATE = 20,    // Hz, default 44100
    HGE_FXVOLUME = 21,      // 0..100, default 100
    HGE_MUSVOLUME = 22,     // 0..100, default 100
    HGE_STREAMVOLUME = 23,  // 0..100, default 100
    HGE_FPS = 24,           // frames per second; HGEFPS_UNLIMITED or HGEFPS_VSYNC; default unlimited
    HGE_POWERSTATUS = 25    // read only; percent, or one of HGEPWR_*
};

enum hgeStringState {
    HGE_ICON = 26,     // resource name of the window icon; null for none
    HGE_TITLE = 27,    // window title
    HGE_INIFILE = 28,  // path relative to the program's folder
    HGE_LOGFILE = 29   // path relative to the program's folder; null or "" for no log
};

#define HGEFPS_UNLIMITED 0
#define HGEFPS_VSYNC (-1)
#define HGEPWR_AC (-1)
#define HGEPWR_UNSUPPORTED (-2)

// Returns false or true as the state that it is registered for says.
typedef bool (*hgeCallback)();

#define HGEPRIM_LINES 2
#define HGEPRIM_TRIPLES 3
#define HGEPRIM_QUADS 4

struct hgeVertex {
    float x, y;    // pixels, y down
    float z;       // 0 (front) .. 1 (back)
    DWORD col;     // 0xAARRGGBB
    float tx, ty;  // texture coordinates, 0..1 over the texture
};

struct hgeTriple {
    hgeVertex v[3];
    HTEXTURE tex;  // 0 draws plain colour
    int blend;     // BLEND_* bits
};

struct hgeQuad {
    hgeVertex v[4];
    HTEXTURE tex;   // 0 draws plain colour
    int blend;      // BLEND_* bits
    HTEXTURE tex2;  // second texture for the loaded effect; 0 for none
};

#define INPUT_KEYDOWN 1
#define INPUT_KEYUP 2
#define INPUT_MBUTTONDOWN 3
#define INPUT_MBUTTONUP 4
#define INPUT_MOUSEMOVE 5
#define INPUT_MOUSEWHEEL 6

#define HGEINP_SHIFT 1
#define HGEINP_CTRL 2
#define HGEINP_ALT 4
#define HGEINP_CAPSLOCK 8
#define HGEINP_SCROLLLOCK 16
#define HGEINP_NUMLOCK 32
#define HGEINP_REPEAT 64

struct hgeInputEvent {
    int type;   // INPUT_*
    int key;    // HGEK_*
    int flags;  // HGEINP_* bits
    int chr;    // ANSI character of a key event, 0 for none
    int wheel;  // notches, positive away from the user
    float x, y;
};

#include "hgekeys.h"

// The framework's core. One per process; used from one thread only.
struct HGE {
    // Gives back one hgeCreate; the last one shuts down what runs, removes all packs and ends the object.
    virtual void CALL Release() = 0;
    // False on failure: System_GetErrorMessage and the log say why.
    virtual bool CALL System_Initiate() = 0;
    virtual void CALL System_Shutdown() = 0;
    // Runs the frame loop; false when the system is not initiated or has no frame function.
    virtual bool CALL System_Start() = 0;
    // Text of the last failure, "" if none; valid until the next failure.
    virtual char* CALL System_GetErrorMessage() = 0;
    virtual void CALL System_Log(const char* format, ...) = 0;
    virtual bool CALL System_Launch(const char* url) = 0;
    // Writes the current frame; BMP or PNG by extension; null makes "shotNNN.bmp" in the program's folder.
    virtual void CALL System_Snapshot(const char* filename = 0) = 0;

    virtual void CALL System_SetState(hgeBoolState state, bool value) = 0;
    virtual void CALL System_SetState(hgeFuncState state, hgeCallback value) = 0;
    virtual void CALL System_SetState(hgeHwndState state, HWND value) = 0;
    virtual void CALL System_SetState(hgeIntState state, int value) = 0;
    virtual void CALL System_SetState(hgeStringState state, const char* value) = 0;
    virtual bool CALL System_GetState(hgeBoolState state) = 0;
    virtual hgeCallback CALL System_GetState(hgeFuncState state) = 0;
    virtual HWND CALL System_GetState(hgeHwndState state) = 0;
    virtual int CALL System_GetState(hgeIntState state) = 0;
    // Valid until the state is set again.
    virtual const char* CALL System_GetState(hgeStringState state) = 0;

    // The file's bytes, owned by the caller (Resource_Free); null on failure. One NUL follows the bytes.
    virtual void* CALL Resource_Load(const char* filename, DWORD* size = 0) = 0;
    virtual void CALL Resource_Free(void* res) = 0;
    // A ZIP archive; true also when it is attached already. Entries shadow older packs and files.
    virtual bool CALL Resource_AttachPack(const char* filename, const char* password = 0) = 0;
    virtual void CALL Resource_RemovePack(const char* filename) = 0;
    virtual void CALL Resource_RemoveAllPacks() = 0;
    // Full path of a file in the program's folder (null: the folder); valid until the next call.
    virtual char* CALL Resource_MakePath(const char* filename = 0) = 0;
    // A wildcard starts a search, null continues it; null at the end. Valid until the next call.
    virtual char* CALL Resource_EnumFiles(const char* wildcard = 0) = 0;
    virtual char* CALL Resource_EnumFolders(const char* wildcard = 0) = 0;

    // Getters see a value at once. It is in the file, too, unless the disk is busy: then at the latest when
    // the system has been shut down or another ini file is set.
    virtual void CALL Ini_SetInt(const char* section, const char* name, int value) = 0;
    virtual int CALL Ini_GetInt(const char* section, const char* name, int def_val) = 0;
    virtual void CALL Ini_SetFloat(const char* section, const char* name, float value) = 0;
    virtual float CALL Ini_GetFloat(const char* section, const char* name, float def_val) = 0;
    virtual void CALL Ini_SetString(const char* section, const char* name, const char* value) = 0;
    // Valid until the next Ini_GetString.
    virtual char* CALL Ini_GetString(const char* section, const char* name, const char* def_val) = 0;

    // Seed 0 takes the clock.
    virtual void CALL Random_Seed(int seed = 0) = 0;
    // min..max, both included.
    virtual int CALL Random_Int(int min, int max) = 0;
    virtual float CALL Random_Float(float min, float max) = 0;

    // Seconds since System_Initiate, summed over frames.
    virtual float CALL Timer_GetTime() = 0;
    // Seconds of the last frame.
    virtual float CALL Timer_GetDelta() = 0;
    virtual int CALL Timer_GetFPS() = 0;

    // With size not 0, filename is a memory block of that many bytes. 0 on failure.
    virtual HEFFECT CALL Effect_Load(const char* filename, DWORD size = 0) = 0;
    // Stops its channels too.
    virtual void CALL Effect_Free(HEFFECT eff) = 0;
    virtual HCHANNEL CALL Effect_Play(HEFFECT eff) = 0;
    // volume 0..100, pan -100..100, pitch 1 = as recorded. 0 on failure.
    virtual HCHANNEL CALL Effect_PlayEx(HEFFECT eff, int volume = 100, int pan = 0, float pitch = 1.0f,
                                        bool loop = false) = 0;

    // Tracker modules cannot be decoded in this build: 0, and a line in the log.
    virtual HMUSIC CALL Music_Load(const char* filename, DWORD size = 0) = 0;
    virtual void CALL Music_Free(HMUSIC mus) = 0;
    virtual HCHANNEL CALL Music_Play(HMUSIC mus, bool loop, int volume = 100, int order = -1,
                                     int row = -1) = 0;
    virtual void CALL Music_SetAmplification(HMUSIC mus, int ampl) = 0;
    virtual int CALL Music_GetAmplification(HMUSIC mus) = 0;
    virtual int CALL Music_GetLength(HMUSIC mus) = 0;
    virtual void CALL Music_SetPos(HMUSIC mus, int order, int row) = 0;
    virtual bool CALL Music_GetPos(HMUSIC mus, int* order, int* row) = 0;
    virtual void CALL Music_SetInstrVolume(HMUSIC mus, int instr, int volume) = 0;
    virtual int CALL Music_GetInstrVolume(HMUSIC mus, int instr) = 0;
    virtual void CALL Music_SetChannelVolume(HMUSIC mus, int channel, int volume) = 0;
    virtual int CALL Music_GetChannelVolume(HMUSIC mus, int channel) = 0;

    // Decoded while it plays, on one channel at a time.
    virtual HSTREAM CALL Stream_Load(const char* filename, DWORD size = 0) = 0;
    virtual void CALL Stream_Free(HSTREAM stream) = 0;
    virtual HCHANNEL CALL Stream_Play(HSTREAM stream, bool loop, int volume = 100) = 0;

    virtual void CALL Channel_SetPanning(HCHANNEL chn, int pan) = 0;
    virtual void CALL Channel_SetVolume(HCHANNEL chn, int volume) = 0;
    virtual void CALL Channel_SetPitch(HCHANNEL chn, float pitch) = 0;
    virtual void CALL Channel_Pause(HCHANNEL chn) = 0;
    virtual void CALL Channel_Resume(HCHANNEL chn) = 0;
    virtual void CALL Channel_Stop(HCHANNEL chn) = 0;
    virtual void CALL Channel_PauseAll() = 0;
    virtual void CALL Channel_ResumeAll() = 0;
    virtual void CALL Channel_StopAll() = 0;
    // True until it ends or is stopped, also while it is paused.
    virtual bool CALL Channel_IsPlaying(HCHANNEL chn) = 0;
    // Seconds; -1 for a dead channel.
    virtual float CALL Channel_GetLength(HCHANNEL chn) = 0;
    virtual float CALL Channel_GetPos(HCHANNEL chn) = 0;
    virtual void CALL Channel_SetPos(HCHANNEL chn, float seconds) = 0;
    // Slides over time seconds; pan -101 and pitch -1 leave those as they are.
    virtual void CALL Channel_SlideTo(HCHANNEL chn, float time, int volume, int pan = -101,
                                      float pitch = -1) = 0;
    virtual bool CALL Channel_IsSliding(HCHANNEL chn) = 0;

    // Screen pixels.
    virtual void CALL Input_GetMousePos(float* x, float* y) = 0;
    virtual void CALL Input_SetMousePos(float x, float y) = 0;
    // Notches turned in this frame.
    virtual int CALL Input_GetMouseWheel() = 0;
    virtual bool CALL Input_IsMouseOver() = 0;
    // Went down (up) in this frame.
    virtual bool CALL Input_KeyDown(int key) = 0;
    virtual bool CALL Input_KeyUp(int key) = 0;
    // Is held.
    virtual bool CALL Input_GetKeyState(int key) = 0;
    // English name, "" for an unknown key.
    virtual char* CALL Input_GetKeyName(int key) = 0;
    // Last key (character) pressed in this frame, 0 for none.
    virtual int CALL Input_GetKey() = 0;
    virtual int CALL Input_GetChar() = 0;
    // Takes the next event of this frame; false when there is none.
    virtual bool CALL Input_GetEvent(hgeInputEvent* event) = 0;

    // Target 0 is the screen. False when a scene is open or the target is dead.
    virtual bool CALL Gfx_BeginScene(HTARGET target = 0) = 0;
    virtual void CALL Gfx_EndScene() = 0;
    virtual void CALL Gfx_Clear(DWORD color) = 0;
    virtual void CALL Gfx_RenderLine(float x1, float y1, float x2, float y2, DWORD color = 0xFFFFFFFF,
                                     float z = 0.5f) = 0;
    virtual void CALL Gfx_RenderTriple(const hgeTriple* triple) = 0;
    virtual void CALL Gfx_RenderQuad(const hgeQuad* quad) = 0;
    // Room for *max_prim primitives (HGEPRIM_*); fill and call Gfx_FinishBatch. Null outside a scene.
    virtual hgeVertex* CALL Gfx_StartBatch(int prim_type, HTEXTURE tex, int blend, int* max_prim) = 0;
    virtual void CALL Gfx_FinishBatch(int nprim) = 0;
    // Pixels; width 0 or height 0 means no clipping.
    virtual void CALL Gfx_SetClipping(int x = 0, int y = 0, int w = 0, int h = 0) = 0;
    // Rotates (radians) and scales about (x, y), then moves by (dx, dy); vscale 0 resets.
    virtual void CALL Gfx_SetTransform(float x = 0, float y = 0, float dx = 0, float dy = 0, float rot = 0,
                                       float hscale = 0, float vscale = 0) = 0;

    virtual HTARGET CALL Target_Create(int width, int height, bool zbuffer) = 0;
    virtual void CALL Target_Free(HTARGET target) = 0;
    // The texture belongs to the target.
    virtual HTEXTURE CALL Target_GetTexture(HTARGET target) = 0;

    // 0 on failure. New pixels are transparent black.
    virtual HTEXTURE CALL Texture_Create(int width, int height) = 0;
    // With size not 0, filename is a memory block of that many bytes. 0 on failure.
    virtual HTEXTURE CALL Texture_Load(const char* filename, DWORD size = 0, bool bMipmap = false) = 0;
    virtual void CALL Texture_Free(HTEXTURE tex) = 0;
    // Pixels of the created texture, or of the source image.
    virtual int CALL Texture_GetWidth(HTEXTURE tex, bool bOriginal = false) = 0;
    virtual int CALL Texture_GetHeight(HTEXTURE tex, bool bOriginal = false) = 0;
    // Address of pixel (left, top); rows are Texture_GetWidth(tex, false) pixels apart. Null on failure.
    virtual DWORD* CALL Texture_Lock(HTEXTURE tex, bool bReadOnly = true, int left = 0, int top = 0,
                                     int width = 0, int height = 0) = 0;
    virtual void CALL Texture_Unlock(HTEXTURE tex) = 0;

    // Loads the shader for quads with a second texture in place of the one before. False on failure: such
    // quads are drawn without their second texture then.
    virtual bool CALL Gfx_LoadEffect(const char* filename) = 0;

 protected:
    ~HGE() = default;
};

// Null unless version is HGE_VERSION. Every call is balanced by HGE::Release.
extern "C" HGE* CALL hgeCreate(int version);
