#include <gtest/gtest.h>

#include "logic/best_scores.h"
#include "logic/options.h"
#include "logic/texts.h"

using namespace training;

TEST(BestScores, KeepsTheBestFiveInOrderAndOnlyNumbersOfItsText) {
    BestScores scores = BestScores::FromText(",300,x,12y,-3,99999999999, 5,100,500");
    EXPECT_EQ(scores.Add(300), 2) << "behind the older one";
    EXPECT_EQ(scores.Add(200), 3);
    EXPECT_EQ(scores.Add(100), -1);
    EXPECT_EQ(scores.Add(400), 1);
    EXPECT_EQ(scores.Add(0), -1);
    EXPECT_EQ(scores.ToText(), "500,400,300,300,200");
}

TEST(Options, AreReadInAnyOrderAndNameWhatTheyDoNotTake) {
    std::string error;
    Options options = Options::Parse(" --limit 90 --seed 17 --language zh --ini own.ini --quiet", &error);
    EXPECT_TRUE(options.seed == 17 && options.limit_seconds == 90 && options.quiet);
    EXPECT_TRUE(options.language == "zh" && options.ini_file == "own.ini" && error.empty());
    options = Options::Parse("--seed 0 --limit -4 --language fr --seed 5x --loud", &error);
    EXPECT_EQ(error, "--seed --limit --language --seed --loud");
    EXPECT_TRUE(options.seed == 0 && options.limit_seconds == 0 && options.language.empty());
}

TEST(Texts, SayTheSameThingInBothLanguages) {
    auto has_number = [](const std::wstring& text) { return text.find(L"%d") != text.npos; };
    for (int i = 0; i < static_cast<int>(Text::kCount); ++i) {
        std::wstring english = Say(static_cast<Text>(i), Language::kEnglish);
        std::wstring chinese = Say(static_cast<Text>(i), Language::kChinese);
        EXPECT_FALSE(english.empty());
        EXPECT_NE(english, chinese) << i;
        EXPECT_EQ(has_number(english), has_number(chinese)) << i;
    }
}
