#pragma once

#include "resources/file_names.h"

namespace hge {

// The system's ANSI code page.
CodePage AnsiCodePage();

}  // namespace hge
