#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "drill2d/export.h"
#include "hge.h"

class ControlSite;
struct IOleInPlaceObjectWindowless;
struct IOleObject;
struct IShockwaveFlash;

// What a player tells its subclass. Empty here.
class DRILL2D_API FlashListener {
 public:
    // The movie has played to its end.
    virtual void FlashAnimEnded();
    // For hosts: no player calls it.
    virtual void FlashCommand(const std::string& command, const std::string& args);

 protected:
    ~FlashListener() = default;
};

enum tagFlashQuality { FLASH_QUALITY_LOW = 0, FLASH_QUALITY_MEDIUM = 1, FLASH_QUALITY_HIGH = 2 };

// One movie control, hosted without a window and drawn into a bitmap of 32 bits a pixel with alpha. Takes
// "flash.ocx" beside the program, else the registered control; without either every operation does nothing
// and the log says so once. Used on the thread that made it. Copies are shallow: never destroy two.
class DRILL2D_API FlashPlayer : public FlashListener {
 public:
    FlashPlayer();
    FlashPlayer(const FlashPlayer& other) = default;
    FlashPlayer& operator=(const FlashPlayer& other) = default;
    virtual ~FlashPlayer();

    // Of the registered control, 10.0 for 10.0; 0 when there is none.
    static double GetFlashVersion();

    // Full path of the movie, size in pixels, window (may be null) whose format the bitmap takes. False: no
    // control, no such size, or the control refused to play.
    bool StartAnimation(const std::string& path, long width, long height, HWND hwnd);
    void SetQuality(tagFlashQuality q);

    // Makes the bitmap anew, in the size of the movie; frees it.
    void RebuildBuffer();
    void CleanupBuffer();
    // The player's own, null without a bitmap. Pixels are B, G, R, A, rows from the top, without padding;
    // colours are premultiplied.
    HDC GetFlashDC();
    HBITMAP GetFlashBitmap();
    void* GetFlashFrameBuffer();

    // Once a frame: looks whether the movie has ended. Always 1.
    int Update();
    // Draws if the movie has changed since it was drawn last. 1: there is a new frame.
    int Render();
    // Draws now, over white into hdc and over black into the bitmap; the alpha is right when hdc is
    // GetFlashDC. 0 on failure.
    int Render(HDC hdc);

    bool IsPlaying();
    // Pauses nest. A stopped movie is not started by Unpause.
    void Pause();
    void Unpause();
    void Play();
    void Stop();
    // These play on from where they go to.
    void Back();
    void Rewind();
    void Forward();
    void GotoFrame(int frame);
    // -1 without a control.
    int GetCurrentFrame();
    int GetTotalFrames();

    // Targets are paths of movie clips, "/" for the movie itself. Text is in the ANSI code page.
    std::string GetCurrentLabel(const std::string& target);
    void CallFrame(const std::string& target, int frame);
    void CallLabel(const std::string& target, const std::string& label);
    // Empty when there is none.
    std::string GetVariable(const std::string& name);
    void SetVariable(const std::string& name, const std::string& value);

    // 0xRRGGBB.
    long GetBackgroundColor();
    void SetBackgroundColor(long color);
    // 1 or 0.
    int GetLoopPlay();
    void SetLoopPlay(bool loop);

    // Pixels from the top left corner of the movie.
    void MouseMove(int x, int y);
    void MouseLButtonDown(int x, int y);
    void MouseLButtonUp(int x, int y);

 private:
    friend class CFlashSprite;
    friend class ControlSite;

    void ConnectControl();
    void ReleaseControl();
    void ReleaseSite();
    bool BeginPlaying(const std::string& path);
    void PlaceControl();
    bool DrawNewFrame();
    bool DrawTwice(HDC hdc);
    void FinishFrame(std::uint32_t* copy, std::size_t stride);
    void SendMouse(UINT message, WPARAM keys, int x, int y);

    int m_playState;
    HMODULE m_module;
    ControlSite* m_site;
    IShockwaveFlash* m_flash;
    IOleObject* m_oleObject;
    IOleInPlaceObjectWindowless* m_windowless;
    int m_siteCount;
    int m_pauseCount;
    int m_dirty;
    RECT m_rect;
    int m_width;
    int m_height;
    HWND m_hwnd;
    HDC m_memDC;
    HBITMAP m_bitmap;
    void* m_frameBits;
    unsigned char* m_whiteFrame;
    int m_frameMark;
};

