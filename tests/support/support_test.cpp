#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_hge.h"

using testing::ElementsAre;

namespace {

class RecordingTest : public testing::Test {
 protected:
    void SetUp() override { Recording().Reset(); }
    RecordingHge& hge_ = Recording();
};

TEST_F(RecordingTest, CallsReadAsTheyWereMade) {
    hge_.missing = {"b.png"};
    char block[4] = {};
    HGE* hge = &hge_;
    HTEXTURE tex = hge->Texture_Load("a.png");
    EXPECT_EQ(hge->Texture_Load("b.png"), 0u);
    EXPECT_NE(hge->Texture_Load(block, 4, true), 0u);
    EXPECT_EQ(hge->Texture_GetWidth(tex), 64);
    hge->System_SetState(HGE_FRAMEFUNC, nullptr);
    hge->System_SetState(HGE_LOGFILE, "a.log");
    hge->System_Log("%d of %s", 3, "five");
    hge->Gfx_Clear(0xA0B);
    hge->Effect_PlayEx(7, 100, -5, 0.5f, false);
    EXPECT_THAT(hge_.Calls(),
                ElementsAre("Texture_Load(\"a.png\", 0, false)", "Texture_Load(\"b.png\", 0, false)",
                            "Texture_Load(<ptr>, 4, true)", "System_SetState(HGE_FRAMEFUNC, null)",
                            "System_SetState(HGE_LOGFILE, \"a.log\")", "System_Log(\"3 of five\")",
                            "Gfx_Clear(0x00000A0B)", "Effect_PlayEx(7, 100, -5, 0.5, false)"));
    EXPECT_THAT(hge_.CallsMatching("Texture_Get"), ElementsAre("Texture_GetWidth(1, false)"));
}

TEST_F(RecordingTest, WhatIsFreedTwiceOrUsedDeadIsAFault) {
    HTEXTURE tex = hge_.AddTexture(4, 3);
    DWORD* pixels = hge_.Texture_Lock(tex, false, 1, 2, 1, 1);
    ASSERT_EQ(pixels, &hge_.textures[tex].pixels[9]);
    EXPECT_EQ(hge_.Texture_Lock(tex, false, 0, 0, 0, 0), nullptr);
    hge_.Texture_Unlock(tex);
    hge_.Effect_Free(tex);
    hge_.Texture_Free(tex);
    hge_.Texture_Free(tex);
    hge_.Texture_Free(0);
    hgeQuad quad = {};
    quad.tex = tex;
    hge_.Gfx_RenderQuad(&quad);
    hge_.Resource_Free(&quad);
    hge_.Gfx_EndScene();
    hge_.Texture_Free(hge_.Target_GetTexture(hge_.Target_Create(8, 8, false)));
    hge_.Random_Int(1, 2);
    hgeCreate(HGE_VERSION)->Release();
    hge_.Release();
    EXPECT_THAT(hge_.Faults(),
                ElementsAre("Texture_Lock: 1 is locked already", "Effect_Free: 1 is not live",
                            "Texture_Free: 1 is not live", "Gfx_RenderQuad: 1 is not live",
                            "Resource_Free: the block is not live", "Gfx_EndScene: no scene is open",
                            "Texture_Free: 3 belongs to a target", "Random_Int: not expected",
                            "Release: more often than hgeCreate"));
}

}  // namespace
