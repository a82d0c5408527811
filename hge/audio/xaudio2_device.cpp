#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, which it needs.
#include <audioclient.h>
#include <mmdeviceapi.h>
#include <xaudio2.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <vector>

#include "audio/sound_output.h"
#include "core/com_ptr.h"

namespace hge {
namespace {

// 40 ms are queued, too little to be heard as a delay; each time the queue has run dry, 10 ms more.
constexpr size_t kBlocks = 4, kMostBlocks = 12;
constexpr uint32_t kBlocksPerSecond = 100;

using CreateFunction = HRESULT(WINAPI*)(IXAudio2**, UINT32, XAUDIO2_PROCESSOR);

struct FreeModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

struct DestroyVoice {
    void operator()(IXAudio2Voice* voice) const { voice->DestroyVoice(); }
};

struct CloseEvent {
    void operator()(HANDLE event) const { CloseHandle(event); }
};

// COM for the calling thread.
class ComScope {
 public:
    ComScope() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;
    ~ComScope() {
        if (entered_) CoUninitialize();
    }

 private:
    bool entered_;
};

#pragma GCC diagnostic push
// The system's callback classes have no virtual destructor; nobody deletes through them.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Called on the system's sound thread.
class Events final : public IXAudio2EngineCallback, public IXAudio2VoiceCallback {
 public:
    Events() : room_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

    void WaitForRoom(DWORD milliseconds) { WaitForSingleObject(room_.get(), milliseconds); }
    bool failed() const { return failed_; }

    void STDMETHODCALLTYPE OnProcessingPassStart() override {}
    void STDMETHODCALLTYPE OnProcessingPassEnd() override {}
    void STDMETHODCALLTYPE OnCriticalError(HRESULT) override { Fail(); }
    void STDMETHODCALLTYPE OnVoiceProcessingPassStart(UINT32) override {}
    void STDMETHODCALLTYPE OnVoiceProcessingPassEnd() override {}
    void STDMETHODCALLTYPE OnStreamEnd() override {}
    void STDMETHODCALLTYPE OnBufferStart(void*) override {}
    void STDMETHODCALLTYPE OnBufferEnd(void*) override { SetEvent(room_.get()); }
    void STDMETHODCALLTYPE OnLoopEnd(void*) override {}
    void STDMETHODCALLTYPE OnVoiceError(void*, HRESULT) override { Fail(); }

 private:
    void Fail() {
        failed_ = true;
        SetEvent(room_.get());
    }

