#pragma once

#include <guiddef.h>

#include <string>

#include "drill2d/export.h"
#include "hgegui.h"

class CGameAnimation;
class CGameResourceManager;
class CGameSprite;
class GfxFont;
struct ILayOutInterFace;

// Bits of a control's state word.
enum ControlState {
    STATE_PRESSED = 0x1,    // button: left button held on it; window: being dragged
    STATE_HOVER = 0x4,      // the mouse is over the button or check box
    STATE_DISABLED = 0x10,  // by EnableWindow(false)
    STATE_CHECKED = 0x20    // check box
};

// What GetControlType gives.
enum ControlType { CONTROL_BUTTON = 1, CONTROL_WINDOW = 2, CONTROL_LABEL = 3, CONTROL_CHECKBOX = 6 };

enum NotifyCode {
    NOTIFY_LBUTTONDOWN = 0x1,  // button pressed; at most one in 500 ms over all buttons
    NOTIFY_MOUSEOVER = 0x4,    // button: the mouse entered (param 1) or left (param 0)
    NOTIFY_CHECKED = 0x20,     // check box became checked; unchecking is silent
    NOTIFY_DRAGMOVE = 0x40,    // button with SetDragCtl: the mouse moved with the left button down
    NOTIFY_CLICK = 0x100       // button: left button released inside it
};

// Where a button's caption goes, for SetTextAlign. A later one in this order wins.
enum TextAlign {
    ALIGN_LEFT = 0x1,
    ALIGN_RIGHT = 0x1000,
    ALIGN_TOP = 0x10,
    ALIGN_BOTTOM = 0x10000,
    ALIGN_CENTER = 0x100  // both ways, reckoning each byte 12 pixels wide
};

// How a label shows its text, for setformat. The first one set in this order wins.
enum LabelFormat {
    FORMAT_LEFTTOP = 0x1,
    FORMAT_CENTER = 0x100,
    FORMAT_ELLIPSIS = 0x4  // left top, shortened with dots to the label's width
};

const unsigned long CONTROL_INTERFACE_VERSION = 0x01010100;
const GUID IID_IControlOpera = {0x34282D25, 0x8065, 0x43FF, {0xA4, 0x98, 0xAA, 0x91, 0xC3, 0x7C, 0x9A, 0x80}};
const GUID IID_IUnknownEx = {0x92D87E91, 0x5A5B, 0x4A45, {0x8C, 0xFD, 0x38, 0x2F, 0xE6, 0xB3, 0x2B, 0x0B}};
const GUID IID_INotifyMsg = {0x5B587BCC, 0x5EA8, 0x40A0, {0x86, 0x46, 0xE4, 0x4C, 0x07, 0x37, 0x10, 0x3F}};

// One event of a control; lives for the call of OnNotify only.
struct ControlNotify {
    unsigned int kind;  // 1
    hgeGUIObject* sender;
    unsigned int time;  // GetTickCount, milliseconds
    int x, y;           // NOTIFY_DRAGMOVE: the mouse, pixels from the control's corner; else 0
    unsigned int reserved;
    unsigned int param;  // 1 for down, click, check and entering
    unsigned int code;   // NOTIFY_*
};

struct IUnknownEx {
    virtual bool IsValid() = 0;
    // Destroys the object: there is no reference count. True.
    virtual bool Release() = 0;
    // A view of the same object, null when it has none of this kind or version.
    virtual void* QueryInterface(const GUID& iid, unsigned long version) = 0;

 protected:
    ~IUnknownEx() {}
};

// What the host implements. QueryInterface must answer IID_INotifyMsg with the INotifyMsg*.
struct INotifyMsg : IUnknownEx {
    // Comes from inside the GUI's update. Do not destroy the sender in a NOTIFY_MOUSEOVER.
    virtual void OnNotify(ControlNotify* msg) = 0;

 protected:
    ~INotifyMsg() {}
};

