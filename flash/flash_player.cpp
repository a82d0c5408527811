#include "drill2d/flash.h"

#include <ocidl.h>

#include <cstdint>
#include <new>

#include "engine/live_objects.h"
#include "engine/safely.h"
#include "flash/bstr.h"
#include "flash/com_ref.h"
#include "flash/control_loader.h"
#include "flash/control_site.h"
#include "flash/frame_pixels.h"
#include "flash/play_state.h"
#include "flash/shockwave_flash.h"

using flash::Bstr;
using flash::ComRef;
using flash::Query;

void FlashListener::FlashAnimEnded() {}

void FlashListener::FlashCommand(const std::string& /*command*/, const std::string& /*args*/) {}

FlashPlayer::FlashPlayer()
    : m_playState(kPaused),
      m_module(nullptr),
      m_site(nullptr),
      m_flash(nullptr),
      m_oleObject(nullptr),
      m_windowless(nullptr),
      m_siteCount(0),
      m_pauseCount(0),
      m_dirty(1),
      m_rect(),
      m_width(0),
      m_height(0),
      m_hwnd(nullptr),
      m_memDC(nullptr),
      m_bitmap(nullptr),
      m_frameBits(nullptr),
      m_whiteFrame(nullptr),
      m_frameMark(0) {
    // Never balanced: the host's thread may hold objects of the apartment longer than the player lives.
    CoInitialize(nullptr);
    live::Born(live::kFlashPlayer);
    m_site = new (std::nothrow) ControlSite;
    if (!m_site) {
        ReportTrouble("FlashPlayer");
        return;
    }
    m_site->AddRef();
    m_site->SetOwner(this);
    ++m_siteCount;
    m_oleObject = flash::CreateMovieControl(&m_module);
    if (m_oleObject) ConnectControl();
}

FlashPlayer::~FlashPlayer() {
    live::Gone(live::kFlashPlayer);
    CleanupBuffer();
    ReleaseControl();
    ReleaseSite();
    if (m_module) FreeLibrary(m_module);
}

void FlashPlayer::ConnectControl() {
    ComRef<IOleClientSite> site = Query<IOleClientSite>(m_site, IID_IOleClientSite);
    m_oleObject->SetClientSite(site.get());
    m_flash = Query<IShockwaveFlash>(m_oleObject, IID_IShockwaveFlash).release();
    if (m_flash) m_flash->put_WMode(Bstr("Transparent").Get());
    m_oleObject->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.get(), 0, nullptr, nullptr);
    m_windowless = Query<IOleInPlaceObjectWindowless>(m_oleObject, IID_IOleInPlaceObjectWindowless).release();
}

void FlashPlayer::ReleaseControl() {
    flash::ReleaseAndClear(m_windowless);
    flash::ReleaseAndClear(m_flash);
    if (m_oleObject) m_oleObject->Close(OLECLOSE_NOSAVE);
    flash::ReleaseAndClear(m_oleObject);
}

void FlashPlayer::ReleaseSite() {
    if (!m_site) return;
    // A control may keep its site for longer than it should: the site must not call a dead player.
    if (m_site->Release() != 0) m_site->SetOwner(nullptr);
    m_site = nullptr;
}

double FlashPlayer::GetFlashVersion() {
    CoInitialize(nullptr);
    void* found = nullptr;
    HRESULT hr =
        CoCreateInstance(CLSID_ShockwaveFlash, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, &found);
    if (FAILED(hr)) return 0.0;
    ComRef<IOleObject> control(static_cast<IOleObject*>(found));
    ComRef<IShockwaveFlash> movie = Query<IShockwaveFlash>(control.get(), IID_IShockwaveFlash);
    if (!movie) return 0.0;
    long version = 0;
    movie->FlashVersion(&version);
    // Major and minor number, 16 bits each.
    return version / 65536.0;
}

bool FlashPlayer::StartAnimation(const std::string& path, long width, long height, HWND hwnd) {
    if (!m_flash) return false;
    if (width <= 0 || height <= 0) {
        flash::Log("%s: a movie of %ld x %ld pixels cannot be shown", path.c_str(), width, height);
        return false;
    }
    m_hwnd = hwnd;
    if (!BeginPlaying(path)) return false;

    m_width = width;
    m_height = height;
    m_rect = RECT{0, 0, width, height};
    RebuildBuffer();
    PlaceControl();
    m_playState = kPlaying;
    m_frameMark = -1;
    if (m_frameBits) return true;
    flash::Log("%s: no memory for a movie of %ld x %ld pixels", path.c_str(), width, height);
    return false;
}

