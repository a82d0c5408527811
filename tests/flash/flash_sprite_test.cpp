#include "flash/flash_fixture.h"
#include "support/files.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FlashSpriteTest : public FlashTest {
 protected:
    ~FlashSpriteTest() override {
        sprite_.Stop();
        EXPECT_THAT(Recording().textures, IsEmpty());
    }
    void Start() {
        char file[] = "m.swf";
        EXPECT_TRUE(sprite_.LoadFlash(file, 30, 20));
        sprite_.Play();
        Recording().ClearCalls();
    }
    long DrawsOf(const std::function<void()>& action) {
        long before = control_->draws;
        action();
        return control_->draws - before;
    }
    size_t Locks() { return Recording().CallsMatching("Texture_Lock").size(); }

    CFlashSprite sprite_{&Recording(), false, false};
};

TEST_F(FlashSpriteTest, LooksForMoviesBesideTheProgram) {
    char bare[] = "\xD6\xD0.swf", full[] = "C:\\m.swf";
    for (char* name : {bare, full}) {
        EXPECT_TRUE(sprite_.LoadFlash(name, 30, 20));
        EXPECT_THAT(CallsOf([&] { sprite_.Play(); }),
                    Contains("put_Movie " + (name == bare ? test::ProgramFolder() + "\\20013.swf" : name)));
    }
    EXPECT_FALSE(sprite_.LoadFlash(nullptr, 30, 20));
    EXPECT_THAT(Recording().CallsMatching("System_Log"),
                ElementsAre("System_Log(\"LoadFlash: no file name\")"));
}

TEST_F(FlashSpriteTest, HoldsControlAndTextureOnlyFromPlayToStop) {
    char file[] = "C:\\m.swf";
    sprite_.LoadFlash(file, 30, 20);
    sprite_.SetLoopPlay(false);
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(sprite_.IsPlaying());
        EXPECT_THAT(
            CallsOf([&] { sprite_.Play(); }),
            ElementsAre("SetClientSite", "put_WMode Transparent", "DoVerb -5", "put_Movie C:\\m.swf", "Play",
                        "SetObjectRects 0,0,30,20 0,0,30,20", "put_Quality2 High", "Play", "put_Loop 0"));
        EXPECT_TRUE(sprite_.IsPlaying());
        EXPECT_TRUE(control_->objects == 1 && Recording().textures.size() == 1);
        EXPECT_THAT(CallsOf([&] { sprite_.Stop(); }), ElementsAre("StopPlay", "Close 1 1 2"));
        EXPECT_TRUE(control_->objects == 0 && Recording().textures.empty());
    }
}

TEST_F(FlashSpriteTest, CopiesFramesIntoALargerTexture) {
    Recording().texture_create = [](int, int) { return Recording().AddTexture(64, 32); };
    Start();
    sprite_.SetAutoRenderPos(5, 7);
    sprite_.setZ(0.25f, -1);
    sprite_.setZ(0.75f, 2);
    sprite_.Render();
    EXPECT_THAT(Recording().CallsMatching("Texture_"), Contains(testing::EndsWith(", false, 0, 0, 30, 20)")));
    const std::vector<DWORD>& pixels = Recording().textures.begin()->second.pixels;
    EXPECT_EQ(pixels[64 * 19 + 9], 0xFF000000 | kOpaqueColor);
    EXPECT_EQ(pixels[64 * 19 + 10] >> 24, 128u);
    EXPECT_NEAR(GETR(pixels[64 * 19 + 10]), GETR(kHalfColor) / 2, 1) << "premultiplied";
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0u), 64 * 32 - 20 * 20) << "outside the movie";

    const hgeQuad& quad = Recording().quads.at(0);
    EXPECT_THAT(Recording().CallsMatching("Gfx"), ElementsAre(testing::EndsWith(", 5,7 35,27)")));
    EXPECT_TRUE(quad.v[2].tx == 30 / 64.0f && quad.v[2].ty == 20 / 32.0f && quad.blend == BLEND_DEFAULT);
    EXPECT_TRUE(quad.v[0].z == 0.25f && quad.v[2].z == 0.75f && quad.v[0].col == 0xFFFFFFFF);
}

TEST_F(FlashSpriteTest, AStillMovieIsNeitherDrawnNorCopied) {
    Start();
    control_->fail_second_draw = true;
    EXPECT_FALSE(sprite_.BufferUpdate());
    EXPECT_EQ(Locks(), 0u) << "a frame that fails is tried again";
    control_->fail_second_draw = false;
    EXPECT_EQ(DrawsOf([&] { sprite_.Render(1, 2); }), 2);
    EXPECT_EQ(DrawsOf([&] {
                  for (int frame = 0; frame < 10; ++frame)
                      sprite_.Render(1, 2);
              }),
              0);
    EXPECT_EQ(Locks(), 1u);
    EXPECT_EQ(Recording().quads.size(), 11u);
    control_->Step();
    EXPECT_EQ(DrawsOf([&] { sprite_.Render(1, 2); }), 2);
    EXPECT_EQ(Locks(), 2u);

    Recording().texture_create = [](int, int) { return HTEXTURE(0); };
    sprite_.Stop();
    sprite_.Play();
    EXPECT_EQ(DrawsOf([&] { EXPECT_FALSE(sprite_.BufferUpdate()); }), 0) << "no texture to draw into";
}

TEST_F(FlashSpriteTest, StopsAtTheEndAndStaysAwayWhilePaused) {
    Start();
    sprite_.SetLoopPlay(false);
    sprite_.Pause();
    sprite_.Render(1, 2);
    EXPECT_THAT(Recording().quads, IsEmpty());
    EXPECT_FALSE(sprite_.IsPlaying());
    sprite_.Unpause();
    EXPECT_TRUE(sprite_.StateUpdate() && sprite_.IsPlaying());
    for (int frame = 0; frame < 3; ++frame)
        control_->Step();
    EXPECT_THAT(CallsOf([&] { sprite_.Rewind(); }), ElementsAre("Rewind 0", "Play"));
    EXPECT_TRUE(sprite_.StateUpdate()) << "on again from the start";
    for (int frame = 0; frame < 3; ++frame)
        control_->Step();
    EXPECT_FALSE(sprite_.StateUpdate());
    EXPECT_EQ(control_->objects, 0);
}

}  // namespace
