#pragma once

#include <drill2d/drill2d.h>

#include <functional>
#include <memory>
#include <vector>

#include "dice.h"

namespace soak {

struct Action {
    const char* name;
    int weight;
    bool load;  // reads or writes large files or changes the screen's mode: its frame may take long
    std::function<void(Dice&)> run;
};

// One kind of things that come and go.
class Toys {
 public:
    virtual ~Toys() = default;
    // Every step, outside of scenes.
    virtual void Step() {}
    // Inside a scene.
    virtual void Draw() {}
    // Gives back everything that can be had again.
    virtual void Rest() = 0;

    std::vector<Action> actions;

 protected:
    void May(const char* name, int weight, std::function<void(Dice&)> run) {
        actions.push_back({name, weight, false, std::move(run)});
    }
    void MayLoad(const char* name, int weight, std::function<void(Dice&)> run) {
        actions.push_back({name, weight, true, std::move(run)});
    }

    I2DGameEngine* engine_ = C2DGameEngine::Get2DGameEngineInstance();
    HGE* hge_ = engine_->GetHge();
    CGameResourceManager* manager_ = CGameResourceManager::getInstance();
};

// Made in OnInit and gone before the engine.
std::unique_ptr<Toys> MakePictures();
std::unique_ptr<Toys> MakeTexts();
std::unique_ptr<Toys> MakeControls();
std::unique_ptr<Toys> MakeSounds();
std::unique_ptr<Toys> MakeMovies();
std::unique_ptr<Toys> MakeScreens();

}  // namespace soak