bool FlashPlayer::BeginPlaying(const std::string& path) {
    m_flash->put_Movie(Bstr(path).Get());
    if (m_pauseCount != 0) return true;
    HRESULT hr = m_flash->Play();
    if (hr == S_OK) return true;
    flash::Log("%s: the movie control refuses to play it (0x%08lX)", path.c_str(), hr);
    return false;
}

void FlashPlayer::PlaceControl() {
    ComRef<IOleInPlaceObject> placed = Query<IOleInPlaceObject>(m_oleObject, IID_IOleInPlaceObject);
    if (placed) placed->SetObjectRects(&m_rect, &m_rect);
}

void FlashPlayer::SetQuality(tagFlashQuality q) {
    static const char* const kNames[] = {"Low", "Medium", "High"};
    if (m_flash && q >= FLASH_QUALITY_LOW && q <= FLASH_QUALITY_HIGH)
        m_flash->put_Quality2(Bstr(kNames[q]).Get());
}

void FlashPlayer::RebuildBuffer() {
    CleanupBuffer();
    HDC window_dc = GetDC(m_hwnd);
    m_memDC = CreateCompatibleDC(window_dc);
    ReleaseDC(m_hwnd, window_dc);

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info;
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    m_bitmap = CreateDIBSection(m_memDC, &info, DIB_RGB_COLORS, &m_frameBits, nullptr, 0);
    if (m_bitmap) m_whiteFrame = new (std::nothrow) unsigned char[size_t{4} * m_width * m_height];
    if (!m_whiteFrame) {
        CleanupBuffer();
        return;
    }
    SelectObject(m_memDC, m_bitmap);
    SetMapMode(m_memDC, MM_TEXT);
    SetBkColor(m_memDC, RGB(255, 255, 255));
    SetBkMode(m_memDC, TRANSPARENT);
}

void FlashPlayer::CleanupBuffer() {
    // The context first: a bitmap that is selected into one cannot be deleted.
    if (m_memDC) DeleteDC(m_memDC);
    if (m_bitmap) DeleteObject(m_bitmap);
    delete[] m_whiteFrame;
    m_memDC = nullptr;
    m_bitmap = nullptr;
    m_frameBits = nullptr;
    m_whiteFrame = nullptr;
}

HDC FlashPlayer::GetFlashDC() {
    return m_memDC;
}

HBITMAP FlashPlayer::GetFlashBitmap() {
    return m_bitmap;
}

void* FlashPlayer::GetFlashFrameBuffer() {
    return m_frameBits;
}

int FlashPlayer::Update() {
    if (m_playState != kPlaying || IsPlaying()) return 1;
    m_playState = kStopped;
    if (m_pauseCount == 0) FlashAnimEnded();
    return 1;
}

int FlashPlayer::Render() {
    if (!DrawNewFrame()) return 0;
    FinishFrame(nullptr, 0);
    return 1;
}

int FlashPlayer::Render(HDC hdc) {
    if (!DrawTwice(hdc)) return 0;
    FinishFrame(nullptr, 0);
    return 1;
}

bool FlashPlayer::DrawNewFrame() {
    if (!m_dirty || !DrawTwice(m_memDC)) return false;
    m_dirty = 0;
    return true;
}

// The grounds are written to the bits, which takes less time than the system takes to fill them.
bool FlashPlayer::DrawTwice(HDC hdc) {
    ComRef<IViewObject> view = Query<IViewObject>(m_flash, IID_IViewObject);
    if (!view || !m_frameBits) return false;
    const RECTL bounds = {0, 0, m_width, m_height};
    const size_t pixels = static_cast<size_t>(m_width) * m_height;
    const auto bits = static_cast<uint32_t*>(m_frameBits);

    // Drawing may still be queued; the bits are read and written past the queue.
    GdiFlush();
    flash::Fill(bits, 0x00FFFFFF, pixels);
    view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, hdc, &bounds, &bounds, nullptr, 0);
    GdiFlush();
    flash::TakeAway(bits, reinterpret_cast<uint32_t*>(m_whiteFrame), pixels);
    HRESULT hr =
        view->Draw(DVASPECT_CONTENT, 1, nullptr, nullptr, nullptr, m_memDC, &bounds, nullptr, nullptr, 0);
    GdiFlush();
    if (hr != S_OK) FinishFrame(nullptr, 0);
    return hr == S_OK;
}

void FlashPlayer::FinishFrame(uint32_t* copy, size_t stride) {
    auto black = static_cast<uint32_t*>(m_frameBits);
    auto white = reinterpret_cast<const uint32_t*>(m_whiteFrame);
    const size_t width = static_cast<size_t>(m_width);
    for (int row = 0; row < m_height; ++row, black += width, white += width) {
        flash::RebuildAlpha(black, white, copy, width);
        if (copy) copy += stride;
    }
}