// What every control can do. Positions and sizes are pixels.
struct IControlOpera : IUnknownEx {
    virtual unsigned int GetControlType() = 0;
    // Loads the image and takes its size; place the control afterwards. True also when the image itself could
    // not be had (the framework's log names it): the control is then empty.
    virtual bool LoadImageInfo(const char* file) = 0;
    virtual bool LoadImageInfo(CGameResourceManager* mgr, const char* name) = 0;
    // Relative to the layout. bSize false keeps the size and ignores w and h. A null layout moves nothing.
    virtual void MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) = 0;
    // On the screen.
    virtual void MoveWindow(float x, float y, float w, float h, bool bSize) = 0;
    // STATE_* bits; nothing is notified.
    virtual void SetState(int state) = 0;
    virtual int GetState() = 0;
    // A hidden or disabled control gets no mouse.
    virtual void ShowWindow(bool show) = 0;
    virtual void EnableWindow(bool enable) = 0;
    virtual bool IsWindowEnabled() = 0;
    virtual bool IsWindowVisible() = 0;
    // On the screen.
    virtual hgeRect GetRect() = 0;
    // Relative to the layout.
    virtual hgeRect GetClientRect() = 0;
    // The sink is asked for its INotifyMsg, which is not owned. False: it has none, or null (the old one
    // stays).
    virtual bool SetINotifyMsg(IUnknownEx* sink) = 0;

 protected:
    ~IControlOpera() {}
};

// Hides and shows a label or check box without forgetting what ShowWindow wanted last.
struct IControlMyselOperator : IUnknownEx {
    // What ShowWindow was last given.
    virtual bool GetWindowStoreVisable() = 0;
    // Shows or hides; the stored value stays.
    virtual void SetWindowStoreVisable(bool v) = 0;

 protected:
    ~IControlMyselOperator() {}
};

// Children that move, show and enable with their owner.
struct ILayOutInterFace {
    virtual unsigned long GetCount() = 0;
    // Not owned; the child's id in this layout is the count from then on. False only without memory.
    virtual bool AddControl(hgeGUIObject* control) = 0;
    // 0 is the newest. Null past the end.
    virtual hgeGUIObject* EnumControl(unsigned int index) = 0;
    // By id, not by position; the newest of several. False: no such id.
    virtual bool RemoveAt(unsigned int id) = 0;
    virtual void RemoveAll() = 0;
    // Relative to the owner, pixels; the children follow. bSize false keeps the size.
    virtual void MoveWindow(float x, float y, float w, float h, bool bSize) = 0;
    // Numbers the children anew, the newest 1.
    virtual void ReBuildZ() = 0;
    // False, always.
    virtual bool ShowWindow(bool show) = 0;
    virtual bool EnableWindow(bool enable) = 0;
    // {0, 0, width, height}.
    virtual hgeRect GetClientRect() = 0;
    // On the screen.
    virtual hgeRect GetRect() = 0;
    virtual ~ILayOutInterFace() {}
};

// A push button: an image strip of frames normal, pressed, hover, (unused), disabled, with a caption and an
// animation while the mouse is over it. Copies of a control are shallow: never destroy two.
class DRILL2D_API CGameButton : public hgeGUIObject, public IControlOpera {
 public:
    CGameButton();
    CGameButton(const CGameButton& other) = default;
    CGameButton& operator=(const CGameButton& other) = default;
    ~CGameButton() override;

    // Frames in the strip, 5 at first; for the next LoadImageInfo.
    virtual void SetFrame(int n);
    // The host's own value, 0 at first.
    virtual unsigned int getTag();
    virtual void setTag(unsigned int tag);

    void Render() override;
    void Update(float dt) override;
    void MouseOver(bool over) override;
    bool MouseMove(float x, float y) override;
    bool MouseLButton(bool down) override;
    bool KeyClick(int key, int chr) override;

