// The root of everything that lists, hosts and classes of the library share: an object with an intrusive
// reference count. It is single-threaded by design (one user-interface thread owns an object), so the count
// is a plain integer. Owned by whoever holds a Ref; an object is never created on the stack.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vestrel {

// Names a class or interface for Object::Query. Compare for identity only.
using TypeKey = const void*;

namespace detail {
template <class T>
struct TypeKeyHolder {
  static inline const char tag = 0;
};
}  // namespace detail

template <class T>
TypeKey KeyOf() noexcept {
  return &detail::TypeKeyHolder<T>::tag;
}

class WeakAnchor;

class Object {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void AddRef() const noexcept { ++references_; }
  void Release() const noexcept {
    if (--references_ == 0) Destroy();
  }

  // Answers this object as the class or interface that `key` names (the pointer is a T* for KeyOf<T>()), or
  // null when it is none. Adapters may decide at run time. Takes no reference.
  virtual void* Query(TypeKey key) noexcept;

  // The anchor through which back references find this object, or null for an object that back references
  // keep alive (a host's own handler). `create` makes the anchor where it does not exist yet.
  virtual WeakAnchor* BackReferenceAnchor(bool create);

  // Objects of this thread that are alive now; tests and leak checks count with it.
  static long LiveCount() noexcept { return liveObjects_; }

 protected:
  Object() noexcept { ++liveObjects_; }
  virtual ~Object();

 private:
  void Destroy() const noexcept;

  static constinit thread_local long liveObjects_;

  // Starts at one, which Ref<T>::Adopt takes over, so that a constructor may hand out `this`.
  mutable std::uint32_t references_ = 1;
};

namespace detail {
template <class Self, class First, class... Rest>
void* QueryAs(Self* self, TypeKey key) noexcept {
  if (key == KeyOf<First>()) return static_cast<First*>(self);
  if constexpr (sizeof...(Rest) > 0) {
    return QueryAs<Self, Rest...>(self, key);
  } else {
    return nullptr;
  }
}
}  // namespace detail

// Placed in the public part of a class: answers Query for the class itself and the interfaces named.
#define VESTREL_OBJECT(...)                                          \
  void* Query(::vestrel::TypeKey key) noexcept override {            \
    using Self = std::remove_pointer_t<decltype(this)>;              \
    return ::vestrel::detail::QueryAs<Self, __VA_ARGS__>(this, key); \
  }

}  // namespace vestrel
