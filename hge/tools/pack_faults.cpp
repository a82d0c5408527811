#include "tools/pack_faults.h"

#include <algorithm>
#include <iterator>

#include "audio/sound_reader.h"
#include "resources/image.h"

namespace hge {
namespace {

std::string Extension(const ZipEntry& entry) {
    size_t dot = entry.name.find_last_of('.');
    return dot == std::string::npos ? "" : FoldName(entry.name.substr(dot), PlainBytes());
}

template <size_t N>
bool IsOneOf(const std::string& text, const char* const (&list)[N]) {
    return std::find(std::begin(list), std::end(list), text) != std::end(list);
}

bool IsPicture(const std::string& extension) {
    return IsOneOf(extension, {".png", ".jpg", ".jpeg", ".bmp", ".tga", ".dds", ".gif"});
}
bool IsSound(const std::string& extension) {
    return IsOneOf(extension, {".wav", ".ogg", ".mp3"});
}
bool IsTrackerMusic(const std::string& extension) {
    return IsOneOf(extension, {".mo3", ".it", ".xm", ".s3m", ".mtm", ".mod", ".umx"});
}

// The name in the program's code page; "" when it cannot be written in it.
std::string AskedName(const ZipEntry& entry, const CodePage& code_page) {
    if (!entry.utf8_name.empty()) return code_page.from_utf8(entry.utf8_name);
    std::string name = code_page.from_utf8(entry.name);
    return name.empty() ? entry.name : name;
}

std::string NameFault(const ZipArchive& archive, const ZipEntry& entry, const CodePage& code_page) {
    std::string name = AskedName(entry, code_page);
    if (name.empty()) return "its name has characters that this code page lacks";
    if (IsAbsolute(name)) return "a name with a drive or a leading slash is not looked up in packs";
    if (archive.Find(FoldName(name, code_page)) != &entry)
        return "another entry has the same name (case and the kind of slash do not matter) and hides it";
    return {};
}

std::string PictureFault(const Block& block) {
    Image image;
    std::string reason;
    if (DecodeImage(block.bytes.get(), block.size, &image, &reason)) return {};
    return "it does not decode as a picture: " + reason;
}

std::string SoundFault(const Block& block) {
    const uint8_t* bytes = block.bytes.get();
    std::string reason;
    auto reader = OpenSound(std::make_shared<const std::vector<uint8_t>>(bytes, bytes + block.size), &reason);
    if (reader && DecodeSound(*reader, &reason)) return {};
    return "it does not decode as a sound: " + reason;
}

std::string ContentFault(const std::string& extension, const Block& block) {
    if (IsPicture(extension)) return PictureFault(block);
    if (IsSound(extension)) return SoundFault(block);
    if (IsTrackerMusic(extension)) return "tracker modules are not decoded: use OGG, MP3 or WAV";
    if (extension == ".swf") return "movies are opened as files: put it beside the program";
    return {};
}

std::string FaultOf(ZipArchive& archive, const ZipEntry& entry, const std::string& password,
                    const CodePage& code_page) {
    std::string fault = NameFault(archive, entry, code_page);
    if (!fault.empty()) return fault;
    Block block = archive.Read(entry, password, &fault);
    return block.bytes ? ContentFault(Extension(entry), block) : fault;
}

}  // namespace

std::vector<PackFault> FindPackFaults(ZipArchive& archive, const std::string& password,
                                      const CodePage& code_page) {
    std::vector<PackFault> faults;
    for (const ZipEntry& entry : archive.entries()) {
        std::string fault = FaultOf(archive, entry, password, code_page);
        if (fault.empty()) continue;
        faults.push_back({entry.utf8_name.empty() ? entry.name : entry.utf8_name, std::move(fault)});
    }
    return faults;
}

}  // namespace hge
