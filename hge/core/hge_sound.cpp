// There is no sound yet: no sound can be loaded, so every handle is dead.
#include "core/hge_impl.h"

namespace hge {

HEFFECT HgeImpl::Effect_Load(const char*, DWORD) {
    return 0;
}
void HgeImpl::Effect_Free(HEFFECT) {}
HCHANNEL HgeImpl::Effect_Play(HEFFECT) {
    return 0;
}
HCHANNEL HgeImpl::Effect_PlayEx(HEFFECT, int, int, float, bool) {
    return 0;
}

HMUSIC HgeImpl::Music_Load(const char*, DWORD) {
    return 0;
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

HSTREAM HgeImpl::Stream_Load(const char*, DWORD) {
    return 0;
}
void HgeImpl::Stream_Free(HSTREAM) {}
HCHANNEL HgeImpl::Stream_Play(HSTREAM, bool, int) {
    return 0;
}

void HgeImpl::Channel_SetPanning(HCHANNEL, int) {}
void HgeImpl::Channel_SetVolume(HCHANNEL, int) {}
void HgeImpl::Channel_SetPitch(HCHANNEL, float) {}
void HgeImpl::Channel_Pause(HCHANNEL) {}
void HgeImpl::Channel_Resume(HCHANNEL) {}
void HgeImpl::Channel_Stop(HCHANNEL) {}
void HgeImpl::Channel_PauseAll() {}
void HgeImpl::Channel_ResumeAll() {}
void HgeImpl::Channel_StopAll() {}
bool HgeImpl::Channel_IsPlaying(HCHANNEL) {
    return false;
}
float HgeImpl::Channel_GetLength(HCHANNEL) {
    return -1;
}
float HgeImpl::Channel_GetPos(HCHANNEL) {
    return -1;
}
void HgeImpl::Channel_SetPos(HCHANNEL, float) {}
void HgeImpl::Channel_SlideTo(HCHANNEL, float, int, int, float) {}
bool HgeImpl::Channel_IsSliding(HCHANNEL) {
    return false;
}

}  // namespace hge
