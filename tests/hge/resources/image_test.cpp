#include "resources/image.h"

#include <gmock/gmock.h>
#include <objbase.h>

#include "hge/resources/test_data.h"
#include "resources/bmp.h"
#include "support/picture.h"

namespace {

using hge::DecodeImage;
using hge::Image;
using hge::WriteImage;
using test::SamePicture;
using test_data::Out;
using test_data::ReadBytes;
using test_data::Sample;
using testing::HasSubstr;
using testing::StartsWith;

Image Decode(const std::vector<uint8_t>& bytes, std::string* reason) {
    Image image{1, 1, {0}};
    bool done = DecodeImage(bytes.data(), bytes.size(), &image, reason);
    EXPECT_EQ(done, !image.pixels.empty());
    EXPECT_EQ(image.pixels.size(), static_cast<size_t>(image.width * image.height));
    return image;
}

Image DecodeFile(const std::string& name) {
    return test::ReadPicture(test_data::Folder() + "pictures\\" + name);
}

TEST(ImageTest, BadInputGivesAReason) {
    std::string reason;
    Decode({}, &reason);
    EXPECT_EQ(reason, "the file is empty");
    Image image;
    EXPECT_FALSE(DecodeImage(nullptr, 10, &image, &reason));
    Decode(std::vector<uint8_t>(1000, 'x'), &reason);
    EXPECT_EQ(reason, "not a known image format");
    for (const char* signature : {"\x89PNG\r\n", "\xFF\xD8\xFF", "BM", "GIF89a", "DDS "}) {
        std::vector<uint8_t> bytes(signature, signature + strlen(signature));
        bytes.resize(200);
        EXPECT_TRUE(Decode(bytes, &reason).pixels.empty()) << signature;
        EXPECT_THAT(reason, testing::AnyOf(StartsWith("damaged"), "its width or height is not supported",
                                           "its DDS pixel format is not supported"));
    }
}

TEST(ImageTest, WhatCannotBeIsRefusedBeforeTheCodecsTakeIt) {
    std::string reason;
    std::vector<uint8_t> gif = ReadBytes(test_data::Folder() + "pictures\\holes.gif");
    gif[10] &= 0x7F;
    gif.erase(gif.begin() + 13, gif.begin() + 13 + (6 << (gif[10] & 7)));
    Decode(gif, &reason);
    EXPECT_EQ(reason, "damaged: it has no colours");
    std::vector<uint8_t> png = ReadBytes(test_data::Folder() + "pictures\\palette.png");
    png[18] = png[22] = 16;
    Decode(png, &reason);
    EXPECT_EQ(reason, "cut off: it is too short for its width and height");
    std::vector<uint8_t> jpeg = ReadBytes(test_data::Folder() + "pictures\\flat.jpg");
    const uint8_t frame[] = {0xFF, 0xC0};
    auto size = std::search(jpeg.begin(), jpeg.end(), std::begin(frame), std::end(frame)) + 5;
    size[0] = 255;
    Decode(jpeg, &reason);
    EXPECT_EQ(reason, "its width or height is not supported");
}

// Decoders of the system may show the part of a cut picture that is there.
TEST(ImageTest, EveryTruncationIsSafe) {
    for (const char* name : {"alpha.png", "flat.jpg", "alpha.bmp", "holes.gif", "alpha.dds", "runs.tga"}) {
        std::vector<uint8_t> whole = ReadBytes(test_data::Folder() + "pictures\\" + name);
        ASSERT_FALSE(whole.empty()) << name;
        for (size_t size = 0; size < whole.size(); size += 1 + size / 40) {
            std::string reason;
            auto end = whole.begin() + static_cast<ptrdiff_t>(size);
            bool refused = Decode({whole.begin(), end}, &reason).pixels.empty();
            EXPECT_EQ(refused, !reason.empty()) << name << " " << size;
        }
    }
}

TEST(ImageTest, EveryFormatGivesTheRightPixels) {
    for (const char* name : {"alpha.png", "interlaced.png", "deep.png", "alpha.bmp", "alpha.tga", "runs.tga",
                             "alpha.dds", "alpha.tif"}) {
        EXPECT_TRUE(SamePicture(name, DecodeFile(name), Sample()));
    }
    for (const char* name : {"opaque.png", "palette.png", "opaque.bmp", "palette.bmp", "opaque.tga",
                             "palette.tga", "opaque.dds"}) {
        EXPECT_TRUE(SamePicture(name, DecodeFile(name), test_data::Opaque(Sample())));
    }
}

TEST(ImageTest, LossyFormatsComeClose) {
    Image flat{18, 10, std::vector<uint32_t>(180, 0xFFC86432)};
    EXPECT_TRUE(SamePicture("jpg", DecodeFile("flat.jpg"), flat, {2, "JPEG's colour conversion"}));
    EXPECT_TRUE(SamePicture("dds1", DecodeFile("flat1.dds"), flat, {4, "5 and 6 bits a channel"}));
    for (uint32_t& pixel : flat.pixels)
        pixel = 0x80C86432;
    EXPECT_TRUE(SamePicture("dds5", DecodeFile("flat5.dds"), flat, {4, "5 and 6 bits a channel"}));
}

TEST(ImageTest, GifHolesAreTransparentAndGreyKeepsItsAlpha) {
    Image image = DecodeFile("holes.gif"), grey = DecodeFile("greyalpha.png"), sample = Sample();
    ASSERT_TRUE(image.pixels.size() == 35 && grey.pixels.size() == 35);
    for (size_t i = 0; i < 35; ++i) {
        EXPECT_EQ(image.pixels[i] >> 24, sample.pixels[i] >> 24 == 1 ? 0u : 255u) << i;
        EXPECT_EQ(grey.pixels[i], (sample.pixels[i] & 0xFF000000) | (grey.pixels[i] & 0xFF) * 0x010101) << i;
    }
}

TEST(ImageTest, A32BitBmpWithZeroAlphaIsOpaque) {
    Image image = Sample();
    std::vector<uint8_t> bytes = hge::EncodeBmp(image);
    for (size_t i = 14 + 108 + 3; i < bytes.size(); i += 4)
        bytes[i] = 0;
    std::string reason;
    EXPECT_TRUE(SamePicture("opaque", Decode(bytes, &reason), test_data::Opaque(image)));
}

TEST(ImageTest, WritingAndDecodingGivesTheSamePixels) {
    for (const char* name : {"round.png", "round.bmp", "round.PNG", "Round.Bmp"})
        for (const Image& image : {Sample(), test_data::Opaque(Sample()), Image{1, 1, {0x80FF0001}}}) {
            std::string reason;
            ASSERT_TRUE(WriteImage(Out(name), image, &reason)) << reason;
            EXPECT_TRUE(SamePicture("written", test::ReadPicture(Out(name)), image));
        }
    EXPECT_EQ(test::FilesIn(Out(""), "round.*").size(), 2u);
    SKIP_UNLESS_CODE_PAGE_936();
    SKIP_WITHOUT_CHINESE_FILES();
    std::string reason, name = Out("\xcd\xbc\xc6\xac 5\xd4\xc2\x81\x5c.bmp");
    ASSERT_TRUE(WriteImage(name, Sample(), &reason)) << reason;
    EXPECT_TRUE(SamePicture("chinese", test::ReadPicture(name), Sample()));
}

TEST(ImageTest, AFailedWriteLeavesNothingAndKeepsTheOldFile) {
    std::string reason;
    Image sample = Sample();
    EXPECT_FALSE(WriteImage(Out("x.gif"), sample, &reason));
    EXPECT_EQ(reason, "the format \".gif\" is not supported: use .bmp or .png");
    EXPECT_FALSE(WriteImage(Out("x.bmp"), Image{3, 3, {1, 2}}, &reason));
    EXPECT_EQ(reason, "there is no picture to write");
    EXPECT_FALSE(WriteImage(Out("no folder\\x.bmp"), sample, &reason));
    EXPECT_THAT(reason, HasSubstr("(error 3)"));

    ASSERT_TRUE(test_data::WriteFile(Out("x.bmp"), "old"));
    HANDLE held =
        CreateFileA(Out("x.bmp").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(WriteImage(Out("x.bmp"), sample, &reason));
    EXPECT_NE(reason, "");
    CloseHandle(held);
    EXPECT_EQ(test::FileText(Out("x.bmp")), "old");
    EXPECT_EQ(test::FilesIn(Out(""), "x.*").size(), 1u);
}

TEST(ImageTest, TheHostsChoiceOfThreadingModelIsLeftAlone) {
    for (DWORD model : {COINIT_MULTITHREADED, COINIT_APARTMENTTHREADED}) {
        DecodeFile("alpha.png");
        ASSERT_EQ(CoInitializeEx(nullptr, model), S_OK) << "an earlier decode left COM initialised";
        EXPECT_TRUE(SamePicture("threads", DecodeFile("alpha.png"), Sample()));
        EXPECT_EQ(CoInitializeEx(nullptr, model), S_FALSE);
        CoUninitialize();
        CoUninitialize();
    }
}

}  // namespace