// A movie as a sprite.
struct IFlashSprite {
    // Starts from the beginning after LoadFlash or Stop, else plays on.
    virtual void Play() = 0;
    // Gives the control and the texture back.
    virtual void Stop() = 0;
    // The movie, relative to the program's folder or with a drive, and its size in pixels. Stops what
    // plays. The file is opened by Play; one that is missing shows nothing. False for null.
    virtual bool LoadFlash(char* file, int width, int height) = 0;
    virtual bool IsPlaying() = 0;
    // On in a new sprite.
    virtual void SetLoopPlay(bool loop) = 0;
    // Screen pixels.
    virtual void SetAutoRenderPos(int x, int y) = 0;
    // Draws a playing sprite that is not auto-rendered; stops it when its movie has ended.
    virtual void Render(int x, int y) = 0;
    virtual ~IFlashSprite() {}
    virtual void Rewind() = 0;
    // Pauses nest. A paused sprite is not drawn; one that is auto-rendered is stopped by the next frame.
    virtual void Pause() = 0;
    virtual void Unpause() = 0;
    // Draws at the last position, whatever the state.
    virtual void Render() = 0;
    virtual bool IsAutoRender() = 0;
};

class DRILL2D_API CFlashSprite : public IFlashSprite {
 public:
    // hge is not owned and outlives the sprite. removeWhenDone: for sprites that the manager deletes.
    CFlashSprite(HGE* hge, bool removeWhenDone, bool autoRender);
    CFlashSprite(const CFlashSprite& other) = default;
    CFlashSprite& operator=(const CFlashSprite& other) = default;

    void Play() override;
    void Stop() override;
    bool LoadFlash(char* file, int width, int height) override;
    bool IsPlaying() override;
    void SetLoopPlay(bool loop) override;
    void SetAutoRenderPos(int x, int y) override;
    void Render(int x, int y) override;
    ~CFlashSprite() override;
    void Rewind() override;
    void Pause() override;
    void Unpause() override;
    void Render() override;
    bool IsAutoRender() override;

    // Brings the texture up to date; true when it has changed.
    bool BufferUpdate();
    // Stops when the movie has ended; true while it plays.
    bool StateUpdate();
    // z 0 (front) .. 1 (back); vertex 0..3 clockwise from the top left, -1 for all. Play sets it back after
    // Stop.
    void setZ(float z, int vertex);

 private:
    friend class FlashManager;

    void MakeTexture();

    FlashPlayer* m_player;
    hgeQuad m_quad;
    HGE* m_hge;
    int m_autoX;
    int m_autoY;
    int m_width;
    int m_height;
    int m_state;
    std::string m_file;
    bool m_removeWhenDone;
    bool m_autoRender;
    bool m_loop;
};

// Makes, draws and destroys flash sprites; the engine makes and destroys the one manager. Without a manager
// every call gives false or null or does nothing.
class DRILL2D_API FlashManager {
 public:
    // hge is not owned. False for null, or when there is one already.
    static bool CreatFlashManager(HGE* hge);
    static FlashManager* GetFlashManager();
    // Sprites of CreatFlashSprite are not deleted: destroy them first.
    static void DestroyFlashManager();

    // Once a frame, inside a scene: draws the auto-rendered sprites and drops the movies that have ended.
    static void Render();
    // Plays a movie once with its top left corner at (x, y), in pixels; it then vanishes by itself.
    static bool StartSingleFlash(char* file, int x, int y, int w, int h);
    // The caller's until DestroyFlashSprite. autoRender: drawn by the manager while it plays.
    static IFlashSprite* CreatFlashSprite(bool autoRender);
    // Sets the pointer to null. A sprite that is not the manager's is left alone.
    static void DestroyFlashSprite(IFlashSprite*& sprite);

 private:
    explicit FlashManager(HGE* hge);

    bool DrawOrStop(IFlashSprite* sprite);

    static FlashManager* m_instance;

    std::vector<IFlashSprite*> m_sprites;
    HGE* m_hge;
};
