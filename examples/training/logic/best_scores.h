#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace training {

// The best results of one exercise, highest first.
class BestScores {
 public:
    static constexpr size_t kPlaces = 5;

    // As ToText writes them; what is no score is left out.
    static BestScores FromText(const std::string& text);
    std::string ToText() const;

    // The place taken, from 0; -1 when the score is not among the best. 0 points take no place.
    int Add(int score);
    // 0 when there is none.
    int Best() const { return scores_.empty() ? 0 : scores_.front(); }
    const std::vector<int>& All() const { return scores_; }

 private:
    std::vector<int> scores_;
};

}  // namespace training
