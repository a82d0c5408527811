#pragma once

#include <vector>

#include "hge.h"
#include "hgerect.h"
#include "hgesprite.h"

#define HGEGUI_NONAVKEYS 0
#define HGEGUI_LEFTRIGHT 1  // left and right keys move the focus
#define HGEGUI_UPDOWN 2     // up and down keys move the focus
#define HGEGUI_CYCLED 4     // from the last control to the first and back

class hgeGUI;

// A control. The mouse and key handlers return true to make hgeGUI::Update return this control's id.
// Any handler may add, remove or delete controls, its own included.
class hgeGUIObject {
 public:
    hgeGUIObject();
    // A copy is in no list.
    hgeGUIObject(const hgeGUIObject& other);
    hgeGUIObject& operator=(const hgeGUIObject& other);
    // Leaves the list by itself.
    virtual ~hgeGUIObject();

    virtual void Render() = 0;
    // Seconds since the last frame.
    virtual void Update(float /*dt*/) {}

    virtual void Enter() {}
    virtual void Leave() {}
    virtual void Reset() {}
    // False while an entering or leaving effect runs.
    virtual bool IsDone() { return true; }
    virtual void Focus(bool /*bFocused*/) {}
    virtual void MouseOver(bool /*bOver*/) {}

    // Relative to the control's corner, pixels.
    virtual bool MouseMove(float /*x*/, float /*y*/) { return false; }
    virtual bool MouseLButton(bool /*bDown*/) { return false; }
    virtual bool MouseRButton(bool /*bDown*/) { return false; }
    virtual bool MouseWheel(int /*nNotches*/) { return false; }
    virtual bool KeyClick(int /*key*/, int /*chr*/) { return false; }

    virtual void SetColor(DWORD _color) { color = _color; }

    int id;
    bool bStatic;   // takes no focus
    bool bVisible;  // is drawn; a hidden control takes no focus
    bool bEnabled;  // takes the mouse and the focus
    hgeRect rect;   // screen pixels
    DWORD color;

    hgeGUI* gui;  // the owner while in its list, else null
    hgeGUIObject* next;
    hgeGUIObject* prev;
};

// A list of controls, drawn first to last, searched for the mouse last to first.
class hgeGUI {
 public:
    hgeGUI();
    // Deletes the controls still in the list.
    ~hgeGUI();

    // Appends and takes ownership. A control that is null or already in a list is ignored.
    void AddCtrl(hgeGUIObject* ctrl);
    // Unlinks only: the control goes back to the caller. Its handlers are not called any more.
    void DelCtrl(int id);
    // Null when there is none.
    hgeGUIObject* GetCtrl(int id) const;

    // Screen pixels; the size stays.
    void MoveCtrl(int id, float x, float y);
    // The mouse still reaches a hidden control that is enabled.
    void ShowCtrl(int id, bool bVisible);
    void EnableCtrl(int id, bool bEnabled);
    // To the end of the list: drawn on top, first to get the mouse.
    void MoveToTail(int id);

    // HGEGUI_* bits.
    void SetNavMode(int mode) { navmode = mode; }
    // Drawn at the mouse by Render; not owned; null for none.
    void SetCursor(hgeSprite* spr) { sprCursor = spr; }
    void SetColor(DWORD color);
    // An unknown id clears the focus; a static, hidden or disabled control does not take it.
    void SetFocus(int id);
    // 0 for none.
    int GetFocus() const;

    void Enter();
    // Forgets focus, mouse-over and mouse lock; so does Reset.
    void Leave();
    void Reset();
    void Move(float dx, float dy);

    // Seconds. Returns the id of the control that acted, 0 for none, -1 when leaving has finished.
    int Update(float dt);
    void Render();

 private:
    friend class hgeGUIObject;
    class Walk;
    enum Phase { kInUse, kEntering, kLeaving };

    hgeGUI(const hgeGUI&);
    hgeGUI& operator=(const hgeGUI&);

    void Append(hgeGUIObject* ctrl);
    void Detach(hgeGUIObject* ctrl);
    void Unlink(hgeGUIObject* ctrl);
    void LineUp();
    void ForgetTargets();
    void ReadMouse();
    bool EveryoneIsDone();
    void MoveFocus(hgeGUIObject* ctrl);
    void MoveOver(hgeGUIObject* ctrl);
    bool Navigate(int key);
    hgeGUIObject* FocusTarget(bool forward) const;
    hgeGUIObject* TopmostAtMouse();
    int SendKey();
    int SendMouse();
    bool SendButtons();
    void Grab();

    HGE* hge;
    hgeGUIObject* ctrls;  // head of the list
    hgeGUIObject* tail;
    hgeGUIObject* ctrlFocus;
    hgeGUIObject* ctrlOver;
    hgeGUIObject* ctrlLock;          // gets the mouse alone while a button is held
    hgeGUIObject* ctrlEvent;         // gets this frame's mouse events
    Walk* walks;                     // under way, innermost first
    unsigned version;                // of the list; changes with it
    std::vector<hgeGUIObject*> row;  // the list as an array, and its version then; walks take it along
    unsigned row_version;
    Phase phase;
    int navmode;
    hgeSprite* sprCursor;
    float mx, my;
    bool bMoved, bLPressed, bLReleased, bRPressed, bRReleased, bHeld;
    int nWheel;
};
