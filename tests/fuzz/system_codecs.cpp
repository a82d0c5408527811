// The system's codecs, which are not here: they take what they are given apart only so far as our side relies
// on.
#include "audio/coded_sound.h"
#include "core/whole_file.h"
#include "fuzz.h"
#include "resources/little_endian.h"
#include "resources/pixels.h"
#include "resources/wic.h"

namespace hge {
namespace {

void CheckUnits(const CodedSound& sound) {
    const uint8_t* end = sound.bytes->data() + sound.bytes->size();
    PROMISED(sound.data >= sound.bytes->data() && sound.data <= end);
    PROMISED(sound.data_size <= static_cast<size_t>(end - sound.data));
    PROMISED(sound.unit_frames > 0);
    for (size_t unit = 0; unit < sound.units; ++unit)
        PROMISED(sound.UnitStart(unit) < sound.UnitStart(unit + 1));
    PROMISED(sound.UnitStart(sound.units) <= sound.data_size);
    PROMISED(sound.skip_frames + sound.frames <= uint64_t{sound.units} * sound.unit_frames);
}

}  // namespace

std::unique_ptr<SoundReader> OpenCoded(CodedSound sound, std::string* reason) {
    *reason = "no codec";
    if (sound.channels > 2) return nullptr;
    PROMISED(sound.format.size() >= 16);
    PROMISED(IsSaneSound(sound.rate, sound.channels, sound.frames, reason));
    CheckUnits(sound);
    return nullptr;
}

// BMP: an opaque picture of the stated size, small enough for a fuzzer. Nothing else.
bool DecodeWithWic(const uint8_t* bytes, size_t size, Image* image, std::string* reason) {
    *image = {};
    int width = size >= 26 ? static_cast<int>(Get32(bytes + 18) % 64) : 0;
    int height = size >= 26 ? static_cast<int>(Get32(bytes + 22) % 64) : 0;
    *reason = "no picture";
    if (bytes[0] != 'B' || !IsImageSize(width, height)) return false;
    Reset(image, width, height);
    MakeVisible(image);
    return true;
}

std::vector<uint8_t> EncodePng(const Image&, std::string*) {
    return {};
}

bool WriteWholeFile(const std::string&, const void*, size_t, Flush, std::string*) {
    return false;
}

}  // namespace hge
