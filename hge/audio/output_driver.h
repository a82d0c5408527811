#pragma once

#include <vector>

#include "audio/sound_output.h"

namespace hge {

// Keeps a device fed while there is one, and the clock going while there is none; tries again at intervals.
class OutputDriver {
 public:
    // Seconds between attempts to open a device, and without a hungry device until it counts as lost.
    static constexpr double kRetry = 2.0, kStarved = 1.0;

    // device may be null. now: seconds, from any clock that only goes forward.
    OutputDriver(SoundFeed& feed, SoundDevice* device, uint32_t rate, double now);

    // One round; returns the seconds until the next one is due.
    double Step(double now);
    void Close();

    bool has_device() const { return open_; }
    // A line for the log if something has changed since the last call, else "".
    std::string TakeNotice();

 private:
    void TryOpen(double now);
    bool MakeRoom(std::string* text);
    void Feed(double now);
    void Lose(double now);
    void SkipTo(double now);

    SoundFeed& feed_;
    SoundDevice* device_;
    uint32_t rate_;
    bool open_ = false;
    bool behind_ = false;  // time has passed since the last block, unheard
    double next_try_;
    double last_;  // until when the feed has been asked for
    std::string notice_, last_failure_;
    std::vector<float> block_;
};

}  // namespace hge
