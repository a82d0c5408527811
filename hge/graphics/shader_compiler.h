#pragma once

#include <d3dcompiler.h>

#include <string>
#include <string_view>

#include "core/com_ptr.h"

namespace hge {

// Null with the compiler's messages, or its result code, as the reason. name is what messages call the text.
ComPtr<ID3DBlob> CompileShader(std::string_view text, const char* name, const char* entry, const char* model,
                               std::string* reason);

}  // namespace hge
