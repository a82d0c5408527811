#include <gtest/gtest.h>

#include <set>

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

int Count(const std::vector<Event>& events, Event::Kind kind) {
    int count = 0;
    for (const Event& event : events)
        count += event.kind == kind;
    return count;
}

std::vector<int> Lights(uint32_t seed) {
    ReactionDrill drill(seed);
    PlayWell(drill);
    std::vector<int> lamps;
    for (const Event& event : drill.TakeEvents())
        if (event.kind == Event::kLight) lamps.push_back(event.lamp);
    return lamps;
}

}  // namespace

TEST(Dice, IsTheSameForASeedAndReachesEverySide) {
    Dice one(7), two(7);
    std::set<int> sides;
    for (int i = 0; i < 500; ++i) {
        int side = one.Below(kLamps);
        EXPECT_EQ(side, two.Below(kLamps));
        sides.insert(side);
    }
    EXPECT_EQ(sides.size(), static_cast<size_t>(kLamps));
    EXPECT_EQ(*sides.rbegin(), kLamps - 1);
}

TEST(ReactionDrill, StartsDarkAndTakesNoPresses) {
    ReactionDrill drill(1);
    EXPECT_FALSE(drill.TakesPresses());
    EXPECT_EQ(drill.Answer(), -1);
    drill.Press(0);
    drill.Press(-1);
    drill.Press(kLamps);
    EXPECT_EQ(drill.Lives(), Exercise::kLives);
    EXPECT_EQ(drill.Result().misses, 0);
}

TEST(ReactionDrill, PaysMoreForAFasterPress) {
    ReactionDrill fast(1), slow(1);
    Wait(fast);
    fast.Press(fast.Answer());
    Wait(slow);
    for (int frame = 0; frame < 64; ++frame)
        slow.Update(kFrame);
    slow.Press(slow.Answer());
    EXPECT_EQ(fast.Result().score, 2 * ReactionLevel::Of(1).points);
    EXPECT_GT(fast.Result().score, slow.Result().score);
    EXPECT_GT(slow.Result().score, ReactionLevel::Of(1).points);
}

TEST(ReactionDrill, TakesALifeForAWrongLampAndForALampThatRanOut) {
    ReactionDrill drill(3);
    Wait(drill);
    int lit = drill.Answer(), wrong = (lit + 1) % kLamps;
    drill.Press(wrong);
    EXPECT_EQ(drill.Lives(), 2);
    EXPECT_EQ(drill.StateOf(wrong), Lamp::kBad);
    EXPECT_EQ(drill.StateOf(lit), Lamp::kOff);
    Wait(drill);
    lit = drill.Answer();
    while (drill.TakesPresses())
        drill.Update(kFrame);
    EXPECT_EQ(drill.Lives(), 1);
    EXPECT_EQ(drill.StateOf(lit), Lamp::kBad);
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
    EXPECT_GE(drill.Result().level, 3);
    ReactionDrill careless = drill;
    while (drill.TakesPresses())
        drill.Update(kFrame);
    EXPECT_EQ(drill.Lives(), Exercise::kLives);
    for (int lamp = 0; lamp < kLamps; ++lamp)
        if (careless.StateOf(lamp) == Lamp::kDecoy) careless.Press(lamp);
    EXPECT_EQ(careless.Lives(), Exercise::kLives - 1);
}

TEST(ReactionDrill, EndsAfterItsTurnsAndGetsHarder) {
    ReactionDrill drill(11);
    PlayWell(drill);
    EXPECT_EQ(drill.Lives(), Exercise::kLives);
    EXPECT_EQ(drill.Result().Accuracy(), 100);
    std::vector<Event> events = drill.TakeEvents();
    EXPECT_EQ(Count(events, Event::kLight), ReactionDrill::kTurns);
    EXPECT_EQ(Count(events, Event::kLevelUp), drill.Result().level - 1);
    EXPECT_EQ(drill.Result().hits / ReactionDrill::kHitsPerLevel, drill.Result().level - 1);
    EXPECT_TRUE(drill.TakeEvents().empty());
    for (int level = 1; level < 20; ++level) {
        EXPECT_GE(ReactionLevel::Of(level).lit_seconds, ReactionLevel::Of(level + 1).lit_seconds);
        EXPECT_LE(ReactionLevel::Of(level).decoy_percent, ReactionLevel::Of(level + 1).decoy_percent);
    }
}

TEST(ReactionDrill, RepeatsForASeedAndNeverLightsALampTwiceRunning) {
    std::vector<int> lights = Lights(42);
    EXPECT_EQ(lights, Lights(42));
    EXPECT_NE(lights, Lights(43));
    for (size_t i = 1; i < lights.size(); ++i)
        EXPECT_NE(lights[i], lights[i - 1]) << i;
}

TEST(Exercise, AFlashGoesOutByItself) {
    ReactionDrill drill(1);
    Wait(drill);
    int lamp = drill.Answer();
    drill.Press(lamp);
    EXPECT_EQ(drill.StateOf(lamp), Lamp::kGood);
    drill.Update(0.4f);
    EXPECT_EQ(drill.StateOf(lamp), Lamp::kOff);
}

TEST(MemoryGrid, ShowsThePatternLampByLampBeforeItTakesPresses) {
    MemoryGrid grid(9);
    std::vector<int> seen;
    while (!grid.TakesPresses()) {
        grid.Update(kFrame);
        for (const Event& event : grid.TakeEvents())
            if (event.kind == Event::kLight) {
                seen.push_back(event.lamp);
                EXPECT_EQ(grid.StateOf(event.lamp), Lamp::kLit);
            }
    }
    EXPECT_EQ(seen, grid.Pattern());
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_EQ(grid.Answer(), seen[0]);
}

TEST(MemoryGrid, GrowsWithEachPatternSolvedAndEndsAfterTheLast) {
    MemoryGrid grid(9);
    Wait(grid);
    for (int press = 0; press < 3; ++press)
        grid.Press(grid.Answer());
    EXPECT_EQ(grid.Result().score, 3 * MemoryLevel::Of(1).points);
    EXPECT_EQ(grid.Result().level, 2);
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
    EXPECT_FALSE(grid.TakesPresses());
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
