#include "audio/channel.h"

#include "audio/mixer.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "hge/audio/sound_fixture.h"

namespace hge {
namespace {

constexpr uint32_t kRate = 44100;

std::shared_ptr<const Pcm> MakePcm(const std::vector<int>& values, uint32_t rate = kRate,
                                   uint32_t channels = 1) {
    auto pcm = std::make_shared<Pcm>();
    pcm->rate = rate;
    pcm->channels = channels;
    pcm->samples.assign(values.begin(), values.end());
    return pcm;
}

Channel Make(std::shared_ptr<const Pcm> pcm, const PlaySettings& settings = {}) {
    return Channel(ReadPcm(std::move(pcm)), SoundGroup::kEffects, 1, settings);
}

std::vector<float> Mix(Channel& channel, size_t frames, float gain = 1) {
    std::vector<float> out(frames * 2);
    channel.Mix(out.data(), frames, kRate, gain);
    return out;
}

std::vector<int> Constant(size_t frames, int value = 16384) {
    return std::vector<int>(frames, value);
}

TEST(ChannelTest, PlaysTheSamplesAsTheyAre) {
    Channel channel = Make(MakePcm({16384, -16384, 8192}));
    EXPECT_EQ(Mix(channel, 4), (std::vector<float>{0.5f, 0.5f, -0.5f, -0.5f, 0.25f, 0.25f, 0, 0}));
    EXPECT_TRUE(channel.ended());
    Channel stereo = Make(MakePcm({16384, -8192}, kRate, 2));
    EXPECT_EQ(Mix(stereo, 1), (std::vector<float>{0.5f, -0.25f}));
}

TEST(ChannelTest, BringsNonsenseIntoRange) {
    auto pcm = MakePcm(Constant(1000));
    for (float pitch : {0.0f, -1.0f, NAN, INFINITY}) {
        Channel channel = Make(pcm, {.volume = 1000, .pan = -5000, .pitch = pitch});
        EXPECT_EQ(Mix(channel, 1), (std::vector<float>{0.5f, 0})) << pitch;
        channel.SetPitch(pitch);
        channel.SetPosition(NAN);
        channel.SetPosition(-1);
        channel.SetPosition(1e9f);
        EXPECT_FLOAT_EQ(channel.Position(), 1.0f / kRate) << pitch;
        channel.SlideTo(NAN, -7, 1000, pitch);
        EXPECT_FALSE(channel.IsSliding());
    }
}

TEST(ChannelTest, ChangesPitchByTheFactorAndTheRate) {
    for (auto [rate, pitch] : {std::pair{44100u, 1.5f}, {22050u, 1.0f}, {96000u, 0.5f}, {11025u, 2.0f}}) {
        Channel channel = Make(MakePcm(Sine(441, rate, rate), rate), {.pitch = pitch});
        double hertz = Hertz(Mix(channel, kRate / 3), kRate, 2);
        EXPECT_NEAR(hertz, 441 * pitch, 441 * pitch * 0.0005) << rate << " Hz, pitch " << pitch;
    }
}

TEST(ChannelTest, BalancesAndSumsVolumes) {
    using Case = std::tuple<int, int, float, float, float>;
    for (auto [volume, pan, gain, left, right] :
         {Case{100, 0, 1, 0.5f, 0.5f}, Case{50, 0, 0.5f, 0.125f, 0.125f}, Case{100, 100, 1, 0, 0.5f},
          Case{100, -100, 1, 0.5f, 0}, Case{100, -50, 1, 0.5f, 0.25f}}) {
        Channel channel = Make(MakePcm(Constant(100)), {.volume = volume, .pan = pan});
        EXPECT_THAT(Mix(channel, 1, gain), testing::ElementsAre(left, right)) << volume << ' ' << pan;
    }
}

TEST(ChannelTest, RampsAJumpInVolume) {
    Channel channel = Make(MakePcm(Constant(5000)));
    Mix(channel, 128);
    channel.SetVolume(0);
    auto out = Mix(channel, 256);
    float largest = 0;
    for (size_t i = 2; i < out.size(); i += 2)
        largest = std::max(largest, std::abs(out[i] - out[i - 2]));
    EXPECT_LT(largest, 0.005f);
    EXPECT_EQ(out.back(), 0);
}

TEST(ChannelTest, LoopsWithoutASeam) {
    // 100 whole periods: any frame lost or added at the seam breaks the sine.
    auto period = Sine(441, kRate, 10000);
    Channel channel = Make(MakePcm(period), {.loop = true});
    auto out = Mix(channel, 35000);
    for (size_t i = 0; i < 35000; ++i)
        ASSERT_NEAR(out[i * 2] * 32768, period[i % 10000], 0.01) << i;
    EXPECT_FALSE(channel.ended());
    EXPECT_FLOAT_EQ(channel.Position(), 5000.0f / kRate);
}

TEST(ChannelTest, GoesOnAtItsPlaceAfterTimeUnheard) {
    auto sound = Sine(441, kRate, 20000);
    for (float pitch : {1.0f, 0.77f, 3.1f}) {
        Channel heard = Make(MakePcm(sound), {.pitch = pitch}), lost = Make(MakePcm(sound), {.pitch = pitch});
        heard.SlideTo(0.05f, 40, 30, pitch * 1.3f);
        lost.SlideTo(0.05f, 40, 30, pitch * 1.3f);
        Mix(heard, 3840);
        Mix(lost, 1280);
        lost.Skip(2560, kRate);
        EXPECT_NEAR(lost.Position(), heard.Position(), 1e-6) << pitch;
        auto a = Mix(heard, 500), b = Mix(lost, 500);
        for (size_t i = 256; i < a.size(); ++i)
            ASSERT_NEAR(a[i], b[i], 1e-4) << i;
    }
}

TEST(ChannelTest, EndsLoopsAndPausesHeardOrNot) {
    auto pcm = MakePcm(Constant(1000), 22050);
    for (bool heard : {true, false}) {
        auto pass = [&](Channel& channel, size_t frames) {
            if (heard) Mix(channel, frames);
            if (!heard) channel.Skip(frames, kRate);
        };
        Channel once = Make(pcm, {.pitch = 0.5f}), loop = Make(pcm, {.loop = true});
        EXPECT_FLOAT_EQ(once.Length(), 1000 / 22050.0f);
        pass(once, 100);
        once.SlideTo(1, 0, 0, -1);
        once.SetPaused(true);
        EXPECT_EQ(Mix(once, 50), std::vector<float>(100));
        pass(once, 5000);
        EXPECT_FLOAT_EQ(once.Position(), 25.0f / 22050);
        once.SetPaused(false);
        EXPECT_EQ(Mix(once, 1)[0], 0.5f) << "no slide either";
        pass(once, 3898);
        EXPECT_FALSE(once.ended());
        pass(once, 1);
        EXPECT_TRUE(once.ended());
        pass(loop, 123456);
        EXPECT_FLOAT_EQ(loop.Position(), 728.0f / 22050);
    }
    Channel placed = Make(MakePcm({1024, 2048, 4096, 8192, 16384}));
    Mix(placed, 1);
    placed.SetPosition(3.0f / kRate);
    EXPECT_EQ(Mix(placed, 1)[0], 0.25f);
    placed.SetPosition(placed.Length());
    Mix(placed, 1);
    EXPECT_TRUE(placed.ended());
}

TEST(ChannelTest, SlidesAllThreeInTheGivenTime) {
    Channel channel = Make(MakePcm(Constant(100000)));
    channel.SlideTo(0.5f, 20, 100, 2.0f);
    channel.Skip(kRate / 4, kRate);
    EXPECT_TRUE(channel.IsSliding());
    // Half-way: volume 60, pan 50.
    auto middle = Mix(channel, 1);
    EXPECT_NEAR(middle[0], 0.5 * 0.6 * 0.5, 0.002);
    EXPECT_NEAR(middle[1], 0.5 * 0.6, 0.002);
    channel.Skip(kRate / 4, kRate);
    EXPECT_FALSE(channel.IsSliding());
    EXPECT_NEAR(channel.Position(), 0.25 * 1.25 + 0.25 * 1.75, 0.002);
    float before = channel.Position();
    Mix(channel, 1000);
    EXPECT_NEAR(channel.Position() - before, 2000.0 / kRate, 1e-5);
}

TEST(ChannelTest, TakesAShorterSourceAsItComes) {
    // States 1000 frames, has 300.
    struct Short : SoundReader {
        Short() {
            rate_ = kRate;
            channels_ = 1;
            frames_ = 1000;
        }
        size_t Read(int16_t* out, size_t count) override {
            count = std::min(count, 300 - next);
            std::fill(out, out + count, int16_t{16384});
            next += count;
            return count;
        }
        bool Seek(uint64_t frame) override {
            next = std::min<size_t>(static_cast<size_t>(frame), 300);
            return true;
        }
        size_t next = 0;
    };
    Channel once(std::make_shared<Short>(), SoundGroup::kStreams, 1, {});
    Mix(once, 400);
    EXPECT_TRUE(once.ended());
    Channel loop(std::make_shared<Short>(), SoundGroup::kStreams, 1, {.loop = true});
    auto out = Mix(loop, 1000);
    EXPECT_EQ(std::count(out.begin(), out.end(), 0.5f), 2000);
    EXPECT_LT(loop.Position(), 300.0f / kRate);
}

class MixerTest : public testing::Test {
 protected:
    uint32_t Start(SoundGroup group, uint32_t owner, size_t frames = 1000) {
        return mixer_.Start(
            std::make_unique<Channel>(ReadPcm(MakePcm(Constant(frames))), group, owner, PlaySettings{}));
    }
    float Level() {
        float frame[2];
        mixer_.Render(frame, 1);
        return frame[0];
    }
    Mixer mixer_{kRate};
};

TEST_F(MixerTest, SumsChannelsByTheirGroupsVolume) {
    Start(SoundGroup::kEffects, 1);
    Start(SoundGroup::kStreams, 2);
    EXPECT_EQ(Level(), 1.0f);
    mixer_.StopOwned(1);
    EXPECT_EQ(Level(), 0.5f);
    mixer_.SetGroupVolume(SoundGroup::kStreams, 0.5f);
    mixer_.SetGroupVolume(SoundGroup::kEffects, 0);
    for (int i = 0; i < 256; ++i)
        Level();
    EXPECT_FLOAT_EQ(Level(), 0.25f);
}

TEST_F(MixerTest, StandsStillWhileSuspendedAndForgetsWhatHasEnded) {
    uint32_t id = Start(SoundGroup::kEffects, 1), neighbour = Start(SoundGroup::kEffects, 1);
    uint32_t longer = Start(SoundGroup::kEffects, 1, 1001);
    mixer_.SetSuspended(true);
    EXPECT_EQ(Level(), 0);
    mixer_.Skip(5000);
    ASSERT_TRUE(mixer_.Find(id));
    EXPECT_EQ(mixer_.Find(id)->Position(), 0);
    mixer_.SetSuspended(false);
    EXPECT_EQ(Level(), 1.5f);
    mixer_.Skip(999);
    EXPECT_FALSE(mixer_.Find(id) || mixer_.Find(neighbour));
    EXPECT_TRUE(mixer_.Find(longer));
    mixer_.Skip(1);
    EXPECT_EQ(mixer_.size(), 0u);
}

TEST_F(MixerTest, DropsWhatIsTooMuchAtOnce) {
    for (size_t i = 0; i < Mixer::kMaxChannels; ++i)
        ASSERT_NE(Start(SoundGroup::kEffects, 1), 0u);
    EXPECT_EQ(Start(SoundGroup::kEffects, 1), 0u);
    mixer_.StopAll();
    EXPECT_EQ(mixer_.size(), 0u);
}

}  // namespace
}  // namespace hge
