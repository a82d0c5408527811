// The tables of the interfaces as C sees them.
#define CINTERFACE
#define COBJMACROS
#include "faults/fault_seams.h"

#include <d3d11.h>
#include <objbase.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

int g_failing_attempts = 0;
bool g_removed = false;
long long g_disk = -1;
std::mutex g_disk_turn;
HRESULT g_com = S_OK;
DWORD g_ticks = 0;

template <class Function>
Function Real(const char* module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(module), name)));
}

// Puts own into a table that objects share; the one that was there goes into *real, once.
template <class Function>
void Patch(Function* entry, Function own, Function* real) {
    if (*entry == own) return;
    DWORD protection = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection);
    *real = std::exchange(*entry, own);
    VirtualProtect(entry, sizeof *entry, protection, &protection);
}

// Each stands before the method of its name and lets it through while the device is there.
template <class Object, class... Args>
struct Method {
    using Function = HRESULT(STDMETHODCALLTYPE*)(Object*, Args...);
    template <int kTag>
    struct At {
        static inline Function real = nullptr;
        static HRESULT STDMETHODCALLTYPE Call(Object* object, Args... args) {
            return g_removed ? DXGI_ERROR_DEVICE_REMOVED : real(object, args...);
        }
    };
};
template <int kTag, class Object, class... Args>
void Guard(HRESULT(STDMETHODCALLTYPE** entry)(Object*, Args...)) {
    using Own = typename Method<Object, Args...>::template At<kTag>;
    Patch(entry, &Own::Call, &Own::real);
}

HRESULT STDMETHODCALLTYPE RemovedReason(ID3D11Device*) {
    return g_removed ? DXGI_ERROR_DEVICE_REMOVED : S_OK;
}

void GuardDevice(ID3D11Device* device, ID3D11DeviceContext* context) {
    static HRESULT(STDMETHODCALLTYPE * unused)(ID3D11Device*) = nullptr;
    Guard<0>(&device->lpVtbl->CreateTexture2D);
    Guard<1>(&device->lpVtbl->CreateBuffer);
    Guard<2>(&device->lpVtbl->CreateShaderResourceView);
    Guard<3>(&device->lpVtbl->CreateRenderTargetView);
    Guard<4>(&device->lpVtbl->CreatePixelShader);
    Patch(&device->lpVtbl->GetDeviceRemovedReason, RemovedReason, &unused);
    Guard<5>(&context->lpVtbl->Map);
}

// A swap chain of our own has the table of all.
void GuardSwapChain(ID3D11Device* device) {
    IDXGIDevice* dxgi = nullptr;
    IDXGIAdapter* adapter = nullptr;
    IDXGIFactory* factory = nullptr;
    IDXGISwapChain* chain = nullptr;
    device->lpVtbl->QueryInterface(device, IID_IDXGIDevice, reinterpret_cast<void**>(&dxgi));
    IDXGIDevice_GetAdapter(dxgi, &adapter);
    IDXGIAdapter_GetParent(adapter, IID_IDXGIFactory, reinterpret_cast<void**>(&factory));
    DXGI_SWAP_CHAIN_DESC desc = {};
    desc.BufferDesc.Width = desc.BufferDesc.Height = 8;
    desc.BufferDesc.Format = DXGI_FORMAT_B8G8R8A8_UNORM;
    desc.SampleDesc.Count = desc.BufferCount = 1;
    desc.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    desc.OutputWindow = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 8, 8, nullptr, nullptr, nullptr, nullptr);
    desc.Windowed = TRUE;
    IDXGIFactory_CreateSwapChain(factory, reinterpret_cast<IUnknown*>(device), &desc, &chain);
    Guard<6>(&chain->lpVtbl->Present);
    IDXGISwapChain_Release(chain);
    IDXGIFactory_Release(factory);
    IDXGIAdapter_Release(adapter);
    IDXGIDevice_Release(dxgi);
    DestroyWindow(desc.OutputWindow);
}

}  // namespace

