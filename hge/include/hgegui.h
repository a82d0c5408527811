#pragma once

#include "hge.h"
#include "hgerect.h"
#include "hgesprite.h"

#define HGEGUI_NONAVKEYS 0
#define HGEGUI_LEFTRIGHT 1
#define HGEGUI_UPDOWN 2
#define HGEGUI_CYCLED 4

class hgeGUI;

// A control. The handlers return true to make hgeGUI::Update return this control's id.
class hgeGUIObject {
 public:
    hgeGUIObject();
    virtual ~hgeGUIObject() {}

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
    bool bStatic;  // takes neither mouse nor focus
    bool bVisible;
    bool bEnabled;
    hgeRect rect;  // screen pixels
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
    // Unlinks only: the control goes back to the caller.
    void DelCtrl(int id);
    // Null when there is none.
    hgeGUIObject* GetCtrl(int id) const;

    void MoveCtrl(int id, float x, float y);
    void ShowCtrl(int id, bool bVisible);
    void EnableCtrl(int id, bool bEnabled);
    // To the end of the list: drawn on top, first to get the mouse.
    void MoveToTail(int id);

    // HGEGUI_* bits.
    void SetNavMode(int mode);
    // Drawn at the mouse by Render; not owned; null for none.
    void SetCursor(hgeSprite* spr);
    void SetColor(DWORD color);
    // An unknown id clears the focus; a static, hidden or disabled control does not take it.
    void SetFocus(int id);
    // 0 for none.
    int GetFocus() const;

    void Enter();
    void Leave();
    void Reset();
    void Move(float dx, float dy);

    // Seconds. Returns the id of the control that acted, 0 for none, -1 when leaving has finished.
    int Update(float dt);
    void Render();

 private:
    hgeGUI(const hgeGUI&);
    hgeGUI& operator=(const hgeGUI&);

    struct Impl;
    HGE* hge;
    hgeGUIObject* ctrls;  // head of the list
    hgeGUIObject* tail;
    Impl* impl;
};
