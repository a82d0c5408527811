#pragma once

#include <string>

#include "core/background_writer.h"
#include "core/log.h"

namespace hge {

// Settings in an INI file. Without a file every getter gives its default and setters do nothing.
class IniFile {
 public:
    // path: absolute, or "" for no file.
    IniFile(Log& log, std::string path) : log_(log), path_(std::move(path)) {}

    // Waits for the old file, as Flush does.
    void SetPath(const std::string& path);
    // Waits until all that was set is in the file or has failed.
    void Flush();

    // A value that is missing or no number gives the default. Numbers are written with a point in any locale.
    int GetInt(const char* section, const char* name, int def_val);
    float GetFloat(const char* section, const char* name, float def_val);
    // Valid until the next GetString; a null default counts as "".
    char* GetString(const char* section, const char* name, const char* def_val);

    void SetInt(const char* section, const char* name, int value);
    void SetFloat(const char* section, const char* name, float value);
    // Refuses a value with a line break. The file is written whole or not at all, in the background when the
    // disk is too busy for a frame; getters give the new value at once.
    void SetString(const char* section, const char* name, const char* value);

 private:
    bool Read(const char* section, const char* name, std::string* value);
    bool ReadFile(const char* section, const char* name, std::string* value);
    void Write(const char* section, const char* name, const std::string& value);
    bool Store(const char* section, const char* name, const std::string& value, std::string* reason);
    bool LoadText(std::string* text, std::string* reason);
    bool StoreInUtf16(const char* section, const char* name, const std::string& value, std::string* reason);
    void Save(std::string text, bool may_wait);
    std::shared_ptr<const std::string> UnderWay();
    void ReportFailure(const std::string& reason);
    template <class T>
    T GetNumber(const char* section, const char* name, T def_val);
    template <class T>
    void SetNumber(const char* section, const char* name, T value);

    Log& log_;
    std::string path_;
    std::string text_;
    BackgroundWriter writer_;
};

}  // namespace hge
