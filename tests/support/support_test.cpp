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
