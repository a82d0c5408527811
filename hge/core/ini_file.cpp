#include "core/ini_file.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <charconv>

#include "core/ini_text.h"
#include "core/ini_value.h"
#include "core/whole_file.h"
#include "core/win32_error.h"
#include "resources/byte_source.h"

namespace hge {
namespace {

// Stands for "no such key": no value that the reader gives can start with a control character.
constexpr char kMissing[] = "\x01";
constexpr size_t kLongestValue = 1 << 16;
// Whoever sets a value finds it in the file afterwards, unless that would hold up the frame.
constexpr std::chrono::milliseconds kPatience{20};

}  // namespace

void IniFile::SetPath(const std::string& path) {
    Flush();
    path_ = path;
}

void IniFile::Flush() {
    writer_.WaitForAll();
    ReportFailure(writer_.TakeReason());
}

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
    Write(section, name, QuotedIniValue(text));
}

bool IniFile::Read(const char* section, const char* name, std::string* value) {
    if (path_.empty() || !section || !name) return false;
    if (auto text = UnderWay()) return GetIniValue(*text, section, name, value);
    return ReadFile(section, name, value);
}

bool IniFile::ReadFile(const char* section, const char* name, std::string* value) {
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
    if ((section + std::string(name) + value).find_first_of("\r\n") != std::string::npos) {
        log_.Write("ini file \"%s\": a value with a line break was not written", path_.c_str());
        return;
    }
    std::string reason;
    if (!Store(section, name, value, &reason)) ReportFailure(reason);
}

bool IniFile::StoreInUtf16(const char* section, const char* name, const std::string& value,
                           std::string* reason) {
    if (WritePrivateProfileStringA(section, name, value.c_str(), path_.c_str())) return true;
    *reason = Win32ErrorText(GetLastError());
    return false;
}

// The system's own writer cuts the file before it writes: on a full disk all that was saved would be gone.
bool IniFile::Store(const char* section, const char* name, const std::string& value, std::string* reason) {
    auto under_way = UnderWay();
    std::string old;
    if (under_way)
        old = *under_way;
    else if (!LoadText(&old, reason))
        return false;
    if (old.starts_with("\xFF\xFE")) return StoreInUtf16(section, name, value, reason);
    std::string text = old;
    SetIniValue(&text, section, name, value);
    if (text != old) Save(std::move(text), !under_way);
    return true;
}

// An empty text where there is no file yet.
bool IniFile::LoadText(std::string* text, std::string* reason) {
    DWORD attributes = GetFileAttributesA(path_.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return true;
    if (attributes & FILE_ATTRIBUTE_READONLY) {
        *reason = Win32ErrorText(ERROR_ACCESS_DENIED);
        return false;
    }
    auto file = FileSource::Open(path_, reason);
    if (!file) return false;
    Block block = ReadWhole(*file, reason);
    if (!block.bytes) return false;
    text->assign(reinterpret_cast<const char*>(block.bytes.get()), block.size);
    return true;
}

void IniFile::Save(std::string text, bool may_wait) {
    writer_.Write(path_, std::move(text));
    // Many values set in one frame wait once.
    if (may_wait) writer_.Wait(kPatience);
    ReportFailure(writer_.TakeReason());
}

std::shared_ptr<const std::string> IniFile::UnderWay() {
    auto text = writer_.UnderWay();
    if (!text) ReportFailure(writer_.TakeReason());
    return text;
}

void IniFile::ReportFailure(const std::string& reason) {
    if (reason.empty()) return;
    log_.WriteOnce("ini:write:" + path_ + reason, "cannot write ini file \"%s\": %s", path_.c_str(),
                   reason.c_str());
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
