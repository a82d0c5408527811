#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, which they need.
#include <mmsystem.h>

#include <mmreg.h>
#include <msacm.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "audio/coded_sound.h"

namespace hge {
namespace {

constexpr size_t kMinSource = 8192;

// A conversion of the system's codecs with buffers of its own.
class AcmStream {
 public:
    AcmStream() = default;
    AcmStream(const AcmStream&) = delete;
    AcmStream& operator=(const AcmStream&) = delete;
    ~AcmStream() { Close(); }

    MMRESULT Open(const std::vector<uint8_t>& from, const WAVEFORMATEX& to, size_t source_size) {
        Close();
        // Codecs read the fields of their own format: what the file left out is zero, not foreign memory.
        format_ = from;
        format_.resize(std::max<size_t>(from.size(), 64));
        WAVEFORMATEX target = to;
        auto* source_format = reinterpret_cast<WAVEFORMATEX*>(format_.data());
        MMRESULT result = acmStreamOpen(&stream_, nullptr, source_format, &target, nullptr, 0, 0, 0);
        if (result) return result;
        DWORD target_size = 0;
        result =
            acmStreamSize(stream_, static_cast<DWORD>(source_size), &target_size, ACM_STREAMSIZEF_SOURCE);
        return result ? result : Prepare(source_size, target_size);
    }

    // Takes up to a buffer full of source; *used says how much. Null on failure.
    const int16_t* Convert(const uint8_t* source, size_t size, bool last, size_t* used, size_t* samples) {
        std::memcpy(source_.data(), source, size);
        header_.cbSrcLength = static_cast<DWORD>(size);
        header_.cbSrcLengthUsed = header_.cbDstLengthUsed = 0;
        DWORD flags = last ? ACM_STREAMCONVERTF_END : ACM_STREAMCONVERTF_BLOCKALIGN;
        if (acmStreamConvert(stream_, &header_, flags)) return nullptr;
        *used = std::min<size_t>(header_.cbSrcLengthUsed, size);
        *samples = header_.cbDstLengthUsed / sizeof(int16_t);
        return reinterpret_cast<const int16_t*>(target_.data());
    }

    size_t capacity() const { return source_.size(); }

 private:
    MMRESULT Prepare(size_t source_size, size_t target_size) {
        source_.resize(source_size);
        target_.resize(target_size);
        header_ = {};
        header_.cbStruct = sizeof header_;
        header_.pbSrc = source_.data();
        header_.cbSrcLength = static_cast<DWORD>(source_size);
        header_.pbDst = target_.data();
        header_.cbDstLength = static_cast<DWORD>(target_size);
        MMRESULT result = acmStreamPrepareHeader(stream_, &header_, 0);
        prepared_ = result == 0;
        return result;
    }

    void Close() {
        if (std::exchange(prepared_, false)) {
            header_.cbSrcLength = static_cast<DWORD>(source_.size());
            header_.cbDstLength = static_cast<DWORD>(target_.size());
            acmStreamUnprepareHeader(stream_, &header_, 0);
        }
        if (HACMSTREAM stream = std::exchange(stream_, nullptr)) acmStreamClose(stream, 0);
    }

    HACMSTREAM stream_ = nullptr;
    ACMSTREAMHEADER header_ = {};
    bool prepared_ = false;
    std::vector<uint8_t> format_, source_, target_;
};

class AcmReader final : public SoundReader {
 public:
    explicit AcmReader(CodedSound sound) : sound_(std::move(sound)) {
        rate_ = sound_.rate;
        channels_ = sound_.channels;
        frames_ = sound_.frames;
    }

    bool Start(std::string* reason) {
        MMRESULT result = Restart(0);
        if (result)
            *reason = "the system has no codec for coding " + std::to_string(Coding()) + " (error " +
                      std::to_string(result) + ")";
        return result == 0;
    }

    size_t Read(int16_t* out, size_t count) override {
        size_t done = 0;
        count = static_cast<size_t>(std::min<uint64_t>(count, frames_ - next_));
        while (done < count && (taken_ < decoded_.size() || DecodeMore())) {
            size_t frames = std::min(count - done, (decoded_.size() - taken_) / channels_);
            std::memcpy(out + done * channels_, &decoded_[taken_], frames * channels_ * sizeof *out);
            taken_ += frames * channels_;
            done += frames;
        }
        next_ += done;
        return done;
    }

    bool Seek(uint64_t frame) override {
        next_ = std::min(frame, frames_);
        return Restart(next_) == 0;
    }

 private:
    unsigned Coding() const { return sound_.format[0] | sound_.format[1] << 8u; }

    MMRESULT Restart(uint64_t frame) {
        uint64_t target = frame + sound_.skip_frames;
        auto unit = static_cast<size_t>(target / sound_.unit_frames);
        unit -= std::min<size_t>(unit, sound_.preroll_units);
        source_at_ = sound_.UnitStart(unit);
        drop_ = target - static_cast<uint64_t>(unit) * sound_.unit_frames;
        decoded_.clear();
        taken_ = 0;

        WAVEFORMATEX pcm = {};
        pcm.wFormatTag = WAVE_FORMAT_PCM;
        pcm.nChannels = static_cast<WORD>(channels_);
        pcm.nSamplesPerSec = rate_;
        pcm.wBitsPerSample = 16;
        pcm.nBlockAlign = static_cast<WORD>(channels_ * 2);
        pcm.nAvgBytesPerSec = rate_ * pcm.nBlockAlign;
        return stream_.Open(sound_.format, pcm, std::max<size_t>(kMinSource, sound_.unit_bytes));
    }

    // Whole units that fit the buffer, or the rest.
    size_t NextSourceSize(bool* last) const {
        size_t rest = sound_.UnitStart(sound_.units) - source_at_;
        *last = rest <= stream_.capacity();
        if (*last || !sound_.unit_bytes) return std::min(rest, stream_.capacity());
        return stream_.capacity() / sound_.unit_bytes * sound_.unit_bytes;
    }

    bool DecodeMore() {
        decoded_.clear();
        taken_ = 0;
        while (decoded_.empty()) {
            bool last = false;
            size_t size = NextSourceSize(&last), used = 0, samples = 0;
            if (size == 0) return false;
            const int16_t* pcm = stream_.Convert(sound_.data + source_at_, size, last, &used, &samples);
            if (!pcm || (used == 0 && samples == 0)) return false;
            source_at_ += used;
            Keep(pcm, samples - samples % channels_);
        }
        return true;
    }

    void Keep(const int16_t* pcm, size_t samples) {
        auto dropped = static_cast<size_t>(std::min<uint64_t>(drop_, samples / channels_));
        drop_ -= dropped;
        decoded_.assign(pcm + dropped * channels_, pcm + samples);
    }

    CodedSound sound_;
    AcmStream stream_;
    size_t source_at_ = 0;
    uint64_t drop_ = 0;
    std::vector<int16_t> decoded_;
    size_t taken_ = 0;
    uint64_t next_ = 0;
};

}  // namespace

std::unique_ptr<SoundReader> OpenCoded(CodedSound sound, std::string* reason) {
    if (sound.channels > 2) {
        *reason = std::to_string(sound.channels) + " channels of coded sound";
        return nullptr;
    }
    auto reader = std::make_unique<AcmReader>(std::move(sound));
    return reader->Start(reason) ? std::move(reader) : nullptr;
}

}  // namespace hge