    bool IsValid() override;
    bool Release() override;
    void* QueryInterface(const GUID& iid, unsigned long version) override;
    unsigned int GetControlType() override;
    bool LoadImageInfo(const char* file) override;
    bool LoadImageInfo(CGameResourceManager* mgr, const char* name) override;
    void MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) override;
    // Puts the caption at (x, y) too.
    void MoveWindow(float x, float y, float w, float h, bool bSize) override;
    void SetState(int state) override;
    int GetState() override;
    void ShowWindow(bool show) override;
    void EnableWindow(bool enable) override;
    bool IsWindowEnabled() override;
    bool IsWindowVisible() override;
    hgeRect GetRect() override;
    hgeRect GetClientRect() override;
    bool SetINotifyMsg(IUnknownEx* sink) override;

    // A strip inside a larger image; x is 0 or lies in the first frame: frames are w - x wide.
    bool LoadImageInfo(const char* file, int x, int y, int w, int h);
    // Not owned.
    void SetFont(GfxFont* font);
    // Makes a font that lives as long as the process.
    void SetFont(const char* face, int size, int bold, int italic, int antialias);
    void SetFontColor(unsigned long color);
    // ANSI code page, at most 255 bytes, the rest is cut. Placed by the rectangle of now.
    void SetCaption(const char* text);
    // ALIGN_* bits, for the next SetCaption.
    void SetTextAlign(int flags);
    // Screen pixels, until the next SetCaption or MoveWindow on the screen.
    void SetTextPos(int x, int y);
    // Send NOTIFY_DRAGMOVE.
    void SetDragCtl(bool drag);
    // False: the button ignores hover and clicks.
    void SetMouseThrough(bool reacts);
    // True: Render draws nothing, the host calls DrawManual.
    void SetManual(bool manual);
    void DrawManual();
    // As CGameAnimation::LoadAniImage; true also when the image could not be had.
    bool loadMouseAni(const char* file, int frames, int fps, int w, int h);

 private:
    void UpdateState();
    bool TakeStrip(CGameSprite* sprite);
    void DrawFrameAndCaption();
    bool Press();
    bool ReleaseButton();
    void SendParentMessage(HWND hwnd, unsigned int msg);

    bool m_storedVisible;
    CGameAnimation* m_pMouseAni;
    CGameSprite* m_pSprite;
    unsigned int m_reserved;
    unsigned short m_frameCount;
    bool m_pressedInside;
    unsigned int m_state;
    bool m_lbuttonDown;
    bool m_dragCtl;
    hgeRect m_clientRect;
    INotifyMsg* m_pNotify;
    GfxFont* m_pFont;
    char m_caption[256];
    float m_textX, m_textY;
    int m_textAlign;
    bool m_manual;
    bool m_mouseThrough;
    unsigned int m_tag;
    hgeRect m_srcRect;
};

// One line of text over an image. Takes no mouse and notifies nothing.
class DRILL2D_API CGameLable : public hgeGUIObject, public IControlOpera, public IControlMyselOperator {
 public:
    CGameLable();
    CGameLable(const CGameLable& other) = default;
    CGameLable& operator=(const CGameLable& other) = default;
    ~CGameLable() override;

    // Does nothing.
    virtual void SetFrame(int n);

    void Render() override;
    void Update(float dt) override;
    // The text's colour; needs a font.
    void SetColor(DWORD text_color) override;

    bool IsValid() override;
    bool Release() override;
    void* QueryInterface(const GUID& iid, unsigned long version) override;
    unsigned int GetControlType() override;
    bool LoadImageInfo(const char* file) override;
    bool LoadImageInfo(CGameResourceManager* mgr, const char* name) override;
    void MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) override;
    void MoveWindow(float x, float y, float w, float h, bool bSize) override;
    void SetState(int state) override;
    int GetState() override;
    void ShowWindow(bool show) override;
    void EnableWindow(bool enable) override;
    bool IsWindowEnabled() override;
    bool IsWindowVisible() override;
    hgeRect GetRect() override;
    hgeRect GetClientRect() override;
    bool SetINotifyMsg(IUnknownEx* sink) override;

    bool GetWindowStoreVisable() override;
    void SetWindowStoreVisable(bool v) override;

    // Makes a font that lives as long as the process. False: no memory, the old one stays.
    bool SetFont(const char* face, int size, bool bold, bool italic, bool antialias);
    // ANSI code page, at most 1023 bytes, the rest is cut. False for null, the old one stays.
    bool SetText(const char* text);
    // The full text; valid until the next SetText.
    const char* getText();
    // FORMAT_* bits; FORMAT_ELLIPSIS shortens at the next SetText or MoveWindow.
    void setformat(unsigned short flags);
    // Tints the image.
    void setbackgroundColor(unsigned long background_color);

 protected:
    std::wstring AnsiToUnicode(const char* text);
    void ajustTextMode();
    void Shorten();
    bool TakeImage(CGameSprite* sprite);
    bool HasArea() const;
    void RenderText();

    INotifyMsg* m_pNotify;
    hgeRect m_clientRect;
    CGameSprite* m_pSprite;
    unsigned int m_state;
    GfxFont* m_pFont;
    char m_text[1024];
    char m_showText[1024];
    unsigned short m_format;
    tagSIZE m_textSize;
    bool m_storedVisible;
};

// A label whose image is stretched over its rectangle.
class DRILL2D_API CGameLableEx : public CGameLable {
 public:
    void Render() override;
};

// An image strip of frames unchecked, unchecked with hover, checked, checked with hover; shows no text.
class DRILL2D_API CGameCheckBox : public CGameLable {
 public:
    CGameCheckBox();

