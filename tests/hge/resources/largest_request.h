#pragma once

#include <cstddef>

// The most bytes that anything in the program has asked operator new for at once; set it to 0 to begin anew.
extern std::size_t largest_request;
