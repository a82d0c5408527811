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
constexpr int kSlowToTell = 20;

// Lines that such a run has to bring: what is missing on purpose, handles that went first, and the life of
// the engine.
// What such a run has to bring: the life of the engine, and what is missing or goes first on purpose.
const char* const kExpectedInLog[] = {"HGE ",
                                      "graphics: Direct3D",
                                      "sound: ",
                                      "running: ",
                                      "finished",
                                      "snapshot written",
                                      "attached: ",
                                      "cannot load \"",
                                      "effect \"",
                                      "which is no texture",
                                      "is no texture, or a target's"};

long Median(std::vector<long> values) {
    if (values.empty()) return 0;
    auto middle = values.begin() + static_cast<long>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

bool IsExpected(const std::string& line) {
    return std::any_of(std::begin(kExpectedInLog), std::end(kExpectedInLog),
                       [&](const char* part) { return line.find(part) != std::string::npos; });
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
    if (++slow_ <= kSlowToTell) std::printf("  %.0f ms at %s\n", milliseconds, LastActions().c_str());
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

bool Record::IsFlat(size_t gauge) const {
    auto quarter = [&](size_t number) {
        std::vector<long> values;
        for (size_t i = rests_.size() * (number - 1) / 4; i < rests_.size() * number / 4; ++i)
            values.push_back(rests_[i][gauge]);
        return Median(values);
    };
    long before = quarter(2), after = quarter(4);
    bool flat = after - before <= kGauges[gauge].slack;
    std::printf("  %-12s %8ld %8ld  %s\n", kGauges[gauge].name, before, after, flat ? "flat" : "GROWN");
    return flat;
}

bool Record::LogIsAsExpected(const char* log) const {
    std::ifstream file(log);
    std::string line;
    int unexpected = 0;
    bool finished = false;
    while (std::getline(file, line)) {
        finished = line.find("finished") != std::string::npos;
        if (IsExpected(line)) continue;
        if (++unexpected <= 20) std::printf("  unexpected in the log: %s\n", line.c_str());
    }
    std::printf("  log: %d unexpected lines, %s\n", unexpected, finished ? "finished" : "NOT FINISHED");
    return unexpected == 0 && finished;
}

bool Record::Verdict(const char* log, bool warm) const {
    std::printf("at rest, medians of the second and the last quarter of %u:\n",
                static_cast<unsigned>(rests_.size()));
    bool good = rests_.size() >= 4;
    for (size_t i = 0; i < std::size(kGauges); ++i)
        good &= IsFlat(i) || (i == 0 && !warm);
    std::printf("  %ld frames over %.0f ms that were no loads (worst %.0f ms)\n", slow_, kSlowMilliseconds,
                worst_);
    std::printf("  %ld of %ld frames were loads (worst %.0f ms)\n", loads_, frames_, worst_load_);
    good &= LogIsAsExpected(log);
    good &= slow_ == 0 || !warm;
    std::printf("%s\n", good ? "soak: passed" : "soak: FAILED");
    return good;
}

}  // namespace soak
