#include "audio/mixer.h"

#include <algorithm>

namespace hge {

uint32_t Mixer::Start(std::unique_ptr<Channel> channel) {
    return channels_.size() < kMaxChannels ? channels_.Insert(std::move(channel)) : 0;
}

template <class F>
void Mixer::StopWhere(F&& doomed) {
    uint32_t ids[kMaxChannels];
    size_t count = 0;
    channels_.ForEach([&](uint32_t id, Channel& channel) {
        if (doomed(channel)) ids[count++] = id;
    });
    for (size_t i = 0; i < count; ++i)
        channels_.Remove(ids[i]);
}

void Mixer::StopOwned(uint32_t owner) {
    StopWhere([owner](const Channel& channel) { return channel.owner() == owner; });
}

void Mixer::StopAll() {
    StopWhere([](const Channel&) { return true; });
}

void Mixer::SetAllPaused(bool paused) {
    channels_.ForEach([paused](uint32_t, Channel& channel) { channel.SetPaused(paused); });
}

void Mixer::Render(float* stereo, size_t frames) {
    std::fill(stereo, stereo + frames * 2, 0.0f);
    if (suspended_) return;
    channels_.ForEach([&](uint32_t, Channel& channel) {
        channel.Mix(stereo, frames, rate_, volumes_[static_cast<size_t>(channel.group())]);
    });
    StopWhere([](const Channel& channel) { return channel.ended(); });
}

void Mixer::Skip(size_t frames) {
    if (suspended_) return;
    channels_.ForEach([&](uint32_t, Channel& channel) { channel.Skip(frames, rate_); });
    StopWhere([](const Channel& channel) { return channel.ended(); });
}

}  // namespace hge
