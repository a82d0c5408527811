#pragma once

#include <functional>
#include <vector>

#include "harness.h"
#include "hge.h"

// The running framework that scenes play on: the whole screen of 800 x 600.
namespace bench {

constexpr int kScreenWidth = 800, kScreenHeight = 600;

class Stage {
 public:
    // The framework of the kit's engine, with no limit of frames.
    static HGE* Framework();

    // Runs the loop for so many frames. draw is called inside the screen's scene.
    static void Frames(int count, std::function<void()> draw);
    // Nanoseconds of a frame among many, in which presenting waits for what it has to.
    static double FrameTime(int count, const std::function<void()>& draw);
    // The same for frames of the engine, whose host draws nothing.
    static double EngineFrameTime(int count);
    // Nanoseconds from frame to frame. Without draw nothing is drawn or presented.
    static std::vector<double> FrameTimes(int count, std::function<void()> draw = nullptr);
    // Returns when the display is done with everything drawn so far.
    static void Settle();
    // Frame after frame from now on, so that a profiler sees little but the work.
    static void NeverSettle();
    // A round that counts draw and the scene around it, but no presenting.
    static Work Submission(std::function<void()> draw);
    // The quads that draw hands to the framework, which draws them too.
    static std::vector<hgeQuad> Record(const std::function<void()>& draw);
    static void Replay(const std::vector<hgeQuad>& quads);
};

// Textures of one colour each, freed at the end. Sizes are those of small images: 8 to 31 pixels.
class Textures {
 public:
    explicit Textures(int count);
    ~Textures();
    Textures(const Textures&) = delete;
    Textures& operator=(const Textures&) = delete;

    HTEXTURE operator[](size_t i) const { return ids_[i % ids_.size()]; }

 private:
    std::vector<HTEXTURE> ids_;
};

// The same numbers in every run.
class Dice {
 public:
    int Roll(int below) {
        state_ = state_ * 1664525 + 1013904223;
        return static_cast<int>((state_ >> 8) % static_cast<unsigned>(below));
    }

 private:
    unsigned state_ = 1;
};

}  // namespace bench
