#pragma once

#include <mutex>
#include <optional>

#include "audio/mixer.h"
#include "audio/sound_output.h"
#include "core/log.h"

struct hgeCounters;

namespace hge {

class ResourceStore;

// Effects, streams and channels; see HGE::Effect_*, Stream_*, Channel_*. Before Start and after Stop every
// operation is harmless. Used from one thread; the output's thread pulls the mixed sound.
class Audio final : private SoundFeed {
 public:
    Audio(Log& log, ResourceStore& resources);
    ~Audio();
    Audio(const Audio&) = delete;
    Audio& operator=(const Audio&) = delete;

    // rate: of the mix, in Hz; brought to 8000..192000. A missing device is no failure.
    void Start(uint32_t rate, std::unique_ptr<SoundOutput> output);
    // Frees all effects, streams and channels.
    void Stop();
    // Once a frame.
    void Update();
    // Of effects, music and streams, 0..100 each; kept over Stop and Start.
    void SetVolumes(int effects, int music, int streams);
    // Everything stands still, for a window that is not active.
    void SetSuspended(bool suspended);

    uint32_t LoadEffect(const char* name, uint32_t size);
    void FreeEffect(uint32_t effect);
    uint32_t PlayEffect(uint32_t effect, const PlaySettings& settings);

    // Tracker modules cannot be decoded: 0, and a line in the log.
    uint32_t LoadMusic(const char* name, uint32_t size);

    uint32_t LoadStream(const char* name, uint32_t size);
    void FreeStream(uint32_t stream);
    // A stream that plays already starts again from its beginning.
    uint32_t PlayStream(uint32_t stream, const PlaySettings& settings);

    void SetPan(uint32_t channel, int pan);
    void SetVolume(uint32_t channel, int volume);
    void SetPitch(uint32_t channel, float pitch);
    void SetPaused(uint32_t channel, bool paused);
    void StopChannel(uint32_t channel);
    void SetAllPaused(bool paused);
    void StopAll();
    // True until the channel ends or is stopped, also while it is paused.
    bool IsPlaying(uint32_t channel);
    // Seconds; -1 for a dead channel.
    float Length(uint32_t channel);
    float Position(uint32_t channel);
    void SetPosition(uint32_t channel, float seconds);
    void SlideTo(uint32_t channel, float seconds, int volume, int pan, float pitch);
    bool IsSliding(uint32_t channel);

    // Live effects, streams and channels.
    void AddCounters(hgeCounters* counters);
    size_t effect_count() const { return effects_.size(); }
    size_t stream_count() const { return streams_.size(); }
    size_t channel_count();

 private:
    struct Effect {
        std::shared_ptr<const Pcm> pcm;
    };
    struct Stream {
        std::shared_ptr<SoundReader> reader;
    };

    void Render(float* stereo, size_t frames) override;
    void Skip(size_t frames) override;

    std::unique_ptr<SoundReader> OpenNamed(const char* what, const char* name, uint32_t size);
    SoundBytes FetchBytes(const char* name, uint32_t size);
    uint32_t Begin(std::unique_ptr<Channel> channel);
    void ReportDead(const char* what, uint32_t id);
    // Calls visit under the lock when the channel lives.
    template <class F>
    void WithChannel(uint32_t id, F&& visit);

    Log& log_;
    ResourceStore& resources_;
    std::unique_ptr<SoundOutput> output_;
    HandleTable<Effect, HandleKind::kEffect> effects_;
    HandleTable<Stream, HandleKind::kStream> streams_;
    std::mutex mutex_;  // guards mixer_ and what its channels read from
    std::optional<Mixer> mixer_;
    float volumes_[kSoundGroups] = {1, 1, 1};
};

}  // namespace hge
