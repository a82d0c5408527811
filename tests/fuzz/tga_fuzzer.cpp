#include "picture.h"
#include "resources/tga.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    hge::Image image;
    std::string reason;
    bool decoded = hge::DecodeTga(data, size, &image, &reason);
    CheckPicture(decoded, image, reason);
    // At most 128 pixels of one packet of two bytes.
    PROMISED(image.pixels.size() <= size * 64);
    return 0;
}
