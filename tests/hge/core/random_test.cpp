#include "core/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <set>
#include <vector>

namespace {

using hge::Random;

std::vector<int> Draw(Random& random, int count, int min, int max) {
    std::vector<int> numbers;
    while (count-- > 0)
        numbers.push_back(random.Int(min, max));
    return numbers;
}

TEST(RandomTest, TheSameSeedGivesTheSameSequence) {
    Random a, b;
    a.Seed(42);
    b.Seed(42);
    std::vector<int> first = Draw(a, 100, 0, 1000000);
    EXPECT_EQ(first, Draw(b, 100, 0, 1000000));
    b.Seed(43);
    EXPECT_NE(first, Draw(b, 100, 0, 1000000));
}

TEST(RandomTest, IntReachesBothEndsAndNothingElse) {
    Random random;
    random.Seed(1);
    std::vector<int> numbers = Draw(random, 1000, -2, 2);
    EXPECT_EQ(std::set<int>(numbers.begin(), numbers.end()), (std::set<int>{-2, -1, 0, 1, 2}));
    EXPECT_EQ(random.Int(INT_MAX, INT_MAX), INT_MAX);
    std::vector<int> all = Draw(random, 1000, INT_MIN, INT_MAX);
    EXPECT_NEAR(std::count_if(all.begin(), all.end(), [](int n) { return n < 0; }), 500, 100);
    int swapped = random.Int(9, 5);
    EXPECT_TRUE(swapped >= 5 && swapped <= 9);
}

TEST(RandomTest, FloatStaysInsideItsRange) {
    Random random;
    random.Seed(1);
    float sum = 0;
    for (int i = 0; i < 1000; ++i) {
        float x = random.Float(-1, 3);
        EXPECT_TRUE(x >= -1 && x <= 3);
        sum += x;
    }
    EXPECT_NEAR(sum / 1000, 1, 0.2);
    float wide = random.Float(-FLT_MAX, FLT_MAX);
    EXPECT_TRUE(wide >= -FLT_MAX && wide <= FLT_MAX);
}

}  // namespace
