#include "fuzz.h"
#include "resources/codec_guard.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* objection = hge::CodecObjection(data, size);
    PROMISED(!objection || *objection);
    return 0;
}