    std::unique_ptr<void, CloseEvent> room_;
    std::atomic<bool> failed_{false};
};

#pragma GCC diagnostic pop

// One opened card. Members are given back from the last to the first.
struct Session {
    ComScope com;
    Module library;
    Events events;
    ComPtr<IXAudio2> engine;
    std::unique_ptr<IXAudio2MasteringVoice, DestroyVoice> master;
    std::unique_ptr<IXAudio2SourceVoice, DestroyVoice> source;
    std::vector<float> blocks;
    size_t next_block = 0;
    size_t depth = kBlocks;
    bool playing = false;  // the queue has been full
};

std::string Failure(const char* what, HRESULT result) {
    char text[80];
    std::snprintf(text, sizeof text, "%s: 0x%08lX", what, static_cast<unsigned long>(result));
    return text;
}

CreateFunction LoadSystem(Module* library, const char** name) {
    for (const char* candidate : {"xaudio2_9.dll", "xaudio2_8.dll"}) {
        library->reset(LoadLibraryExA(candidate, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
        if (!*library) continue;
        *name = candidate;
        FARPROC create = GetProcAddress(library->get(), "XAudio2Create");
        if (create) return reinterpret_cast<CreateFunction>(reinterpret_cast<void*>(create));
    }
    return nullptr;
}

struct FreeTaskMemory {
    void operator()(void* block) const { CoTaskMemFree(block); }
};

// Opens the default card and closes it again. XAudio2 need not cope with a system that has none, or one that
// does not answer: some builds of it crash then.
std::string TryDefaultCard() {
    ComPtr<IMMDeviceEnumerator> cards;
    ComPtr<IMMDevice> card;
    ComPtr<IAudioClient> client;
    HRESULT result = CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_ALL,
                                      __uuidof(IMMDeviceEnumerator), cards.PutVoid());
    if (SUCCEEDED(result)) result = cards->GetDefaultAudioEndpoint(eRender, eConsole, card.Put());
    if (FAILED(result)) return "the system has none";
    result = card->Activate(__uuidof(IAudioClient), CLSCTX_ALL, nullptr, client.PutVoid());
    if (FAILED(result)) return Failure("Activate", result);
    WAVEFORMATEX* format = nullptr;
    result = client->GetMixFormat(&format);
    std::unique_ptr<WAVEFORMATEX, FreeTaskMemory> owner(format);
    if (SUCCEEDED(result)) result = client->Initialize(AUDCLNT_SHAREMODE_SHARED, 0, 0, 0, format, nullptr);
    return SUCCEEDED(result) ? "" : Failure("Initialize", result);
}

class XAudio2Device final : public SoundDevice {
 public:
    bool Open(uint32_t rate, std::string* text) override {
        rate_ = rate;
        session_ = std::make_unique<Session>();
        const char* library = "";
        *text = Connect(*session_, &library);
        if (text->empty()) {
            *text = std::string(library) + ", " + std::to_string(rate) + " Hz";
            return true;
        }
        session_.reset();
        return false;
    }

    void Close() override { session_.reset(); }

    DeviceState Wait() override {
        if (session_->events.failed()) return DeviceState::kLost;
        if (HasRoom()) return DeviceState::kHungry;
        session_->events.WaitForRoom(20);
        return HasRoom() ? DeviceState::kHungry : DeviceState::kBusy;
    }

    size_t block_frames() const override { return rate_ / kBlocksPerSecond; }

    bool Submit(const float* stereo) override {
        size_t samples = block_frames() * 2;
        float* block = &session_->blocks[session_->next_block * samples];
        session_->next_block = (session_->next_block + 1) % kMostBlocks;
        std::memcpy(block, stereo, samples * sizeof *block);
        XAUDIO2_BUFFER buffer = {};
        buffer.AudioBytes = static_cast<UINT32>(samples * sizeof *block);
        buffer.pAudioData = reinterpret_cast<const BYTE*>(block);
        return SUCCEEDED(session_->source->SubmitSourceBuffer(&buffer, nullptr));
    }

 private:
    // "" on success.
    std::string Connect(Session& session, const char** library) {
        std::string trouble = TryDefaultCard();
        if (!trouble.empty()) return trouble;
        CreateFunction create = LoadSystem(&session.library, library);
        if (!create) return "XAudio2 is not installed";
        HRESULT result = create(session.engine.Put(), 0, XAUDIO2_DEFAULT_PROCESSOR);
        if (FAILED(result)) return Failure("XAudio2Create", result);
        session.engine->RegisterForCallbacks(&session.events);
        IXAudio2MasteringVoice* master = nullptr;
        result = session.engine->CreateMasteringVoice(&master);
        if (FAILED(result)) return Failure("CreateMasteringVoice", result);
        session.master.reset(master);
        return StartSource(session);
    }

    std::string StartSource(Session& session) {
        WAVEFORMATEX format = {};
        format.wFormatTag = WAVE_FORMAT_IEEE_FLOAT;
        format.nChannels = 2;
        format.nSamplesPerSec = rate_;
        format.wBitsPerSample = 32;
        format.nBlockAlign = 8;
        format.nAvgBytesPerSec = rate_ * 8;
        IXAudio2SourceVoice* source = nullptr;
        HRESULT result = session.engine->CreateSourceVoice(&source, &format, XAUDIO2_VOICE_NOPITCH,
                                                           XAUDIO2_DEFAULT_FREQ_RATIO, &session.events);
        if (FAILED(result)) return Failure("CreateSourceVoice", result);
        session.source.reset(source);
        session.blocks.resize(kMostBlocks * block_frames() * 2);
        result = source->Start();
        if (FAILED(result)) return Failure("Start", result);
        SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL);
        return {};
    }

    bool HasRoom() {
        Session& session = *session_;
        XAUDIO2_VOICE_STATE state = {};
        session.source->GetState(&state, XAUDIO2_VOICE_NOSAMPLESPLAYED);
        if (session.playing && state.BuffersQueued == 0 && session.depth < kMostBlocks) ++session.depth;
        session.playing =
            state.BuffersQueued >= session.depth || (session.playing && state.BuffersQueued > 0);
        return state.BuffersQueued < session.depth;
    }

    uint32_t rate_ = 0;
    std::unique_ptr<Session> session_;
};

}  // namespace

std::unique_ptr<SoundDevice> MakeXAudio2Device() {
    return std::make_unique<XAudio2Device>();
}

}  // namespace hge