    void Render() override;
    void MouseOver(bool over) override;
    bool MouseLButton(bool down) override;

    unsigned int GetControlType() override;
    bool LoadImageInfo(const char* file) override;
    bool LoadImageInfo(CGameResourceManager* mgr, const char* name) override;

    // Frames in the strip, 4 at first; for the next LoadImageInfo.
    void setFrame(int n);
    bool getCheck();
    // Null before LoadImageInfo; owned by the check box.
    CGameSprite* GetSprite();

 private:
    bool TakeStrip(CGameSprite* sprite);

    unsigned int m_frameCount;
};

// A panel that is dragged with the left button and carries a layout of children. Notifies nothing.
class DRILL2D_API CGameWindow : public hgeGUIObject, public IControlOpera {
 public:
    CGameWindow();
    CGameWindow(const CGameWindow& other) = default;
    CGameWindow& operator=(const CGameWindow& other) = default;
    ~CGameWindow() override;

    // Loads the image and gives the panel this size, pixels. True.
    virtual bool InitWindow(CGameResourceManager* mgr, const char* name, tagSIZE size);
    virtual bool InitWindow(const char* file, tagSIZE size);
    // Allows dragging; allowed at first.
    virtual void DragWindow(bool enable);

    void Render() override;
    void Update(float dt) override;
    void MouseOver(bool over) override;
    bool MouseLButton(bool down) override;
    bool MouseRButton(bool down) override;
    bool KeyClick(int key, int chr) override;

    bool IsValid() override;
    bool Release() override;
    void* QueryInterface(const GUID& iid, unsigned long version) override;
    unsigned int GetControlType() override;
    bool LoadImageInfo(const char* file) override;
    bool LoadImageInfo(CGameResourceManager* mgr, const char* name) override;
    void MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) override;
    void MoveWindow(float x, float y, float w, float h, bool bSize) override;
    void SetState(int state) override;
    int GetState() override;
    void ShowWindow(bool show) override;
    void EnableWindow(bool enable) override;
    bool IsWindowEnabled() override;
    bool IsWindowVisible() override;
    hgeRect GetRect() override;
    hgeRect GetClientRect() override;
    bool SetINotifyMsg(IUnknownEx* sink) override;

    // Not owned; null for none.
    void SetLayOut(ILayOutInterFace* layout);
    ILayOutInterFace* GetLayout();
    // Centres a window that stands at (0, 0); one that does not keeps its offset.
    void centerwindow();
    int GetWidth();
    int GetHeight();

 private:
    bool TakeImage(CGameSprite* sprite);
    bool GiveSize(tagSIZE size);
    void MoveLayout();

    INotifyMsg* m_pNotify;
    ILayOutInterFace* m_pLayout;
    unsigned int m_state;
    CGameSprite* m_pSprite;
    hgeRect m_imageRect;
    hgeRect m_clientRect;
    bool m_dragEnabled;
    float m_lastMouseX, m_lastMouseY;
};

// A layout's record of one child.
struct LayOutControl {
    hgeGUIObject* control;
    unsigned int id;
    LayOutControl* next;  // toward the oldest
    LayOutControl* prev;  // toward the newest
};

// Children are this library's controls; others are held but not moved. Copies share the nodes.
class DRILL2D_API CLayout : public ILayOutInterFace {
 public:
    // Not owned, not null; the layout starts with its rectangle.
    explicit CLayout(IControlOpera* owner);
    CLayout(const CLayout& other) = default;
    CLayout& operator=(const CLayout& other) = default;
    // Frees no nodes: call RemoveAll first.
    ~CLayout() override {}

    unsigned long GetCount() override;
    bool AddControl(hgeGUIObject* control) override;
    hgeGUIObject* EnumControl(unsigned int index) override;
    bool RemoveAt(unsigned int id) override;
    void RemoveAll() override;
    void MoveWindow(float x, float y, float w, float h, bool bSize) override;
    void ReBuildZ() override;
    bool ShowWindow(bool show) override;
    bool EnableWindow(bool enable) override;
    hgeRect GetClientRect() override;
    hgeRect GetRect() override;

    // The oldest child's node, null when empty.
    LayOutControl* GetTail();

 private:
    void MoveWindowEx();

    unsigned int m_count;
    LayOutControl* m_head;
    IControlOpera* m_pOwner;
    hgeRect m_clientRect;
    hgeRect m_rect;
};
