#include "ogg_pages.h"

// The pages and the headers; the sound is for vorbis_fuzzer.cpp, which is slower.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<uint8_t> bytes = WithChecksums(data, size);
    std::string reason;
    PROMISED(hge::CheckOgg(bytes.data(), &size, &reason) == reason.empty());
    PROMISED(size <= bytes.size());
    return 0;
}
