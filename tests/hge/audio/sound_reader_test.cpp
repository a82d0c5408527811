#include <bit>
#include <random>

#include "audio/mp3_file.h"
#include "audio/ogg_reader.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "hge/audio/sound_fixture.h"

namespace hge {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string g_reason;

std::unique_ptr<SoundReader> Open(Blob bytes) {
    g_reason.clear();
    return OpenSound(Share(std::move(bytes)), &g_reason);
}

std::string ReasonFor(Blob bytes) {
    return Open(std::move(bytes)) ? "(opened)" : g_reason;
}

std::vector<int16_t> Decode(const WaveSpec& spec, const Blob& data) {
    auto reader = Open(MakeWave(spec, data));
    EXPECT_TRUE(reader) << g_reason;
    return reader ? ReadAll(*reader) : std::vector<int16_t>{};
}

template <class Float>
Blob FloatBytes(std::initializer_list<Float> values) {
    Blob out;
    for (Float value : values) {
        auto* bytes = reinterpret_cast<const uint8_t*>(&value);
        out.insert(out.end(), bytes, bytes + sizeof value);
    }
    return out;
}

TEST(SoundReaderTest, NamesWhatIsWrongWithAHeader) {
    Blob data = Samples({1, 2, 3, 4});
    const std::pair<Blob, const char*> cases[] = {
        {{}, "it is empty"},
        {{'h', 'e', 'l', 'l', 'o', '!', '!'}, "neither WAV nor OGG nor MP3, or cut off"},
        {MakeWave({.channels = 0}, data), "0 channels"},
        {MakeWave({.channels = 9}, data), "9 channels"},
        {MakeWave({.rate = 0}, data), "a rate of 0 Hz"},
        {MakeWave({.rate = 0xFFFFFFFF}, data), "a rate of 4294967295 Hz"},
        {MakeWave({.bits = 40, .block_align = 5}, data), "40-bit samples in blocks of 5 bytes"},
        {MakeWave({.block_align = 40000}, data), "16-bit samples in blocks of 40000 bytes"},
        {MakeWave({}, {}), "it holds no samples"},
        {MakeWave({.data_size = 1000}, data), "cut off: a part of 1000 bytes has 8"}};
    for (const auto& [bytes, reason] : cases)
        EXPECT_EQ(ReasonFor(bytes), reason);
    EXPECT_THAT(ReasonFor(MakeWave({.coding = 0x9999, .block_align = 64}, data)), HasSubstr("coding 39321"));
}

class DamageTest : public testing::TestWithParam<const char*> {};

// Lengths of a file that miss something, and files with bytes changed: no crash, and a reason.
TEST_P(DamageTest, IsRefusedWithAReasonOrDecoded) {
    Blob whole = *GetParam() ? Asset(GetParam()) : MakeWave({}, Samples({1, 2, 3, 4, 5, 6, 7, 8}));
    ASSERT_TRUE(Open(whole)) << GetParam() << ": " << g_reason;
    for (size_t size = 0; size<whole.size(); size += whole.size()> 1000 ? 100 : 1) {
        EXPECT_FALSE(Open(Blob(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)))) << size;
        EXPECT_FALSE(g_reason.empty()) << size;
    }
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        Blob broken = whole;
        // The headers are where the harm is.
        size_t reach = round % 2 ? broken.size() : std::min<size_t>(broken.size(), 200);
        for (int change = 0; change < 4; ++change)
            broken[random() % reach] = static_cast<uint8_t>(random());
        auto reader = Open(broken);
        EXPECT_EQ(!reader, !g_reason.empty()) << round;
        if (!reader) continue;
        DecodeSound(*reader, &g_reason);
        reader->Seek(reader->frames() / 2);
        int16_t frame[2];
        reader->Read(frame, 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DamageTest,
                         testing::Values("", "tone.ogg", "surround.ogg", "tone.mp3", "ima.wav", "ms.wav"));

TEST(WaveReaderTest, DecodesEveryPlainCoding) {
    EXPECT_THAT(Decode({.bits = 8}, {0, 128, 255}), ElementsAre(-32768, 0, 32512));
    EXPECT_THAT(Decode({.channels = 2}, Samples({1, -2, 32767, -32768})), ElementsAre(1, -2, 32767, -32768));
    EXPECT_THAT(Decode({.bits = 24}, {0, 0, 0x80, 0xFF, 0xFF, 0x7F, 0, 1, 0}), ElementsAre(-32768, 32767, 1));
    EXPECT_THAT(Decode({.bits = 12, .block_align = 2}, Samples({-32768, 32752})), ElementsAre(-32768, 32752));
    EXPECT_THAT(Decode({.bits = 32}, {0, 0, 0, 0x80, 0, 0, 0, 0x40}), ElementsAre(-32768, 16384));
    EXPECT_THAT(Decode({.coding = 3, .bits = 32}, FloatBytes({-1.0f, 0.5f, 3.0f, NAN, -INFINITY})),
                ElementsAre(-32768, 16384, 32767, 0, -32768));
    EXPECT_THAT(Decode({.coding = 3, .bits = 64}, FloatBytes({0.25, -7.0})), ElementsAre(8192, -32768));
    EXPECT_THAT(Decode({.extensible = true}, Samples({7, 8})), ElementsAre(7, 8));
}

TEST(WaveReaderTest, FoldsSurroundToStereo) {
    // One frame for each speaker of 5.1 (L R C low l r) that sounds alone.
    std::vector<int> frames(36);
    for (size_t i = 0; i < 6; ++i)
        frames[i * 7] = 10000;
    EXPECT_THAT(Decode({.channels = 6}, Samples(frames)),
                ElementsAre(4142, 0, 0, 4142, 2929, 2929, 0, 0, 2929, 0, 0, 2929));
    EXPECT_THAT(Decode({.channels = 6}, Samples({32767, 32767, 32767, 32767, 32767, 32767})),
                ElementsAre(32767, 32767));
}

TEST(WaveReaderTest, TakesWhatPipesWriteAndPassesOverOtherParts) {
    EXPECT_THAT(Decode({.data_size = 0xFFFFFFFF}, Samples({5, 6})), ElementsAre(5, 6));
    Blob wave = MakeWave({}, Samples({5, 6}));
    Blob list{'L', 'I', 'S', 'T', 3, 0, 0, 0, 'a', 'b', 'c', 0};
    wave.insert(wave.begin() + 12, list.begin(), list.end());
    auto reader = Open(wave);
    ASSERT_TRUE(reader) << g_reason;
    EXPECT_THAT(ReadAll(*reader), ElementsAre(5, 6));
}

struct Coded {
    const char* name;
    uint32_t channels;
    double level;  // of the tone; the MP3 encoder takes 5 %
};

class CodedTest : public testing::TestWithParam<Coded> {};

TEST_P(CodedTest, HoldsTheTone) {
    auto reader = Open(Asset(GetParam().name));
    ASSERT_TRUE(reader) << g_reason;
    EXPECT_TRUE(reader->rate() == 22050 && reader->channels() == GetParam().channels);
    auto samples = ReadAll(*reader);
    ASSERT_EQ(samples.size(), 11025u * GetParam().channels);
    EXPECT_NEAR(Hertz(samples, 22050, GetParam().channels), 441, 0.5);
    // A period is 50 frames: one frame off is 2000 here.
    EXPECT_NEAR(samples[5000 * GetParam().channels], 0, 1000);
    EXPECT_NEAR(Rms(samples, GetParam().channels) / (16384 / std::numbers::sqrt2), GetParam().level, 0.02);
}

TEST_P(CodedTest, SeeksToTheFrame) {
    auto reader = Open(Asset(GetParam().name));
    ASSERT_TRUE(reader) << g_reason;
    auto straight = ReadAll(*reader);
    size_t channels = reader->channels();
    for (uint64_t frame : {0u, 5000u, 1234u, 9999u, 1u}) {
        std::vector<int16_t> some(500 * channels);
        ASSERT_TRUE(reader->Seek(frame));
        ASSERT_EQ(reader->Read(some.data(), 500), 500u) << frame;
        double worst = 0;
        for (size_t i = 0; i < some.size(); ++i)
            worst = std::max(worst,
                             std::abs(some[i] - 1.0 * straight[static_cast<size_t>(frame) * channels + i]));
        EXPECT_LE(worst, 2) << frame;
    }
    ASSERT_TRUE(reader->Seek(reader->frames()));
    int16_t frame[2];
    EXPECT_EQ(reader->Read(frame, 1), 0u);
}

INSTANTIATE_TEST_SUITE_P(Files, CodedTest,
                         testing::Values(Coded{"tone.ogg", 1, 1}, Coded{"surround.ogg", 2, 0.4142},
                                         Coded{"tone.mp3", 1, 0.95}, Coded{"ima.wav", 1, 1},
                                         Coded{"ms.wav", 1, 1}));

TEST(OggTest, FindsDamageByItsChecksum) {
    Blob ogg = Asset("tone.ogg");
    ogg[ogg.size() / 2] ^= 1;
    EXPECT_THAT(ReasonFor(ogg), HasSubstr("wrong checksum"));
}

TEST(Mp3Test, CountsWithoutDelayAndPassesOverTags) {
    Blob mp3 = Asset("tone.mp3");
    Blob tagged{'I', 'D', '3', 4, 0, 0, 0, 0, 0, 5, 1, 2, 3, 4, 5};
    tagged.insert(tagged.end(), mp3.begin(), mp3.end());
    tagged.resize(tagged.size() + 128);
    std::copy_n("TAG", 3, tagged.end() - 128);
    Mp3File plain, with_tags;
    ASSERT_TRUE(ParseMp3(mp3.data(), mp3.size(), &plain, &g_reason));
    ASSERT_TRUE(ParseMp3(tagged.data(), tagged.size(), &with_tags, &g_reason)) << g_reason;
    EXPECT_EQ(plain.frames, 11025u);
    EXPECT_EQ(with_tags.frames, 11025u);
    EXPECT_EQ(with_tags.offsets.front(), plain.offsets.front() + 15);
}

TEST(DecodeTest, RefusesWhatIsTooLongForAnEffect) {
    // 200 MB of stereo claim to be there; nothing is decoded to find out.
    struct Endless : SoundReader {
        Endless() {
            rate_ = 44100;
            channels_ = 2;
            frames_ = 50u << 20;
        }
        size_t Read(int16_t*, size_t) override { return 0; }
        bool Seek(uint64_t) override { return true; }
    } endless;
    EXPECT_EQ(DecodeSound(endless, &g_reason), nullptr);
    EXPECT_EQ(g_reason, "too long for an effect (1188 s): play it as a stream");
}

}  // namespace
}  // namespace hge
