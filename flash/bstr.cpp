#include "flash/bstr.h"

namespace flash {

Bstr::Bstr(const std::string& text) {
    int bytes = static_cast<int>(text.size());
    int units = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    value_ = SysAllocStringLen(nullptr, units);
    if (value_) MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, value_, units);
}

Bstr::~Bstr() {
    SysFreeString(value_);
}

std::string Bstr::Text() const {
    int units = static_cast<int>(SysStringLen(value_));
    int bytes = WideCharToMultiByte(CP_ACP, 0, value_, units, nullptr, 0, nullptr, nullptr);
    std::string text(bytes, '\0');
    WideCharToMultiByte(CP_ACP, 0, value_, units, text.data(), bytes, nullptr, nullptr);
    return text;
}

}  // namespace flash
