#include "harness.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <regex>
#include <stdexcept>

#include "allocations.h"
#include "hgecounters.h"

namespace bench {

namespace {

constexpr int kWarmUp = 2, kRounds = 9, kSlowWarmUp = 1, kSlowRounds = 7, kQuickRounds = 1;
constexpr size_t kSizesOfFit = 3;

struct Samples {
    std::vector<double> values;
    double minimum() const { return values.empty() ? 0 : *std::min_element(values.begin(), values.end()); }
    double median() const {
        if (values.empty()) return 0;
        std::vector<double> sorted = values;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }
};

std::string TimeText(double nanoseconds) {
    char text[32];
    if (nanoseconds >= 1e7)
        std::snprintf(text, sizeof text, "%.1f ms", nanoseconds / 1e6);
    else if (nanoseconds >= 1e4)
        std::snprintf(text, sizeof text, "%.1f us", nanoseconds / 1e3);
    else
        std::snprintf(text, sizeof text, nanoseconds >= 100 ? "%.0f ns" : "%.1f ns", nanoseconds);
    return nanoseconds > 0 ? text : "";
}

std::string Number(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return value > 0 ? text : "";
}

// Slope of the line through the logarithms.
double Exponent(const std::vector<std::pair<double, double>>& points) {
    double n = static_cast<double>(points.size()), x = 0, y = 0, xx = 0, xy = 0;
    for (const auto& [size, time] : points) {
        const double a = std::log(size), b = std::log(time);
        x += a;
        y += b;
        xx += a * a;
        xy += a * b;
    }
    return (n * xy - x * y) / (n * xx - x * x);
}

}  // namespace

double Now() {
    static const double period = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return 1e9 / static_cast<double>(frequency.QuadPart);
    }();
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * period;
}

void Fail(const std::string& reason) {
    throw std::runtime_error(reason);
}

void Require(bool condition, const char* reason) {
    if (!condition) Fail(reason);
}

Counts Meter::CountNow() {
    hgeCounters work;
    hgeGetCounters(&work);
    return {work.draws, work.uploads, work.upload_bytes, Allocations()};
}

void Meter::CountSince(const Counts& before) {
    const Counts now = CountNow();
    counts_.draws += now.draws - before.draws;
    counts_.uploads += now.uploads - before.uploads;
    counts_.upload_bytes += now.upload_bytes - before.upload_bytes;
    counts_.allocations += now.allocations - before.allocations;
}

bool Suite::Row::missed() const {
    return (scene.limit > 0 && ratio > scene.limit) || (scene.heap_free && counts.allocations > 0) ||
           (scene.most_draws > 0 && counts.draws > scene.most_draws);
}

void Suite::AddValue(const std::string& name, double limit, std::function<double()> measure) {
    Add(name, [limit, measure] {
        Scene scene;
        scene.is_value = scene.slow = true;
        scene.limit = limit;
        scene.ours = [measure](Meter& meter) { meter.Add(measure()); };
        return scene;
    });
}

void Suite::List() const {
    for (const Entry& entry : entries_)
        std::puts(entry.name.c_str());
}

void Suite::Hold(const Entry& entry) const {
    const Scene scene = entry.make();
    int rounds = 0;
    for (const double start = Now(); Now() - start < options_.hold_seconds * 1e9; ++rounds) {
        Meter meter;
        scene.ours(meter);
    }
    std::printf("%s: %d rounds\n", entry.name.c_str(), rounds);
}

