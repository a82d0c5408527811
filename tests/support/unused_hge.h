#pragma once

#include "hge.h"

// Operations of the framework that the kit does not use: each tells its name and gives nothing.
class UnusedHge : public HGE {
 public:
    bool CALL System_Launch(const char*) override { return Unused(__func__); }
    char* CALL Resource_MakePath(const char*) override { return Unused(__func__); }
    char* CALL Resource_EnumFiles(const char*) override { return Unused(__func__); }
    char* CALL Resource_EnumFolders(const char*) override { return Unused(__func__); }

    void CALL Ini_SetInt(const char*, const char*, int) override { Unused(__func__); }
    int CALL Ini_GetInt(const char*, const char*, int) override { return Unused(__func__); }
    void CALL Ini_SetString(const char*, const char*, const char*) override { Unused(__func__); }
    char* CALL Ini_GetString(const char*, const char*, const char*) override { return Unused(__func__); }
    void CALL Ini_SetFloat(const char*, const char*, float) override { Unused(__func__); }
    float CALL Ini_GetFloat(const char*, const char*, float) override { return Unused(__func__); }
    void CALL Random_Seed(int) override { Unused(__func__); }
    int CALL Random_Int(int, int) override { return Unused(__func__); }
    float CALL Random_Float(float, float) override { return Unused(__func__); }
    float CALL Timer_GetTime() override { return Unused(__func__); }
    int CALL Timer_GetFPS() override { return Unused(__func__); }

    HMUSIC CALL Music_Load(const char*, DWORD) override { return Unused(__func__); }
    void CALL Music_Free(HMUSIC) override { Unused(__func__); }
    HCHANNEL CALL Music_Play(HMUSIC, bool, int, int, int) override { return Unused(__func__); }
    void CALL Music_SetAmplification(HMUSIC, int) override { Unused(__func__); }
    int CALL Music_GetAmplification(HMUSIC) override { return Unused(__func__); }
    int CALL Music_GetLength(HMUSIC) override { return Unused(__func__); }
    void CALL Music_SetPos(HMUSIC, int, int) override { Unused(__func__); }
    bool CALL Music_GetPos(HMUSIC, int*, int*) override { return Unused(__func__); }
    void CALL Music_SetInstrVolume(HMUSIC, int, int) override { Unused(__func__); }
    int CALL Music_GetInstrVolume(HMUSIC, int) override { return Unused(__func__); }
    void CALL Music_SetChannelVolume(HMUSIC, int, int) override { Unused(__func__); }
    int CALL Music_GetChannelVolume(HMUSIC, int) override { return Unused(__func__); }
    HSTREAM CALL Stream_Load(const char*, DWORD) override { return Unused(__func__); }
    void CALL Stream_Free(HSTREAM) override { Unused(__func__); }
    HCHANNEL CALL Stream_Play(HSTREAM, bool, int) override { return Unused(__func__); }

    HCHANNEL CALL Effect_Play(HEFFECT) override { return Unused(__func__); }
    void CALL Channel_SetPanning(HCHANNEL, int) override { Unused(__func__); }
    void CALL Channel_SetVolume(HCHANNEL, int) override { Unused(__func__); }
    void CALL Channel_SetPitch(HCHANNEL, float) override { Unused(__func__); }
    void CALL Channel_Pause(HCHANNEL) override { Unused(__func__); }
    void CALL Channel_Resume(HCHANNEL) override { Unused(__func__); }
    void CALL Channel_Stop(HCHANNEL) override { Unused(__func__); }
    void CALL Channel_PauseAll() override { Unused(__func__); }
    void CALL Channel_ResumeAll() override { Unused(__func__); }
    void CALL Channel_StopAll() override { Unused(__func__); }
    void CALL Channel_SetPos(HCHANNEL, float) override { Unused(__func__); }
    void CALL Channel_SlideTo(HCHANNEL, float, int, int, float) override { Unused(__func__); }
    bool CALL Channel_IsSliding(HCHANNEL) override { return Unused(__func__); }

    void CALL Input_SetMousePos(float, float) override { Unused(__func__); }
    char* CALL Input_GetKeyName(int) override { return Unused(__func__); }
    bool CALL Input_GetEvent(hgeInputEvent*) override { return Unused(__func__); }
    void CALL Gfx_RenderLine(float, float, float, float, DWORD, float) override { Unused(__func__); }
    void CALL Gfx_RenderTriple(const hgeTriple*) override { Unused(__func__); }
    hgeVertex* CALL Gfx_StartBatch(int, HTEXTURE, int, int*) override { return Unused(__func__); }
    void CALL Gfx_FinishBatch(int) override { Unused(__func__); }
    void CALL Gfx_SetTransform(float, float, float, float, float, float, float) override { Unused(__func__); }

 protected:
    ~UnusedHge() = default;
    struct Nothing {
        template <class T>
        operator T() const {
            return T();
        }
    };
    virtual Nothing Unused(const char* operation) = 0;
};
