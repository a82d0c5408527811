#include "picture.h"
#include "resources/dds.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    hge::Image image;
    std::string reason;
    bool decoded = hge::DecodeDds(data, size, &image, &reason);
    CheckPicture(decoded, image, reason);
    // At least half a byte for each pixel of whole blocks.
    PROMISED(image.pixels.size() <= size * 2);
    return 0;
}
