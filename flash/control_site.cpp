#include "flash/control_site.h"

#include <cstring>

#include "drill2d/flash.h"
#include "flash/shockwave_flash.h"

namespace {

bool IsPrimaryInterface(REFIID riid) {
    // No event reaches us: the events' identifier is answered because the control asks for it.
    return riid == IID_IUnknown || riid == IID_IOleWindow || riid == IID_IOleInPlaceSite ||
           riid == IID_IOleInPlaceSiteEx || riid == IID_IOleInPlaceSiteWindowless ||
           riid == DIID_IShockwaveFlashEvents;
}

}  // namespace

ControlSite::~ControlSite() {
    if (m_owner) --m_owner->m_siteCount;
}

STDMETHODIMP ControlSite::QueryInterface(REFIID riid, void** ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    if (IsPrimaryInterface(riid)) {
        *ppv = static_cast<IOleInPlaceSiteWindowless*>(this);
    } else if (riid == IID_IOleClientSite) {
        *ppv = static_cast<IOleClientSite*>(this);
    } else {
        // Not E_NOINTERFACE: the answer that hosts and controls of this kit know.
        return E_NOTIMPL;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ControlSite::AddRef() {
    return ++m_refCount;
}

STDMETHODIMP_(ULONG) ControlSite::Release() {
    ULONG left = --m_refCount;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP ControlSite::GetWindow(HWND*) {
    return E_FAIL;
}

STDMETHODIMP ControlSite::ContextSensitiveHelp(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::CanInPlaceActivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceActivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::OnUIActivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    // The site has no frame: asking it leaves null.
    if (frame) QueryInterface(IID_IOleInPlaceFrame, reinterpret_cast<void**>(frame));
    if (document) *document = nullptr;
    const RECT rect = m_owner ? m_owner->m_rect : RECT{};
    if (position) *position = rect;
    if (clip) *clip = rect;
    if (info) *info = OLEINPLACEFRAMEINFO{info->cb, FALSE, nullptr, nullptr, 0};
    return S_OK;
}

STDMETHODIMP ControlSite::Scroll(SIZE) {
    return S_OK;
}

STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::DiscardUndoState() {
    return S_OK;
}

STDMETHODIMP ControlSite::DeactivateAndUndo() {
    return S_OK;
}

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT) {
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL*, DWORD) {
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivateEx(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::RequestUIActivate() {
    return S_FALSE;
}

STDMETHODIMP ControlSite::CanWindowlessActivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::GetCapture() {
    return S_FALSE;
}

STDMETHODIMP ControlSite::SetCapture(BOOL) {
    return S_FALSE;
}

STDMETHODIMP ControlSite::GetFocus() {
    return S_OK;
}

STDMETHODIMP ControlSite::SetFocus(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::GetDC(LPCRECT, DWORD, HDC*) {
    return E_INVALIDARG;
}

STDMETHODIMP ControlSite::ReleaseDC(HDC) {
    return E_INVALIDARG;
}

STDMETHODIMP ControlSite::InvalidateRect(LPCRECT, BOOL) {
    MarkDirty();
    return S_OK;
}

STDMETHODIMP ControlSite::InvalidateRgn(HRGN, BOOL) {
    MarkDirty();
    return S_OK;
}

STDMETHODIMP ControlSite::ScrollRect(INT, INT, LPCRECT, LPCRECT) {
    return S_OK;
}

STDMETHODIMP ControlSite::AdjustRect(LPRECT rect) {
    return rect ? S_OK : E_INVALIDARG;
}

STDMETHODIMP ControlSite::OnDefWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) {
    return S_FALSE;
}

STDMETHODIMP ControlSite::SaveObject() {
    return S_OK;
}

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer**) {
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::ShowObject() {
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::OnShowWindow(BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::RequestNewObjectLayout() {
    return E_NOTIMPL;
}

void ControlSite::MarkDirty() {
    if (m_owner) m_owner->m_dirty = 1;
}
