#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Named scenes, each timed beside its bare limit: the least work that could give the same result.
namespace bench {

// Steady clock, nanoseconds.
double Now();

// Work of the framework and of the heap.
struct Counts {
    int64_t draws = 0, uploads = 0, upload_bytes = 0, allocations = 0;
};

// Takes the time of those parts of a round that count.
class Meter {
 public:
    template <class Part>
    void operator()(Part&& part) {
        const Counts before = CountNow();
        const double start = Now();
        part();
        const double end = Now();
        Add(end - start);
        CountSince(before);
    }
    void Add(double nanoseconds) { nanoseconds_ += nanoseconds; }

    double nanoseconds() const { return nanoseconds_; }
    const Counts& counts() const { return counts_; }

 private:
    static Counts CountNow();
    void CountSince(const Counts& before);

    double nanoseconds_ = 0;
    Counts counts_;
};

using Work = std::function<void(Meter&)>;

struct Scene {
    // Times are shown for one of so many items of a round.
    double items = 1;
    Work ours;
    Work bare;         // may be empty
    double limit = 0;  // ours takes at most so many times as long as bare; 0: no target
    // Scenes of one family differ in size only; how the time of a round grows is fitted over three of them.
    std::string family;
    double size = 0;
    double growth_limit = 0;  // largest exponent
    bool heap_free = false;   // a round must not allocate
    bool is_value = false;    // ours gives no time but a number, at most limit
    bool slow = false;        // the rounds are long: the fewest do
    int64_t most_draws = 0;   // in a round; 0: any number
};

struct Options {
    std::string pattern = ".", csv;
    bool quick = false, list = false;
    double hold_seconds = 0;  // above 0: nothing is measured, our side of each scene runs for so long
};

class Suite {
 public:
    explicit Suite(const Options& options) : options_(options) {}

    // make sets the scene up; what it needs lives in the scene's functions.
    void Add(const std::string& name, std::function<Scene()> make) { entries_.push_back({name, make}); }
    // A number that is judged by itself: at most limit.
    void AddValue(const std::string& name, double limit, std::function<double()> measure);
    // A number of items; a hundredth of it where all that counts is that the scene runs.
    int Size(int wanted) const { return options_.quick ? wanted / 100 : wanted; }

    void List() const;
    // False when a scene failed.
    bool Run();

 private:
    struct Entry {
        std::string name;
        std::function<Scene()> make;
    };
    struct Row {
        std::string name;
        Scene scene;  // without its functions
        double minimum = 0, median = 0, bare_minimum = 0, bare_median = 0, ratio = 0;
        Counts counts;
        bool missed() const;
    };

    void Hold(const Entry& entry) const;
    void Show(const Entry& entry);
    Row Measure(const std::string& name, const Scene& scene) const;
    void Print(const Row& row) const;
    void PrintGrowth(const std::string& family) const;
    bool WriteCsv() const;

    Options options_;
    std::vector<Entry> entries_;
    std::vector<Row> rows_;
};

// Ends the scene with a reason.
[[noreturn]] void Fail(const std::string& reason);
void Require(bool condition, const char* reason);

}  // namespace bench
