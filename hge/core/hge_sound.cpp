#include "core/hge_impl.h"

namespace hge {

void HgeImpl::StartAudio() {
    bool wanted = states_.Get(HGE_USESOUND);
    auto device = wanted ? MakeXAudio2Device() : nullptr;
    ApplyVolumes();
    audio_.Start(static_cast<uint32_t>(states_.Get(HGE_SAMPLERATE)), MakeThreadedOutput(std::move(device)));
}

void HgeImpl::ApplyVolumes() {
    audio_.SetVolumes(states_.Get(HGE_FXVOLUME), states_.Get(HGE_MUSVOLUME), states_.Get(HGE_STREAMVOLUME));
}

HEFFECT HgeImpl::Effect_Load(const char* filename, DWORD size) {
    return Guarded("Effect_Load", [&] { return audio_.LoadEffect(filename, size); });
}

void HgeImpl::Effect_Free(HEFFECT eff) {
    Guarded("Effect_Free", [&] { audio_.FreeEffect(eff); });
}

HCHANNEL HgeImpl::Effect_Play(HEFFECT eff) {
    return Effect_PlayEx(eff, 100, 0, 1.0f, false);
}

HCHANNEL HgeImpl::Effect_PlayEx(HEFFECT eff, int volume, int pan, float pitch, bool loop) {
    return Guarded("Effect_PlayEx", [&] { return audio_.PlayEffect(eff, {volume, pan, pitch, loop}); });
}

// No module can be loaded, so every music handle is dead.
HMUSIC HgeImpl::Music_Load(const char* filename, DWORD size) {
    return Guarded("Music_Load", [&] { return audio_.LoadMusic(filename, size); });
}
void HgeImpl::Music_Free(HMUSIC) {}
HCHANNEL HgeImpl::Music_Play(HMUSIC, bool, int, int, int) {
    return 0;
}
void HgeImpl::Music_SetAmplification(HMUSIC, int) {}
int HgeImpl::Music_GetAmplification(HMUSIC) {
    return 0;
}
int HgeImpl::Music_GetLength(HMUSIC) {
    return 0;
}
void HgeImpl::Music_SetPos(HMUSIC, int, int) {}
bool HgeImpl::Music_GetPos(HMUSIC, int*, int*) {
    return false;
}
void HgeImpl::Music_SetInstrVolume(HMUSIC, int, int) {}
int HgeImpl::Music_GetInstrVolume(HMUSIC, int) {
    return 0;
}
void HgeImpl::Music_SetChannelVolume(HMUSIC, int, int) {}
int HgeImpl::Music_GetChannelVolume(HMUSIC, int) {
    return 0;
}

HSTREAM HgeImpl::Stream_Load(const char* filename, DWORD size) {
    return Guarded("Stream_Load", [&] { return audio_.LoadStream(filename, size); });
}

void HgeImpl::Stream_Free(HSTREAM stream) {
    Guarded("Stream_Free", [&] { audio_.FreeStream(stream); });
}

HCHANNEL HgeImpl::Stream_Play(HSTREAM stream, bool loop, int volume) {
    return Guarded("Stream_Play", [&] { return audio_.PlayStream(stream, {volume, 0, 1.0f, loop}); });
}

void HgeImpl::Channel_SetPanning(HCHANNEL chn, int pan) {
    Guarded("Channel_SetPanning", [&] { audio_.SetPan(chn, pan); });
}

void HgeImpl::Channel_SetVolume(HCHANNEL chn, int volume) {
    Guarded("Channel_SetVolume", [&] { audio_.SetVolume(chn, volume); });
}

void HgeImpl::Channel_SetPitch(HCHANNEL chn, float pitch) {
    Guarded("Channel_SetPitch", [&] { audio_.SetPitch(chn, pitch); });
}

void HgeImpl::Channel_Pause(HCHANNEL chn) {
    Guarded("Channel_Pause", [&] { audio_.SetPaused(chn, true); });
}

void HgeImpl::Channel_Resume(HCHANNEL chn) {
    Guarded("Channel_Resume", [&] { audio_.SetPaused(chn, false); });
}

void HgeImpl::Channel_Stop(HCHANNEL chn) {
    Guarded("Channel_Stop", [&] { audio_.StopChannel(chn); });
}

void HgeImpl::Channel_PauseAll() {
    audio_.SetAllPaused(true);
}

void HgeImpl::Channel_ResumeAll() {
    audio_.SetAllPaused(false);
}

void HgeImpl::Channel_StopAll() {
    audio_.StopAll();
}

bool HgeImpl::Channel_IsPlaying(HCHANNEL chn) {
    return Guarded("Channel_IsPlaying", [&] { return audio_.IsPlaying(chn); });
}

float HgeImpl::Channel_GetLength(HCHANNEL chn) {
    return Guarded("Channel_GetLength", [&] { return audio_.Length(chn); });
}

float HgeImpl::Channel_GetPos(HCHANNEL chn) {
    return Guarded("Channel_GetPos", [&] { return audio_.Position(chn); });
}

void HgeImpl::Channel_SetPos(HCHANNEL chn, float seconds) {
    Guarded("Channel_SetPos", [&] { audio_.SetPosition(chn, seconds); });
}

void HgeImpl::Channel_SlideTo(HCHANNEL chn, float time, int volume, int pan, float pitch) {
    Guarded("Channel_SlideTo", [&] { audio_.SlideTo(chn, time, volume, pan, pitch); });
}

bool HgeImpl::Channel_IsSliding(HCHANNEL chn) {
    return Guarded("Channel_IsSliding", [&] { return audio_.IsSliding(chn); });
}

}  // namespace hge
