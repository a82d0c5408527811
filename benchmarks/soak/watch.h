#pragma once

#include <string>

namespace soak {

// Tells on a crash, and when no step comes for a minute, what was going on; the program then ends with
// code 3.
void StartWatch();
// name lives as long as the program.
void NoteStep(unsigned step);
void NoteAction(const char* name);
// What was noted last, for a reader.
std::string LastActions();

}  // namespace soak
