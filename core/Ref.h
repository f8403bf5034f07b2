// Counted reference to an Object. Ref<T> keeps its object alive; copying it adds a reference. It is created
// by MakeRef, or from a borrowed pointer (which adds a reference of its own).
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "core/Object.h"

namespace vestrel {

template <class T>
class Ref {
 public:
  Ref() noexcept = default;
  Ref(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor): "none" reads as nullptr
  Ref(T* borrowed) noexcept : object_(borrowed) { Acquire(); }  // NOLINT(google-explicit-constructor)
  Ref(const Ref& other) noexcept : object_(other.object_) { Acquire(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ref(const Ref<U>& other) noexcept : object_(other.get()) {  // NOLINT(google-explicit-constructor)
    Acquire();
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ref(Ref<U>&& other) noexcept : object_(other.Detach()) {}  // NOLINT(google-explicit-constructor)
  ~Ref() { Drop(object_); }

  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): swaps with a copy
  Ref& operator=(const Ref& other) noexcept {  // NOLINT(bugprone-unhandled-self-assignment): copy and swap
    Ref(other).Swap(*this);
    return *this;
  }
  Ref& operator=(Ref&& other) noexcept {
    Ref(std::move(other)).Swap(*this);
    return *this;
  }

  // Takes over the reference that the pointer already stands for.
  static Ref Adopt(T* owned) noexcept {
    Ref result;
    result.object_ = owned;
    return result;
  }
  // Gives the reference up to the caller.
  T* Detach() noexcept { return std::exchange(object_, nullptr); }

  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  void Swap(Ref& other) noexcept { std::swap(object_, other.object_); }

  friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }
  friend bool operator==(const Ref& a, const T* b) noexcept { return a.object_ == b; }

 private:
  void Acquire() const noexcept {
    if (object_ != nullptr) object_->AddRef();
  }
  static void Drop(T* object) noexcept {
    if (object != nullptr) object->Release();
  }

  T* object_ = nullptr;
};

template <class T, class... Args>
Ref<T> MakeRef(Args&&... args) {
  return Ref<T>::Adopt(new T(std::forward<Args>(args)...));
}

}  // namespace vestrel
