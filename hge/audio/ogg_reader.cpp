#include "audio/ogg_reader.h"

#include <algorithm>

#include "audio/channel_fold.h"

#define STB_VORBIS_HEADER_ONLY
#define STB_VORBIS_NO_STDIO
#define STB_VORBIS_NO_PUSHDATA_API
#include <stb_vorbis.h>

namespace hge {
namespace {

// A bound for the decoder's tables: what a file asks for beyond it is refused. Real files need 0.2 to 0.6 MB.
constexpr size_t kDecoderMemory = 4u << 20;

// A packet takes two bytes at least, its length and one of its own, and gives up to 4096 samples.
constexpr uint64_t kMostFramesPerByte = 2048;

struct CloseVorbis {
    void operator()(stb_vorbis* vorbis) const { stb_vorbis_close(vorbis); }
};

class OggReader final : public SoundReader {
 public:
    // size: of the checked pages.
    OggReader(SoundBytes bytes, size_t size)
        : bytes_(std::move(bytes)), size_(size), memory_(new char[kDecoderMemory]) {
        stb_vorbis_alloc memory{memory_.get(), static_cast<int>(kDecoderMemory)};
        vorbis_.reset(stb_vorbis_open_memory(bytes_->data(), static_cast<int>(size_), &error_, &memory));
    }

    bool Start(std::string* reason) {
        if (!vorbis_) {
            *reason = "not decodable as OGG Vorbis (code " + std::to_string(error_) + ")";
            return false;
        }
        stb_vorbis_info info = stb_vorbis_get_info(vorbis_.get());
        file_channels_ = static_cast<uint32_t>(info.channels);
        rate_ = info.sample_rate;
        frames_ = stb_vorbis_stream_length_in_samples(vorbis_.get());
        if (frames_ > size_ * kMostFramesPerByte) {
            *reason = "damaged: " + std::to_string(frames_) + " samples cannot be in its " +
                      std::to_string(size_) + " bytes";
            return false;
        }
        if (!IsSaneSound(rate_, file_channels_, frames_, reason)) return false;
        fold_ = ChannelFold(file_channels_, ChannelOrder::kVorbis);
        channels_ = fold_.out_channels();
        return true;
    }

    size_t Read(int16_t* out, size_t count) override {
        constexpr size_t kFrames = 512;
        float values[kFrames * 8];
        size_t done = 0;
        count = static_cast<size_t>(std::min<uint64_t>(count, frames_ - next_));
        while (done < count) {
            size_t wanted = std::min(count - done, kFrames);
            int got =
                stb_vorbis_get_samples_float_interleaved(vorbis_.get(), static_cast<int>(file_channels_),
                                                         values, static_cast<int>(wanted * file_channels_));
            if (got <= 0) break;
            fold_.Apply(values, static_cast<size_t>(got), out + done * channels_);
            done += static_cast<size_t>(got);
        }
        next_ += done;
        return done;
    }

    bool Seek(uint64_t frame) override {
        next_ = std::min(frame, frames_);
        if (next_ == 0) return stb_vorbis_seek_start(vorbis_.get()) != 0;
        // There is nothing to decode at the very end.
        return next_ == frames_ || stb_vorbis_seek(vorbis_.get(), static_cast<unsigned>(next_)) != 0;
    }

 private:
    SoundBytes bytes_;
    size_t size_;
    std::unique_ptr<char[]> memory_;
    int error_ = 0;
    std::unique_ptr<stb_vorbis, CloseVorbis> vorbis_;
    uint32_t file_channels_ = 0;
    ChannelFold fold_{1, ChannelOrder::kVorbis};
    uint64_t next_ = 0;
};

}  // namespace

std::unique_ptr<SoundReader> OpenOgg(SoundBytes bytes, std::string* reason) {
    if (bytes->size() > 0x7FFFFFFF) {
        *reason = "larger than 2 GB";
        return nullptr;
    }
    size_t size = bytes->size();
    if (!CheckOgg(bytes->data(), &size, reason)) return nullptr;
    auto reader = std::make_unique<OggReader>(std::move(bytes), size);
    return reader->Start(reason) ? std::move(reader) : nullptr;
}

}  // namespace hge
