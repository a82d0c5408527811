#include "graphics/shader_compiler.h"

#include "graphics/device.h"

namespace hge {

ComPtr<ID3DBlob> CompileShader(std::string_view text, const char* name, const char* entry, const char* model,
                               std::string* reason) {
    ComPtr<ID3DBlob> code;
    ComPtr<ID3DBlob> messages;
    HRESULT result = D3DCompile(text.data(), text.size(), name, nullptr, nullptr, entry, model, 0, 0,
                                code.Put(), messages.Put());
    if (SUCCEEDED(result)) return code;
    // The text need not end with a NUL.
    if (messages && messages->GetBufferSize() > 0)
        reason->assign(static_cast<const char*>(messages->GetBufferPointer()), messages->GetBufferSize());
    else
        *reason = ResultText(result);
    return {};
}

}  // namespace hge
