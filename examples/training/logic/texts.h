#pragma once

namespace training {

enum class Language { kEnglish, kChinese };

// Everything that the game says.
enum class Text {
    kSubtitle,
    kReaction,
    kMemory,
    kReactionHint,
    kMemoryHint,
    kSettings,
    kSound,
    kMusic,
    kLimit,
    kMinutes,  // takes a number
    kOtherLanguage,
    kBest,   // takes a number
    kLevel,  // takes a number
    kScore,  // takes a number
    kGetReady,
    kWatch,
    kRepeat,
    kHitIt,
    kLeaveIt,
    kOver,
    kResult,
    kNewBest,
    kReached,   // takes a number
    kAccuracy,  // takes a number
    kPlace,     // takes a number
    kNoPlace,
    kAgain,
    kHome,
    kTimeLeft,
    kKeys,
    kCount
};

// UTF-16, held for the life of the program.
const wchar_t* Say(Text text, Language language);

}  // namespace training
