#include "movie_control.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "flash/com_ref.h"
#include "unused_operations.h"

namespace {

class Movie;

std::string g_record;
std::vector<Movie*> g_movies;
MovieControl AsNew();
MovieControl g_control = AsNew();

std::string Text(BSTR text) {
    std::string bytes;
    for (const wchar_t* unit = text; unit && *unit; ++unit)
        bytes += *unit < 0x80 ? std::string(1, static_cast<char>(*unit)) : "\\" + std::to_string(*unit);
    return bytes;
}
std::string Text(int value) {
    return std::to_string(value);
}
std::string Text(const RECT& r) {
    return Text(r.left) + "," + Text(r.top) + "," + Text(r.right) + "," + Text(r.bottom);
}

template <class... Args>
HRESULT Record(const char* name, const Args&... args) {
    g_record += name;
    ((g_record += " " + Text(args)), ...);
    g_record += "\n";
    return S_OK;
}

void Fill(HDC dc, const RECT& rect, unsigned rgb) {
    HBRUSH brush = CreateSolidBrush(RGB(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255));
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void FillHalf(HDC dc, const RECT& rect, unsigned rgb) {
    HDC source = CreateCompatibleDC(dc);
    HBITMAP pixel = CreateCompatibleBitmap(dc, 1, 1);
    HGDIOBJ old = SelectObject(source, pixel);
    Fill(source, RECT{0, 0, 1, 1}, rgb);
    GdiAlphaBlend(dc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, source, 0, 0, 1, 1,
                  BLENDFUNCTION{AC_SRC_OVER, 0, 128, 0});
    SelectObject(source, old);
    DeleteObject(pixel);
    DeleteDC(source);
}

// Adds its own life to the time spent drawing.
class DrawTime {
 public:
    DrawTime() { QueryPerformanceCounter(&start_); }
    ~DrawTime() {
        LARGE_INTEGER end;
        QueryPerformanceCounter(&end);
        g_control.draw_ticks += end.QuadPart - start_.QuadPart;
    }

 private:
    LARGE_INTEGER start_;
};

class Movie final : public UnusedMovie, public UnusedOle, public UnusedPlacement, public UnusedView {
 public:
    Movie() {
        ++g_control.objects;
        g_movies.push_back(this);
    }
    ~Movie() {
        g_movies.erase(std::find(g_movies.begin(), g_movies.end(), this));
        if (g_control.keep_site) g_control.kept_site = site_.release();
        --g_control.objects;
    }

    void Step() {
        if (!playing_) return;
        playing_ = loop_ || frame_ + 1 < frames_;
        if (playing_) Show((frame_ + 1) % frames_);
    }

    STDMETHODIMP QueryInterface(REFIID riid, void** ppv) override {
        *ppv = nullptr;
        if (riid == IID_IUnknown || riid == IID_IOleObject) *ppv = static_cast<IOleObject*>(this);
        if (riid == IID_IShockwaveFlash) *ppv = static_cast<IShockwaveFlash*>(this);
        if (riid == IID_IOleInPlaceObject || riid == IID_IOleInPlaceObjectWindowless)
            *ppv = static_cast<IOleInPlaceObjectWindowless*>(this);
        if (riid == IID_IViewObject && !g_control.no_view) *ppv = static_cast<IViewObject*>(this);
        if (!*ppv) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP SetClientSite(IOleClientSite* site) override {
        site_ = flash::Query<IOleInPlaceSiteWindowless>(site, IID_IOleInPlaceSiteWindowless);
        return Record("SetClientSite");
    }
    STDMETHODIMP DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override {
        Record("DoVerb", static_cast<int>(verb));
        if (site_->CanWindowlessActivate() == S_OK) site_->OnInPlaceActivateEx(nullptr, 0);
        return S_OK;
    }
    STDMETHODIMP Close(DWORD save) override {
        site_->AddRef();
        int site_references = static_cast<int>(site_->Release());
        return Record("Close", static_cast<int>(save), static_cast<int>(references_), site_references);
    }
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override {
        return Record("SetObjectRects", *position, *clip);
    }
    STDMETHODIMP OnWindowMessage(UINT message, WPARAM keys, LPARAM point, LRESULT*) override {
        return Record("OnWindowMessage", static_cast<int>(message), static_cast<int>(keys),
                      static_cast<int>(point));
    }

    STDMETHODIMP Draw(DWORD, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                      LPCRECTL window, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override {
        ++g_control.draws;
        DrawTime time;
        Record("Draw", static_cast<int>(index), window ? 1 : 0);
        int third = bounds->right / 3;
        Fill(dc, RECT{0, 0, third, bounds->bottom}, frame_ % 2 ? kOpaqueColorOddFrames : kOpaqueColor);
        FillHalf(dc, RECT{third, 0, 2 * third, bounds->bottom}, kHalfColor);
        if (g_control.call_site_in_draw) site_->InvalidateRgn(nullptr, TRUE);
        return g_control.fail_second_draw && index == 1 ? E_FAIL : S_OK;
    }

    STDMETHODIMP get_TotalFrames(long* value) override { return Answer(value, static_cast<long>(frames_)); }
    STDMETHODIMP get_BackgroundColor(long* value) override { return Answer(value, background_); }
    STDMETHODIMP put_BackgroundColor(long value) override {
        background_ = value;
        return Record("put_BackgroundColor", static_cast<int>(value));
    }
    STDMETHODIMP get_Loop(VARIANT_BOOL* value) override {
        VARIANT_BOOL truth = loop_ ? VARIANT_TRUE : VARIANT_FALSE;
        return Answer(value, g_control.loop_answer ? g_control.loop_answer : truth);
    }
    STDMETHODIMP put_Loop(VARIANT_BOOL value) override {
        loop_ = value != VARIANT_FALSE;
        return Record("put_Loop", value);
    }
    STDMETHODIMP put_Movie(BSTR value) override {
        Show(0);
        return Record("put_Movie", value);
    }
    STDMETHODIMP put_WMode(BSTR value) override { return Record("put_WMode", value); }
    STDMETHODIMP put_Quality2(BSTR value) override { return Record("put_Quality2", value); }
    STDMETHODIMP Play() override {
        Record("Play");
        if (g_control.refuse_play) return S_FALSE;
        playing_ = true;
        return S_OK;
    }
    STDMETHODIMP StopPlay() override {
        playing_ = false;
        return Record("StopPlay");
    }
    STDMETHODIMP Back() override { return Seek("Back", frame_ - 1); }
    STDMETHODIMP Forward() override { return Seek("Forward", frame_ + 1); }
    STDMETHODIMP Rewind() override { return Seek("Rewind", 0); }
    STDMETHODIMP GotoFrame(long frame) override { return Seek("GotoFrame", frame); }
    STDMETHODIMP CurrentFrame(long* value) override { return Answer(value, static_cast<long>(frame_)); }
    STDMETHODIMP IsPlaying(VARIANT_BOOL* value) override {
        return Answer(value, static_cast<VARIANT_BOOL>(playing_ ? VARIANT_TRUE : VARIANT_FALSE));
    }
    STDMETHODIMP FlashVersion(long* value) override { return Answer(value, g_control.version); }
    STDMETHODIMP TCurrentLabel(BSTR target, BSTR* label) override {
        *label = SysAllocString((target + (L" " + std::to_wstring(frame_))).c_str());
        return S_OK;
    }
    STDMETHODIMP TCallLabel(BSTR target, BSTR label) override { return Record("TCallLabel", target, label); }
    STDMETHODIMP SetVariable(BSTR name, BSTR value) override {
        variables_[name] = value;
        return Record("SetVariable", name, value);
    }
    STDMETHODIMP GetVariable(BSTR name, BSTR* value) override {
        if (!variables_.count(name)) return E_FAIL;
        *value = SysAllocString(variables_[name].c_str());
        return S_OK;
    }

 private:
    template <class T>
    static HRESULT Answer(T* out, T value) {
        *out = value;
        return S_OK;
    }
    HRESULT Seek(const char* operation, long frame) {
        playing_ = false;
        Show(std::clamp<long>(frame, 0, frames_ - 1));
        return Record(operation, static_cast<int>(frame));
    }
    void Show(int frame) {
        frame_ = frame;
        site_->InvalidateRect(nullptr, FALSE);
    }

    ULONG references_ = 0;
    flash::ComRef<IOleInPlaceSiteWindowless> site_;
    int frames_ = g_control.frames, frame_ = 0;
    bool playing_ = false, loop_ = true;
    long background_ = 0xFFFFFF;
    std::map<std::wstring, std::wstring> variables_;
};

class MovieClass final : public IClassFactory {
 public:
    STDMETHODIMP QueryInterface(REFIID riid, void** ppv) override {
        *ppv = riid == IID_IUnknown || riid == IID_IClassFactory ? this : nullptr;
        if (*ppv) AddRef();
        return *ppv ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++g_control.class_references; }
    STDMETHODIMP_(ULONG) Release() override { return --g_control.class_references; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID riid, void** ppv) override {
        *ppv = nullptr;
        if (g_control.empty) return CLASS_E_CLASSNOTAVAILABLE;
        Movie* movie = new Movie;
        movie->AddRef();
        HRESULT hr = movie->QueryInterface(riid, ppv);
        movie->Release();
        return hr;
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? AddRef() : Release();
        return S_OK;
    }
};

const char* TakeRecord() {
    return g_record.c_str();
}

void Step() {
    for (Movie* movie : g_movies)
        movie->Step();
}

void Clear() {
    g_record.clear();
    long objects = g_control.objects, class_references = g_control.class_references;
    g_control = AsNew();
    g_control.objects = objects;
    g_control.class_references = class_references;
}

MovieControl AsNew() {
    MovieControl control = {};
    control.frames = 3;
    control.version = 0x000A0002;
    control.Record = TakeRecord;
    control.Clear = Clear;
    control.Step = Step;
    return control;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID riid, void** ppv) {
    static MovieClass movie_class;
    if (clsid != CLSID_ShockwaveFlash) return CLASS_E_CLASSNOTAVAILABLE;
    return movie_class.QueryInterface(riid, ppv);
}

STDAPI DllCanUnloadNow() {
    return g_control.objects == 0 && g_control.class_references == 0 ? S_OK : S_FALSE;
}

extern "C" MovieControl* GetMovieControl() {
    return &g_control;
}
