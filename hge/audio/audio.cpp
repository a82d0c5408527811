#include "audio/audio.h"

#include <algorithm>
#include <new>
#include <utility>

#include "hgecounters.h"
#include "resources/resource_store.h"

namespace hge {
namespace {

std::string Named(const char* name, uint32_t size) {
    if (size) return "a block of " + std::to_string(size) + " bytes";
    return '"' + std::string(name ? name : "") + '"';
}

bool IsChannelId(uint32_t id) {
    return id >> 28 == static_cast<uint32_t>(HandleKind::kChannel);
}

}  // namespace

Audio::Audio(Log& log, ResourceStore& resources) : log_(log), resources_(resources) {}

Audio::~Audio() {
    Stop();
}

void Audio::Start(uint32_t rate, std::unique_ptr<SoundOutput> output) {
    Stop();
    rate = std::clamp(rate, 8000u, 192000u);
    mixer_.emplace(rate);
    for (size_t i = 0; i < kSoundGroups; ++i)
        mixer_->SetGroupVolume(static_cast<SoundGroup>(i), volumes_[i]);
    output_ = std::move(output);
    output_->Start(*this, rate);
    Update();
}

void Audio::Stop() {
    if (!mixer_) return;
    output_->Stop();
    output_.reset();
    mixer_.reset();
    effects_ = {};
    streams_ = {};
}

void Audio::Update() {
    if (!output_) return;
    std::string notice = output_->TakeNotice();
    if (!notice.empty()) log_.Write("%s", notice.c_str());
}

void Audio::SetVolumes(int effects, int music, int streams) {
    std::lock_guard lock(mutex_);
    const int volumes[kSoundGroups] = {effects, music, streams};
    for (size_t i = 0; i < kSoundGroups; ++i) {
        volumes_[i] = static_cast<float>(std::clamp(volumes[i], 0, 100)) / 100;
        if (mixer_) mixer_->SetGroupVolume(static_cast<SoundGroup>(i), volumes_[i]);
    }
}

void Audio::SetSuspended(bool suspended) {
    std::lock_guard lock(mutex_);
    if (mixer_) mixer_->SetSuspended(suspended);
}

uint32_t Audio::LoadEffect(const char* name, uint32_t size) {
    auto reader = OpenNamed("effect", name, size);
    if (!reader) return 0;
    std::string reason = "out of memory";
    std::shared_ptr<const Pcm> pcm;
    try {
        pcm = DecodeSound(*reader, &reason);
    } catch (const std::bad_alloc&) {
    }
    if (!pcm) {
        log_.Fail("cannot load effect %s: %s", Named(name, size).c_str(), reason.c_str());
        return 0;
    }
    return effects_.Insert(std::make_unique<Effect>(Effect{std::move(pcm)}));
}

void Audio::FreeEffect(uint32_t effect) {
    if (!effects_.Remove(effect)) return ReportDead("effect", effect);
    std::lock_guard lock(mutex_);
    mixer_->StopOwned(effect);
}

uint32_t Audio::PlayEffect(uint32_t effect, const PlaySettings& settings) {
    Effect* found = effects_.Find(effect);
    if (!found) {
        ReportDead("effect", effect);
        return 0;
    }
    return Begin(std::make_unique<Channel>(ReadPcm(found->pcm), SoundGroup::kEffects, effect, settings));
}

uint32_t Audio::LoadMusic(const char* name, uint32_t size) {
    log_.Fail("cannot load music %s: tracker modules are not supported, play an effect or a stream",
              Named(name, size).c_str());
    return 0;
}

uint32_t Audio::LoadStream(const char* name, uint32_t size) {
    auto reader = OpenNamed("stream", name, size);
    return reader ? streams_.Insert(std::make_unique<Stream>(Stream{std::move(reader)})) : 0;
}

void Audio::FreeStream(uint32_t stream) {
    auto removed = streams_.Remove(stream);
    if (!removed) return ReportDead("stream", stream);
    std::lock_guard lock(mutex_);
    mixer_->StopOwned(stream);
}

uint32_t Audio::PlayStream(uint32_t stream, const PlaySettings& settings) {
    Stream* found = streams_.Find(stream);
    if (!found) {
        ReportDead("stream", stream);
        return 0;
    }
    {
        std::lock_guard lock(mutex_);
        mixer_->StopOwned(stream);
    }
    return Begin(std::make_unique<Channel>(found->reader, SoundGroup::kStreams, stream, settings));
}

template <class F>
void Audio::WithChannel(uint32_t id, F&& visit) {
    {
        std::lock_guard lock(mutex_);
        Channel* channel = mixer_ ? mixer_->Find(id) : nullptr;
        if (channel) return visit(*channel);
    }
    // A channel that has ended is no fault; another kind of handle is.
    if (!IsChannelId(id)) ReportDead("channel", id);
}

void Audio::SetPan(uint32_t channel, int pan) {
    WithChannel(channel, [=](Channel& found) { found.SetPan(pan); });
}

void Audio::SetVolume(uint32_t channel, int volume) {
    WithChannel(channel, [=](Channel& found) { found.SetVolume(volume); });
}

void Audio::SetPitch(uint32_t channel, float pitch) {
    WithChannel(channel, [=](Channel& found) { found.SetPitch(pitch); });
}

void Audio::SetPaused(uint32_t channel, bool paused) {
    WithChannel(channel, [=](Channel& found) { found.SetPaused(paused); });
}

void Audio::StopChannel(uint32_t channel) {
    WithChannel(channel, [=, this](Channel&) { mixer_->Stop(channel); });
}

void Audio::SetAllPaused(bool paused) {
    std::lock_guard lock(mutex_);
    if (mixer_) mixer_->SetAllPaused(paused);
}

void Audio::StopAll() {
    std::lock_guard lock(mutex_);
    if (mixer_) mixer_->StopAll();
}

bool Audio::IsPlaying(uint32_t channel) {
    bool playing = false;
    WithChannel(channel, [&](Channel&) { playing = true; });
    return playing;
}

float Audio::Length(uint32_t channel) {
    float seconds = -1;
    WithChannel(channel, [&](Channel& found) { seconds = found.Length(); });
    return seconds;
}

float Audio::Position(uint32_t channel) {
    float seconds = -1;
    WithChannel(channel, [&](Channel& found) { seconds = found.Position(); });
    return seconds;
}

void Audio::SetPosition(uint32_t channel, float seconds) {
    WithChannel(channel, [=](Channel& found) { found.SetPosition(seconds); });
}

void Audio::SlideTo(uint32_t channel, float seconds, int volume, int pan, float pitch) {
    WithChannel(channel, [=](Channel& found) { found.SlideTo(seconds, volume, pan, pitch); });
}

bool Audio::IsSliding(uint32_t channel) {
    bool sliding = false;
    WithChannel(channel, [&](Channel& found) { sliding = found.IsSliding(); });
    return sliding;
}

void Audio::AddCounters(hgeCounters* counters) {
    counters->effects = static_cast<DWORD>(effects_.size());
    counters->streams = static_cast<DWORD>(streams_.size());
    counters->channels = static_cast<DWORD>(channel_count());
}

size_t Audio::channel_count() {
    std::lock_guard lock(mutex_);
    return mixer_ ? mixer_->size() : 0;
}

void Audio::Render(float* stereo, size_t frames) {
    std::lock_guard lock(mutex_);
    mixer_->Render(stereo, frames);
}

void Audio::Skip(size_t frames) {
    std::lock_guard lock(mutex_);
    mixer_->Skip(frames);
}

std::unique_ptr<SoundReader> Audio::OpenNamed(const char* what, const char* name, uint32_t size) {
    std::string reason = "sound is not started";
    std::unique_ptr<SoundReader> reader;
    if (mixer_) {
        SoundBytes bytes;
        try {
            reason = "out of memory";
            bytes = FetchBytes(name, size);
            if (!bytes) return nullptr;
            reader = OpenSound(std::move(bytes), &reason);
        } catch (const std::bad_alloc&) {
        }
    }
    if (!reader) log_.Fail("cannot load %s %s: %s", what, Named(name, size).c_str(), reason.c_str());
    return reader;
}

// A copy: the host may give a block back at once, and packs may go while a stream plays.
SoundBytes Audio::FetchBytes(const char* name, uint32_t size) {
    if (name && size) {
        auto* block = reinterpret_cast<const uint8_t*>(name);
        return std::make_shared<const std::vector<uint8_t>>(block, block + size);
    }
    uint32_t loaded_size = 0;
    auto release = [this](void* block) { resources_.Free(block); };
    std::unique_ptr<void, decltype(release)> loaded(resources_.Load(name, &loaded_size), release);
    if (!loaded) return nullptr;
    auto* bytes = static_cast<const uint8_t*>(loaded.get());
    return std::make_shared<const std::vector<uint8_t>>(bytes, bytes + loaded_size);
}

uint32_t Audio::Begin(std::unique_ptr<Channel> channel) {
    uint32_t id;
    {
        std::lock_guard lock(mutex_);
        id = mixer_->Start(std::move(channel));
    }
    if (!id)
        log_.WriteOnce("audio: channels", "%u sounds play already: further ones are dropped",
                       static_cast<unsigned>(Mixer::kMaxChannels));
    return id;
}

void Audio::ReportDead(const char* what, uint32_t id) {
    if (id)
        log_.WriteOnce(std::string("audio: dead ") + what, "0x%08X is no live %s", static_cast<unsigned>(id),
                       what);
}

}  // namespace hge
