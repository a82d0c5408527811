#include "resources/zip_cipher.h"

#include <zlib.h>

namespace hge {
namespace {

uint32_t CrcStep(uint32_t crc, uint8_t byte) {
    static const z_crc_t* table = get_crc_table();
    return table[(crc ^ byte) & 0xFF] ^ crc >> 8;
}

}  // namespace

ZipCipher::ZipCipher(const std::string& password) {
    for (char c : password)
        Update(static_cast<uint8_t>(c));
}

void ZipCipher::Decrypt(uint8_t* bytes, size_t count) {
    for (uint8_t* end = bytes + count; bytes != end; ++bytes) {
        uint32_t key = (keys_[2] | 2) & 0xFFFF;
        *bytes ^= static_cast<uint8_t>(key * (key ^ 1) >> 8);
        Update(*bytes);
    }
}

void ZipCipher::Update(uint8_t plain) {
    keys_[0] = CrcStep(keys_[0], plain);
    keys_[1] = (keys_[1] + (keys_[0] & 0xFF)) * 134775813 + 1;
    keys_[2] = CrcStep(keys_[2], static_cast<uint8_t>(keys_[1] >> 24));
}

}  // namespace hge
