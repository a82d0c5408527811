#pragma once

#include <string>
#include <vector>

#include "resources/zip_archive.h"

namespace hge {

// An entry that a program would not get, or could not use, and why.
struct PackFault {
    std::string name;  // UTF-8 if the archive says so, else as stored
    std::string reason;
};

// Looks up, reads and decodes every entry the way a program does that asks for it by its name. Pictures,
// sounds and what cannot come from a pack are told by their extensions. password: "" for none.
std::vector<PackFault> FindPackFaults(ZipArchive& archive, const std::string& password,
                                      const CodePage& code_page);

}  // namespace hge
