#pragma once

#include <ocidl.h>

class FlashPlayer;

// COM interfaces have no virtual destructor: only Release deletes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// What the movie control sees of its container: an in-place site without a window. Its one effect is that
// every request to be redrawn marks the owner's frame as old.
class ControlSite : public IOleInPlaceSiteWindowless, public IOleClientSite {
 public:
    ControlSite() = default;
    ControlSite(const ControlSite&) = delete;
    ControlSite& operator=(const ControlSite&) = delete;

    STDMETHODIMP QueryInterface(REFIID riid, void** ppv) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE extent) override;
    STDMETHODIMP OnUIDeactivate(BOOL undoable) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override;
    STDMETHODIMP DeactivateAndUndo() override;
    STDMETHODIMP OnPosRectChange(LPCRECT position) override;
    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* no_redraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL no_redraw) override;
    STDMETHODIMP RequestUIActivate() override;
    // IOleInPlaceSiteWindowless
    STDMETHODIMP CanWindowlessActivate() override;
    STDMETHODIMP GetCapture() override;
    STDMETHODIMP SetCapture(BOOL capture) override;
    STDMETHODIMP GetFocus() override;
    STDMETHODIMP SetFocus(BOOL focus) override;
    STDMETHODIMP GetDC(LPCRECT rect, DWORD flags, HDC* dc) override;
    STDMETHODIMP ReleaseDC(HDC dc) override;
    STDMETHODIMP InvalidateRect(LPCRECT rect, BOOL erase) override;
    STDMETHODIMP InvalidateRgn(HRGN region, BOOL erase) override;
    STDMETHODIMP ScrollRect(INT dx, INT dy, LPCRECT scroll, LPCRECT clip) override;
    STDMETHODIMP AdjustRect(LPRECT rect) override;
    STDMETHODIMP OnDefWindowMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT* result) override;

    virtual ~ControlSite();

    // IOleClientSite
    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override;
    STDMETHODIMP OnShowWindow(BOOL show) override;
    STDMETHODIMP RequestNewObjectLayout() override;

    // Not owned. Null when the player goes before the control gives its last reference back.
    void SetOwner(FlashPlayer* owner) { m_owner = owner; }

 private:
    void MarkDirty();

    ULONG m_refCount = 0;
    FlashPlayer* m_owner = nullptr;
};

#pragma GCC diagnostic pop
