#pragma once

#include "fuzz.h"
#include "resources/pixels.h"

// A picture or a reason, never half of either.
inline void CheckPicture(bool decoded, const hge::Image& image, const std::string& reason) {
    PROMISED(decoded == reason.empty());
    PROMISED(decoded ? hge::IsImageSize(image.width, image.height) : image.width == 0 && image.height == 0);
    PROMISED(image.pixels.size() == static_cast<size_t>(image.width) * static_cast<size_t>(image.height));
}
