#include <hgesprite.h>

#include <algorithm>

#include "toys.h"

namespace soak {

namespace {

// The first one is attached while nothing else is.
const char* const kPacks[] = {"training_ui.zip", "hello.zip", "effects.zip", "game.zip", "training_play.zip"};
const char* const kImages[] = {"ball.png", "knob.png", "background.png", "cloud.png", "ring.png",
                               "day.jpg",  "logo.png", "spark.png",      "burst.png", "no such picture.png"};
const char* const kCachedImages[] = {"glint.png", "icon_plus.png", "icon_minus.png"};
constexpr size_t kMostSprites = 12, kMostTextures = 24, kMostTargets = 4, kMostAnimations = 6;

struct Place {
    float x = 0, y = 0, turn = 0, scale = 0;
};

Place AnyPlace(Dice& dice) {
    return {dice.Between(-50, 800), dice.Between(-50, 600), dice.Between(0, 6), dice.Between(0.2f, 1.5f)};
}

DWORD AnyColor(Dice& dice) {
    return 0xFF000000u + static_cast<DWORD>(dice.Below(0x1000000));
}

template <class Thing>
struct Placed {
    Thing thing{};
    Place place;
};

class Pictures : public Toys {
 public:
    Pictures() {
        manager_->AttachHge(hge_);
        Attach(kPacks[0]);
        // This cache never shrinks: it is filled before anything is counted.
        for (const char* name : kCachedImages)
            manager_->create_tex(name);
        OfferPacks();
        OfferSprites();
        OfferTextures();
    }

    void Step() override {
        for (auto& animation : animations_)
            animation.thing->Update(1 / 60.0f);
    }
    void Draw() override {
        hge_->Gfx_SetClipping(clip_[0], clip_[1], clip_[2], clip_[3]);
        if (turned_) hge_->Gfx_SetTransform(400, 300, 0, 0, 0.3f, 0.9f, 0.9f);
        for (const auto& [sprite, at] : sprites_)
            sprite->RenderEx(at.x, at.y, at.turn, at.scale, 0);
        for (const auto& [texture, at] : textures_)
            DrawTexture(texture, at);
        for (const auto& [target, at] : targets_)
            DrawTexture(hge_->Target_GetTexture(target), at);
        for (const auto& [animation, at] : animations_)
            animation->Render(at.x, at.y);
        hge_->Gfx_SetTransform();
        hge_->Gfx_SetClipping();
    }
    void Rest() override {
        sprites_.clear();
        animations_.clear();
        for (const auto& texture : std::exchange(textures_, {}))
            hge_->Texture_Free(texture.thing);
        for (const auto& target : std::exchange(targets_, {}))
            hge_->Target_Free(target.thing);
        for (const char* pack : kPacks) {
            manager_->RemovePacket(pack);
            manager_->FreePacketResource(pack);
        }
        Attach(kPacks[0]);
    }

 private:
    void OfferPacks() {
        MayLoad("attach a pack", 2, [this](Dice& dice) { Attach(dice.Of(kPacks)); });
        May("switch packs", 2, [this](Dice& dice) { manager_->SetCurPacket(dice.Of(kPacks)); });
        // Sprites that show its images draw nothing from then on.
        MayLoad("free a pack", 1, [this](Dice& dice) {
            const char* pack = dice.Of(kPacks);
            if (dice.Chance(70)) manager_->RemovePacket(pack);
            manager_->FreePacketResource(pack);
        });
        MayLoad("load a block", 2,
                [this](Dice& dice) { hge_->Resource_Free(hge_->Resource_Load(dice.Of(kImages))); });
    }
    void OfferSprites() {
        MayLoad("load a sprite", 6, [this](Dice& dice) { LoadSprite(dice); });
        May("free a sprite", 8, [this](Dice& dice) { dice.TakeFrom(sprites_); });
        May("change a sprite", 30, [this](Dice& dice) { ChangeSprite(dice); });
        MayLoad("load an animation", 2, [this](Dice& dice) { LoadAnimation(dice); });
        May("change an animation", 10, [this](Dice& dice) { ChangeAnimation(dice); });
        May("clip and turn", 10, [this](Dice& dice) {
            for (int& edge : clip_)
                edge = dice.Below(3) * 200;
            turned_ = dice.Chance(20);
        });
    }
    void OfferTextures() {
        May("make a texture", 20, [this](Dice& dice) { MakeTexture(dice); });
        May("write a texture", 40, [this](Dice& dice) { WriteTexture(dice); });
        May("free a texture", 20, [this](Dice& dice) { hge_->Texture_Free(dice.TakeFrom(textures_).thing); });
        May("make a target", 6, [this](Dice& dice) {
            if (targets_.size() >= kMostTargets) hge_->Target_Free(dice.TakeFrom(targets_).thing);
            int width = 16 + dice.Below(300), height = 16 + dice.Below(300);
            targets_.push_back({hge_->Target_Create(width, height, dice.Chance(30)), AnyPlace(dice)});
        });
        May("draw a target", 20, [this](Dice& dice) { DrawTarget(dice); });
        May("free a target", 6, [this](Dice& dice) { hge_->Target_Free(dice.TakeFrom(targets_).thing); });
    }

