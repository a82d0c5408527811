#include "support/picture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "support/files.h"

namespace test {

namespace {

int Channel(uint32_t color, int shift) {
    return static_cast<int>(color >> shift & 0xFF);
}

int Distance(uint32_t a, uint32_t b) {
    int most = 0;
    for (int shift : {0, 8, 16, 24})
        most = std::max(most, std::abs(Channel(a, shift) - Channel(b, shift)));
    return most;
}

// White where the pictures differ, brighter the more they do.
hge::Image Difference(const hge::Image& a, const hge::Image& b) {
    return MakePicture(a.width, a.height, [&](int x, int y) {
        size_t at = static_cast<size_t>(y) * a.width + x;
        int off = Distance(a.pixels[at], b.pixels[at]);
        uint32_t grey = off ? static_cast<uint32_t>(std::min(255, 64 + off)) : 0;
        return 0xFF000000 | grey * 0x010101;
    });
}

std::string Keep(const std::string& name, const char* kind, const hge::Image& picture) {
    std::filesystem::create_directories("pictures");
    std::string path = "pictures/" + name + "-" + kind + ".png";
    std::string reason;
    if (!hge::WriteImage(path, picture, &reason)) path += " (not written: " + reason + ")";
    return path;
}

std::string KeepAll(const std::string& name, const hge::Image& actual, const hge::Image& expected) {
    return Keep(name, "actual", actual) + ", " + Keep(name, "expected", expected) + ", " +
           Keep(name, "difference", Difference(actual, expected));
}

}  // namespace

hge::Image MakePicture(int width, int height, const std::function<uint32_t(int x, int y)>& pixel) {
    hge::Image picture;
    picture.width = width;
    picture.height = height;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.pixels.push_back(pixel(x, y));
    return picture;
}

hge::Image ReadPicture(const std::string& path) {
    std::string bytes = FileText(path), reason;
    hge::Image image;
    EXPECT_TRUE(hge::DecodeImage(bytes.data(), bytes.size(), &image, &reason)) << path << ": " << reason;
    return image;
}

uint32_t Pattern(int x, int y) {
    auto red = static_cast<uint32_t>(x * 37 & 0xFF);
    auto green = static_cast<uint32_t>(y * 53 & 0xFF);
    auto blue = static_cast<uint32_t>((x ^ y) * 91 & 0xFF);
    return 0xFF000000 | red << 16 | green << 8 | blue;
}

testing::AssertionResult SamePicture(const std::string& name, const hge::Image& actual,
                                     const hge::Image& expected, const Tolerance& tolerance) {
    if (actual.width != expected.width || actual.height != expected.height)
        return testing::AssertionFailure() << name << " is " << actual.width << " x " << actual.height
                                           << ", not " << expected.width << " x " << expected.height;
    size_t wrong = 0;
    size_t first = 0;
    for (size_t i = actual.pixels.size(); i-- > 0;) {
        if (Distance(actual.pixels[i], expected.pixels[i]) <= tolerance.per_channel) continue;
        ++wrong;
        first = i;
    }
    if (!wrong) return testing::AssertionSuccess();
    auto width = static_cast<size_t>(actual.width);
    return testing::AssertionFailure()
           << name << ": " << wrong << " pixels are off, the first at (" << first % width << ", "
           << first / width << "): " << std::hex << actual.pixels[first] << " instead of "
           << expected.pixels[first] << "; see " << KeepAll(name, actual, expected);
}

}  // namespace test
