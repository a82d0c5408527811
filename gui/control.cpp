#include "gui/control.h"

#include <cstddef>
#include <new>

#include "drill2d/font.h"
#include "engine/safely.h"

static_assert(sizeof(void*) != 4 || sizeof(ControlNotify) == 32, "eight 32-bit fields");
static_assert(sizeof(void*) != 4 ||
                  (offsetof(ControlNotify, sender) == 4 && offsetof(ControlNotify, x) == 12 &&
                   offsetof(ControlNotify, param) == 24 && offsetof(ControlNotify, code) == 28),
              "the record's order");
// Layouts and hosts reach the interface directly behind the framework's part.
static_assert(sizeof(void*) != 4 || (sizeof(hgeGUIObject) == 48 && sizeof(IControlOpera) == 4 &&
                                     sizeof(IControlMyselOperator) == 4),
              "the parts of a control");

namespace control {
namespace {

// The second byte must be the major version, the third may be older; the last does not matter.
bool IsAcceptedVersion(unsigned long version) {
    unsigned long major = version >> 24;
    return major == 1 && (version >> 16 & 0xFF) == major && (version >> 8 & 0xFF) <= major;
}

}  // namespace

Point MousePosition() {
    Point mouse = {0, 0};
    HgeReference hge;
    if (hge) hge->Input_GetMousePos(&mouse.x, &mouse.y);
    return mouse;
}

void InitObject(hgeGUIObject* object) {
    object->id = 0;
    object->bStatic = false;
    object->bVisible = true;
    object->bEnabled = true;
    object->rect = hgeRect();
    object->color = 0xFFFFFFFF;
    object->gui = nullptr;
    object->next = nullptr;
    object->prev = nullptr;
}

void* QueryInterface(IControlOpera* control, const GUID& iid, unsigned long version) {
    bool known = IsEqualGUID(iid, IID_IControlOpera) || IsEqualGUID(iid, IID_IUnknownEx);
    return known && IsAcceptedVersion(version) ? control : nullptr;
}

bool ConnectSink(IUnknownEx* sink, INotifyMsg** connected) {
    if (!sink) return false;
    *connected = static_cast<INotifyMsg*>(sink->QueryInterface(IID_INotifyMsg, CONTROL_INTERFACE_VERSION));
    return *connected != nullptr;
}

void Notify(INotifyMsg* sink, hgeGUIObject* sender, NotifyCode code, bool param, float x, float y) {
    if (!sink) return;
    ControlNotify record = {};
    record.kind = 1;
    record.sender = sender;
    record.time = GetTickCount();
    record.x = static_cast<int>(x);
    record.y = static_cast<int>(y);
    record.param = param;
    record.code = code;
    sink->OnNotify(&record);
}

void Show(hgeGUIObject* object, unsigned int state, bool show) {
    object->bVisible = show;
    object->bEnabled = show && !(state & STATE_DISABLED);
}

void Enable(hgeGUIObject* object, unsigned int* state, bool enable) {
    *state = enable ? *state & ~STATE_DISABLED : *state | STATE_DISABLED;
    Show(object, *state, object->bVisible);
}

void MoveInLayout(hgeGUIObject* object, hgeRect* client, float x, float y, float w, float h,
                  ILayOutInterFace* layout, bool size) {
    hgeRect parent = layout->GetRect();
    if (!size) {
        w = client->x2 - client->x1;
        h = client->y2 - client->y1;
    }
    client->Set(x, y, x + w, y + h);
    object->rect.Set(parent.x1 + x, parent.y1 + y, parent.x1 + x + w, parent.y1 + y + h);
}

void ResizeOnScreen(hgeGUIObject* object, hgeRect* client, float x, float y, float w, float h) {
    client->Set(client->x1, client->y1, client->x1 + w, client->y1 + h);
    object->rect.Set(x, y, x + w, y + h);
}

void MoveTo(hgeRect* rect, float x, float y) {
    rect->Set(x, y, x + (rect->x2 - rect->x1), y + (rect->y2 - rect->y1));
}

CGameSprite* LoadSprite(const char* file) {
    CGameSprite* sprite = new (std::nothrow) CGameSprite;
    if (!sprite) ReportTrouble("LoadImageInfo");
    if (sprite) sprite->LoadImageA(file, true);
    return sprite;
}

CGameSprite* LoadSprite(CGameResourceManager* mgr, const char* name) {
    CGameSprite* sprite = new (std::nothrow) CGameSprite;
    if (!sprite) ReportTrouble("LoadImageInfo");
    if (sprite) sprite->LoadImageA(name, mgr, true);
    return sprite;
}

GfxFont* MakeFont(const char* face, int size, int bold, int italic, int antialias) {
    GfxFont* font = new (std::nothrow) GfxFont(face, size, bold, italic, antialias);
    if (!font) ReportTrouble("SetFont");
    return font;
}

void FetchSprite(CGameSprite* sprite) {
    constexpr size_t kLine = 64;
    auto data = reinterpret_cast<const char*>(sprite ? sprite->GetSprite() : nullptr);
    if (!data) return;
    for (size_t at = 0; at < sizeof(hgeSprite); at += kLine)
        Fetch(data + at);
}

float FrameWidth(CGameSprite* sprite, unsigned int frames) {
    return frames ? static_cast<float>(sprite->GetWidth(true) / static_cast<int>(frames)) : 0.0f;
}

}  // namespace control
