#include <gtest/gtest.h>

#include "logic/memory_grid.h"
#include "logic/reaction_drill.h"
#include "logic/self_player.h"

using namespace training;

namespace {

constexpr float kFrame = 1.0f / 64;
constexpr int kHour = 64 * 3600;

// Lets time pass until the exercise takes presses.
void Wait(Exercise& exercise) {
    for (int frames = 0; !exercise.TakesPresses() && !exercise.Finished() && frames < kHour; ++frames)
        exercise.Update(kFrame);
}

void PlayWell(Exercise& exercise) {
    while (!exercise.Finished()) {
        Wait(exercise);
        exercise.Answer() < 0 ? exercise.Update(kFrame) : exercise.Press(exercise.Answer());
    }
}

std::vector<int> Lights(Exercise& exercise) {
    std::vector<int> lamps;
    for (const Event& event : exercise.TakeEvents())
        if (event.kind == Event::kLight) lamps.push_back(event.lamp);
    return lamps;
}

}  // namespace

TEST(ReactionDrill, TakesALifeForAWrongLampAndForALampThatRanOut) {
    ReactionDrill drill(3);
    drill.Press(drill.Answer());
    EXPECT_EQ(drill.Lives(), Exercise::kLives) << "still dark";
    Wait(drill);
    int lit = drill.Answer(), wrong = (lit + 1) % kLamps;
    drill.Press(wrong);
    EXPECT_EQ(drill.Lives(), 2);
    EXPECT_TRUE(drill.StateOf(wrong) == Lamp::kBad && drill.StateOf(lit) == Lamp::kOff);
    Wait(drill);
    while (drill.TakesPresses())
        drill.Update(kFrame);
    EXPECT_EQ(drill.Lives(), 1);
    EXPECT_FALSE(drill.Finished());
    Wait(drill);
    drill.Press((drill.Answer() + 1) % kLamps);
    EXPECT_TRUE(drill.Finished());
    EXPECT_EQ(drill.Result().Accuracy(), 0);
}

TEST(ReactionDrill, LetsADecoyGoOutForFreeAndPunishesItsPress) {
    ReactionDrill drill(5);
    bool seen = false;
    while (!drill.Finished() && !seen) {
        Wait(drill);
        seen = drill.TakesPresses() && drill.Answer() < 0;
        if (!seen) drill.Press(drill.Answer());
    }
    ASSERT_TRUE(seen);
    ReactionDrill careless = drill;
    while (drill.TakesPresses())
        drill.Update(kFrame);
    EXPECT_EQ(drill.Lives(), Exercise::kLives);
    for (int lamp = 0; lamp < kLamps; ++lamp)
        if (careless.StateOf(lamp) == Lamp::kDecoy) careless.Press(lamp);
    EXPECT_EQ(careless.Lives(), Exercise::kLives - 1);
}

TEST(ReactionDrill, EndsAfterItsTurnsAndRepeatsForASeed) {
    ReactionDrill first(11), again(11), other(12);
    for (ReactionDrill* drill : {&first, &again, &other})
        PlayWell(*drill);
    EXPECT_EQ(first.Result().Accuracy(), 100);
    EXPECT_EQ(first.Result().hits / ReactionDrill::kHitsPerLevel, first.Result().level - 1);
    std::vector<int> lights = Lights(first);
    EXPECT_EQ(lights.size(), static_cast<size_t>(ReactionDrill::kTurns));
    EXPECT_EQ(lights, Lights(again));
    EXPECT_NE(lights, Lights(other));
    for (size_t i = 1; i < lights.size(); ++i)
        EXPECT_NE(lights[i], lights[i - 1]) << i;
}

TEST(MemoryGrid, ShowsAPatternThatGrowsWithEachOneSolved) {
    MemoryGrid grid(9);
    Wait(grid);
    EXPECT_EQ(Lights(grid), grid.Pattern());
    for (int press = 0; press < 3; ++press)
        grid.Press(grid.Answer());
    EXPECT_EQ(grid.Result().score, 3 * MemoryLevel::Of(1).points);
    Wait(grid);
    EXPECT_EQ(grid.Pattern().size(), 4u);
    PlayWell(grid);
    EXPECT_EQ(grid.Result().level, MemoryGrid::kPatterns);
    EXPECT_EQ(grid.Result().hits, 3 + 4 + 5 + 6 + 7 + 8 + 9 + 10);
}

TEST(MemoryGrid, AMistakeCostsALifeAndBringsANewPatternOfTheSameLength) {
    MemoryGrid grid(9);
    Wait(grid);
    std::vector<int> pattern = grid.Pattern();
    grid.Press(grid.Answer());
    grid.Press((grid.Answer() + 1) % kLamps);
    EXPECT_EQ(grid.Lives(), 2);
    Wait(grid);
    EXPECT_EQ(grid.Pattern().size(), pattern.size());
    EXPECT_NE(grid.Pattern(), pattern);
    while (grid.TakesPresses())
        grid.Update(kFrame);
    EXPECT_EQ(grid.Lives(), 1) << "waiting too long is a mistake as well";
}

TEST(SelfPlayer, FinishesBothExercisesWithMoreHitsThanMisses) {
    for (uint32_t seed = 1; seed < 20; ++seed) {
        ReactionDrill drill(seed);
        MemoryGrid grid(seed);
        for (Exercise* exercise : {static_cast<Exercise*>(&drill), static_cast<Exercise*>(&grid)}) {
            SelfPlayer player(seed);
            for (int frame = 0; !exercise->Finished() && frame < kHour; ++frame) {
                exercise->Update(kFrame);
                exercise->Press(player.Choose(*exercise, kFrame));
            }
            EXPECT_TRUE(exercise->Finished()) << seed;
            EXPECT_GT(exercise->Result().hits, exercise->Result().misses) << seed;
        }
    }
}
