#include <d3d11.h>

#include <memory>
#include <string>

#include "core/com_ptr.h"
#include "idle_host.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

void SetNamedEvent(const char* name) {
    HANDLE event = OpenEventA(EVENT_MODIFY_STATE, FALSE, name);
    SetEvent(event);
    CloseHandle(event);
}

// The second frame begins when the first has been presented.
struct FirstFrameHost : IdleHost {
    explicit FirstFrameHost(const char* name) : event(name) {}
    void OnRender() override { drawn = true; }
    void OnFrame(float, int) override {
        if (!drawn) return;
        SetNamedEvent(event);
        PostQuitMessage(0);
    }
    const char* event;
    bool drawn = false;
};

// From starting this program with the option to its event.
void TimeProcess(Meter& meter, const char* option) {
    const std::string name = "drill2d_first_frame_" + std::to_string(GetCurrentProcessId());
    HANDLE event = CreateEventA(nullptr, FALSE, FALSE, name.c_str());
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string command = "\"" + std::string(path) + "\" " + option + " " + name;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    DWORD result = WAIT_FAILED;
    meter([&] {
        if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return;
        HANDLE ends[] = {event, process.hProcess};
        result = WaitForMultipleObjects(2, ends, FALSE, 60000);
    });
    if (process.hProcess) {
        if (WaitForSingleObject(process.hProcess, 60000) != WAIT_OBJECT_0)
            TerminateProcess(process.hProcess, 1);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(event);
    Require(result == WAIT_OBJECT_0, "the other process showed no frame");
}

}  // namespace

int ShowFirstFrame(const char* event) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    FirstFrameHost host(event);
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&host));
    return engine->InitHge(kScreenWidth, kScreenHeight, "first frame", false) ? 0 : 1;
}

int ShowFirstFrameBare(const char* event) {
    HWND window = CreateWindowExA(0, "STATIC", "first frame", WS_POPUP | WS_VISIBLE, 0, 0, kScreenWidth,
                                  kScreenHeight, nullptr, nullptr, nullptr, nullptr);
    DXGI_SWAP_CHAIN_DESC desc{};
    desc.BufferDesc = {kScreenWidth, kScreenHeight, {}, DXGI_FORMAT_B8G8R8A8_UNORM, {}, {}};
    desc.SampleDesc.Count = desc.BufferCount = 1;
    desc.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    desc.OutputWindow = window;
    desc.Windowed = TRUE;
    hge::ComPtr<ID3D11Device> device;
    hge::ComPtr<ID3D11DeviceContext> context;
    hge::ComPtr<IDXGISwapChain> chain;
    hge::ComPtr<ID3D11Texture2D> buffer;
    hge::ComPtr<ID3D11RenderTargetView> view;
    if (FAILED(D3D11CreateDeviceAndSwapChain(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0,
                                             D3D11_SDK_VERSION, &desc, chain.Put(), device.Put(), nullptr,
                                             context.Put())))
        return 1;
    chain->GetBuffer(0, IID_ID3D11Texture2D, buffer.PutVoid());
    device->CreateRenderTargetView(buffer.Get(), nullptr, view.Put());
    const float black[4] = {};
    context->ClearRenderTargetView(view.Get(), black);
    chain->Present(0, 0);
    SetNamedEvent(event);
    return 0;
}

void AddStartupScenes(Suite& suite) {
    suite.Add("startup/first frame", [] {
        Scene scene;
        scene.slow = true;
        scene.ours = [](Meter& meter) { TimeProcess(meter, "--first-frame"); };
        scene.bare = [](Meter& meter) { TimeProcess(meter, "--first-frame-bare"); };
        return scene;
    });
}

}  // namespace bench
