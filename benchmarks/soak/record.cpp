#include "record.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "watch.h"

namespace soak {

namespace {

constexpr double kSecondsBetweenLines = 10, kSlowMilliseconds = 100;
constexpr int kMostLines = 20;
constexpr size_t kFewestRests = 8;
// Wine's sound engine leaves its thread and two events behind.
constexpr long kHandlesOfLostSound = 3;

// What such a run has to bring: the life of the engine, and what is missing or goes first on purpose.
const char* const kExpectedInLog[] = {
    "HGE ", "graphics: Direct3D", "sound: ", "running: ", "finished",
    // Of labels, by SetFont; with their glyphs, and the packs' pictures.
    "shutdown: still alive in the kit: 2 fonts", "shutdown: still alive: ", "snapshot written",
    "attached: ", "cannot load \"", "effect \"", "which is no texture", "is no texture, or a target's"};

long Median(std::vector<long> values) {
    auto middle = values.begin() + static_cast<long>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

bool Holds(const std::string& line, const char* part) {
    return line.find(part) != std::string::npos;
}

}  // namespace

void Record::AddFrame(double milliseconds, bool load) {
    ++frames_;
    ++frames_since_line_;
    loads_ += load;
    seconds_ += milliseconds / 1000;
    if (milliseconds > worst_since_line_) {
        worst_since_line_ = milliseconds;
        worst_is_load_ = load;
    }
    double& worst = load ? worst_load_ : worst_;
    worst = std::max(worst, milliseconds);
    if (load || milliseconds <= kSlowMilliseconds) return;
    if (++slow_ <= kMostLines) std::printf("  %.0f ms at %s\n", milliseconds, LastActions().c_str());
}

void Record::PrintLineWhenDue() {
    if (seconds_ - last_line_ < kSecondsBetweenLines) return;
    std::printf("%6.2f min, %ld frames, %.1f fps, worst %.0f ms%s:", seconds_ / 60, frames_,
                static_cast<double>(frames_since_line_) / (seconds_ - last_line_), worst_since_line_,
                worst_is_load_ ? " (load)" : "");
    Gauges gauges = ReadGauges();
    for (size_t i = 0; i < gauges.size(); ++i)
        std::printf(" %s %ld (%ld),", kGauges[i].name, gauges[i], rests_.empty() ? 0 : rests_.back()[i]);
    std::printf("\n");
    std::fflush(stdout);
    last_line_ = seconds_;
    worst_since_line_ = 0;
    frames_since_line_ = 0;
}

bool Record::IsFlat(size_t gauge, bool judged) const {
    auto quarter = [&](size_t number) {
        std::vector<long> values;
        for (size_t i = rests_.size() * (number - 1) / 4; i < rests_.size() * number / 4; ++i)
            values.push_back(rests_[i][gauge]);
        return Median(values);
    };
    long before = quarter(2), after = quarter(4);
    long slack = kGauges[gauge].slack + (gauge == kHandles ? kHandlesOfLostSound * sound_losses_ : 0);
    bool flat = after - before <= slack;
    std::printf("  %-12s %8ld %8ld  %s\n", kGauges[gauge].name, before, after,
                flat     ? "flat"
                : judged ? "GROWN"
                         : "grown, not judged in a short run");
    return flat || !judged;
}

bool Record::LogIsAsExpected(const char* log) {
    std::ifstream file(log);
    std::string line;
    int unexpected = 0;
    bool finished = false;
    while (std::getline(file, line)) {
        finished |= Holds(line, "finished");
        sound_losses_ += Holds(line, "sound: the device is gone");
        bool expected = std::any_of(std::begin(kExpectedInLog), std::end(kExpectedInLog),
                                    [&](const char* part) { return Holds(line, part); });
        if (!expected && ++unexpected <= kMostLines)
            std::printf("  unexpected in the log: %s\n", line.c_str());
    }
    std::printf("  log: %d unexpected lines, %s, sound lost %ld times\n", unexpected,
                finished ? "finished" : "NOT FINISHED", sound_losses_);
    return unexpected == 0 && finished;
}

bool Record::Verdict(const char* log, bool warm) {
    bool good = LogIsAsExpected(log);
    std::printf("at rest, medians of the second and the last quarter of %u%s:\n",
                static_cast<unsigned>(rests_.size()),
                rests_.size() < kFewestRests ? ", too few to judge" : "");
    for (size_t i = 0; i < std::size(kGauges) && rests_.size() >= kFewestRests; ++i)
        good &= IsFlat(i, warm || i != kMemory);
    std::printf("  %ld frames over %.0f ms that were no loads (worst %.0f ms)\n", slow_, kSlowMilliseconds,
                worst_);
    std::printf("  %ld of %ld frames were loads (worst %.0f ms)\n", loads_, frames_, worst_load_);
    good &= slow_ == 0 || !warm;
    std::printf("%s\n", good ? "soak: passed" : "soak: FAILED");
    return good;
}

}  // namespace soak
