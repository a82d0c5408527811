#pragma once

#include <vector>

#include "drill2d/export.h"
#include "hge.h"

class CGameResourceManager;
class CGameSprite;
class hgeGUI;
class hgeGUIObject;

// A sound that was started: handles of the framework, both 0 when dead.
struct EffectHandle {
    unsigned long effect;
    unsigned long channel;
};

// What the host implements. Coordinates are screen pixels; all calls come on the thread of InitHge. A
// callback may do anything but delete the engine or throw; a sink that goes sets another one first.
struct I2DGameEngineSink {
    // The destructor takes slots 1 and 2; the third is the host's own. The engine calls none of them.
    virtual ~I2DGameEngineSink() {}
    virtual void OnHostCommand(int /*command*/, void* /*data*/) {}

    // Once, before the loop: build resources, controls and scenes here.
    virtual void OnInit() = 0;
    // Every frame, inside the screen's scene, under the GUI and the movies.
    virtual void OnRender() = 0;
    // With effects on: inside the first (second) target's scene.
    virtual void OnRenderTarget() = 0;
    virtual void OnRenderTarget1() = 0;
    // Every active frame: seconds since the last one, and the id of the control that acted (0 none, -1 left).
    virtual void OnFrame(float dt, int id) = 0;
    // Not called while the mouse is over the focused control.
    virtual void OnLButtonDown(float x, float y) = 0;
    virtual void OnLButtonUp(float x, float y) = 0;
    virtual void OnRButtonDown(float x, float y) = 0;
    virtual void OnRButtonUp(float x, float y) = 0;
    // Every active frame with the mouse inside the screen, moved or not.
    virtual void OnMouseMove(float x, float y) = 0;
};

struct I2DGameEngine {
    // Opens the full-screen window (pixels) and runs the game; returns when it has ended. False: see
    // game.log, or it was called from inside a callback.
    virtual bool InitHge(int width, int height, const char* title, bool zbuffer) = 0;
    // An I2DGameEngineSink*, not owned, set before InitHge; may be changed at any time. Null is refused.
    virtual bool SetEngineSink(void* sink) = 0;
    // Gives the control the next id and the focus; the engine owns it from then on.
    virtual void AddControl(hgeGUIObject* ctrl) = 0;
    // Gives the control back to the caller.
    virtual void RemoveControl(hgeGUIObject* ctrl) = 0;
    // Puts an added control on top.
    virtual void GotoTailControl(hgeGUIObject* ctrl) = 0;
    virtual I2DGameEngineSink* GetEngineSink() = 0;
    // Null before InitHge. Both belong to the engine.
    virtual hgeGUI* GetGui() = 0;
    virtual HGE* GetHge() = 0;
    // Draws an image at the mouse, the system's cursor stays. True also when the image did not load.
    virtual bool SetCursor(const char* file, CGameResourceManager* res) = 0;

    // One track at a time; a file that does not load leaves silence.
    virtual void PlayMusic(const char* file, bool loop) = 0;
    virtual void StopMusic() = 0;
    // Drops the entry from the table, the sound plays on.
    virtual void FreeSound(int index) = 0;
    // Entries are valid until the next sound starts or ends. Null: no such entry, or not loaded.
    virtual EffectHandle* EnumSound(int index) = 0;
    // The engine frees the effect when it has played; it stays the caller's when this gives null.
    virtual EffectHandle* Play2DSound(unsigned long effect) = 0;
    virtual EffectHandle* Play2DSound(const char* file) = 0;
    virtual unsigned long GetSoundSize() = 0;

    // Null (0) until CreateFx.
    virtual CGameSprite* GetBackSpr() = 0;
    virtual unsigned long GetTaget() = 0;
    virtual unsigned long GetTaget1() = 0;
    // Draws through two targets and the effect in the file; an effect that does not load changes nothing.
    virtual void CreateFx(char* effectFile) = 0;
    virtual bool IsEnableFx() = 0;
    // Writes "pic\<dir><date>.bmp" beside the program, at most one in 300 ms.
    virtual void saveImage(const char* dir) = 0;

