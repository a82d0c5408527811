#include "window/input_queue.h"

#include <gtest/gtest.h>

#include <string>

#include "hgekeys.h"
#include "window/key_names.h"

namespace {

using hge::InputEvent;
using hge::InputQueue;
using hge::InputType;

constexpr int kLeft = HGEK_LBUTTON;

// What one frame sees of a key: down, held and up as "d", "h" and "u".
std::string Frame(InputQueue& queue, int key) {
    queue.BeginFrame();
    std::string seen;
    if (queue.KeyDown(key)) seen += 'd';
    if (queue.KeyHeld(key)) seen += 'h';
    if (queue.KeyUp(key)) seen += 'u';
    queue.EndFrame();
    return seen;
}

void Click(InputQueue& queue, float x, float y) {
    queue.PostButton(kLeft, true, x, y, 0);
    queue.PostButton(kLeft, false, x, y, 0);
}

TEST(InputQueue, StartsWithNothingHeld) {
    InputQueue queue;
    EXPECT_EQ(Frame(queue, HGEK_A), "");
    EXPECT_EQ(queue.last_key(), 0);
    InputEvent event;
    EXPECT_FALSE(queue.TakeEvent(&event));
}

TEST(InputQueue, KeysOutsideTheTableAreNothing) {
    InputQueue queue;
    for (int key : {-1, 0, 256, 100000}) {
        queue.PostKey(key, true, 0);
        EXPECT_EQ(Frame(queue, key), "") << key;
    }
}

TEST(InputQueue, EdgesAreSeenInOneFrameAndTheHoldUntilTheRelease) {
    InputQueue queue;
    queue.PostKey(HGEK_A, true, 0);
    EXPECT_EQ(Frame(queue, HGEK_A), "dh");
    EXPECT_EQ(Frame(queue, HGEK_A), "h");
    queue.PostKey(HGEK_A, false, 0);
    EXPECT_EQ(Frame(queue, HGEK_A), "u");
    EXPECT_EQ(Frame(queue, HGEK_A), "");
}

TEST(InputQueue, PressAndReleaseWithinAFrameGiveBothEdges) {
    InputQueue queue;
    Click(queue, 5, 6);
    EXPECT_EQ(Frame(queue, kLeft), "du");
    EXPECT_EQ(Frame(queue, kLeft), "");
}

TEST(InputQueue, EveryClickIsSeen) {
    InputQueue queue;
    for (int i = 0; i < 3; ++i)
        Click(queue, 5, 6);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Frame(queue, kLeft), "du") << i;
    EXPECT_EQ(Frame(queue, kLeft), "");
}

// Within a frame a host takes the press for the earlier one.
TEST(InputQueue, APressAfterAReleaseWaitsForTheNextFrame) {
    InputQueue queue;
    queue.PostButton(kLeft, true, 1, 1, 0);
    EXPECT_EQ(Frame(queue, kLeft), "dh");
    queue.PostButton(kLeft, false, 1, 1, 0);
    queue.PostButton(kLeft, true, 1, 1, 0);
    EXPECT_EQ(Frame(queue, kLeft), "u");
    EXPECT_EQ(Frame(queue, kLeft), "dh");
}

TEST(InputQueue, AClickIsSeenWhereItHappened) {
    InputQueue queue;
    queue.PostMove(10, 10);
    queue.PostButton(kLeft, true, 20, 20, 0);
    queue.PostMove(30, 30);
    queue.PostMove(90, 90);
    queue.PostButton(kLeft, false, 100, 100, 0);
    queue.PostMove(110, 110);

    struct {
        float position;
        bool down, up;
    } const frames[] = {{20, true, false}, {100, false, true}, {110, false, false}};
    for (const auto& frame : frames) {
        queue.BeginFrame();
        EXPECT_EQ(queue.mouse_x(), frame.position);
        EXPECT_EQ(queue.mouse_y(), frame.position);
        EXPECT_EQ(queue.KeyDown(kLeft), frame.down);
        EXPECT_EQ(queue.KeyUp(kLeft), frame.up);
        queue.EndFrame();
    }
}

TEST(InputQueue, ButtonsPressedTogetherAreSeenTogether) {
    InputQueue queue;
    queue.PostButton(kLeft, true, 3, 4, 0);
    queue.PostButton(HGEK_RBUTTON, true, 3, 4, 0);
    queue.BeginFrame();
    EXPECT_TRUE(queue.KeyDown(kLeft) && queue.KeyDown(HGEK_RBUTTON));
    EXPECT_TRUE(queue.ButtonHeld());
}

