#pragma once

#include <cstdint>
#include <string>

namespace training {

// The program's command line.
struct Options {
    uint32_t seed = 0;                      // --seed N: the same lamps every time; 0 takes the clock
    int limit_seconds = 0;                  // --limit N: training time; 0 takes the settings'
    int pace_percent = 100;                 // --pace N: how fast the exercises go, 20..200
    int self_play_minutes = 0;              // --self-play N: the program plays by itself and then ends
    std::string language;                   // --language en|zh: for this run
    std::string ini_file = "training.ini";  // --ini FILE
    bool plain = false;                     // --plain: no effect
    bool quiet = false;                     // --quiet: no sound and no music

    // Options that are unknown or lack a value in range are named in error, if it is given, and skipped.
    static Options Parse(const std::string& command_line, std::string* error = nullptr);
};

}  // namespace training
