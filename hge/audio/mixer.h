#pragma once

#include "audio/channel.h"
#include "core/handle_table.h"

namespace hge {

// All channels, and the stereo that they add up to. A channel that ends is forgotten, its handle is dead.
class Mixer {
 public:
    // More at once than anyone can tell apart; a bound for the time that mixing takes.
    static constexpr size_t kMaxChannels = 256;

    // rate: frames per second of the output.
    explicit Mixer(uint32_t rate) : rate_(rate) {}

    // 0 when kMaxChannels play.
    uint32_t Start(std::unique_ptr<Channel> channel);
    Channel* Find(uint32_t id) const { return channels_.Find(id); }
    void Stop(uint32_t id) { channels_.Remove(id); }
    void StopOwned(uint32_t owner);
    void StopAll();
    void SetAllPaused(bool paused);
    // 0..1.
    void SetGroupVolume(SoundGroup group, float volume) { volumes_[static_cast<size_t>(group)] = volume; }
    // All stands still, new channels too.
    void SetSuspended(bool suspended) { suspended_ = suspended; }

    // Overwrites frames of stereo, full scale -1..1; the sum may exceed it.
    void Render(float* stereo, size_t frames);
    // Time passes unheard.
    void Skip(size_t frames);

    uint32_t rate() const { return rate_; }
    size_t size() const { return channels_.size(); }

 private:
    template <class F>
    void StopWhere(F&& doomed);

    uint32_t rate_;
    HandleTable<Channel, HandleKind::kChannel> channels_;
    float volumes_[kSoundGroups] = {1, 1, 1};
    bool suspended_ = false;
};

}  // namespace hge
