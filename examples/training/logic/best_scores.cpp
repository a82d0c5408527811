#include "logic/best_scores.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <sstream>

namespace training {

BestScores BestScores::FromText(const std::string& text) {
    BestScores scores;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, ',');) {
        int score = 0;
        auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), score);
        if (error == std::errc() && end == part.data() + part.size()) scores.Add(score);
    }
    return scores;
}

std::string BestScores::ToText() const {
    std::string text;
    for (int score : scores_)
        text += (text.empty() ? "" : ",") + std::to_string(score);
    return text;
}

// An equal score comes behind the older one.
int BestScores::Add(int score) {
    if (score <= 0) return -1;
    auto place = std::upper_bound(scores_.begin(), scores_.end(), score, std::greater<int>());
    auto index = place - scores_.begin();
    if (index >= static_cast<std::ptrdiff_t>(kPlaces)) return -1;
    scores_.insert(place, score);
    if (scores_.size() > kPlaces) scores_.pop_back();
    return static_cast<int>(index);
}

}  // namespace training
