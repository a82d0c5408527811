#pragma once

#include <ole2.h>

#include <string>

namespace flash {

// Owns a BSTR; crosses to and from text in the ANSI code page.
class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(const std::string& text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr();

    BSTR Get() const { return value_; }
    // For out-parameters, once.
    BSTR* Put() { return &value_; }
    // Empty for null.
    std::string Text() const;

 private:
    BSTR value_ = nullptr;
};

}  // namespace flash
