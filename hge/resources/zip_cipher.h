#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hge {

// The classic ZIP stream cipher, decrypting.
class ZipCipher {
 public:
    static constexpr size_t kHeaderSize = 12;

    explicit ZipCipher(const std::string& password);
    // In place; bytes follow those of the call before.
    void Decrypt(uint8_t* bytes, size_t count);

 private:
    void Update(uint8_t plain);

    uint32_t keys_[3] = {0x12345678, 0x23456789, 0x34567890};
};

}  // namespace hge
