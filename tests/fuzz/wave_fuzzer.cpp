#include "audio/wave_reader.h"
#include "sound.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PlaySound(hge::OpenWave, {data, data + size});
    return 0;
}