// The linker takes these in place of the import libraries' pointers.
extern "C" {
// Its header does not say that it is imported: calls are direct ones.
HRESULT WINAPI FakeCreateDevice(IDXGIAdapter* adapter, D3D_DRIVER_TYPE type, HMODULE software, UINT flags,
                                const D3D_FEATURE_LEVEL* levels, UINT count, UINT version,
                                ID3D11Device** device, D3D_FEATURE_LEVEL* level,
                                ID3D11DeviceContext** context) __asm__("_D3D11CreateDevice@40");
HRESULT WINAPI FakeCreateDevice(IDXGIAdapter* adapter, D3D_DRIVER_TYPE type, HMODULE software, UINT flags,
                                const D3D_FEATURE_LEVEL* levels, UINT count, UINT version,
                                ID3D11Device** device, D3D_FEATURE_LEVEL* level,
                                ID3D11DeviceContext** context) {
    if (g_removed && g_failing_attempts > 0) {
        if (type == D3D_DRIVER_TYPE_WARP) --g_failing_attempts;
        return DXGI_ERROR_DEVICE_REMOVED;
    }
    g_removed = false;
    HRESULT result = Real<PFN_D3D11_CREATE_DEVICE>("d3d11", "D3D11CreateDevice")(
        adapter, type, software, flags, levels, count, version, device, level, context);
    if (SUCCEEDED(result)) GuardDevice(*device, *context);
    static bool guarded = false;
    if (SUCCEEDED(result) && !std::exchange(guarded, true)) GuardSwapChain(*device);
    return result;
}
BOOL WINAPI FakeWriteFile(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED overlapped) {
    std::lock_guard turn(g_disk_turn);
    DWORD room = g_disk < 0 ? size : static_cast<DWORD>(std::min<long long>(g_disk, size));
    if (g_disk >= 0) g_disk -= room;
    BOOL done =
        Real<decltype(&FakeWriteFile)>("kernel32", "WriteFile")(file, bytes, room, written, overlapped);
    if (room == size) return done;
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}
HRESULT WINAPI FakeCoCreate(const IID& id, LPUNKNOWN outer, DWORD context, const IID& iid, LPVOID* object) {
    *object = nullptr;
    if (FAILED(g_com)) return g_com;
    return Real<decltype(&FakeCoCreate)>("ole32", "CoCreateInstance")(id, outer, context, iid, object);
}
HRESULT WINAPI FakeCodecs(UINT version, void** factory) __asm__("_WICCreateImagingFactory_Proxy@8");
HRESULT WINAPI FakeCodecs(UINT version, void** factory) {
    if (FAILED(g_com)) return g_com;
    return Real<decltype(&FakeCodecs)>("windowscodecs", "WICCreateImagingFactory_Proxy")(version, factory);
}

DWORD WINAPI FakeTickCount() {
    return Real<decltype(&FakeTickCount)>("kernel32", "GetTickCount")() + g_ticks;
}

decltype(&FakeTickCount) imported_tick_count __asm__("__imp__GetTickCount@0") = FakeTickCount;
decltype(&FakeCreateDevice) imported_create_device __asm__("__imp__D3D11CreateDevice@40") = FakeCreateDevice;
decltype(&FakeWriteFile) imported_write_file __asm__("__imp__WriteFile@20") = FakeWriteFile;
decltype(&FakeCoCreate) imported_co_create __asm__("__imp__CoCreateInstance@20") = FakeCoCreate;
}

namespace fault_seams {

void RemoveDevice(int attempts) {
    g_removed = true;
    g_failing_attempts = attempts;
}
bool DeviceRemoved() {
    return g_removed;
}
void LimitDisk(long long bytes) {
    g_disk = bytes;
}
std::unique_lock<std::mutex> StallDisk() {
    return std::unique_lock(g_disk_turn);
}
void AdvanceTicks(DWORD milliseconds) {
    g_ticks += milliseconds;
}
void FailCom(HRESULT result) {
    g_com = result;
}

}  // namespace fault_seams
