#include "audio/output_driver.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace hge {
namespace {

constexpr uint32_t kRate = 1000;

struct CountingFeed final : SoundFeed {
    void Render(float* stereo, size_t frames) override {
        std::fill(stereo, stereo + frames * 2, 1.0f);
        rendered += frames;
    }
    void Skip(size_t frames) override { skipped += frames; }
    size_t rendered = 0, skipped = 0;
};

struct FakeDevice : SoundDevice {
    bool Open(uint32_t, std::string* text) override {
        ++attempts;
        *text = present ? "a card" : reason;
        return open = present;
    }
    void Close() override { open = false; }
    DeviceState Wait() override { return state; }
    size_t block_frames() const override { return 10; }
    bool Submit(const float* stereo) override {
        EXPECT_EQ(stereo[19], 1.0f);
        return submits;
    }

    bool present = true, open = false, submits = true;
    std::string reason = "none there";
    DeviceState state = DeviceState::kHungry;
    int attempts = 0;
};

class OutputDriverTest : public testing::Test {
 protected:
    // Steps of 10 ms.
    void Run(double seconds) {
        for (int i = 0; i < static_cast<int>(seconds * 100 + 0.5); ++i)
            driver_.Step(now_ += 0.01);
    }

    CountingFeed feed_;
    FakeDevice device_;
    double now_ = 100;
    OutputDriver driver_{feed_, &device_, kRate, now_};
};

TEST_F(OutputDriverTest, FeedsAHungryDevice) {
    EXPECT_EQ(driver_.Step(now_), 0);
    EXPECT_EQ(driver_.TakeNotice(), "sound: a card");
    EXPECT_EQ(driver_.TakeNotice(), "");
    Run(0.5);
    EXPECT_EQ(feed_.rendered, 500u);
    device_.state = DeviceState::kBusy;
    Run(0.5);
    EXPECT_EQ(feed_.rendered, 500u);
    EXPECT_TRUE(driver_.has_device());
    driver_.Close();
    EXPECT_FALSE(device_.open);
}

TEST_F(OutputDriverTest, RunsOnTheClockWithoutADevice) {
    device_.present = false;
    Run(10);
    EXPECT_EQ(driver_.TakeNotice(), "sound: no device (none there), channels run silently");
    EXPECT_NEAR(static_cast<double>(feed_.skipped), 10000, 11);
    EXPECT_EQ(feed_.rendered, 0u);
    EXPECT_EQ(device_.attempts, 5) << "once in two seconds";
    EXPECT_EQ(driver_.TakeNotice(), "") << "the same reason is said once";
    device_.present = true;
    Run(2);
    EXPECT_GT(feed_.rendered, 0u);
    EXPECT_NEAR(static_cast<double>(feed_.skipped + feed_.rendered), 12000, 25) << "none is lost";
}

TEST_F(OutputDriverTest, NeedsNoDeviceAtAll) {
    OutputDriver driver(feed_, nullptr, kRate, 0);
    EXPECT_EQ(driver.TakeNotice(), "sound: off, channels run silently");
    // Steps of a third of a frame: none is lost on the way.
    for (int i = 1; i <= 3000; ++i)
        EXPECT_GT(driver.Step(i / 3000.0), 0);
    EXPECT_NEAR(static_cast<double>(feed_.skipped), 1000, 1);
}

class LostDeviceTest : public OutputDriverTest, public testing::WithParamInterface<const char*> {};

TEST_P(LostDeviceTest, GoesOnUnheardUntilItIsBack) {
    Run(1);
    driver_.TakeNotice();
    std::string how = GetParam();
    if (how == "says so") device_.state = DeviceState::kLost;
    if (how == "starves") device_.state = DeviceState::kBusy;
    if (how == "refuses") device_.submits = false;
    device_.present = false;
    Run(1.1);
    EXPECT_FALSE(device_.open);
    EXPECT_THAT(driver_.TakeNotice(), testing::HasSubstr("the device is gone"));
    Run(4.9);
    EXPECT_NEAR(static_cast<double>(feed_.skipped + feed_.rendered), 7000, 40);

    device_.present = device_.submits = true;
    device_.state = DeviceState::kHungry;
    size_t rendered = feed_.rendered;
    Run(2.1);
    EXPECT_GT(feed_.rendered, rendered);
    EXPECT_EQ(driver_.TakeNotice(), "sound: a card");
    EXPECT_NEAR(static_cast<double>(feed_.skipped + feed_.rendered), 9100, 60);
}

INSTANTIATE_TEST_SUITE_P(Ways, LostDeviceTest, testing::Values("says so", "starves", "refuses"));

}  // namespace
}  // namespace hge
