#include "resources/image.h"

#include <cstring>
#include <new>

#include "core/whole_file.h"
#include "resources/bmp.h"
#include "resources/codec_guard.h"
#include "resources/dds.h"
#include "resources/pixels.h"
#include "resources/tga.h"
#include "resources/wic.h"

namespace hge {
namespace {

bool StartsWith(const uint8_t* bytes, size_t size, const char* signature) {
    size_t length = std::strlen(signature);
    return size >= length && std::memcmp(bytes, signature, length) == 0;
}

bool IsForWic(const uint8_t* bytes, size_t size) {
    for (const char* signature : {"\x89PNG\r\n", "\xFF\xD8\xFF", "BM", "GIF8", "II*", "MM"})
        if (StartsWith(bytes, size, signature)) return true;
    return false;
}

bool DecodeAny(const uint8_t* bytes, size_t size, Image* image, std::string* reason) {
    if (StartsWith(bytes, size, "DDS ")) return DecodeDds(bytes, size, image, reason);
    if (IsForWic(bytes, size)) {
        const char* objection = CodecObjection(bytes, size);
        if (objection) *reason = objection;
        if (objection || !DecodeWithWic(bytes, size, image, reason)) return false;
        if (StartsWith(bytes, size, "BM")) ApplyBmpAlpha(bytes, size, image);
        return true;
    }
    if (LooksLikeTga(bytes, size)) return DecodeTga(bytes, size, image, reason);
    *reason = size ? "not a known image format" : "the file is empty";
    return false;
}

std::string LowerExtension(const std::string& path) {
    size_t dot = path.find_last_of('.');
    std::string extension = dot == std::string::npos ? "" : path.substr(dot);
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

bool IsWhole(const Image& image) {
    return IsImageSize(image.width, image.height) &&
           image.pixels.size() == static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
}

}  // namespace

bool DecodeImage(const void* bytes, size_t size, Image* image, std::string* reason) {
    *image = {};
    try {
        return DecodeAny(static_cast<const uint8_t*>(bytes), bytes ? size : 0, image, reason);
    } catch (const std::bad_alloc&) {
        *image = {};
        *reason = "not enough memory";
        return false;
    }
}

bool WriteImage(const std::string& path, const Image& image, std::string* reason) {
    std::string extension = LowerExtension(path);
    std::vector<uint8_t> bytes;
    if (!IsWhole(image))
        *reason = "there is no picture to write";
    else if (extension == ".bmp")
        bytes = EncodeBmp(image);
    else if (extension == ".png")
        bytes = EncodePng(image, reason);
    else
        *reason = "the format \"" + extension + "\" is not supported: use .bmp or .png";
    return !bytes.empty() && WriteWholeFile(path, bytes.data(), bytes.size(), Flush::kYes, reason);
}

}  // namespace hge
