#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace hge {

// Where sound comes from. Called on the output's thread.
class SoundFeed {
 public:
    // Fills frames of stereo, full scale -1..1.
    virtual void Render(float* stereo, size_t frames) = 0;
    // This much time has passed without anybody listening.
    virtual void Skip(size_t frames) = 0;

 protected:
    ~SoundFeed() = default;
};

// Where it goes: pulls from a feed, in real time.
class SoundOutput {
 public:
    virtual ~SoundOutput() = default;
    // The feed must live until Stop. Returns when it is known whether there is a device.
    virtual void Start(SoundFeed& feed, uint32_t rate) = 0;
    virtual void Stop() = 0;
    // A line for the log if something has changed since the last call, else "".
    virtual std::string TakeNotice() = 0;
};

enum class DeviceState { kHungry, kBusy, kLost };

// A sound card. Used from one thread.
class SoundDevice {
 public:
    virtual ~SoundDevice() = default;
    // *text: what was opened, or why nothing was.
    virtual bool Open(uint32_t rate, std::string* text) = 0;
    virtual void Close() = 0;
    // Waits a little (up to 20 ms) for room in the queue.
    virtual DeviceState Wait() = 0;
    // Frames of stereo that one Submit takes.
    virtual size_t block_frames() const = 0;
    virtual bool Submit(const float* stereo) = 0;
};

// The system's default sound card.
std::unique_ptr<SoundDevice> MakeXAudio2Device();
// Runs a device on a thread of its own; null for a silent clock.
std::unique_ptr<SoundOutput> MakeThreadedOutput(std::unique_ptr<SoundDevice> device);

}  // namespace hge
