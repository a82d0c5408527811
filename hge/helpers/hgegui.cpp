#include "hgegui.h"

#include <xmmintrin.h>

#include <algorithm>
#include <utility>
#include <vector>

hgeGUIObject::hgeGUIObject()
    : id(0),
      bStatic(false),
      bVisible(true),
      bEnabled(true),
      color(0xFFFFFFFF),
      gui(nullptr),
      next(nullptr),
      prev(nullptr) {}

hgeGUIObject::hgeGUIObject(const hgeGUIObject& other) : gui(nullptr), next(nullptr), prev(nullptr) {
    *this = other;
}

hgeGUIObject& hgeGUIObject::operator=(const hgeGUIObject& other) {
    id = other.id;
    bStatic = other.bStatic;
    bVisible = other.bVisible;
    bEnabled = other.bEnabled;
    rect = other.rect;
    color = other.color;
    return *this;
}

hgeGUIObject::~hgeGUIObject() {
    if (gui) gui->Unlink(this);
}

// One call of a handler of every control. Handlers may change the list: who leaves it is skipped, who joins
// it is not called, and nobody is called twice.
class hgeGUI::Walk {
 public:
    explicit Walk(hgeGUI* owner) : gui_(owner), outer_(owner->walks), at_(0) {
        owner->LineUp();
        version_ = std::exchange(owner->row_version, 0);
        row_ = std::move(owner->row);
        owner->walks = this;
    }
    ~Walk() {
        gui_->walks = outer_;
        gui_->row = std::move(row_);
        gui_->row_version = version_;
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    // Null at the end.
    hgeGUIObject* Next() {
        Fetch();
        while (at_ < row_.size())
            if (hgeGUIObject* ctrl = row_[at_++]) return ctrl;
        return nullptr;
    }

    static void Forget(Walk* innermost, hgeGUIObject* ctrl) {
        for (Walk* walk = innermost; walk; walk = walk->outer_)
            std::replace(walk->row_.begin(), walk->row_.end(), ctrl, static_cast<hgeGUIObject*>(nullptr));
    }

 private:
    // Controls lie anywhere in memory: those that come next are on their way meanwhile.
    void Fetch() const {
        constexpr size_t kAhead = 8, kLine = 64;
        if (at_ + kAhead >= row_.size()) return;
        auto next = reinterpret_cast<const char*>(row_[at_ + kAhead]);
        _mm_prefetch(next, _MM_HINT_T0);
        _mm_prefetch(next + kLine, _MM_HINT_T0);
    }

    hgeGUI* gui_;
    Walk* outer_;
    std::vector<hgeGUIObject*> row_;
    unsigned version_;
    size_t at_;
};

hgeGUI::hgeGUI()
    : hge(hgeCreate(HGE_VERSION)),
      ctrls(nullptr),
      tail(nullptr),
      ctrlFocus(nullptr),
      ctrlOver(nullptr),
      ctrlLock(nullptr),
      ctrlEvent(nullptr),
      walks(nullptr),
      version(1),
      row_version(0),
      phase(kInUse),
      navmode(HGEGUI_NONAVKEYS),
      sprCursor(nullptr),
      mx(0),
      my(0),
      bMoved(false),
      bLPressed(false),
      bLReleased(false),
      bRPressed(false),
      bRReleased(false),
      bHeld(false),
      nWheel(0) {
    if (hge) hge->Input_GetMousePos(&mx, &my);
}

hgeGUI::~hgeGUI() {
    while (hgeGUIObject* ctrl = ctrls) {
        Unlink(ctrl);
        delete ctrl;
    }
    if (hge) hge->Release();
}

// ---- the list

void hgeGUI::AddCtrl(hgeGUIObject* ctrl) {
    if (!ctrl || ctrl->gui) return;
    ctrl->gui = this;
    Append(ctrl);
}

void hgeGUI::Append(hgeGUIObject* ctrl) {
    ++version;
    ctrl->next = nullptr;
    ctrl->prev = tail;
    (tail ? tail->next : ctrls) = ctrl;
    tail = ctrl;
}

void hgeGUI::Detach(hgeGUIObject* ctrl) {
    ++version;
    (ctrl->prev ? ctrl->prev->next : ctrls) = ctrl->next;
    (ctrl->next ? ctrl->next->prev : tail) = ctrl->prev;
    ctrl->next = ctrl->prev = nullptr;
}

// Every frame goes over the list three times; an array lets it look ahead.
void hgeGUI::LineUp() {
    if (row_version == version) return;
    row_version = 0;
    row.clear();
    for (hgeGUIObject* ctrl = ctrls; ctrl; ctrl = ctrl->next)
        row.push_back(ctrl);
    row_version = version;
}

void hgeGUI::DelCtrl(int id) {
    if (hgeGUIObject* ctrl = GetCtrl(id)) Unlink(ctrl);
}

void hgeGUI::Unlink(hgeGUIObject* ctrl) {
    Detach(ctrl);
    ctrl->gui = nullptr;
    for (hgeGUIObject** target : {&ctrlFocus, &ctrlOver, &ctrlLock, &ctrlEvent})
        if (*target == ctrl) *target = nullptr;
    Walk::Forget(walks, ctrl);
}

hgeGUIObject* hgeGUI::GetCtrl(int id) const {
    hgeGUIObject* ctrl = ctrls;
    while (ctrl && ctrl->id != id)
        ctrl = ctrl->next;
    return ctrl;
}

void hgeGUI::MoveToTail(int id) {
    hgeGUIObject* ctrl = GetCtrl(id);
    if (!ctrl || ctrl == tail) return;
    Detach(ctrl);
    Append(ctrl);
}

void hgeGUI::MoveCtrl(int id, float x, float y) {
    hgeGUIObject* ctrl = GetCtrl(id);
    if (!ctrl) return;
    const hgeRect& r = ctrl->rect;
    ctrl->rect.Set(x, y, x + (r.x2 - r.x1), y + (r.y2 - r.y1));
}

void hgeGUI::ShowCtrl(int id, bool bVisible) {
    if (hgeGUIObject* ctrl = GetCtrl(id)) ctrl->bVisible = bVisible;
}

void hgeGUI::EnableCtrl(int id, bool bEnabled) {
    if (hgeGUIObject* ctrl = GetCtrl(id)) ctrl->bEnabled = bEnabled;
}

void hgeGUI::Move(float dx, float dy) {
    for (hgeGUIObject* ctrl = ctrls; ctrl; ctrl = ctrl->next) {
        const hgeRect& r = ctrl->rect;
        ctrl->rect.Set(r.x1 + dx, r.y1 + dy, r.x2 + dx, r.y2 + dy);
    }
}

void hgeGUI::SetColor(DWORD color) {
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        ctrl->SetColor(color);
}

// ---- entering and leaving

void hgeGUI::Enter() {
    phase = kEntering;
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        ctrl->Enter();
}

void hgeGUI::Leave() {
    phase = kLeaving;
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        ctrl->Leave();
    ForgetTargets();
}

void hgeGUI::Reset() {
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        ctrl->Reset();
    ForgetTargets();
}

void hgeGUI::ForgetTargets() {
    ctrlFocus = ctrlOver = ctrlLock = nullptr;
}

bool hgeGUI::EveryoneIsDone() {
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        if (!ctrl->IsDone()) return false;
    return true;
}

// ---- focus

static bool TakesFocus(const hgeGUIObject* ctrl) {
    return !ctrl->bStatic && ctrl->bVisible && ctrl->bEnabled;
}

void hgeGUI::SetFocus(int id) {
    hgeGUIObject* ctrl = GetCtrl(id);
    if (!ctrl || TakesFocus(ctrl)) MoveFocus(ctrl);
}

int hgeGUI::GetFocus() const {
    return ctrlFocus ? ctrlFocus->id : 0;
}

// The handler of the one that loses may take the other out of the list or move the focus on; then the
// field says so.
void hgeGUI::MoveFocus(hgeGUIObject* ctrl) {
    if (ctrl == ctrlFocus) return;
    hgeGUIObject* old = ctrlFocus;
    ctrlFocus = ctrl;
    if (old) old->Focus(false);
    if (ctrl && ctrlFocus == ctrl) ctrl->Focus(true);
}

void hgeGUI::MoveOver(hgeGUIObject* ctrl) {
    if (ctrl == ctrlOver) return;
    hgeGUIObject* old = ctrlOver;
    ctrlOver = ctrl;
    if (old) old->MouseOver(false);
    if (ctrl && ctrlOver == ctrl) ctrl->MouseOver(true);
}

// ---- a frame

int hgeGUI::Update(float dt) {
    if (!hge) return 0;
    ReadMouse();
    {
        Walk walk(this);
        while (hgeGUIObject* ctrl = walk.Next())
            ctrl->Update(dt);
    }
    if (phase != kInUse) {
        if (!EveryoneIsDone()) return 0;
        if (phase == kLeaving) return -1;
        phase = kInUse;
    }
    const int id = SendKey();
    return id ? id : SendMouse();
}

void hgeGUI::ReadMouse() {
    const float old_x = mx, old_y = my;
    hge->Input_GetMousePos(&mx, &my);
    bMoved = mx != old_x || my != old_y;
    bLPressed = hge->Input_KeyDown(HGEK_LBUTTON);
    bLReleased = hge->Input_KeyUp(HGEK_LBUTTON);
    bRPressed = hge->Input_KeyDown(HGEK_RBUTTON);
    bRReleased = hge->Input_KeyUp(HGEK_RBUTTON);
    bHeld = hge->Input_GetKeyState(HGEK_LBUTTON) || hge->Input_GetKeyState(HGEK_RBUTTON);
    nWheel = hge->Input_GetMouseWheel();
}

int hgeGUI::SendKey() {
    const int key = hge->Input_GetKey();
    if (key == 0 || key == HGEK_LBUTTON || key == HGEK_RBUTTON || key == HGEK_MBUTTON) return 0;
    if (Navigate(key) || !ctrlFocus) return 0;
    const int id = ctrlFocus->id;
    return ctrlFocus->KeyClick(key, hge->Input_GetChar()) ? id : 0;
}

// True when the key is one of those that move the focus.
bool hgeGUI::Navigate(int key) {
    const bool back =
        ((navmode & HGEGUI_LEFTRIGHT) && key == HGEK_LEFT) || ((navmode & HGEGUI_UPDOWN) && key == HGEK_UP);
    const bool forward = ((navmode & HGEGUI_LEFTRIGHT) && key == HGEK_RIGHT) ||
                         ((navmode & HGEGUI_UPDOWN) && key == HGEK_DOWN);
    if (!back && !forward) return false;
    if (hgeGUIObject* ctrl = FocusTarget(forward)) MoveFocus(ctrl);
    return true;
}

// The nearest control from the focused one that takes the focus; null when there is none.
hgeGUIObject* hgeGUI::FocusTarget(bool forward) const {
    const auto after = [forward](hgeGUIObject* ctrl) { return forward ? ctrl->next : ctrl->prev; };
    hgeGUIObject* const end = forward ? ctrls : tail;
    hgeGUIObject* ctrl = ctrlFocus ? after(ctrlFocus) : end;
    while (ctrl && !TakesFocus(ctrl))
        ctrl = after(ctrl);
    if (ctrl || !ctrlFocus || !(navmode & HGEGUI_CYCLED)) return ctrl;
    for (ctrl = end; ctrl != ctrlFocus && !TakesFocus(ctrl);)
        ctrl = after(ctrl);
    return ctrl;
}

hgeGUIObject* hgeGUI::TopmostAtMouse() {
    LineUp();
    auto found = std::find_if(row.rbegin(), row.rend(), [this](hgeGUIObject* ctrl) {
        return ctrl->bEnabled && ctrl->rect.TestPoint(mx, my);
    });
    return found == row.rend() ? nullptr : *found;
}

int hgeGUI::SendMouse() {
    if (!ctrlLock) MoveOver(TopmostAtMouse());
    ctrlEvent = ctrlLock ? ctrlLock : ctrlOver;
    if (!ctrlEvent) return 0;
    const int id = ctrlEvent->id;
    bool acted = SendButtons();
    if (bMoved && ctrlEvent) acted |= ctrlEvent->MouseMove(mx - ctrlEvent->rect.x1, my - ctrlEvent->rect.y1);
    ctrlEvent = nullptr;
    if (!bHeld) ctrlLock = nullptr;
    return acted ? id : 0;
}

// Every handler may take the control out of the list; then the rest is not sent.
bool hgeGUI::SendButtons() {
    bool acted = false;
    if (bLPressed) Grab();
    if (bLPressed && ctrlEvent) acted |= ctrlEvent->MouseLButton(true);
    if (bRPressed) Grab();
    if (bRPressed && ctrlEvent) acted |= ctrlEvent->MouseRButton(true);
    if (nWheel && ctrlEvent) acted |= ctrlEvent->MouseWheel(nWheel);
    if (bLReleased && ctrlEvent) acted |= ctrlEvent->MouseLButton(false);
    if (bRReleased && ctrlEvent) acted |= ctrlEvent->MouseRButton(false);
    return acted;
}

void hgeGUI::Grab() {
    if (!ctrlEvent) return;
    ctrlLock = ctrlEvent;
    if (TakesFocus(ctrlEvent)) MoveFocus(ctrlEvent);
}

void hgeGUI::Render() {
    Walk walk(this);
    while (hgeGUIObject* ctrl = walk.Next())
        if (ctrl->bVisible) ctrl->Render();
    if (!hge || !sprCursor || !hge->Input_IsMouseOver()) return;
    float x = mx, y = my;
    hge->Input_GetMousePos(&x, &y);
    sprCursor->Render(x, y);
}
