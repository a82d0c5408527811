#include "flash/control/movie_control.h"
#include "toys.h"

namespace soak {

namespace {

constexpr size_t kMostMovies = 6;
char kFile[] = "C:\\movie.swf";  // the control opens no file

class Movies : public Toys {
 public:
    Movies() {
        // The control of the tests, which the kit then finds by its name.
        HMODULE module = LoadLibraryA(hge_->Resource_MakePath("flash\\flash.ocx"));
        if (!module) return;
        control_ = reinterpret_cast<decltype(&GetMovieControl)>(
            reinterpret_cast<void*>(GetProcAddress(module, "GetMovieControl")))();
        MayLoad("play a movie once", 1, [](Dice& dice) {
            FlashManager::StartSingleFlash(kFile, dice.Below(700), dice.Below(500), 96, 60);
        });
        MayLoad("play a movie", 2, [this](Dice& dice) { Play(dice); });
        May("change a movie", 20, [this](Dice& dice) { Change(dice); });
        May("end a movie", 2, [this](Dice& dice) {
            IFlashSprite* movie = dice.TakeFrom(movies_);
            FlashManager::DestroyFlashSprite(movie);
        });
    }
    ~Movies() override { Rest(); }

    void Step() override {
        if (control_ && ++steps_ % 5 == 0) control_->Step();
    }
    void Draw() override {
        for (IFlashSprite* movie : movies_)
            movie->Render(300, 200);
    }
    void Rest() override {
        for (IFlashSprite* movie : std::exchange(movies_, {}))
            FlashManager::DestroyFlashSprite(movie);
        // What it has recorded would grow for ever.
        if (control_) control_->Clear();
    }

 private:
    void Play(Dice& dice) {
        if (movies_.size() >= kMostMovies) return;
        IFlashSprite* movie = FlashManager::CreatFlashSprite(dice.Chance(60));
        movie->LoadFlash(kFile, 20 + dice.Below(200), 20 + dice.Below(200));
        movie->SetAutoRenderPos(dice.Below(700), dice.Below(500));
        movie->Play();
        movies_.push_back(movie);
    }
    void Change(Dice& dice) {
        if (movies_.empty()) return;
        IFlashSprite* movie = dice.Of(movies_);
        switch (dice.Below(6)) {
            case 0:
                return movie->Pause();
            case 1:
                return movie->Unpause();
            case 2:
                return movie->Rewind();
            case 3:
                return movie->Stop();
            case 4:
                return movie->SetLoopPlay(dice.Chance(50));
            default:
                return movie->Play();
        }
    }

    MovieControl* control_ = nullptr;
    std::vector<IFlashSprite*> movies_;
    int steps_ = 0;
};

}  // namespace

std::unique_ptr<Toys> MakeMovies() {
    return std::make_unique<Movies>();
}

}  // namespace soak
