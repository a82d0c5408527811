// Memory runs out at every single allocation of an operation: it fails cleanly and leaves nothing behind.
#include <gmock/gmock.h>

#include <memory>

#include "drill2d/flash.h"
#include "drill2d/resources.h"
#include "gui/owning_label.h"
#include "hgegui.h"
#include "support/failing_memory.h"
#include "support/framework_fixture.h"
#include "support/noted_scene.h"

namespace {

using testing::HasSubstr;

class MemoryTest : public FrameworkTest {
 protected:
    static void SetUpTestSuite() {
        FrameworkTest::SetUpTestSuite();
        // That of the file cache.
        may_leave_ = "1 texture";
        hge_->System_SetState(HGE_INIFILE, TEST_DATA "faults.ini");
        EXPECT_TRUE(hge_->Resource_AttachPack(TEST_DATA "faults.zip"));
    }
    static void TearDownTestSuite() {
        hge_->Resource_RemoveAllPacks();
        FrameworkTest::TearDownTestSuite();
    }

    // Runs the operation, which gives true when it did all it should and takes that back itself. Memory
    // fails at its first allocation, then at its second, until it goes through; once and for good each.
    template <class F>
    static void Starve(const char* what, F operation) {
        SCOPED_TRACE(what);
        ASSERT_TRUE(operation()) << "with memory";
        size_t live = 0;
        hgeCounters before = {};
        for (int round = 0; round < 2; ++round) {
            for (bool lasting : {false, true}) {
                for (int nth = 1; FailsCleanly(operation, nth, lasting); ++nth)
                    ASSERT_LT(nth, 3000);
            }
            // What is kept once, such as a key of the log, is there after the first round.
            hgeCounters after = Counters();
            if (round == 1) {
                EXPECT_LE(failing_memory::LiveBlocks(), live);
                EXPECT_EQ(Holdings(after), Holdings(before));
            }
            live = failing_memory::LiveBlocks();
            before = after;
        }
    }
    static std::vector<DWORD> Holdings(const hgeCounters& c) {
        return {c.textures, c.targets, c.resource_blocks, c.packs, c.references, c.effects, c.streams};
    }

