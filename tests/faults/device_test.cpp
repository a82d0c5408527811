// The Direct3D device goes away in the middle of a frame, and COM from the start.
#include <gmock/gmock.h>

#include "faults/fault_seams.h"
#include "hgesprite.h"
#include "support/framework_fixture.h"

namespace {

using testing::HasSubstr;

std::function<void()> g_first_frame;
int g_frame = 0, g_restored = 0;

class DeviceTest : public FrameworkTest {
 protected:
    static void SetUpTestSuite() {
        FrameworkTest::SetUpTestSuite();
        hge_->System_SetState(HGE_FRAMEFUNC, [] { return g_frame == 8; });
        hge_->System_SetState(HGE_RENDERFUNC, [] {
            if (g_frame++ == 0) g_first_frame();
            return false;
        });
        hge_->System_SetState(HGE_GFXRESTOREFUNC, [] { return ++g_restored, false; });
        hge_->System_SetState(HGE_DONTSUSPEND, true);
        hge_->Resource_AttachPack(TEST_DATA "faults.zip");
    }
    static void TearDownTestSuite() {
        hge_->Resource_RemoveAllPacks();
        FrameworkTest::TearDownTestSuite();
    }
};

// All that a frame can do, in steps; the device is removed before one of them.
struct Frame {
    HGE* hge;
    HTEXTURE picture = 0, drawn = 0, late = 0;
    HTARGET target = 0, late_target = 0;
    DWORD* pixels = nullptr;

    static constexpr int kSteps = 10;
    void Step(int step) {
        const std::function<void()> steps[kSteps] = {
            [&] { late = hge->Texture_Load("picture.png"); },
            [&] { late_target = hge->Target_Create(40, 30, true); },
            [&] { pixels = hge->Texture_Lock(drawn, false); },
            [&] {
                if (pixels) std::fill(pixels, pixels + 40 * 30, 0xFF00FF00);
                hge->Texture_Unlock(drawn);
            },
            [&] { EXPECT_TRUE(hge->Gfx_LoadEffect("fade.hlsl")) << hge->System_GetErrorMessage(); },
            [&] { hge->Gfx_BeginScene(target), hge->Gfx_Clear(0xFF0000FF); },
            [&] { hge->Gfx_EndScene(), hge->Gfx_BeginScene(0), hge->Gfx_Clear(0xFF000000); },
            [&] { hgeSprite(picture, 0, 0, 40, 30).Render(10, 10); },
            [&] { hgeSprite(drawn, 0, 0, 40, 30, picture).Render(60, 10); },
            [&] { hge->Gfx_EndScene(); }};
        steps[step]();
    }
};

TEST_F(DeviceTest, ARemovedDeviceComesBackWithEverything) {
    Frame frame{hge_, hge_->Texture_Load("picture.png"), hge_->Texture_Create(40, 30)};
    frame.target = hge_->Target_Create(40, 30, false);
    for (int removed_at = 0; removed_at < Frame::kSteps; ++removed_at) {
        int attempts = removed_at % 2 * 2;
        SCOPED_TRACE(testing::Message() << "before step " << removed_at << ", " << attempts);
        hgeCounters before = Counters();
        g_frame = g_restored = 0;
        g_first_frame = [&] {
            for (int step = 0; step < Frame::kSteps; ++step) {
                if (step == removed_at) fault_seams::RemoveDevice(attempts);
                frame.Step(step);
            }
        };
        EXPECT_TRUE(hge_->System_Start());
        EXPECT_EQ(g_restored, 1);
        EXPECT_FALSE(fault_seams::DeviceRemoved());
        EXPECT_TRUE(frame.late && frame.late_target);
        hge_->Gfx_LoadEffect(nullptr);
        hge::Image screen = Picture([&] {
            hgeSprite(frame.picture, 0, 0, 40, 30).Render(10, 10);
            hgeSprite(frame.late, 0, 0, 40, 30).Render(60, 10);
            hgeSprite(frame.drawn, 0, 0, 40, 30).Render(110, 10);
        });
        EXPECT_EQ(screen.pixels[25 * 800 + 20], screen.pixels[25 * 800 + 70]);
        EXPECT_NE(screen.pixels[25 * 800 + 20], 0xFF000000);
        EXPECT_EQ(screen.pixels[25 * 800 + 120], 0xFF00FF00);
        ASSERT_TRUE(hge_->Gfx_BeginScene(frame.late_target)) << "made on the lost device";
        hge_->Gfx_Clear(0xFF0000FF);
        hge_->Gfx_EndScene();
        hge_->Texture_Free(frame.late);
        hge_->Target_Free(frame.late_target);
        EXPECT_EQ(Counters().textures, before.textures);
    }
    EXPECT_THAT(LogText(), HasSubstr("the lost device could not be rebuilt yet"));
    EXPECT_THAT(LogText(), HasSubstr("the lost device was rebuilt"));
    hge_->Texture_Free(frame.picture);
    hge_->Texture_Free(frame.drawn);
    hge_->Target_Free(frame.target);
}

TEST_F(DeviceTest, WithoutComPicturesAreRefusedWithTheReason) {
    fault_seams::FailCom(REGDB_E_CLASSNOTREG);
    EXPECT_EQ(hge_->Texture_Load("picture.png"), 0u);
    EXPECT_THAT(hge_->System_GetErrorMessage(), HasSubstr("picture.png"));
    fault_seams::FailCom(S_OK);
    HTEXTURE tex = hge_->Texture_Load("picture.png");
    EXPECT_NE(tex, 0u);
    hge_->Texture_Free(tex);
}

}  // namespace