TEST(InputQueue, ARepeatIsAKeyButNoEdge) {
    InputQueue queue;
    queue.PostKey(HGEK_B, true, 0);
    queue.BeginFrame();
    queue.EndFrame();
    queue.PostKey(HGEK_B, true, 1);
    queue.PostChar('b');
    queue.BeginFrame();
    EXPECT_FALSE(queue.KeyDown(HGEK_B));
    EXPECT_EQ(queue.last_key(), HGEK_B);
    EXPECT_EQ(queue.last_char(), 'b');
    InputEvent event;
    ASSERT_TRUE(queue.TakeEvent(&event));
    EXPECT_EQ(event.flags, 64 | 1);
}

TEST(InputQueue, LosingTheFocusReleasesWhatIsHeld) {
    InputQueue queue;
    queue.PostKey(HGEK_SHIFT, true, 0);
    queue.PostButton(kLeft, true, 7, 8, 0);
    queue.BeginFrame();
    queue.EndFrame();
    queue.PostReleaseAll();
    // The real releases come late or never.
    queue.PostKey(HGEK_SHIFT, false, 0);
    queue.BeginFrame();
    EXPECT_TRUE(queue.KeyUp(HGEK_SHIFT) && queue.KeyUp(kLeft));
    EXPECT_FALSE(queue.KeyHeld(HGEK_SHIFT) || queue.KeyHeld(kLeft) || queue.ButtonHeld());
    queue.EndFrame();
    EXPECT_EQ(Frame(queue, HGEK_SHIFT), "");
}

TEST(InputQueue, AReleaseOfAKeyPressedElsewhereIsNothing) {
    InputQueue queue;
    queue.PostKey(HGEK_ENTER, false, 0);
    EXPECT_EQ(Frame(queue, HGEK_ENTER), "");
}

TEST(InputQueue, WheelPartsAddUpToNotches) {
    InputQueue queue;
    queue.PostWheel(240, 0, 0, 0);
    queue.PostWheel(-60, 0, 0, 0);
    queue.BeginFrame();
    EXPECT_EQ(queue.wheel(), 2);
    queue.EndFrame();
    queue.PostWheel(-60, 0, 0, 0);
    queue.BeginFrame();
    EXPECT_EQ(queue.wheel(), -1);
    queue.EndFrame();
    EXPECT_EQ(queue.wheel(), 0);
}

TEST(InputQueue, CharactersBelongToTheKeyThatMadeThem) {
    InputQueue queue;
    queue.PostKey(HGEK_A, true, 0);
    queue.PostChar('a');
    queue.PostKey(HGEK_A, false, 0);
    queue.PostChar(0xC4);  // from an input method, without a key
    queue.BeginFrame();
    EXPECT_EQ(queue.last_key(), HGEK_A);
    EXPECT_EQ(queue.last_char(), 0xC4);
    InputEvent event;
    ASSERT_TRUE(queue.TakeEvent(&event));
    EXPECT_EQ(event.type, InputType::kKeyDown);
    EXPECT_EQ(event.chr, 'a');
    ASSERT_TRUE(queue.TakeEvent(&event));
    EXPECT_EQ(event.type, InputType::kKeyUp);
    EXPECT_FALSE(queue.TakeEvent(&event));
}

TEST(InputQueue, EventsNotTakenAreForgottenWithTheirFrame) {
    InputQueue queue;
    queue.PostMove(1, 2);
    queue.BeginFrame();
    queue.EndFrame();
    InputEvent event;
    EXPECT_FALSE(queue.TakeEvent(&event));
}

TEST(InputQueue, APlacedMouseIsThereAtOnce) {
    InputQueue queue;
    queue.PlaceMouse(40, 50);
    EXPECT_EQ(queue.mouse_x(), 40);
    queue.BeginFrame();
    EXPECT_EQ(queue.mouse_y(), 50);
}

TEST(KeyName, NamesKeysInEnglishAndUnknownOnesNot) {
    EXPECT_STREQ(hge::KeyName(HGEK_ESCAPE), "Escape");
    EXPECT_STREQ(hge::KeyName(HGEK_Z), "Z");
    EXPECT_STREQ(hge::KeyName(HGEK_0), "0");
    EXPECT_STREQ(hge::KeyName(HGEK_F12), "F12");
    EXPECT_STREQ(hge::KeyName(HGEK_NUMPAD9), "Numpad 9");
    for (int key : {-5, 0, 3, 0x7C, 0x5E, 300})
        EXPECT_STREQ(hge::KeyName(key), "") << key;
}

}  // namespace
