#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_hge.h"
#include "support/seam_user.h"
#include "support/win32_seams.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RecordingTest : public testing::Test {
 protected:
    void SetUp() override { Recording().Reset(); }
    RecordingHge& hge_ = Recording();
};

int g_frame_calls = 0;
bool CountFrame() {
    return ++g_frame_calls == 3;
}

TEST_F(RecordingTest, OnlyTheRightVersionGivesAReference) {
    EXPECT_EQ(hgeCreate(0x170), nullptr);
    HGE* hge = hgeCreate(HGE_VERSION);
    EXPECT_EQ(hge, &hge_);
    EXPECT_EQ(hge_.references, 1);
    hge->Release();
    hge->Release();
    EXPECT_THAT(hge_.Faults(), ElementsAre("Release: more often than hgeCreate"));
}

TEST_F(RecordingTest, CallsReadAsTheyWereMade) {
    hge_.missing = {"b.png"};
    char block[4] = {};
    HGE* hge = &hge_;
    HTEXTURE tex = hge->Texture_Load("a.png");
    EXPECT_EQ(hge->Texture_Load("b.png"), 0u);
    EXPECT_NE(hge->Texture_Load(block, 4, true), 0u);
    EXPECT_EQ(hge->Texture_GetWidth(tex), 64);
    hge->System_SetState(HGE_WINDOWED, false);
    hge->System_SetState(HGE_FRAMEFUNC, nullptr);
    hge->System_SetState(HGE_TITLE, "drill");
    hge->System_Log("%d of %s", 3, "five");
    hge->Gfx_RenderLine(0, 0.5f, 10, 20);
    EXPECT_THAT(hge_.Calls(),
                ElementsAre("Texture_Load(\"a.png\", 0, false)", "Texture_Load(\"b.png\", 0, false)",
                            "Texture_Load(<ptr>, 4, true)", "System_SetState(HGE_WINDOWED, false)",
                            "System_SetState(HGE_FRAMEFUNC, null)", "System_SetState(HGE_TITLE, \"drill\")",
                            "System_Log(\"3 of five\")", "Gfx_RenderLine(0, 0.5, 10, 20, 0xFFFFFFFF, 0.5)"));
    EXPECT_THAT(hge_.CallsMatching("Texture_Get"), ElementsAre("Texture_GetWidth(1, false)"));
    EXPECT_STREQ(hge->System_GetState(HGE_TITLE), "drill");
    EXPECT_STREQ(hge->System_GetErrorMessage(), "cannot load \"b.png\"");
}

TEST_F(RecordingTest, WhatIsFreedTwiceOrUsedDeadIsAFault) {
    HTEXTURE tex = hge_.AddTexture(4, 4);
    HEFFECT effect = hge_.Effect_Load("a.wav", 0);
    HCHANNEL channel = hge_.Effect_PlayEx(effect, 100, 0, 1, true);
    EXPECT_TRUE(hge_.Channel_IsPlaying(channel));
    hge_.Effect_Free(effect);
    EXPECT_FALSE(hge_.Channel_IsPlaying(channel));
    hge_.Effect_Free(tex);
    hge_.Texture_Free(tex);
    hge_.Texture_Free(tex);
    hge_.Texture_Free(0);
    hgeQuad quad = {};
    quad.tex = tex;
    hge_.Gfx_RenderQuad(&quad);
    hge_.Resource_Free(&quad);
    hge_.Gfx_EndScene();
    EXPECT_THAT(hge_.Faults(),
                ElementsAre("Effect_Free: 1 is not live", "Texture_Free: 1 is not live",
                            "Gfx_RenderQuad: texture 1 is not live", "Resource_Free: the block is not live",
                            "Gfx_EndScene: no scene is open"));
}

TEST_F(RecordingTest, TargetsOwnTheirTextures) {
    HTARGET target = hge_.Target_Create(800, 600, false);
    HTEXTURE tex = hge_.Target_GetTexture(target);
    EXPECT_EQ(hge_.Texture_Lock(tex, true, 0, 0, 0, 0), nullptr);
    hge_.Texture_Free(tex);
    EXPECT_THAT(hge_.Faults(), ElementsAre("Texture_Free: 2 belongs to a target"));
    hge_.Target_Free(target);
    EXPECT_THAT(hge_.textures, IsEmpty());
    EXPECT_THAT(hge_.targets, IsEmpty());
}

TEST_F(RecordingTest, LocksReachTheKeptPixels) {
    HTEXTURE tex = hge_.AddTexture(4, 3);
    DWORD* pixels = hge_.Texture_Lock(tex, false, 1, 2, 1, 1);
    ASSERT_NE(pixels, nullptr);
    pixels[0] = 0x11223344;
    EXPECT_EQ(hge_.Texture_Lock(tex, false, 0, 0, 0, 0), nullptr);
    hge_.Texture_Unlock(tex);
    EXPECT_EQ(hge_.textures[tex].pixels[9], 0x11223344u);
    EXPECT_THAT(hge_.Faults(), ElementsAre("Texture_Lock: 1 is locked already"));
}

TEST_F(RecordingTest, BlocksArriveWithTheirSizeAndAreCounted) {
    hge_.files["a.txt"] = std::string("x\0y", 3);
    DWORD size = 0;
    char* block = static_cast<char*>(hge_.Resource_Load("a.txt", &size));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::string(block, size), std::string("x\0y", 3));
    EXPECT_EQ(hge_.blocks.size(), 1u);
    hge_.Resource_Free(block);
    EXPECT_THAT(hge_.blocks, IsEmpty());
}

TEST_F(RecordingTest, TheLoopEndsWhenTheFrameFunctionSaysSo) {
    g_frame_calls = 0;
    hge_.frames = 10;
    hge_.System_SetState(HGE_FRAMEFUNC, CountFrame);
    hge_.System_Start();
    EXPECT_EQ(g_frame_calls, 3);
}

TEST_F(RecordingTest, BatchesCountAsTheQuadsInThem) {
    int room = 0;
    hgeVertex* v = hge_.Gfx_StartBatch(HGEPRIM_QUADS, 0, BLEND_DEFAULT, &room);
    v[4].x = 5;
    hge_.Gfx_FinishBatch(2);
    ASSERT_EQ(hge_.quads.size(), 2u);
    EXPECT_EQ(hge_.quads[1].v[0].x, 5);
}

TEST(Win32SeamsTest, ALibraryOfItsOwnGetsTheFakes) {
    win32_seams::SetTick(0xFFFFFFF0u);
    win32_seams::AdvanceTick(0x20);
    EXPECT_EQ(SeamUser::Tick(), 0x10u);

    int object = 0;
    EXPECT_FALSE(SeamUser::IsActive(&object));
    win32_seams::SetActiveWindow(reinterpret_cast<HWND>(&object));
    EXPECT_TRUE(SeamUser::IsActive(&object));

    SeamUser::Quit(7);
    EXPECT_THAT(win32_seams::QuitMessages(), ElementsAre(7));
    win32_seams::Reset();
    EXPECT_THAT(win32_seams::QuitMessages(), IsEmpty());
}

}  // namespace
