#include "audio/sound_reader.h"

#include <algorithm>
#include <cstring>

#include "audio/mp3_file.h"
#include "audio/ogg_reader.h"
#include "audio/wave_reader.h"

namespace hge {
namespace {

// 18 minutes of 44.1 kHz stereo: what is longer belongs into a stream.
constexpr uint64_t kMaxEffectBytes = 192u << 20;
constexpr size_t kDecodeChunk = 16384;

class PcmReader final : public SoundReader {
 public:
    explicit PcmReader(std::shared_ptr<const Pcm> pcm) : pcm_(std::move(pcm)) {
        rate_ = pcm_->rate;
        channels_ = pcm_->channels;
        frames_ = pcm_->frames();
    }

    size_t Read(int16_t* out, size_t count) override {
        count = static_cast<size_t>(std::min<uint64_t>(count, frames_ - next_));
        std::memcpy(out, pcm_->samples.data() + next_ * channels_, count * channels_ * sizeof *out);
        next_ += count;
        return count;
    }

    bool Seek(uint64_t frame) override {
        next_ = static_cast<size_t>(std::min(frame, frames_));
        return true;
    }

 private:
    std::shared_ptr<const Pcm> pcm_;
    size_t next_ = 0;
};

bool StartsWith(const std::vector<uint8_t>& bytes, const char* magic) {
    return bytes.size() >= 4 && std::memcmp(bytes.data(), magic, 4) == 0;
}

}  // namespace

bool IsSaneSound(uint32_t rate, uint32_t channels, uint64_t frames, std::string* reason) {
    if (channels == 0 || channels > 8)
        *reason = std::to_string(channels) + " channels";
    else if (rate < 1000 || rate > 384000)
        *reason = "a rate of " + std::to_string(rate) + " Hz";
    else if (frames == 0)
        *reason = "it holds no samples";
    else
        return true;
    return false;
}

std::unique_ptr<SoundReader> OpenSound(SoundBytes bytes, std::string* reason) {
    if (!bytes || bytes->empty()) {
        *reason = "it is empty";
        return nullptr;
    }
    if (StartsWith(*bytes, "RIFF")) return OpenWave(std::move(bytes), reason);
    if (StartsWith(*bytes, "OggS")) return OpenOgg(std::move(bytes), reason);
    return OpenMp3(std::move(bytes), reason);
}

std::shared_ptr<const Pcm> DecodeSound(SoundReader& reader, std::string* reason) {
    uint64_t bytes = reader.frames() * reader.channels() * sizeof(int16_t);
    if (bytes > kMaxEffectBytes) {
        *reason = "too long for an effect (" + std::to_string(reader.frames() / reader.rate()) +
                  " s): play it as a stream";
        return nullptr;
    }
    auto pcm = std::make_shared<Pcm>();
    pcm->rate = reader.rate();
    pcm->channels = reader.channels();
    pcm->samples.resize(static_cast<size_t>(reader.frames()) * pcm->channels);
    size_t wanted = static_cast<size_t>(reader.frames()), done = 0;
    while (done < wanted) {
        size_t count =
            reader.Read(&pcm->samples[done * pcm->channels], std::min(wanted - done, kDecodeChunk));
        if (count == 0) break;
        done += count;
    }
    pcm->samples.resize(done * pcm->channels);
    if (done) return pcm;
    *reason = "nothing of it can be decoded";
    return nullptr;
}

std::unique_ptr<SoundReader> ReadPcm(std::shared_ptr<const Pcm> pcm) {
    return std::make_unique<PcmReader>(std::move(pcm));
}

}  // namespace hge
