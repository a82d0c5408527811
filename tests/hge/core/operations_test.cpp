#include <gmock/gmock.h>

#include "core/running_hge.h"

namespace {

using testing::HasSubstr;

// Handles of every kind that name nothing.
constexpr DWORD kBadHandles[] = {0, 1, 0x10040000, 0x20040000, 0x30040000, 0x60040000, 0xFFFFFFFF};

void UseTexturesAndTargets(HGE* hge, DWORD handle) {
    hge->Texture_Free(handle);
    EXPECT_FALSE(hge->Texture_GetWidth(handle) || hge->Texture_GetHeight(handle, true));
    EXPECT_FALSE(hge->Texture_Lock(handle));
    hge->Texture_Unlock(handle);
    hge->Target_Free(handle);
    EXPECT_EQ(hge->Target_GetTexture(handle), 0u);
    EXPECT_FALSE(handle && hge->Gfx_BeginScene(handle));
    hgeQuad quad = {};
    quad.tex = handle;
    hge->Gfx_RenderQuad(&quad);
}

void UseSounds(HGE* hge, DWORD handle) {
    hge->Effect_Free(handle);
    EXPECT_FALSE(hge->Effect_Play(handle) || hge->Effect_PlayEx(handle));
    hge->Stream_Free(handle);
    hge->Music_Free(handle);
    int order, row;
    EXPECT_FALSE(hge->Stream_Play(handle, true) || hge->Music_Play(handle, true));
    EXPECT_FALSE(hge->Music_GetPos(handle, &order, &row));
    hge->Channel_SetVolume(handle, 50);
    hge->Channel_SetPitch(handle, 2);
    hge->Channel_SetPanning(handle, -100);
    hge->Channel_Pause(handle);
    hge->Channel_Resume(handle);
    hge->Channel_SlideTo(handle, 1, 0);
    hge->Channel_Stop(handle);
    EXPECT_FALSE(hge->Channel_IsPlaying(handle) || hge->Channel_IsSliding(handle));
    EXPECT_TRUE(hge->Channel_GetLength(handle) == -1 && hge->Channel_GetPos(handle) == -1);
}

void UseNothing(HGE* hge) {
    EXPECT_EQ(hge->Resource_Load(nullptr), nullptr);
    hge->Resource_Free(nullptr);
    hge->Resource_Free(&hge);
    EXPECT_FALSE(hge->Resource_AttachPack(nullptr));
    hge->Resource_RemovePack(nullptr);
    EXPECT_NE(hge->Resource_MakePath(nullptr), nullptr);
    hge->Resource_EnumFiles(nullptr);
    hge->Resource_EnumFolders(nullptr);
    hge->Ini_SetString(nullptr, nullptr, nullptr);
    EXPECT_EQ(hge->Ini_GetInt(nullptr, nullptr, 7), 7);
    EXPECT_STREQ(hge->Ini_GetString(nullptr, nullptr, nullptr), "");
    EXPECT_FALSE(hge->Texture_Load(nullptr) || hge->Texture_Load("no such picture.png"));
    EXPECT_FALSE(hge->Texture_Create(0, 5) || hge->Texture_Create(-1, 1 << 30));
    EXPECT_FALSE(hge->Target_Create(0, 0, true) || hge->Effect_Load(nullptr));
    EXPECT_FALSE(hge->Gfx_LoadEffect(nullptr) || hge->System_Launch(nullptr) || hge->Input_GetEvent(nullptr));
    EXPECT_EQ(hge->System_GetState(static_cast<hgeStringState>(99)), std::string());
    hge->System_Log(nullptr);
    hge->Input_GetMousePos(nullptr, nullptr);
    EXPECT_FALSE(hge->Input_KeyDown(-1) || hge->Input_KeyUp(256) || hge->Input_GetKeyState(1 << 20));
    EXPECT_STREQ(hge->Input_GetKeyName(-1), "");
    hge->Gfx_RenderQuad(nullptr);
    hge->Gfx_RenderTriple(nullptr);
    hge->Gfx_FinishBatch(-1);
    hge->Gfx_EndScene();
}

void UseEverythingBadly(HGE* hge) {
    for (DWORD handle : kBadHandles) {
        UseTexturesAndTargets(hge, handle);
        UseSounds(hge, handle);
    }
    UseNothing(hge);
}

TEST(Operations, AreHarmlessWithoutAStartedSystem) {
    RunningHge hge;
    UseEverythingBadly(hge.hge);
    EXPECT_FALSE(hge->Gfx_BeginScene());
    EXPECT_EQ(hge->Texture_Create(8, 8), 0u);
    hge->System_Snapshot("never.bmp");
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("not initiated"));
    hge->System_Shutdown();
    hge->System_Shutdown();
}

TEST(Operations, AreHarmlessWhileItRunsAndAfterIt) {
    StartedHge hge;
    DWORD before = Counters().textures;
    UseEverythingBadly(hge.hge);
    ASSERT_TRUE(hge->Gfx_BeginScene());
    UseEverythingBadly(hge.hge);
    hge->Gfx_EndScene();
    EXPECT_EQ(Counters().textures, before);

    HTEXTURE texture = hge->Texture_Create(8, 8);
    HTARGET target = hge->Target_Create(8, 8, false);
    ASSERT_NE(texture, 0u);
    UseSounds(hge.hge, texture);
    EXPECT_EQ(hge->Texture_GetWidth(texture), 8) << "a texture is no sound";
    for (const char* kind : {"effect", "stream", "channel"})
        EXPECT_THAT(ReadLog(), HasSubstr(std::string("is no live ") + kind));
    hge->System_Shutdown();
    hge->System_Shutdown();
    UseEverythingBadly(hge.hge);
    UseTexturesAndTargets(hge.hge, texture);
    UseTexturesAndTargets(hge.hge, target);
    EXPECT_EQ(Counters().textures, 0u);

    ASSERT_TRUE(hge->System_Initiate()) << "and it can be started again";
    UseTexturesAndTargets(hge.hge, texture);
}

TEST(Operations, WriteToTheLogAndTheErrorMessage) {
    StartedHge hge;
    hge->System_Log("round %d of %s", 3, "five");
    EXPECT_THAT(ReadLog(), HasSubstr("round 3 of five"));
    EXPECT_EQ(hge->Texture_Load("bytes of no picture", 10), 0u);
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("cannot load texture \"(memory)\""));
    EXPECT_FALSE(hge->Gfx_LoadEffect("wave.fx"));
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("wave.fx"));
    EXPECT_FALSE(hge->System_Launch("no such thing.nowhere"));
    EXPECT_THAT(hge->System_GetErrorMessage(), HasSubstr("no such thing.nowhere"));
}

TEST(Snapshot, TakesAFreeName) {
    StartedHge hge;
    std::string first = hge->Resource_MakePath("shot000.bmp");
    std::string second = hge->Resource_MakePath("shot001.bmp");
    hge->System_Snapshot(nullptr);
    hge->System_Snapshot(nullptr);
    EXPECT_TRUE(DeleteFileA(first.c_str()));
    EXPECT_TRUE(DeleteFileA(second.c_str()));
}

}  // namespace
