#include <gtest/gtest.h>

#include <cwchar>
#include <string>

#include "logic/best_scores.h"
#include "logic/options.h"
#include "logic/texts.h"

using namespace training;

namespace {

int Numbers(const std::wstring& text) {
    int count = 0;
    for (size_t at = text.find(L"%d"); at != std::wstring::npos; at = text.find(L"%d", at + 1))
        ++count;
    return count;
}

}  // namespace

TEST(BestScores, KeepsTheBestFiveInOrder) {
    BestScores scores;
    EXPECT_EQ(scores.Best(), 0);
    EXPECT_EQ(scores.Add(300), 0);
    EXPECT_EQ(scores.Add(500), 0);
    EXPECT_EQ(scores.Add(300), 2) << "behind the older one";
    EXPECT_EQ(scores.Add(100), 3);
    EXPECT_EQ(scores.Add(200), 3);
    EXPECT_EQ(scores.Add(100), -1);
    EXPECT_EQ(scores.Add(400), 1);
    EXPECT_EQ(scores.All(), (std::vector<int>{500, 400, 300, 300, 200}));
    EXPECT_EQ(scores.Add(0), -1);
    EXPECT_EQ(scores.Add(-5), -1);
}

TEST(BestScores, SurvivesItsTextAndAnAlteredOne) {
    BestScores scores = BestScores::FromText("900,120,450");
    EXPECT_EQ(scores.ToText(), "900,450,120");
    EXPECT_EQ(BestScores::FromText(scores.ToText()).All(), scores.All());
    EXPECT_EQ(BestScores().ToText(), "");
    EXPECT_EQ(BestScores::FromText(",,x,12y,-3,99999999999, 5,77").ToText(), "77");
    EXPECT_EQ(BestScores::FromText("1,2,3,4,5,6,7").ToText(), "7,6,5,4,3");
}

TEST(Options, AreReadInAnyOrder) {
    Options options = Options::Parse(
        " --limit 90 --seed 17 --language zh --quiet --ini own.ini --self-play 10 --plain --pace 50");
    EXPECT_EQ(options.seed, 17u);
    EXPECT_EQ(options.limit_seconds, 90);
    EXPECT_EQ(options.language, "zh");
    EXPECT_TRUE(options.quiet);
    EXPECT_TRUE(options.plain);
    EXPECT_EQ(options.pace_percent, 50);
    EXPECT_EQ(options.ini_file, "own.ini");
    EXPECT_EQ(options.self_play_minutes, 10);
}

TEST(Options, NameWhatTheyDoNotTake) {
    std::string error;
    Options options = Options::Parse("--seed 0 --limit -4 --language fr --seed 5x --loud", &error);
    EXPECT_EQ(error, "--seed --limit --language --seed --loud");
    EXPECT_EQ(options.seed, 0u);
    EXPECT_EQ(options.limit_seconds, 0);
    EXPECT_EQ(options.language, "");
    error.clear();
    Options::Parse("--limit", &error);
    EXPECT_EQ(error, "--limit");
}

TEST(Texts, SayTheSameThingInBothLanguages) {
    for (int i = 0; i < static_cast<int>(Text::kCount); ++i) {
        std::wstring english = Say(static_cast<Text>(i), Language::kEnglish);
        std::wstring chinese = Say(static_cast<Text>(i), Language::kChinese);
        EXPECT_FALSE(english.empty());
        EXPECT_NE(english, chinese) << i;
        EXPECT_EQ(Numbers(english), Numbers(chinese)) << i;
    }
    EXPECT_EQ(Say(Text::kReaction, Language::kChinese), std::wstring(L"\u53cd\u5e94\u8bad\u7ec3"));
}
