#pragma once

#include <xmmintrin.h>

#include "drill2d/controls.h"
#include "drill2d/resources.h"

// What all controls share.
namespace control {

// The framework for the length of a call; null when it cannot be had.
class HgeReference {
 public:
    HgeReference() : hge_(hgeCreate(HGE_VERSION)) {}
    HgeReference(const HgeReference&) = delete;
    HgeReference& operator=(const HgeReference&) = delete;
    ~HgeReference() {
        if (hge_) hge_->Release();
    }
    explicit operator bool() const { return hge_ != nullptr; }
    HGE* operator->() const { return hge_; }

 private:
    HGE* hge_;
};

struct Point {
    float x, y;
};

// Screen pixels.
Point MousePosition();

void InitObject(hgeGUIObject* object);
void* QueryInterface(IControlOpera* control, const GUID& iid, unsigned long version);
// False: sink is null (the old one stays) or takes no notifications.
bool ConnectSink(IUnknownEx* sink, INotifyMsg** connected);
// Does nothing without a sink. x and y are cut to whole pixels.
void Notify(INotifyMsg* sink, hgeGUIObject* sender, NotifyCode code, bool param, float x = 0, float y = 0);

void Show(hgeGUIObject* object, unsigned int state, bool show);
void Enable(hgeGUIObject* object, unsigned int* state, bool enable);

// layout is not null.
void MoveInLayout(hgeGUIObject* object, hgeRect* client, float x, float y, float w, float h,
                  ILayOutInterFace* layout, bool size);
void ResizeOnScreen(hgeGUIObject* object, hgeRect* client, float x, float y, float w, float h);
void MoveTo(hgeRect* rect, float x, float y);

// Owned by the caller, null only without memory; empty when the image cannot be had.
CGameSprite* LoadSprite(const char* file);
CGameSprite* LoadSprite(CGameResourceManager* mgr, const char* name);
// Null only without memory.
GfxFont* MakeFont(const char* face, int size, int bold, int italic, int antialias);
// Starts to bring what drawing will read into the cache, from Update: there the waits for one control pass
// while the next ones start theirs. Drawing would wait for each.
inline void Fetch(const void* data) {
    _mm_prefetch(static_cast<const char*>(data), _MM_HINT_T0);
}
void FetchSprite(CGameSprite* sprite);
// Source pixels; 0 without an image or without frames.
float FrameWidth(CGameSprite* sprite, unsigned int frames);

}  // namespace control
