#pragma once

#include <string>

#include "hge.h"

namespace hge {

// The values of HGE::System_SetState, with their defaults. Unknown states read as false, null, 0 and "".
class States {
 public:
    States();

    bool Get(hgeBoolState state) const;
    hgeCallback Get(hgeFuncState state) const;
    HWND Get(hgeHwndState state) const;
    int Get(hgeIntState state) const;
    const std::string& Get(hgeStringState state) const;

    // False when the state is unknown or cannot have that value, which then stays as it was.
    bool Set(hgeBoolState state, bool value);
    bool Set(hgeFuncState state, hgeCallback value);
    bool Set(hgeHwndState state, HWND value);
    bool Set(hgeIntState state, int value);
    // Null counts as "". An integer resource in the place of a name is kept as "#number".
    bool Set(hgeStringState state, const char* value);

 private:
    static constexpr int kStates = 32;

    bool flags_[kStates] = {};
    hgeCallback callbacks_[kStates] = {};
    HWND windows_[kStates] = {};
    int numbers_[kStates] = {};
    std::string texts_[kStates];
};

}  // namespace hge