    // Training time, in milliseconds. It runs from initPlayTime; 0 in setGameTimeTotal is no limit.
    virtual void initPlayTime() = 0;
    virtual void stop_game_time() = 0;
    // The engine's own check, once a frame: true when the time has run out.
    virtual bool PlayGameOpr() = 0;
    virtual int getPlayTimed() = 0;
    virtual void playGame() = 0;
    virtual void PauseGame() = 0;
    // Kept for the host, not used by the engine.
    virtual void setPlayTime(unsigned long value) = 0;
    virtual void setRestTime(int value) = 0;
    virtual void setGameTimeTotal(unsigned long milliseconds) = 0;
    // The program has been told to quit.
    virtual bool IsGameTimeEnd() = 0;

    virtual ~I2DGameEngine() {}
};

// The one engine of the process. The host deletes it, through I2DGameEngine, after InitHge has returned.
class DRILL2D_API C2DGameEngine : public I2DGameEngine {
 public:
    // Made at the first call, from one thread; the same pointer ever after, also when deleted.
    static I2DGameEngine* Get2DGameEngineInstance();
    // The framework's callbacks; both return false.
    static bool FrameFuc();
    static bool Render();

    C2DGameEngine();
    // Copies are member by member and share what is owned: never destroy two.
    C2DGameEngine(const C2DGameEngine& other) = default;
    C2DGameEngine& operator=(const C2DGameEngine& other) = default;

    bool InitHge(int width, int height, const char* title, bool zbuffer) override;
    bool SetEngineSink(void* sink) override;
    void AddControl(hgeGUIObject* ctrl) override;
    void RemoveControl(hgeGUIObject* ctrl) override;
    void GotoTailControl(hgeGUIObject* ctrl) override;
    I2DGameEngineSink* GetEngineSink() override;
    hgeGUI* GetGui() override;
    HGE* GetHge() override;
    bool SetCursor(const char* file, CGameResourceManager* res) override;
    void PlayMusic(const char* file, bool loop) override;
    void StopMusic() override;
    void FreeSound(int index) override;
    EffectHandle* EnumSound(int index) override;
    EffectHandle* Play2DSound(unsigned long effect) override;
    EffectHandle* Play2DSound(const char* file) override;
    unsigned long GetSoundSize() override;
    CGameSprite* GetBackSpr() override;
    unsigned long GetTaget() override;
    unsigned long GetTaget1() override;
    void CreateFx(char* effectFile) override;
    bool IsEnableFx() override;
    void saveImage(const char* dir) override;
    void initPlayTime() override;
    void stop_game_time() override;
    bool PlayGameOpr() override;
    int getPlayTimed() override;
    void playGame() override;
    void PauseGame() override;
    void setPlayTime(unsigned long value) override;
    void setRestTime(int value) override;
    void setGameTimeTotal(unsigned long milliseconds) override;
    bool IsGameTimeEnd() override;
    ~C2DGameEngine() override;

 private:
    void StopFramework();
    bool StartFramework(int width, int height, const char* title, bool zbuffer);
    void ShowTimeEndNotice();
    void SaveFrame(const char* dir);

    static I2DGameEngine* m_instance;

    unsigned long m_hMusic;
    std::vector<EffectHandle> m_sounds;
    CGameSprite* m_pCursor;
    HGE* m_pHge;
    hgeGUI* m_pGui;
    I2DGameEngineSink* m_pSink;
    CGameSprite* m_pBackSpr;
    unsigned long m_hTarget;
    unsigned long m_hTarget1;
    bool m_bEnableFx;
    unsigned long m_dwPauseTick;
    int m_nRestTime;
    unsigned long m_dwPlayStartTick;
    unsigned long m_dwPlayTime;
    unsigned long m_dwGameTimeTotal;
    int m_nPlayedTime;
    int m_nGameState;
    unsigned long m_dwStartTick;
    unsigned long m_dwPausedTotal;
    unsigned long m_dwPauseSpan;
};
