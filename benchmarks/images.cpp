#include <objbase.h>
#include <wincodec.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/com_ptr.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

using Bytes = std::vector<uint8_t>;

Bytes ReadPicture(int side) {
    const std::string name = "benchmarks\\picture_" + std::to_string(side) + ".png";
    DWORD size = 0;
    void* data = Stage::Framework()->Resource_Load(name.c_str(), &size);
    Require(data, name.c_str());
    const auto first = static_cast<uint8_t*>(data);
    Bytes bytes(first, first + size);
    Stage::Framework()->Resource_Free(data);
    return bytes;
}

// The system's codecs alone, with all that they can keep from one picture to the next.
class Codecs {
 public:
    Codecs() {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        Try(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                             factory_.PutVoid()));
    }
    ~Codecs() {
        factory_ = {};
        CoUninitialize();
    }
    Codecs(const Codecs&) = delete;
    Codecs& operator=(const Codecs&) = delete;

    void Decode(Bytes& file, int side, std::vector<uint32_t>* pixels) {
        hge::ComPtr<IWICStream> stream;
        hge::ComPtr<IWICBitmapDecoder> decoder;
        hge::ComPtr<IWICBitmapFrameDecode> frame;
        hge::ComPtr<IWICFormatConverter> picture;
        const auto width = static_cast<UINT>(side);
        pixels->resize(width * width);
        Try(factory_->CreateStream(stream.Put()));
        Try(stream->InitializeFromMemory(file.data(), static_cast<DWORD>(file.size())));
        Try(factory_->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                              decoder.Put()));
        Try(decoder->GetFrame(0, frame.Put()));
        Try(factory_->CreateFormatConverter(picture.Put()));
        Try(picture->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr,
                                0, WICBitmapPaletteTypeCustom));
        Try(picture->CopyPixels(nullptr, width * 4, width * width * 4,
                                reinterpret_cast<BYTE*>(pixels->data())));
    }

 private:
    static void Try(HRESULT result) { Require(SUCCEEDED(result), "the codecs refuse"); }

    hge::ComPtr<IWICImagingFactory> factory_;
};

Scene Loading(int side, int count) {
    auto file = std::make_shared<Bytes>(ReadPicture(side));
    auto pixels = std::make_shared<std::vector<uint32_t>>();
    Scene scene;
    scene.items = count;
    scene.limit = 1.5;
    scene.ours = [=](Meter& meter) {
        meter([&] {
            for (int i = 0; i < count; ++i) {
                HTEXTURE texture = Stage::Framework()->Texture_Load(
                    reinterpret_cast<const char*>(file->data()), static_cast<DWORD>(file->size()));
                Require(texture, "the picture does not load");
                Stage::Framework()->Texture_Free(texture);
            }
        });
    };
    scene.bare = [=](Meter& meter) {
        // Not for longer than the round: ours would find the codecs ready.
        Codecs codecs;
        codecs.Decode(*file, side, pixels.get());
        meter([&] {
            for (int i = 0; i < count; ++i)
                codecs.Decode(*file, side, pixels.get());
        });
    };
    return scene;
}

}  // namespace

void AddImageScenes(Suite& suite) {
    for (auto [side, count] : {std::pair(32, 200), std::pair(512, 10)})
        suite.Add("image/" + std::to_string(side) + " x " + std::to_string(side) + "/load",
                  [side = side, count = suite.Size(count)] { return Loading(side, count); });
}

}  // namespace bench
