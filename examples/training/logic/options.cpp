#include "logic/options.h"

#include <charconv>
#include <sstream>

namespace training {

namespace {

constexpr int kDaySeconds = 24 * 60 * 60;

template <class T>
bool ReadNumber(std::istream& in, T lowest, T highest, T* value) {
    std::string word;
    T number = 0;
    if (!(in >> word)) return false;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size()) return false;
    if (number < lowest || number > highest) return false;
    *value = number;
    return true;
}

bool ReadLanguage(std::istream& in, std::string* language) {
    std::string word;
    if (!(in >> word) || (word != "en" && word != "zh")) return false;
    *language = word;
    return true;
}

bool Raise(bool* flag) {
    *flag = true;
    return true;
}

bool ReadOption(const std::string& name, std::istream& in, Options* options) {
    if (name == "--seed") return ReadNumber<uint32_t>(in, 1, UINT32_MAX, &options->seed);
    if (name == "--limit") return ReadNumber(in, 1, kDaySeconds, &options->limit_seconds);
    if (name == "--pace") return ReadNumber(in, 20, 200, &options->pace_percent);
    if (name == "--self-play") return ReadNumber(in, 1, kDaySeconds / 60, &options->self_play_minutes);
    if (name == "--language") return ReadLanguage(in, &options->language);
    if (name == "--ini") return static_cast<bool>(in >> options->ini_file);
    if (name == "--plain") return Raise(&options->plain);
    return name == "--quiet" && Raise(&options->quiet);
}

}  // namespace

Options Options::Parse(const std::string& command_line, std::string* error) {
    Options options;
    std::istringstream in(command_line);
    for (std::string name; in >> name;)
        if (!ReadOption(name, in, &options) && error) *error += (error->empty() ? "" : " ") + name;
    return options;
}

}  // namespace training
