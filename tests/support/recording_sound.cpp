#include "support/recording_hge.h"

using recording_text::Source;

HEFFECT RecordingHge::Effect_Load(const char* filename, DWORD size) {
    Record("Effect_Load", Source{filename, size}, size);
    return effect_load ? effect_load(filename, size) : LoadInto(&effects, filename, size);
}
void RecordingHge::Effect_Free(HEFFECT eff) {
    Record("Effect_Free", eff);
    FreeFrom(&effects, "Effect_Free", eff);
}
HCHANNEL RecordingHge::Effect_Play(HEFFECT eff) {
    Record("Effect_Play", eff);
    return Start(effects, {eff, true, false, 100, 0, 1.0f, false});
}
HCHANNEL RecordingHge::Effect_PlayEx(HEFFECT eff, int volume, int pan, float pitch, bool loop) {
    Record("Effect_PlayEx", eff, volume, pan, pitch, loop);
    return Start(effects, {eff, true, false, volume, pan, pitch, loop});
}

HMUSIC RecordingHge::Music_Load(const char* filename, DWORD size) {
    Record("Music_Load", Source{filename, size}, size);
    return LoadInto(&musics, filename, size);
}
void RecordingHge::Music_Free(HMUSIC mus) {
    Record("Music_Free", mus);
    FreeFrom(&musics, "Music_Free", mus);
}
HCHANNEL RecordingHge::Music_Play(HMUSIC mus, bool loop, int volume, int order, int row) {
    Record("Music_Play", mus, loop, volume, order, row);
    return Start(musics, {mus, true, false, volume, 0, 1.0f, loop});
}
void RecordingHge::Music_SetAmplification(HMUSIC mus, int ampl) {
    Record("Music_SetAmplification", mus, ampl);
}
int RecordingHge::Music_GetAmplification(HMUSIC mus) {
    Record("Music_GetAmplification", mus);
    return 0;
}
int RecordingHge::Music_GetLength(HMUSIC mus) {
    Record("Music_GetLength", mus);
    return 0;
}
void RecordingHge::Music_SetPos(HMUSIC mus, int order, int row) {
    Record("Music_SetPos", mus, order, row);
}
bool RecordingHge::Music_GetPos(HMUSIC mus, int* order, int* row) {
    Record("Music_GetPos", mus);
    if (order) *order = 0;
    if (row) *row = 0;
    return musics.count(mus) != 0;
}
void RecordingHge::Music_SetInstrVolume(HMUSIC mus, int instr, int volume) {
    Record("Music_SetInstrVolume", mus, instr, volume);
}
int RecordingHge::Music_GetInstrVolume(HMUSIC mus, int instr) {
    Record("Music_GetInstrVolume", mus, instr);
    return 0;
}
void RecordingHge::Music_SetChannelVolume(HMUSIC mus, int channel, int volume) {
    Record("Music_SetChannelVolume", mus, channel, volume);
}
int RecordingHge::Music_GetChannelVolume(HMUSIC mus, int channel) {
    Record("Music_GetChannelVolume", mus, channel);
    return 0;
}

HSTREAM RecordingHge::Stream_Load(const char* filename, DWORD size) {
    Record("Stream_Load", Source{filename, size}, size);
    return LoadInto(&streams, filename, size);
}
void RecordingHge::Stream_Free(HSTREAM stream) {
    Record("Stream_Free", stream);
    FreeFrom(&streams, "Stream_Free", stream);
}
HCHANNEL RecordingHge::Stream_Play(HSTREAM stream, bool loop, int volume) {
    Record("Stream_Play", stream, loop, volume);
    return Start(streams, {stream, true, false, volume, 0, 1.0f, loop});
}

RecordingHge::Channel* RecordingHge::FindPlaying(HCHANNEL chn) {
    auto found = channels.find(chn);
    return found != channels.end() && found->second.playing ? &found->second : nullptr;
}

void RecordingHge::Channel_SetPanning(HCHANNEL chn, int pan) {
    Record("Channel_SetPanning", chn, pan);
    if (Channel* channel = FindPlaying(chn)) channel->pan = pan;
}
void RecordingHge::Channel_SetVolume(HCHANNEL chn, int volume) {
    Record("Channel_SetVolume", chn, volume);
    if (Channel* channel = FindPlaying(chn)) channel->volume = volume;
}
void RecordingHge::Channel_SetPitch(HCHANNEL chn, float pitch) {
    Record("Channel_SetPitch", chn, pitch);
    if (Channel* channel = FindPlaying(chn)) channel->pitch = pitch;
}
void RecordingHge::Channel_Pause(HCHANNEL chn) {
    Record("Channel_Pause", chn);
    if (Channel* channel = FindPlaying(chn)) channel->paused = true;
}
void RecordingHge::Channel_Resume(HCHANNEL chn) {
    Record("Channel_Resume", chn);
    if (Channel* channel = FindPlaying(chn)) channel->paused = false;
}
void RecordingHge::Channel_Stop(HCHANNEL chn) {
    Record("Channel_Stop", chn);
    if (Channel* channel = FindPlaying(chn)) channel->playing = false;
}
void RecordingHge::Channel_PauseAll() {
    Record("Channel_PauseAll");
    for (auto& entry : channels)
        entry.second.paused = true;
}
void RecordingHge::Channel_ResumeAll() {
    Record("Channel_ResumeAll");
    for (auto& entry : channels)
        entry.second.paused = false;
}
void RecordingHge::Channel_StopAll() {
    Record("Channel_StopAll");
    for (auto& entry : channels)
        entry.second.playing = false;
}
bool RecordingHge::Channel_IsPlaying(HCHANNEL chn) {
    Record("Channel_IsPlaying", chn);
    return FindPlaying(chn) != nullptr;
}
float RecordingHge::Channel_GetLength(HCHANNEL chn) {
    Record("Channel_GetLength", chn);
    return FindPlaying(chn) ? channel_length : -1;
}
float RecordingHge::Channel_GetPos(HCHANNEL chn) {
    Record("Channel_GetPos", chn);
    return FindPlaying(chn) ? channel_pos : -1;
}
void RecordingHge::Channel_SetPos(HCHANNEL chn, float seconds) {
    Record("Channel_SetPos", chn, seconds);
}
void RecordingHge::Channel_SlideTo(HCHANNEL chn, float seconds, int volume, int pan, float pitch) {
    Record("Channel_SlideTo", chn, seconds, volume, pan, pitch);
}
bool RecordingHge::Channel_IsSliding(HCHANNEL chn) {
    Record("Channel_IsSliding", chn);
    return false;
}