    void Attach(const char* pack) {
        manager_->AttachPacket(pack);
        manager_->SetCurPacket(pack);
    }
    void LoadSprite(Dice& dice) {
        auto sprite = std::make_unique<CGameSprite>();
        const char* name = dice.Of(kImages);
        int way = dice.Below(3);
        if (way == 0) sprite->LoadImageA(name, manager_, dice.Chance(50));
        if (way == 1) sprite->LoadImageA(name, dice.Chance(50));
        if (way == 2) sprite->load_tex(dice.Of(kCachedImages), true);
        if (sprites_.size() >= kMostSprites) dice.TakeFrom(sprites_);
        sprites_.push_back({std::move(sprite), AnyPlace(dice)});
    }
    void ChangeSprite(Dice& dice) {
        if (sprites_.empty()) return;
        auto& [sprite, place] = dice.Of(sprites_);
        place = AnyPlace(dice);
        sprite->SetColor(AnyColor(dice) & 0xC0FFFFFF, dice.Below(5) - 1);
        sprite->SetBlendMode(dice.Below(4));
        sprite->SetFlip(dice.Chance(50), dice.Chance(50), dice.Chance(50));
        sprite->SetHotSpot(dice.Between(0, 50), dice.Between(0, 50));
    }
    // Most are small enough to share pages with others.
    void MakeTexture(Dice& dice) {
        int most = dice.Chance(90) ? 128 : 600;
        HTEXTURE texture = hge_->Texture_Create(1 + dice.Below(most), 1 + dice.Below(most));
        if (textures_.size() >= kMostTextures) hge_->Texture_Free(dice.TakeFrom(textures_).thing);
        textures_.push_back({texture, AnyPlace(dice)});
        WriteTexture(dice);
    }
    void WriteTexture(Dice& dice) {
        if (textures_.empty()) return;
        HTEXTURE texture = dice.Of(textures_).thing;
        int pitch = hge_->Texture_GetWidth(texture), rows = hge_->Texture_GetHeight(texture);
        int left = dice.Below(pitch), top = dice.Below(rows);
        int width = 1 + dice.Below(pitch - left), height = 1 + dice.Below(rows - top);
        DWORD* pixels = hge_->Texture_Lock(texture, dice.Chance(10), left, top, width, height);
        DWORD color = AnyColor(dice);
        for (int y = 0; pixels && y < height; ++y)
            std::fill_n(pixels + y * pitch, width, color);
        hge_->Texture_Unlock(texture);
    }
    void DrawTarget(Dice& dice) {
        if (targets_.empty() || !hge_->Gfx_BeginScene(dice.Of(targets_).thing)) return;
        hge_->Gfx_Clear(AnyColor(dice));
        if (!sprites_.empty()) dice.Of(sprites_).thing->Render(dice.Between(0, 200), dice.Between(0, 200));
        hge_->Gfx_RenderLine(0, 0, dice.Between(0, 300), dice.Between(0, 300));
        hge_->Gfx_EndScene();
    }
    void LoadAnimation(Dice& dice) {
        auto animation = std::make_unique<CGameAnimation>();
        // The names are only read.
        if (dice.Chance(50))
            animation->LoadAniImage(const_cast<char*>(dice.Of(kImages)), 1 + dice.Below(4), 12, 0, 0);
        else
            animation->loadAniTex(const_cast<char*>(dice.Of(kCachedImages)), 2, 10, 8, 8);
        if (animations_.size() >= kMostAnimations) dice.TakeFrom(animations_);
        animations_.push_back({std::move(animation), AnyPlace(dice)});
    }
    void ChangeAnimation(Dice& dice) {
        if (animations_.empty()) return;
        auto& animation = *dice.Of(animations_).thing;
        animation.SetMode(dice.Below(16));
        animation.SetSpeed(dice.Between(0, 100));
        animation.SetFrame(dice.Below(9) - 4);
        dice.Chance(70) ? animation.Play() : animation.Stop();
    }
    void DrawTexture(HTEXTURE texture, const Place& at) {
        float width = static_cast<float>(hge_->Texture_GetWidth(texture));
        float height = static_cast<float>(hge_->Texture_GetHeight(texture));
        hgeSprite(texture, 0, 0, width, height).RenderEx(at.x, at.y, at.turn, at.scale);
    }

    std::vector<Placed<std::unique_ptr<CGameSprite>>> sprites_;
    std::vector<Placed<HTEXTURE>> textures_;
    std::vector<Placed<HTARGET>> targets_;
    std::vector<Placed<std::unique_ptr<CGameAnimation>>> animations_;
    int clip_[4] = {};
    bool turned_ = false;
};

}  // namespace

std::unique_ptr<Toys> MakePictures() {
    return std::make_unique<Pictures>();
}

}  // namespace soak
