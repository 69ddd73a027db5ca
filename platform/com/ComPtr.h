// Owns one reference to a COM object.
#pragma once

#include <unknwn.h>
#include <utility>

namespace kestrune {

template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  /// Takes a reference of its own.
  explicit ComPtr(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(other.Release()) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  /// Where a call puts its result; what was owned before is let go.
  T** Out() {
    *this = ComPtr();
    return &object_;
  }
  void** OutVoid() { return reinterpret_cast<void**>(Out()); }
  /// Gives the reference to the caller.
  T* Release() { return std::exchange(object_, nullptr); }

  /// The object's interface U, or none.
  template <typename U>
  ComPtr<U> As(REFIID iid) const {
    ComPtr<U> other;
    if (object_) object_->QueryInterface(iid, other.OutVoid());
    return other;
  }

 private:
  T* object_ = nullptr;
};

}  // namespace kestrune
