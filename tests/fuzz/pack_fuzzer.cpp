#include <algorithm>

#include "code_page.h"
#include "resources/zip_archive.h"
#include "tools/pack_faults.h"

namespace {

// A file or a reason; unpacking cannot take more than deflate's ratio allows.
void ReadEntry(hge::ZipArchive& archive, const hge::ZipEntry& entry, const std::string& password,
               size_t size) {
    std::string reason;
    hge::Block block = archive.Read(entry, password, &reason);
    if (block.bytes) {
        PROMISED(block.bytes[block.size] == 0 && block.size <= size * 1032);
    } else {
        PROMISED(!reason.empty());
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string reason;
    auto source = std::make_unique<hge::MemorySource>(std::vector<uint8_t>(data, data + size));
    auto archive = hge::ZipArchive::Open(std::move(source), FuzzCodePage(), &reason);
    PROMISED(archive || !reason.empty());
    if (!archive) return 0;
    for (const hge::ZipEntry& entry : archive->entries()) {
        PROMISED(archive->Find(hge::FoldName(entry.name, FuzzCodePage())));
        ReadEntry(*archive, entry, "geheim", size);
    }
    for (const hge::PackFault& fault : hge::FindPackFaults(*archive, "", FuzzCodePage()))
        PROMISED(!fault.reason.empty());
    return 0;
}
