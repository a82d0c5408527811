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

TEST(InputQueue, ForeignKeysAndReleasesAreNothing) {
    InputQueue queue;
    queue.PostKey(HGEK_ENTER, false, 0);
    EXPECT_EQ(Frame(queue, HGEK_ENTER), "");
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

// Within a frame a host takes the press for the earlier one.
TEST(InputQueue, APressAfterAReleaseWaitsForTheNextFrame) {
    InputQueue queue;
    queue.PostButton(kLeft, true, 1, 1, 0);
    EXPECT_EQ(Frame(queue, kLeft), "dh");
    for (bool down : {false, true, false})
        queue.PostButton(kLeft, down, 1, 1, 0);
    EXPECT_EQ(Frame(queue, kLeft), "u");
    EXPECT_EQ(Frame(queue, kLeft), "du");
}

TEST(InputQueue, AClickIsSeenWhereItHappened) {
    InputQueue queue;
    queue.PostMove(10, 10);
    queue.PostButton(kLeft, true, 20, 20, 0);
    queue.PostMove(30, 30);
    queue.PostMove(90, 90);
    queue.PostButton(kLeft, false, 100, 100, 0);
    queue.PostMove(110, 110);

    auto frame = [&] {
        std::string seen = Frame(queue, kLeft);
        EXPECT_EQ(queue.mouse_x(), queue.mouse_y());
        return seen + " at " + std::to_string(static_cast<int>(queue.mouse_x()));
    };
    EXPECT_EQ(frame(), "dh at 20");
    EXPECT_EQ(frame(), "u at 100");
    EXPECT_EQ(frame(), " at 110");
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
    EXPECT_TRUE(queue.KeyDown(HGEK_SHIFT) && queue.KeyDown(kLeft) && queue.ButtonHeld()) << "in one frame";
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
    EXPECT_TRUE(queue.last_key() == HGEK_A && queue.last_char() == 0xC4);
    InputEvent event;
    ASSERT_TRUE(queue.TakeEvent(&event));
    EXPECT_TRUE(event.type == InputType::kKeyDown && event.chr == 'a');
    queue.EndFrame();
    EXPECT_FALSE(queue.TakeEvent(&event)) << "what was not taken is forgotten with its frame";
}

TEST(KeyName, NamesKeysInEnglishAndUnknownOnesNot) {
    for (int unknown : {-5, 0, 3, 0x7C, 300})
        EXPECT_STREQ(hge::KeyName(unknown), "") << unknown;
    EXPECT_STREQ(hge::KeyName(HGEK_Z), "Z");
    EXPECT_STREQ(hge::KeyName(HGEK_NUMPAD9), "Numpad 9");
}

}  // namespace
