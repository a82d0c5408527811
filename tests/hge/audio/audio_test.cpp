#include "audio/audio.h"

#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "hge/audio/sound_fixture.h"
#include "resources/resource_store.h"

namespace hge {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// Time passes only when the test says so.
struct SteppedOutput : SoundOutput {
    void Start(SoundFeed& to_pull, uint32_t) override { feed = &to_pull; }
    void Stop() override { feed = nullptr; }
    std::string TakeNotice() override { return std::exchange(notice, {}); }

    std::vector<float> Play(size_t frames) {
        std::vector<float> out(frames * 2);
        feed->Render(out.data(), frames);
        return out;
    }

    SoundFeed* feed = nullptr;
    std::string notice = "sound: stepped";
};

class AudioTest : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(log_.Open(kLogPath));
        Start();
    }
    void TearDown() override {
        log_.Close();
        std::filesystem::remove(kLogPath);
    }

    void Start() {
        auto output = std::make_unique<SteppedOutput>();
        output_ = output.get();
        audio_.Start(44100, std::move(output));
    }

    static std::string LogText() { return test::FileText(kLogPath); }

    uint32_t LoadTone(uint32_t (Audio::*load)(const char*, uint32_t)) {
        return (audio_.*load)(reinterpret_cast<const char*>(tone_.data()),
                              static_cast<uint32_t>(tone_.size()));
    }
    uint32_t LoadEffect() { return LoadTone(&Audio::LoadEffect); }
    uint32_t LoadStream() { return LoadTone(&Audio::LoadStream); }

    static constexpr const char* kLogPath = "hge_audio_test.log";
    const Blob tone_ = MakeWave({}, Samples(std::vector<int>(4410, 16384)));  // 0.1 s
    Log log_;
    ResourceStore store_{log_, AUDIO_ASSETS};
    Audio audio_{log_, store_};
    SteppedOutput* output_ = nullptr;
};

TEST_F(AudioTest, NamesTheFileThatDoesNotLoad) {
    EXPECT_EQ(audio_.LoadEffect("make_assets.sh", 0), 0u);
    EXPECT_EQ(log_.LastError(),
              "cannot load effect \"make_assets.sh\": neither WAV nor OGG nor MP3, or cut off");
    EXPECT_EQ(audio_.LoadStream("make_assets.sh", 0), 0u);
    EXPECT_THAT(log_.LastError(), HasSubstr("cannot load stream \"make_assets.sh\""));
    EXPECT_FALSE(audio_.LoadEffect(nullptr, 0) || audio_.LoadEffect(nullptr, 12));
    EXPECT_EQ(audio_.LoadMusic("theme.xm", 0), 0u);
    EXPECT_THAT(log_.LastError(), HasSubstr("theme.xm"));
    EXPECT_EQ(store_.live_blocks(), 0u);
}

TEST_F(AudioTest, EndedChannelsAndThoseOfAFreedSoundAreGone) {
    uint32_t effect = LoadEffect(), other = LoadEffect();
    audio_.PlayEffect(effect, {.loop = true});
    audio_.PlayEffect(effect, {});
    uint32_t last = audio_.PlayEffect(other, {});
    audio_.FreeEffect(effect);
    EXPECT_EQ(audio_.channel_count(), 1u);
    EXPECT_EQ(output_->Play(4409)[0], 0.5f);
    audio_.SetPaused(last, true);
    output_->Play(1000);
    EXPECT_TRUE(audio_.IsPlaying(last)) << "paused is not ended";
    audio_.SetAllPaused(false);
    output_->feed->Skip(1);
    EXPECT_FALSE(audio_.IsPlaying(last));
    EXPECT_EQ(audio_.Length(last), -1);
    EXPECT_THAT(LogText(), Not(HasSubstr("no live"))) << "asking about an ended channel is no fault";
}

TEST_F(AudioTest, AStreamPlaysOnceAtATime) {
    uint32_t stream = LoadStream();
    uint32_t first = audio_.PlayStream(stream, {});
    output_->Play(2000);
    uint32_t second = audio_.PlayStream(stream, {});
    EXPECT_FALSE(audio_.IsPlaying(first));
    EXPECT_EQ(audio_.Position(second), 0);
    EXPECT_EQ(output_->Play(1)[0], 0.5f);
}

TEST_F(AudioTest, KeepsVolumesOverARestart) {
    audio_.SetVolumes(50, 0, 20);
    audio_.PlayEffect(LoadEffect(), {});
    EXPECT_FLOAT_EQ(output_->Play(1)[0], 0.25f);
    Start();
    EXPECT_EQ(audio_.effect_count(), 0u);
    audio_.PlayStream(LoadStream(), {});
    EXPECT_FLOAT_EQ(output_->Play(1)[0], 0.1f);
}

TEST_F(AudioTest, RunsOnTheRealClockWithoutADevice) {
    audio_.Start(44100, MakeThreadedOutput(nullptr));
    EXPECT_THAT(LogText(), HasSubstr("sound: off, channels run silently"));
    uint32_t channel = audio_.PlayEffect(LoadEffect(), {});
    // Ends by itself; the test's own time limit is the bound.
    while (audio_.IsPlaying(channel)) {
    }
    EXPECT_EQ(audio_.channel_count(), 0u);
}

}  // namespace
}  // namespace hge
