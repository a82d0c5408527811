#pragma once

#include <unknwn.h>

#include <memory>

namespace flash {

struct ComRelease {
    template <class T>
    void operator()(T* object) const {
        object->Release();
    }
};

// Owns one reference to a COM object.
template <class T>
using ComRef = std::unique_ptr<T, ComRelease>;

// Another interface of the object; null when it has none.
template <class T, class U>
ComRef<T> Query(U* object, REFIID iid) {
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(iid, &found))) found = nullptr;
    return ComRef<T>(static_cast<T*>(found));
}

// Gives back the reference that pointer holds, if any, and clears it.
template <class T>
void ReleaseAndClear(T*& pointer) {
    ComRef<T> last(pointer);
    pointer = nullptr;
}

}  // namespace flash
