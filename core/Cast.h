// Checked conversions between object references, answering as the platform's casts do.
#pragma once

#include <typeinfo>

#include "core/Error.h"
#include "core/Ref.h"

namespace vestrel {

namespace detail {
// Whether a T is reached from its Object by a plain cast: not where that is a virtual base.
template <class T>
concept PlainlyDerived = requires(Object* object) {
  static_cast<T*>(object);
};

// The object if it was made as a T, which is known without asking it; null for none and where that says
// nothing.
template <class T>
inline T* MadeAs(Object* object) noexcept {
  static_assert(sizeof(T) != 0, "whether T is plainly derived is known of a complete class alone");
  if constexpr (PlainlyDerived<T>) {
    if (object != nullptr && &typeid(*object) == &typeid(T)) return static_cast<T*>(object);
  }
  return nullptr;
}
}  // namespace detail

// The object as a T, or null when it is none or not a T.
template <class T>
inline T* TryCast(Object* object) noexcept {
  if (T* const made = detail::MadeAs<T>(object)) return made;
  return object == nullptr ? nullptr : static_cast<T*>(object->Query(KeyOf<T>()));
}

// The object as a T; none stays none. Raises 13 (type mismatch) when it is something else.
template <class T>
T* CastOrNone(Object* object) {
  if (object == nullptr) return nullptr;
  T* result = TryCast<T>(object);
  if (result == nullptr) RaiseError(Error_TypeMismatch);
  return result;
}

namespace detail {
// The object that answers for a T.
template <class T>
T& CastByAsking(Object* object) {
  T* result = CastOrNone<T>(object);
  if (result == nullptr) RaiseError(Error_ObjectNotSet);
  return *result;
}
}  // namespace detail

// The object as a T. Raises 91 (object variable not set) for none and 13 when it is something else.
template <class T>
inline T& Cast(Object* object) {
  T* const made = detail::MadeAs<T>(object);
  return made != nullptr ? *made : detail::CastByAsking<T>(object);
}

}  // namespace vestrel
