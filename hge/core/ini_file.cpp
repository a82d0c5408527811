#include "core/ini_file.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <charconv>

#include "core/ini_value.h"
#include "core/win32_error.h"

namespace hge {
namespace {

// Stands for "no such key": no value that the reader gives can start with a control character.
constexpr char kMissing[] = "\x01";
constexpr size_t kLongestValue = 1 << 16;

}  // namespace

int IniFile::GetInt(const char* section, const char* name, int def_val) {
    return GetNumber(section, name, def_val);
}

float IniFile::GetFloat(const char* section, const char* name, float def_val) {
    return GetNumber(section, name, def_val);
}

char* IniFile::GetString(const char* section, const char* name, const char* def_val) {
    std::string value;
    // Not straight into text_: the default may be the text that the last call gave.
    if (!Read(section, name, &value)) value = def_val ? def_val : "";
    text_ = std::move(value);
    return text_.data();
}

void IniFile::SetInt(const char* section, const char* name, int value) {
    SetNumber(section, name, value);
}

void IniFile::SetFloat(const char* section, const char* name, float value) {
    SetNumber(section, name, value);
}

void IniFile::SetString(const char* section, const char* name, const char* value) {
    std::string text = value ? value : "";
    if (text.find_first_of("\r\n") != std::string::npos) {
        log_.Write("ini file \"%s\": a value with a line break was not written", path_.c_str());
        return;
    }
    Write(section, name, QuotedIniValue(text));
}

bool IniFile::Read(const char* section, const char* name, std::string* value) {
    if (path_.empty() || !section || !name) return false;
    std::string buffer(256, '\0');
    DWORD length = 0;
    while (true) {
        DWORD room = static_cast<DWORD>(buffer.size());
        length = GetPrivateProfileStringA(section, name, kMissing, buffer.data(), room, path_.c_str());
        if (length + 1 < room || room >= kLongestValue) break;
        buffer.resize(buffer.size() * 4);
    }
    buffer.resize(length);
    *value = std::move(buffer);
    return *value != kMissing;
}

void IniFile::Write(const char* section, const char* name, const std::string& value) {
    if (path_.empty()) {
        log_.WriteOnce("ini:none", "no ini file is set: nothing is saved");
        return;
    }
    if (!section || !name) {
        log_.WriteOnce("ini:null", "ini file \"%s\": a null section or name", path_.c_str());
        return;
    }
    if (!WritePrivateProfileStringA(section, name, value.c_str(), path_.c_str()))
        log_.WriteOnce("ini:write:" + path_, "cannot write ini file \"%s\": %s", path_.c_str(),
                       Win32ErrorText(GetLastError()).c_str());
}

template <class T>
T IniFile::GetNumber(const char* section, const char* name, T def_val) {
    std::string text;
    if (!Read(section, name, &text)) return def_val;
    T value{};
    return ParseIniNumber(text, &value) ? value : def_val;
}

template <class T>
void IniFile::SetNumber(const char* section, const char* name, T value) {
    char text[32];
    char* end = std::to_chars(text, text + sizeof text, value).ptr;
    Write(section, name, std::string(text, end));
}

}  // namespace hge