 private:
    // False when no allocation was left to fail.
    template <class F>
    static bool FailsCleanly(F& operation, int nth, bool lasting) {
        std::string before = LogText();
        bool thrown = false, done = false;
        failing_memory::Fail(nth, lasting);
        try {
            done = operation();
        } catch (...) {
            thrown = true;
        }
        bool failed = failing_memory::Stop();
        EXPECT_FALSE(thrown) << "at allocation " << nth << (lasting ? " and on" : "");
        EXPECT_TRUE(done || LogText() != before) << "silent at allocation " << nth;
        EXPECT_TRUE(failed || done) << "fails with memory, too";
        return failed;
    }
};

TEST_F(MemoryTest, TheFrameworkFailsCleanly) {
    Starve("a texture", [] {
        HTEXTURE tex = hge_->Texture_Load("picture.png");
        hge_->Texture_Free(tex);
        return tex != 0;
    });
    Starve("a large texture with mipmaps", [] {
        HTEXTURE tex = hge_->Texture_Create(700, 500);
        hge_->Texture_Free(tex);
        return tex != 0;
    });
    Starve("an effect that is played", [] {
        HEFFECT sound = hge_->Effect_Load("tone.ogg");
        HCHANNEL channel = sound ? hge_->Effect_Play(sound) : 0;
        if (sound) hge_->Effect_Free(sound);
        return channel != 0;
    });
    Starve("a stream", [] {
        HSTREAM stream = hge_->Stream_Load("tone.ogg");
        HCHANNEL channel = stream ? hge_->Stream_Play(stream, true) : 0;
        if (stream) hge_->Stream_Free(stream);
        return channel != 0;
    });
    Starve("a pack", [] {
        hge_->Resource_RemoveAllPacks();
        return hge_->Resource_AttachPack(TEST_DATA "faults.zip");
    });
    hge_->Resource_AttachPack(TEST_DATA "faults.zip");
    Starve("a target", [] {
        HTARGET target = hge_->Target_Create(64, 64, true);
        if (target) hge_->Target_Free(target);
        return target != 0;
    });
    Starve("a shader", [] { return hge_->Gfx_LoadEffect("fade.hlsl"); });
    Starve("a setting", [] {
        hge_->Ini_SetInt("faults", "kept", 0);
        hge_->Ini_SetInt("faults", "kept", 41);
        return hge_->Ini_GetInt("faults", "kept", -1) == 41;
    });
    Starve("a list of files", [] { return hge_->Resource_EnumFiles(TEST_DATA "*.zip") != nullptr; });
    EXPECT_THAT(LogText(), testing::Not(HasSubstr("damaged"))) << "it is the memory";
}

TEST_F(MemoryTest, AFrameLosesQuadsAtMost) {
    HTEXTURE small = hge_->Texture_Load("picture.png"), large = hge_->Texture_Create(300, 300);
    auto frame = [&] {
        DWORD quads = Counters().quads;
        DWORD* pixels = hge_->Texture_Lock(small, false);
        if (pixels) pixels[0] ^= 0xFF;
        if (pixels) hge_->Texture_Unlock(small);
        hge_->Gfx_BeginScene(0);
        hge_->Gfx_Clear(0);
        for (HTEXTURE tex : {small, large, HTEXTURE(0), HTEXTURE(0x1234)}) {
            hgeSprite sprite(tex, 0, 0, 40, 30);
            sprite.Render(10, 10);
        }
        int room = 0;
        if (hgeVertex* batch = hge_->Gfx_StartBatch(HGEPRIM_QUADS, small, BLEND_DEFAULT, &room)) {
            batch[0] = batch[1] = batch[2] = batch[3] = hgeVertex();
            hge_->Gfx_FinishBatch(1);
        }
        hge_->Gfx_EndScene();
        return Counters().quads - quads == 4;
    };
    Starve("a frame", frame);
    hge_->Texture_Free(small);
    hge_->Texture_Free(large);
}

TEST_F(MemoryTest, TextThatWasSeenBeforeTakesNone) {
    // So large that rasterising needs memory.
    auto font = std::make_unique<GfxFont>("Arial", 200, 0, 0, 1);
    OwningLabel label;
    label.SetFont("Arial", 18, false, false, true);
    label.MoveWindow(0, 0, 300, 40, true);
    label.setformat(FORMAT_CENTER);
    label.SetText("label");
    auto needs_memory = [&] {
        failing_memory::Fail(1, true);
        font->Render(0, 0, L"text");
        font->Print(0, 20, "%s %d", "print", 42);
        font->GetTextSize(L"text");
        label.Render();
        return failing_memory::Stop();
    };
    Scene([&] { EXPECT_TRUE(needs_memory()) << "for the first drawing"; });
    Scene([&] { font->Render(0, 0, L"text print 42"), label.Render(); });
    Scene([&] { EXPECT_FALSE(needs_memory()); });
}

TEST_F(MemoryTest, ControlsAndWhatTheyUseMayGoInAnyOrder) {
    size_t live = 0;
    hgeCounters before = {};
    for (const char* order : {"fwbly", "yblwf", "wybfl", "lfywb", "bfwyl"}) {
        auto font = std::make_unique<GfxFont>("Arial", 18, 0, 0, 1);
        auto window = std::make_unique<CGameWindow>();
        auto button = std::make_unique<CGameButton>();
        auto label = std::make_unique<OwningLabel>();
        window->InitWindow("picture.png", {260, 180});
        for (int i = 0; i < 2; ++i)
            button->LoadImageInfo("picture.png");
        button->SetFont(font.get());
        button->SetCaption("OK");
        label->SetFont("Arial", 18, false, false, true);
        auto layout = std::make_unique<CLayout>(window.get());
        layout->AddControl(button.get());
        window->SetLayOut(layout.get());
        Scene([&] { button->Render(); });
        layout->RemoveAll();
        for (; *order; ++order) {
            if (*order == 'f') font.reset();
            if (*order == 'w') window.release()->Release();
            if (*order == 'b') button.reset();
            if (*order == 'l') label.reset();
            if (*order == 'y') layout.reset();
        }
        // What is kept once is there after the first time.
        if (!live) live = failing_memory::LiveBlocks(), before = Counters();
        EXPECT_LE(failing_memory::LiveBlocks(), live);
        EXPECT_EQ(Holdings(Counters()), Holdings(before));
    }
}

TEST_F(MemoryTest, TheSystemStartsOrSaysWhyNot) {
    hge_->System_Shutdown();
    int failures = 0;
    // A start takes long: not each of its allocations.
    for (int nth = 1;; nth += 7) {
        failing_memory::Fail(nth, nth % 2);
        bool started = hge_->System_Initiate();
        if (!failing_memory::Stop()) break;
        if (started) hge_->System_Shutdown();
        if (started) continue;
        ++failures;
        EXPECT_NE(*hge_->System_GetErrorMessage(), 0);
        EXPECT_EQ(hge_->System_GetState(HGE_HWND), nullptr) << "allocation " << nth;
    }
    EXPECT_GT(failures, 0);
    hge_->System_Shutdown();
    ASSERT_TRUE(hge_->System_Initiate());
}

struct Plate : hgeGUIObject {
    void Render() override {}
};

// Names short enough to need no memory of the caller's.
TEST_F(MemoryTest, TheKitFailsCleanly) {
    std::string pack = hge_->Resource_MakePath("kit.zip");
    CopyFileA(hge_->Resource_MakePath(TEST_DATA "faults.zip"), pack.c_str(), FALSE);
    CGameResourceManager::getInstance()->AttachHge(hge_);
    CGameResourceManager manager(hge_);
    Starve("a packet's image", [&] {
        manager.AttachPacket("kit.zip");
        manager.SetCurPacket("kit.zip");
        HTEXTURE tex = manager.GetImage("picture.png");
        bool recorded = tex && manager.findData("kit.zip", "picture.png");
        manager.FreePacketResource("kit.zip");
        manager.RemovePacket("kit.zip");
        return recorded;
    });
    Starve("a cached file", [] {
        CGameResourceManager cache(hge_);
        if (!hge_->Resource_AttachPack(TEST_DATA "faults.zip")) return false;
        HTEXTURE tex = cache.create_tex("picture.png");
        bool cached = tex && cache.find_tex("picture.png") == tex;
        hge_->Texture_Free(tex);
        return cached;
    });
    hge_->Resource_AttachPack(TEST_DATA "faults.zip");
    Starve("a sprite", [] {
        CGameSprite sprite;
        return sprite.LoadImageA("picture.png", true);
    });
    char picture[] = "picture.png";
    Starve("an animation", [&] {
        CGameAnimation animation;
        return animation.loadAniTex(picture, 2, 5, 20, 30);
    });
    Starve("a font", [] {
        std::unique_ptr<GfxFont> font(new (std::nothrow) GfxFont("Arial", 20, 0, 0, 1));
        if (!font) hge_->System_Log("no font");
        DWORD textures = Counters().textures;
        if (font) font->Render(0, 0, L"Qy");
        return Counters().textures == textures + 2;
    });
    Starve("a button", [] {
        CGameButton button;
        button.SetCaption("caption");
        return button.LoadImageInfo("picture.png") && button.GetRect().x2 > 0;
    });
    Starve("a label that is too long", [] {
        CGameLable label;
        label.setformat(FORMAT_ELLIPSIS);
        label.SetText("a text that is much too long for such a narrow place");
        label.MoveWindow(0, 0, 100, 20, true);
        return true;
    });
    Starve("a layout", [] {
        CGameWindow window;
        Plate plate;
        CLayout layout(&window);
        bool added = layout.AddControl(&plate) && layout.AddControl(&plate);
        layout.RemoveAll();
        return added;
    });
    Starve("a movie", [] {
        char file[] = "C:\\a movie of a long name.swf";
        FlashManager::CreatFlashManager(hge_);
        bool started = FlashManager::StartSingleFlash(file, 0, 0, 20, 20);
        IFlashSprite* sprite = FlashManager::CreatFlashSprite(true);
        FlashManager::DestroyFlashSprite(sprite);
        FlashManager::DestroyFlashManager();
        return started;
    });
    Starve("a scene", [] {
        NotedScene scene;
        SceneManager scenes;
        return scenes.register_scene(&scene) && scenes.switch_scene(&scene);
    });
}

}  // namespace
