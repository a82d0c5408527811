#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace training {

// The board of every exercise: lamps in rows, numbered from the top left.
constexpr int kColumns = 4;
constexpr int kRows = 3;
constexpr int kLamps = kColumns * kRows;

enum class Lamp { kOff, kLit, kDecoy, kGood, kBad };

struct Event {
    enum Kind { kLight, kHit, kMiss, kLevelUp };
    Kind kind;
    int lamp;  // -1 when the event belongs to no lamp
};

// What a result is made of.
struct Summary {
    int score = 0;
    int level = 1;
    int hits = 0;
    int misses = 0;
    // 0..100, 0 when nothing was tried.
    int Accuracy() const { return hits + misses ? 100 * hits / (hits + misses) : 0; }
};

// One exercise from its first lamp to its end. It knows no screen and no clock: the host gives it time and
// presses and draws what it says.
class Exercise {
 public:
    static constexpr int kLives = 3;

    virtual ~Exercise() = default;

    // Seconds. The lamps that show a result go out by themselves.
    void Update(float dt);
    // A press on a lamp, 0..kLamps - 1; others are ignored.
    void Press(int lamp);
    // The right press at this moment, -1 when there is none.
    virtual int Answer() const = 0;
    // False while the exercise shows something that is to be watched.
    virtual bool TakesPresses() const = 0;
    // 0..1: how much of the present turn's time is left.
    virtual float TimeLeft() const = 0;

    Lamp StateOf(int lamp) const { return lamps_[static_cast<size_t>(lamp)]; }
    bool Finished() const { return finished_; }
    int Lives() const { return lives_; }
    const Summary& Result() const { return result_; }
    // What has happened since the last call.
    std::vector<Event> TakeEvents();

 protected:
    virtual void Advance(float dt) = 0;
    virtual void Answered(int lamp) = 0;

    void Set(int lamp, Lamp state) { lamps_[static_cast<size_t>(lamp)] = state; }
    void AllOff();
    // Lets a lamp show the outcome of a press for a moment.
    void Flash(int lamp, Lamp state);
    void Report(Event::Kind kind, int lamp) { events_.push_back({kind, lamp}); }
    void Hit(int lamp, int points);
    // Takes a life; the last one ends the exercise.
    void Miss(int lamp);
    void LevelUp();
    void Finish() { finished_ = true; }

 private:
    void FadeFlash(float dt);

    std::array<Lamp, kLamps> lamps_ = {};
    std::vector<Event> events_;
    Summary result_;
    int lives_ = kLives;
    int flashed_ = -1;
    float flash_left_ = 0;
    bool finished_ = false;
};

}  // namespace training
