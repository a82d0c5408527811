#include "picture.h"
#include "resources/bmp.h"

// The alpha that we read ourselves, and the way back through the writer.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    hge::Image image;
    std::string reason;
    bool decoded = hge::DecodeImage(data, size, &image, &reason);
    if (size < 2 || data[0] != 'B' || data[1] != 'M' || !decoded) return 0;
    hge::Image again = image;
    std::vector<uint8_t> file = hge::EncodeBmp(image);
    hge::ApplyBmpAlpha(file.data(), file.size(), &again);
    PROMISED(again.pixels == image.pixels);
    return 0;
}
