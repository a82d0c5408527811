#include "ogg_pages.h"
#include "sound.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PlaySound(hge::OpenOgg, WithChecksums(data, size));
    return 0;
}
