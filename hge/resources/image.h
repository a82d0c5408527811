#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace hge {

// Straight (not premultiplied) 0xAARRGGBB pixels, top row first, no padding.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

// PNG, JPEG, BMP, TGA, DDS or GIF (first frame). False leaves image empty and says why in reason.
bool DecodeImage(const void* bytes, size_t size, Image* image, std::string* reason);

// BMP or PNG by the extension of path. The file is written whole or not at all.
bool WriteImage(const std::string& path, const Image& image, std::string* reason);

}  // namespace hge
