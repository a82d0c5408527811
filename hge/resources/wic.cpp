#include "resources/wic.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <objbase.h>
#include <wincodec.h>

#include "core/com_ptr.h"
#include "core/win32_error.h"
#include "resources/pixels.h"

// mingw-w64 has it in the library only.
extern "C" HRESULT WINAPI WICCreateImagingFactory_Proxy(UINT version, IWICImagingFactory** factory);

namespace hge {
namespace {

// Leaves the host's own choice of threading model alone, and balances only what it did itself.
// The multithreaded model, since an apartment makes and destroys a window: that costs more than a small
// picture.
class ComScope {
 public:
    ComScope() : result_(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComScope() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

 private:
    HRESULT result_;
};

// Runs steps until one fails, and keeps that one's result.
class Steps {
 public:
    bool operator()(HRESULT result) {
        result_ = result;
        return SUCCEEDED(result);
    }
    std::string Text() const { return Win32ErrorText(static_cast<unsigned long>(result_)); }

 private:
    HRESULT result_ = S_OK;
};

// Called by name, so that the library of codecs stays loaded: it knows them only after a long walk through
// the registry, and COM gives it back with its last object.
HRESULT MakeFactory(ComPtr<IWICImagingFactory>& factory) {
    return WICCreateImagingFactory_Proxy(WINCODEC_SDK_VERSION, factory.Put());
}

// WICConvertBitmapSource would search the registry for a converter: that takes longer than a small picture.
bool OpenFirstFrame(IWICImagingFactory& factory, const uint8_t* bytes, size_t size,
                    ComPtr<IWICFormatConverter>& picture, Steps& ok) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    // The stream only reads, whatever its signature says.
    auto* data = const_cast<BYTE*>(bytes);
    return ok(factory.CreateStream(stream.Put())) &&
           ok(stream->InitializeFromMemory(data, static_cast<DWORD>(size))) &&
           ok(factory.CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                              decoder.Put())) &&
           ok(decoder->GetFrame(0, frame.Put())) && ok(factory.CreateFormatConverter(picture.Put())) &&
           ok(picture->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr,
                                  0, WICBitmapPaletteTypeCustom));
}

bool CopyPixels(IWICBitmapSource& picture, Image* image, Steps& ok) {
    size_t stride = static_cast<size_t>(image->width) * 4;
    auto* to = reinterpret_cast<BYTE*>(image->pixels.data());
    UINT total = static_cast<UINT>(image->pixels.size() * 4);
    return ok(picture.CopyPixels(nullptr, static_cast<UINT>(stride), total, to));
}

bool WriteFrame(IWICBitmapFrameEncode& frame, const Image& image, Steps& ok) {
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
    UINT width = static_cast<UINT>(image.width), height = static_cast<UINT>(image.height);
    auto* pixels = reinterpret_cast<BYTE*>(const_cast<uint32_t*>(image.pixels.data()));
    return ok(frame.Initialize(nullptr)) && ok(frame.SetSize(width, height)) &&
           ok(frame.SetPixelFormat(&format)) &&
           ok(IsEqualGUID(format, GUID_WICPixelFormat32bppBGRA) ? S_OK : E_NOTIMPL) &&
           ok(frame.WritePixels(height, width * 4, width * 4 * height, pixels)) && ok(frame.Commit());
}

bool EncodeTo(IStream& stream, const Image& image, Steps& ok) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    return ok(MakeFactory(factory)) &&
           ok(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Put())) &&
           ok(encoder->Initialize(&stream, WICBitmapEncoderNoCache)) &&
           ok(encoder->CreateNewFrame(frame.Put(), nullptr)) && WriteFrame(*frame.Get(), image, ok) &&
           ok(encoder->Commit());
}

bool ReadBack(IStream& stream, std::vector<uint8_t>* bytes, Steps& ok) {
    STATSTG status{};
    if (!ok(stream.Stat(&status, STATFLAG_NONAME)) || !ok(stream.Seek({}, STREAM_SEEK_SET, nullptr)))
        return false;
    bytes->resize(status.cbSize.LowPart);
    ULONG count = 0;
    ok(stream.Read(bytes->data(), status.cbSize.LowPart, &count));
    return ok(count == bytes->size() ? S_OK : STG_E_READFAULT);
}

}  // namespace

bool DecodeWithWic(const uint8_t* bytes, size_t size, Image* image, std::string* reason) {
    ComScope com;
    Steps ok;
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICFormatConverter> picture;
    UINT width = 0, height = 0;
    *image = {};
    bool opened = ok(MakeFactory(factory)) && OpenFirstFrame(*factory.Get(), bytes, size, picture, ok) &&
                  ok(picture->GetSize(&width, &height));
    if (opened && !IsImageSize(width, height)) {
        *reason = "its width or height is not supported";
        return false;
    }
    if (opened) Reset(image, static_cast<int>(width), static_cast<int>(height));
    if (opened && CopyPixels(*picture.Get(), image, ok)) return true;
    *image = {};
    *reason = "damaged or of an unknown kind: " + ok.Text();
    return false;
}

std::vector<uint8_t> EncodePng(const Image& image, std::string* reason) {
    ComScope com;
    Steps ok;
    ComPtr<IStream> stream;
    std::vector<uint8_t> bytes;
    if (ok(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put())) && EncodeTo(*stream.Get(), image, ok) &&
        ReadBack(*stream.Get(), &bytes, ok))
        return bytes;
    *reason = "the PNG encoder failed: " + ok.Text();
    return {};
}

}  // namespace hge
