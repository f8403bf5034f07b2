// Checked conversions between object references, answering as the platform's casts do.
#pragma once

#include "core/Error.h"
#include "core/Ref.h"

namespace vestrel {

// The object as a T, or null when it is none or not a T.
template <class T>
T* TryCast(Object* object) noexcept {
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

// The object as a T. Raises 91 (object variable not set) for none and 13 when it is something else.
template <class T>
T& Cast(Object* object) {
  T* result = CastOrNone<T>(object);
  if (result == nullptr) RaiseError(Error_ObjectNotSet);
  return *result;
}

}  // namespace vestrel
