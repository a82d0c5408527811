#include "audio/mp3_file.h"
#include "sound.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PlaySound(hge::OpenMp3, {data, data + size});
    return 0;
}
