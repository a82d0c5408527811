#include "engine/running_engine.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SoundTest : public RunningEngine {
 protected:
    static void EndChannelOf(int index) { Recording().EndChannel(Engine()->EnumSound(index)->channel); }

    static std::vector<unsigned long> Effects() {
        std::vector<unsigned long> effects;
        for (int i = 0; EffectHandle* sound = Engine()->EnumSound(i); ++i)
            effects.push_back(sound->effect);
        return effects;
    }
};

TEST_F(SoundTest, IgnoresWhatIsNotThere) {
    Recording().missing = {"a.wav"};
    EXPECT_EQ(Engine()->Play2DSound("a.wav"), nullptr);
    EXPECT_EQ(Engine()->GetSoundSize(), 0u);
    EXPECT_THAT(Recording().CallsMatching("Effect_Play"), IsEmpty());
    Engine()->Play2DSound("b.wav");
    for (int index : {-1, 1, 100}) {
        EXPECT_EQ(Engine()->EnumSound(index), nullptr);
        Engine()->FreeSound(index);
    }
    EXPECT_EQ(Engine()->GetSoundSize(), 1u);
}

TEST_F(SoundTest, PlaysEachSoundOnAnEffectOfItsOwn) {
    EffectHandle kept = *Engine()->Play2DSound("a.wav");
    EffectHandle* second = Engine()->Play2DSound("a.wav");
    EXPECT_EQ(Engine()->EnumSound(1), second);
    EXPECT_EQ(Engine()->EnumSound(0)->channel, kept.channel);
    EXPECT_NE(second->channel, kept.channel);
    EXPECT_THAT(Recording().Calls(),
                ElementsAre("Effect_Load(\"a.wav\", 0)", "Effect_PlayEx(1, 100, 0, 1, false)",
                            "Effect_Load(\"a.wav\", 0)", "Effect_PlayEx(3, 100, 0, 1, false)"));
}

TEST_F(SoundTest, TakesOverTheHostsEffect) {
    HEFFECT effect = Recording().Effect_Load("a.wav", 0);
    EXPECT_EQ(Engine()->Play2DSound(effect)->effect, effect);
    EndChannelOf(0);
    C2DGameEngine::FrameFuc();
    EXPECT_THAT(Recording().effects, IsEmpty());
}

TEST_F(SoundTest, FreeSoundLeavesTheSoundPlaying) {
    Engine()->Play2DSound("a.wav");
    Engine()->Play2DSound("b.wav");
    unsigned long second = Effects()[1];
    Engine()->FreeSound(0);
    EXPECT_THAT(Effects(), ElementsAre(second));
    EXPECT_EQ(Recording().effects.size(), 2u);
    EXPECT_THAT(Recording().CallsMatching("Channel_Stop"), IsEmpty());
}

TEST_F(SoundTest, ReapsNeighboursThatEndInTheSameFrame) {
    for (const char* file : {"a.wav", "b.wav", "c.wav", "d.wav"})
        Engine()->Play2DSound(file);
    auto effects = Effects();
    EndChannelOf(1);
    EndChannelOf(2);
    C2DGameEngine::FrameFuc();
    EXPECT_THAT(Effects(), ElementsAre(effects[0], effects[3]));
    EXPECT_EQ(Recording().effects, (std::set<DWORD>{effects[0], effects[3]}));
    win32_seams::SetActiveWindow(nullptr);
    EndChannelOf(0);
    EndChannelOf(1);
    C2DGameEngine::FrameFuc();
    EXPECT_THAT(Effects(), IsEmpty()) << "also while the window is inactive";
}

TEST_F(SoundTest, ReplacesTheMusicAlsoByNothing) {
    Recording().missing = {"none.ogg"};
    Engine()->PlayMusic("a.ogg", true);
    Engine()->PlayMusic("none.ogg", true);
    Engine()->StopMusic();
    Engine()->PlayMusic("b.ogg", false);
    Engine()->StopMusic();
    Engine()->StopMusic();
    EXPECT_EQ(Engine()->GetSoundSize(), 0u);
    EXPECT_THAT(Recording().Calls(),
                ElementsAre("Effect_Load(\"a.ogg\", 0)", "Effect_PlayEx(1, 100, 0, 1, true)",
                            "Effect_Free(1)", "Effect_Load(\"none.ogg\", 0)", "Effect_Load(\"b.ogg\", 0)",
                            "Effect_PlayEx(3, 100, 0, 1, false)", "Effect_Free(3)"));
}

TEST_F(SoundTest, MusicIsNotReaped) {
    Engine()->PlayMusic("a.ogg", false);
    Recording().EndChannel(Recording().channels.begin()->first);
    C2DGameEngine::FrameFuc();
    EXPECT_EQ(Recording().effects.size(), 1u);
}

}  // namespace
