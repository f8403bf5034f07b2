// References that point back to an owner. A class of the library that others point back to (page, group,
// controller, record controller) carries a WeakSource and is held weakly: a BackRef to it never keeps it
// alive and reads as none once it is gone. Any other object, a host's own handler for instance, is kept
// alive by the BackRef like by a Ref.
#pragma once

#include <cstdint>
#include <utility>

#include "core/Ref.h"

namespace vestrel {

// Shared between a weakly held object and the references to it; outlives both. Counted by hand.
class WeakAnchor {
 public:
  explicit WeakAnchor(Object& target) noexcept : target_(&target) {}
  Object* target() const noexcept { return target_; }
  // Where the target is found, as long as the anchor is there.
  Object* const* place() const noexcept { return &target_; }
  void Clear() noexcept { target_ = nullptr; }
  void AddRef() noexcept { ++references_; }
  void Release() noexcept {
    if (--references_ == 0) delete this;
  }

 private:
  ~WeakAnchor() = default;

  Object* target_;
  std::uint32_t references_ = 1;
};

// A member of a class that is held weakly; the class overrides BackReferenceAnchor with Get.
class WeakSource {
 public:
  WeakSource() noexcept = default;
  WeakSource(const WeakSource&) = delete;
  WeakSource& operator=(const WeakSource&) = delete;
  ~WeakSource() {
    if (anchor_ == nullptr) return;
    anchor_->Clear();
    anchor_->Release();
  }

  WeakAnchor* Get(Object& owner, bool create) {
    if (anchor_ == nullptr && create) anchor_ = new WeakAnchor(owner);
    return anchor_;
  }

 private:
  WeakAnchor* anchor_ = nullptr;
};

// Placed in the public part of a class that is held weakly, together with a member `WeakSource weakSource_`.
#define VESTREL_HELD_WEAKLY()                                        \
  ::vestrel::WeakAnchor* BackReferenceAnchor(bool create) override { \
    return weakSource_.Get(*this, create);                           \
  }

template <class T>
class BackRef {
 public:
  BackRef() noexcept = default;
  BackRef(T* target) {  // NOLINT(google-explicit-constructor): assigned like a pointer
    if (target == nullptr) return;
    pointer_ = target;
    anchor_ = target->BackReferenceAnchor(true);
    if (anchor_ != nullptr) {
      anchor_->AddRef();
    } else {
      target->AddRef();
    }
  }
  BackRef(const BackRef& other) noexcept : pointer_(other.pointer_), anchor_(other.anchor_) {
    if (anchor_ != nullptr) {
      anchor_->AddRef();
    } else if (pointer_ != nullptr) {
      pointer_->AddRef();
    }
  }
  BackRef(BackRef&& other) noexcept
      : pointer_(std::exchange(other.pointer_, nullptr)), anchor_(std::exchange(other.anchor_, nullptr)) {}
  BackRef& operator=(BackRef other) noexcept {
    std::swap(pointer_, other.pointer_);
    std::swap(anchor_, other.anchor_);
    return *this;
  }
  ~BackRef() {
    if (anchor_ != nullptr) {
      anchor_->Release();
    } else if (pointer_ != nullptr) {
      pointer_->Release();
    }
  }

  // The object for the length of a call, or none when it is gone.
  Ref<T> Lock() const noexcept { return Ref<T>(Alive()); }
  // The anchor of a target that is held weakly.
  const WeakAnchor* Anchor() const noexcept { return anchor_; }
  // Whether none was ever given; one that is gone was.
  bool IsUnset() const noexcept { return pointer_ == nullptr; }
  // Whether the object is still there.
  explicit operator bool() const noexcept { return Alive() != nullptr; }

 private:
  T* Alive() const noexcept {
    if (anchor_ != nullptr && anchor_->target() == nullptr) return nullptr;
    return pointer_;
  }

  T* pointer_ = nullptr;
  WeakAnchor* anchor_ = nullptr;
};

// A BackRef for calls by the million: what the target's count is part of is at hand.
template <class T>
class QuickBackRef {
 public:
  QuickBackRef() noexcept = default;
  QuickBackRef(const QuickBackRef&) = delete;
  QuickBackRef& operator=(const QuickBackRef&) = delete;
  ~QuickBackRef() = default;
  QuickBackRef& operator=(T* target) {
    BackRef<T> reference(target);
    object_ = target;
    place_ = reference.Anchor() != nullptr ? reference.Anchor()->place() : &object_;
    pointer_ = target;
    std::swap(reference_, reference);
    return *this;
  }

  // The object to be kept for the length of a call, or null when it is gone.
  Object* Alive() const noexcept { return *place_; }
  // Only while it is alive.
  T* operator->() const noexcept { return pointer_; }

 private:
  T* pointer_ = nullptr;
  Object* object_ = nullptr;
  Object* const* place_ = &object_;
  BackRef<T> reference_;
};

}  // namespace vestrel
