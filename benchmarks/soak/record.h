#pragma once

#include <cstdint>
#include <vector>

#include "gauges.h"

namespace soak {

// What a run has shown, and the verdict on it.
class Record {
 public:
    // A frame that took this long; load: it read files or changed the screen's mode.
    void AddFrame(double milliseconds, bool load);
    // Taken while everything that can be given back is.
    void AddRest(const Gauges& gauges) { rests_.push_back(gauges); }
    // One line each ten seconds, in brackets what was left at the last rest.
    void PrintLineWhenDue();
    // Prints it. log: the framework's, of this run. warm: the run was long enough for memory and slow
    // frames to count.
    bool Verdict(const char* log, bool warm);

 private:
    bool IsFlat(size_t gauge, bool judged) const;
    bool LogIsAsExpected(const char* log);

    std::vector<Gauges> rests_;
    long frames_ = 0, frames_since_line_ = 0, slow_ = 0, loads_ = 0, sound_losses_ = 0;
    double seconds_ = 0, last_line_ = 0, worst_since_line_ = 0, worst_ = 0, worst_load_ = 0;
    bool worst_is_load_ = false;
};

}  // namespace soak
