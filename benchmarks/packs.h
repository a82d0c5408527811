#pragma once

#include <string>
#include <vector>

namespace bench {

// Packs of small images, made when the benchmarks are built.
constexpr int kPackSizes[] = {1000, 10000, 60000};

// Relative to the program's folder.
std::string PackName(int entries);
// Entries of such a pack in an order of chance, not more than wanted.
std::vector<std::string> EntryNames(int entries, int wanted);

}  // namespace bench
