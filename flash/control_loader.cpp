#include "flash/control_loader.h"

#include <cstdarg>
#include <cstdio>

#include "flash/com_ref.h"
#include "flash/shockwave_flash.h"
#include "hge.h"

namespace flash {

namespace {

constexpr char kModule[] = "flash.ocx";

bool g_missing_logged = false;

// Past the registry: the program brings its control along.
HRESULT CreateFromModule(HMODULE module, IOleObject** control) {
    auto get_class = reinterpret_cast<LPFNGETCLASSOBJECT>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    if (!get_class) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);

    void* found = nullptr;
    HRESULT hr = get_class(CLSID_ShockwaveFlash, IID_IClassFactory, &found);
    if (FAILED(hr)) return hr;
    ComRef<IClassFactory> factory(static_cast<IClassFactory*>(found));
    if (!factory) return E_POINTER;
    return factory->CreateInstance(nullptr, IID_IOleObject, reinterpret_cast<void**>(control));
}

HRESULT CreateRegistered(IOleObject** control) {
    return CoCreateInstance(CLSID_ShockwaveFlash, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                            reinterpret_cast<void**>(control));
}

void LogMissing(HMODULE module, DWORD load_error, HRESULT hr) {
    if (g_missing_logged) return;
    g_missing_logged = true;
    char path[MAX_PATH] = "";
    GetModuleFileNameA(module, path, MAX_PATH);
    if (module)
        Log("No movie control found: %s gave none (0x%08lX)", path, hr);
    else
        Log("No movie control found: neither %s with the program (%s) or on the system's path (error %lu) "
            "nor a "
            "registered one, class {D27CDB6E-AE6D-11CF-96B8-444553540000} (0x%08lX)",
            kModule, path, load_error, hr);
}

}  // namespace

IOleObject* CreateMovieControl(HMODULE* module) {
    *module = LoadLibraryA(kModule);
    DWORD load_error = *module ? 0 : GetLastError();
    IOleObject* control = nullptr;
    HRESULT hr = *module ? CreateFromModule(*module, &control) : CreateRegistered(&control);
    if (SUCCEEDED(hr) && control) return control;
    LogMissing(*module, load_error, hr);
    return nullptr;
}

void ForgetMissingControl() {
    g_missing_logged = false;
}

void Log(const char* format, ...) {
    char text[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    HGE* hge = hgeCreate(HGE_VERSION);
    if (!hge) return;
    hge->System_Log("%s", text);
    hge->Release();
}

}  // namespace flash
