#pragma once

#include <cstddef>
#include <utility>

namespace hge {

// Owns one reference to a COM object. Knows nothing of Win32: T needs AddRef, Release and QueryInterface.
template <class T>
class ComPtr {
 public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    // Shares object: takes a reference of its own.
    explicit ComPtr(T* object) : object_(object) { AddRef(); }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    // Takes over the reference that the caller holds.
    static ComPtr Adopt(T* object) {
        ComPtr owner;
        owner.object_ = object;
        return owner;
    }

    void Reset() {
        if (T* object = std::exchange(object_, nullptr)) object->Release();
    }

    // For out-parameters: gives back what is held first.
    T** Put() {
        Reset();
        return &object_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    // Another interface of the same object; null when it has none.
    template <class U>
    ComPtr<U> As() const {
        ComPtr<U> other;
        if (object_) object_->QueryInterface(__uuidof(U), other.PutVoid());
        return other;
    }

 private:
    void AddRef() {
        if (object_) object_->AddRef();
    }

    T* object_ = nullptr;
};

}  // namespace hge
