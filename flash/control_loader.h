#pragma once

#include <ole2.h>

namespace flash {

// A new movie control, from "flash.ocx" (its module goes to *module, the caller frees it last) or as
// registered (*module is null). Null when there is none: logged, once until ForgetMissingControl.
IOleObject* CreateMovieControl(HMODULE* module);

// Lets the next missing control be logged again: a new log has begun.
void ForgetMissingControl();

// One line in the framework's log.
void Log(const char* format, ...);

}  // namespace flash
