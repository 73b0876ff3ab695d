// Owns one reference to a COM object.
#pragma once

#include <unknwn.h>

#include <utility>

namespace quillet::windows {

template <class T>
class Pointer {
 public:
  Pointer() = default;
  // Shares the object with the caller.
  Pointer(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  Pointer(const Pointer& other) : Pointer(other.object_) {}
  Pointer(Pointer&& other) noexcept : object_(other.detach()) {}
  Pointer& operator=(Pointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Pointer() {
    if (object_) object_->Release();
  }

  // Takes over the caller's reference, or hands it out.
  static Pointer attach(T* object) {
    Pointer taken;
    taken.object_ = object;
    return taken;
  }
  T* detach() { return std::exchange(object_, nullptr); }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a call leaves its answer; what was held is released first.
  T** put() {
    *this = Pointer();
    return &object_;
  }
  void** putVoid() { return reinterpret_cast<void**>(put()); }

  // The object's other interface; null when it has none.
  template <class Other>
  Pointer<Other> query() const {
    Pointer<Other> other;
    if (object_) object_->QueryInterface(__uuidof(Other), other.putVoid());
    return other;
  }

 private:
  T* object_ = nullptr;
};

}  // namespace quillet::windows
