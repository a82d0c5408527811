#pragma once

#include <map>
#include <string>
#include <vector>

#include "drill2d/export.h"
#include "hge.h"
#include "hgerect.h"

class hgeAnimation;
class hgeSprite;

// One image of a packet: the texture and the file's bytes it was decoded from.
struct resItem {
    HTEXTURE tex;  // 0 when the image could not be decoded
    BYTE* data;    // from Resource_Load
};

typedef std::map<std::string, resItem*> ResItemMap;

// Turns names into textures, by packet (GetImage) or by file (create_tex). Names go to HGE as they are and
// are compared byte by byte. A plain object or the singleton; copies share the packets' tables.
class DRILL2D_API CGameResourceManager {
 public:
    // Has no HGE until AttachHge; create_tex takes one by itself.
    static CGameResourceManager* getInstance();

    // Forgets the singleton: the next getInstance makes a new one.
    CGameResourceManager();
    // hge is not owned.
    explicit CGameResourceManager(HGE* hge);
    CGameResourceManager(const CGameResourceManager& other) = default;
    CGameResourceManager& operator=(const CGameResourceManager& other) = default;
    // Removes all packs; frees no texture: call FreePacketResource for each packet first.
    ~CGameResourceManager();

    // False for null, the old one stays.
    bool AttachHge(HGE* hge);
    // False for null only: a pack that could not be attached returns true and is not in IsExistsPacket.
    bool AttachPacket(const char* path);
    bool IsExistsPacket(std::string name);
    // An unknown name changes nothing.
    void SetCurPacket(std::string name);
    // Detaches the pack; its images live on until FreePacketResource.
    void RemovePacket(std::string name);
    // Frees every image loaded under the packet; sprites that show one then draw nothing.
    void FreePacketResource(std::string name);
    // The image of this name under any packet, else loaded into the current one. 0 when it cannot be had; a
    // failed decode is remembered. The manager owns the texture if an attached packet is current, else
    // nobody.
    HTEXTURE GetImage(const char* name);
    // Looks under the packet, then under all. Null when not loaded; owned by the manager.
    resItem* findData(std::string packet, std::string name);
    // Cached by file name and never freed. 0 on failure, which the next call tries again.
    HTEXTURE create_tex(std::string file);
    // 0 when it is not in the cache.
    HTEXTURE find_tex(std::string file);

 private:
    void ReleaseCache();
    HTEXTURE FindOrLoad(const char* name);

    static CGameResourceManager* m_instance;

    std::string m_curPacket;
    HGE* m_hge;
    std::map<std::string, HTEXTURE> m_texMap;
    std::map<std::string, ResItemMap*> m_packetMap;
    std::vector<std::string> m_packetList;
};

// One hgeSprite over a whole image. Load once per object: a second load leaks the first. Copies are shallow:
// never destroy two. Without an image, drawing and setting do nothing and the getters give 0, null or leave
// outputs alone.
class DRILL2D_API CGameSprite {
 public:
    CGameSprite();
    CGameSprite(CGameResourceManager* manager, const char* file, bool bOriginal);
    // Owns tex; tex2 goes into the quad for the loaded effect and stays the caller's.
    CGameSprite(HTEXTURE tex, HTEXTURE tex2);
    explicit CGameSprite(const char* file);
    CGameSprite(const CGameSprite& other) = default;
    CGameSprite& operator=(const CGameSprite& other) = default;
    ~CGameSprite();

    // bOriginal: as large as the source image, else as the created texture. The manager owns the texture.
    bool LoadImageA(const char* file, CGameResourceManager* manager, bool bOriginal);
    // The sprite owns the texture.
    bool LoadImageA(const char* file, bool bOriginal);
    // The singleton's cache owns the texture.
    bool load_tex(const char* file, bool bOriginal);

    // Pixels of the source image, or of the created texture.
    int GetWidth(bool bOriginal);
    int GetHeight(bool bOriginal);
    // Null when nothing is loaded; owned by this object.
    hgeSprite* GetSprite();

    // As the operations of hgeSprite.
    void Render(float x, float y);
    void RenderEx(float x, float y, float rot, float hscale, float vscale);
    void RenderStretch(float x1, float y1, float x2, float y2);
    void Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3);
    void SetTexture(HTEXTURE tex);
    void SetTextureRect(float x, float y, float w, float h, bool adjSize);
    void SetColor(DWORD col, int i);
    void SetZ(float z, int i);
    void SetBlendMode(int blend);
    void SetHotSpot(float x, float y);
    void SetFlip(bool bX, bool bY, bool bHotSpot);
    DWORD GetTexture();
    void GetTextureRect(float* x, float* y, float* w, float* h);
    DWORD GetColor(int i);
    float GetZ(int i);
    int GetBlendMode();
    void GetHotSpot(float* x, float* y);
    void GetFlip(bool* bX, bool* bY);
    hgeRect* GetBoundingBox(float x, float y, hgeRect* rect);
    hgeRect* GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale, hgeRect* rect);

 private:
    bool MakeSprite(HTEXTURE tex, bool bOriginal);
    void ReadSizes(HTEXTURE tex);

    HGE* m_hge;
    hgeSprite* m_sprite;
    HTEXTURE m_tex;
    int m_width;
    int m_height;
    int m_origWidth;
    int m_origHeight;
};

// A strip of frames out of one image of the singleton manager, which owns the texture. Copies are shallow:
// never destroy two. Without an image everything does nothing and gives 0.
class DRILL2D_API CGameAnimation {
 public:
    CGameAnimation();
    CGameAnimation(char* file, int frames, int fps, int w, int h);
    CGameAnimation(const CGameAnimation& other) = default;
    CGameAnimation& operator=(const CGameAnimation& other) = default;
    ~CGameAnimation();

    // Frames of w x h pixels; both 0: the image is one row of frames. False when the image cannot be had; an
    // animation loaded before is gone either way.
    bool LoadAniImage(char* file, int frames, int fps, int w, int h);
    // Through the texture cache. True also when the file did not load: nothing is drawn then.
    bool loadAniTex(char* file, int frames, int fps, int w, int h);

    void Play();
    void Stop();
    void Resume();
    bool IsPlaying();
    // Seconds.
    void Update(float dt);
    void Render(float x, float y);
    void RenderEx(float x, float y, float rot, float hscale, float vscale);
    void RenderStretch(float x1, float y1, float x2, float y2);
    void Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3);
    // HGEANIM_* bits.
    void SetMode(int mode);
    int GetMode();
    void SetFrames(int n);
    int GetFrames();
    void SetFrame(int n);
    int GetFrame();
    // Frames per second.
    void SetSpeed(float fps);
    float GetSpeed();
    // Pixels of one frame.
    int GetWidth();
    int GetHeight();
    void SetTexture(DWORD tex);
    DWORD GetTexture();
    void SetTextureRect(float x, float y, float w, float h);
    void SetColor(DWORD col, int i);
    DWORD GetColor();
    void SetZ(float z, int i);
    // Cut to a whole number.
    int GetZ();
    void SetBlendMode(int blend);
    int GetBlendMode();
    void SetHotSpot(float x, float y);
    void GetHotSpot(float* x, float* y);
    void SetFlip(bool bX, bool bY, bool bHotSpot);
    void GetFlip(bool* bX, bool* bY);
    hgeRect* GetBoundingBox(float x, float y, hgeRect* rect);
    hgeRect* GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale, hgeRect* rect);

 private:
    void Unload();
    bool MakeAnimation(HTEXTURE tex, int frames, int fps, int w, int h);

    unsigned long m_reserved;
    hgeAnimation* m_ani;
    HGE* m_hge;
};