// Round by round, so that a busy moment of the machine hits both; the ratio is the median of the rounds' own.
Suite::Row Suite::Measure(const std::string& name, const Scene& scene) const {
    Samples ours, bare, ratios;
    Row row;
    const int rounds = options_.quick ? kQuickRounds : scene.slow ? kSlowRounds : kRounds;
    for (int round = scene.slow ? -kSlowWarmUp : -kWarmUp; round < rounds; ++round) {
        Meter our_meter, bare_meter;
        scene.ours(our_meter);
        if (scene.bare) scene.bare(bare_meter);
        if (round < 0) continue;
        row.counts = our_meter.counts();
        ours.values.push_back(our_meter.nanoseconds() / scene.items);
        if (scene.is_value) ratios.values.push_back(our_meter.nanoseconds());
        if (!scene.bare) continue;
        bare.values.push_back(bare_meter.nanoseconds() / scene.items);
        ratios.values.push_back(ours.values.back() / bare.values.back());
    }
    row.name = name;
    row.scene = scene;
    row.scene.ours = row.scene.bare = nullptr;
    row.minimum = ours.minimum();
    row.median = ours.median();
    row.bare_minimum = bare.minimum();
    row.bare_median = bare.median();
    row.ratio = ratios.median();
    return row;
}

bool Suite::Run() {
    const bool hold = options_.hold_seconds > 0;
    if (!hold)
        std::printf("%-44s %9s %9s %9s %9s %6s %6s %6s %7s %9s %7s\n", "scene, times for one item", "min",
                    "median", "bare min", "bare med", "ratio", "target", "draws", "uploads", "bytes",
                    "allocs");
    const std::regex pattern(options_.pattern);
    bool all_ran = true;
    for (const Entry& entry : entries_) {
        if (!std::regex_search(entry.name, pattern)) continue;
        try {
            hold ? Hold(entry) : Show(entry);
        } catch (const std::exception& problem) {
            std::printf("%-44s did not run: %s\n", entry.name.c_str(), problem.what());
            all_ran = false;
        }
        std::fflush(stdout);
    }
    return (hold || WriteCsv()) && all_ran;
}

void Suite::Show(const Entry& entry) {
    rows_.push_back(Measure(entry.name, entry.make()));
    Print(rows_.back());
    if (!rows_.back().scene.family.empty()) PrintGrowth(rows_.back().scene.family);
}

void Suite::Print(const Row& row) const {
    std::printf("%-44s", row.name.c_str());
    for (double time : {row.minimum, row.median, row.bare_minimum, row.bare_median})
        std::printf(" %9s", row.scene.is_value ? "" : TimeText(time).c_str());
    std::printf(" %6s %6s %6lld %7lld %9lld %7lld%s\n", Number("%.2f", row.ratio).c_str(),
                Number("%.2f", row.scene.limit).c_str(), row.counts.draws, row.counts.uploads,
                row.counts.upload_bytes, row.counts.allocations, row.missed() ? "  MISSED" : "");
}

// Once, when the last size of the family is there.
void Suite::PrintGrowth(const std::string& family) const {
    std::vector<std::pair<double, double>> ours, bare;
    for (const Row& row : rows_) {
        if (row.scene.family != family) continue;
        ours.push_back({row.scene.size, row.median * row.scene.items});
        bare.push_back({row.scene.size, row.bare_median * row.scene.items});
    }
    if (ours.size() != kSizesOfFit) return;
    const double exponent = Exponent(ours), limit = rows_.back().scene.growth_limit;
    std::printf("  growth of %s: size to the power of %.2f, bare %.2f, target %.2f%s\n", family.c_str(),
                exponent, Exponent(bare), limit, exponent > limit ? "  MISSED" : "");
}

bool Suite::WriteCsv() const {
    if (options_.csv.empty()) return true;
    FILE* file = std::fopen(options_.csv.c_str(), "w");
    if (!file) {
        std::printf("cannot write %s\n", options_.csv.c_str());
        return false;
    }
    std::fputs(
        "scene,items,min_ns,median_ns,bare_min_ns,bare_median_ns,ratio,target,draws,uploads,upload_bytes,"
        "allocations\n",
        file);
    for (const Row& row : rows_)
        std::fprintf(file, "%s,%.0f,%.1f,%.1f,%.1f,%.1f,%.3f,%.2f,%lld,%lld,%lld,%lld\n", row.name.c_str(),
                     row.scene.items, row.minimum, row.median, row.bare_minimum, row.bare_median, row.ratio,
                     row.scene.limit, row.counts.draws, row.counts.uploads, row.counts.upload_bytes,
                     row.counts.allocations);
    return std::fclose(file) == 0;
}

}  // namespace bench
