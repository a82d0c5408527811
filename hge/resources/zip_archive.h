#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "resources/byte_source.h"
#include "resources/file_names.h"
#include "resources/zip_directory.h"

namespace hge {

// Reads the files of a ZIP archive: stored or deflated, with or without classic encryption.
class ZipArchive {
 public:
    // Null with the reason when source is no archive that can be read.
    static std::unique_ptr<ZipArchive> Open(std::unique_ptr<ByteSource> source, const CodePage& code_page,
                                            std::string* reason);

    // By a folded name in the code page (FoldName); null when there is none. Of two equal names the later
    // wins.
    const ZipEntry* Find(const std::string& folded_name) const;
    // Without bytes and with the reason on failure. password: "" for none.
    Block Read(const ZipEntry& entry, const std::string& password, std::string* reason);

    size_t entry_count() const { return directory_.entries.size(); }
    // In the archive's order.
    const std::vector<ZipEntry>& entries() const { return directory_.entries; }

 private:
    explicit ZipArchive(std::unique_ptr<ByteSource> source) : source_(std::move(source)) {}
    void BuildIndex(const CodePage& code_page);
    bool FindData(const ZipEntry& entry, uint64_t* offset, std::string* reason);

    std::unique_ptr<ByteSource> source_;
    ZipDirectory directory_;
    std::unordered_map<std::string, const ZipEntry*> index_;
};

}  // namespace hge
