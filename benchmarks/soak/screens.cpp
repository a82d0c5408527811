#include <cstdio>
#include <string>

#include "toys.h"

namespace soak {

namespace {

const char* const kEffects[] = {"crossfade.hlsl", "lantern.hlsl", "ripple.hlsl", "no such effect.hlsl"};

// A colour behind everything.
struct Scene : IScener {
    explicit Scene(DWORD color) : ground(0, 0) { ground.SetColor(color, -1); }
    void render() override { ground.RenderStretch(0, 0, 800, 600); }
    void show() override {}
    void hide() override {}
    void update(float) override {}
    void save_ctl_status() override {}
    void repeat_status() override {}
    void mouse_lbdown(float, float) override {}
    void mouse_lbup(float, float) override {}
    void mouse_rbdown(float, float) override {}
    void mouse_rbup(float, float) override {}
    void mouse_move(float, float) override {}

    CGameSprite ground;
};

class Screens : public Toys {
 public:
    Screens() {
        hge_->System_SetState(HGE_INIFILE, "soak.ini");
        CreateDirectoryA(hge_->Resource_MakePath("soak"), nullptr);
        for (Scene* scene : {&red_, &green_})
            scenes_.register_scene(scene);
        scenes_.switch_scene(&red_);
        OfferScreens();
        OfferOthers();
    }
    ~Screens() override {
        FreeEffect();
        DeletePictures();
    }

    void Step() override { scenes_.update_scene(1 / 60.0f); }
    void Draw() override { scenes_.render_scene(); }
    void Rest() override {
        CreateEffect("no such effect.hlsl");
        engine_->SetCursor("icon_plus.png", manager_);
        hge_->System_SetState(HGE_WINDOWED, false);
        // The first one makes the device keep a large buffer.
        hge_->System_Snapshot("soak\\rest.png");
        DeletePictures();
    }

 private:
    void OfferScreens() {
        MayLoad("save a picture", 1, [this](Dice& dice) { SavePicture(dice); });
        MayLoad("create an effect", 1, [this](Dice& dice) {
            hge_->Resource_AttachPack("effects.zip");
            CreateEffect(dice.Of(kEffects));
        });
        MayLoad("load an effect file", 2, [this](Dice& dice) { hge_->Gfx_LoadEffect(dice.Of(kEffects)); });
        May("switch scenes", 10,
            [this](Dice& dice) { scenes_.switch_scene(dice.Chance(50) ? &red_ : &green_); });
        MayLoad("window or full screen", 1,
                [this](Dice& dice) { hge_->System_SetState(HGE_WINDOWED, dice.Chance(50)); });
        MayLoad("minimise", 1, [this](Dice&) { ShowWindow(hge_->System_GetState(HGE_HWND), SW_MINIMIZE); });
    }
    void OfferOthers() {
        MayLoad("set the cursor", 1, [this](Dice& dice) {
            engine_->SetCursor(dice.Chance(80) ? "glint.png" : "no such picture.png", manager_);
        });
        MayLoad("save settings", 10, [this](Dice& dice) {
            std::string name = "name" + std::to_string(dice.Below(10));
            hge_->Ini_SetInt("soak", name.c_str(), dice.Below(1000));
            hge_->Ini_SetString("\xd1\xb5\xc1\xb7", name.c_str(), "\xbf\xaa\xca\xbc");
            hge_->Ini_GetFloat("soak", name.c_str(), 0);
        });
        May("training time", 5, [this](Dice& dice) {
            if (dice.Chance(50)) engine_->initPlayTime();
            dice.Chance(50) ? engine_->playGame() : engine_->PauseGame();
        });
        May("texture filter", 2,
            [this](Dice& dice) { hge_->System_SetState(HGE_TEXTUREFILTER, dice.Chance(70)); });
    }
    void CreateEffect(std::string name) {
        FreeEffect();
        engine_->CreateFx(name.data());
    }
    // The engine leaves those of an earlier call to the host.
    void FreeEffect() {
        delete engine_->GetBackSpr();
        hge_->Target_Free(engine_->GetTaget());
        hge_->Target_Free(engine_->GetTaget1());
    }
    void SavePicture(Dice& dice) {
        if (dice.Chance(50)) return engine_->saveImage("soak ");
        char name[32];
        std::snprintf(name, sizeof name, "soak\\shot%d.%s", dice.Below(3), dice.Chance(80) ? "bmp" : "png");
        hge_->System_Snapshot(name);
    }
    // The engine names them by the time: they would fill the disk.
    void DeletePictures() {
        std::string folder = hge_->Resource_MakePath("pic\\");
        while (const char* file = hge_->Resource_EnumFiles("pic\\soak *.bmp"))
            if (!DeleteFileA((folder + file).c_str())) return;
    }

    Scene red_{0xFF603030}, green_{0xFF306030};
    SceneManager scenes_;
};

}  // namespace

std::unique_ptr<Toys> MakeScreens() {
    return std::make_unique<Screens>();
}

}  // namespace soak
