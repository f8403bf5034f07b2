#include "component/com/SafeArrays.h"

#include <algorithm>

#include "component/com/Failure.h"
#include "component/com/Values.h"

namespace vestrel::component {
namespace {

struct Bounds {
  LONG lower = 0;
  LONG size = 0;
};

// An array that was declared without bounds has none and is empty.
Bounds BoundsOf(SAFEARRAY* array) {
  if (array == nullptr || SafeArrayGetDim(array) == 0) return {};
  if (SafeArrayGetDim(array) != 1) throw ComFailure{DISP_E_TYPEMISMATCH};
  LONG lower = 0;
  LONG upper = 0;
  Check(SafeArrayGetLBound(array, 1, &lower));
  Check(SafeArrayGetUBound(array, 1, &upper));
  return {lower, upper - lower + 1};
}

VARTYPE ElementType(SAFEARRAY* array) {
  VARTYPE type = VT_EMPTY;
  Check(SafeArrayGetVartype(array, &type));
  return type;
}

// A reference to the element, so that what it refers to is neither copied nor counted. Records do not
// convert; an element that leads to no value is refused like an argument that does not.
class Element {
 public:
  Element(SAFEARRAY* array, LONG index) : type_(ElementType(array)) {
    Check(SafeArrayPtrOfIndex(array, &index, &data_));
    const bool fits =
        type_ == VT_VARIANT ? LeadsToAValue(*static_cast<const VARIANT*>(data_)) : type_ != VT_RECORD;
    if (!fits) throw ComFailure{DISP_E_TYPEMISMATCH};
  }
  // The element as a value of its own.
  const VARIANT& Value() {
    if (type_ == VT_VARIANT) return Referred(*static_cast<VARIANT*>(data_));
    VARIANT reference;
    V_VT(&reference) = static_cast<VARTYPE>(type_ | VT_BYREF);
    V_BYREF(&reference) = data_;
    Check(VariantCopyInd(&copy_, &reference));
    return copy_;
  }
  void Set(const Variant& value) {
    AutoVariant source;
    Assign(source, value);
    VARIANT reference;
    V_VT(&reference) = static_cast<VARTYPE>(type_ | VT_BYREF);
    V_BYREF(&reference) = data_;
    // An element that is a reference itself is written through.
    const bool indirect = type_ == VT_VARIANT && (V_VT(static_cast<VARIANT*>(data_)) & VT_BYREF) != 0;
    StoreBack(indirect ? *static_cast<VARIANT*>(data_) : reference, source);
  }

 private:
  VARTYPE type_;
  void* data_ = nullptr;
  AutoVariant copy_;
};

class ArrayLock {
 public:
  explicit ArrayLock(SAFEARRAY* array) : array_(array) { Check(SafeArrayLock(array)); }
  ArrayLock(const ArrayLock&) = delete;
  ArrayLock& operator=(const ArrayLock&) = delete;
  ~ArrayLock() { SafeArrayUnlock(array_); }

 private:
  SAFEARRAY* array_;
};

}  // namespace

SAFEARRAY* NewArray(const std::vector<Variant>& values) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
  if (array == nullptr) throw std::bad_alloc();
  try {
    SetElements(array, values);
  } catch (...) {
    SafeArrayDestroy(array);
    throw;
  }
  return array;
}

std::vector<Variant> ElementsOf(SAFEARRAY* array) {
  const Bounds bounds = BoundsOf(array);
  std::vector<Variant> result;
  result.reserve(static_cast<std::size_t>(bounds.size));
  for (LONG i = 0; i < bounds.size; ++i)
    result.push_back(ToDynamic(Element(array, bounds.lower + i).Value()));
  return result;
}

void SetElements(SAFEARRAY* array, const std::vector<Variant>& values) {
  const Bounds bounds = BoundsOf(array);
  const auto count = std::min(static_cast<std::size_t>(bounds.size), values.size());
  if (count == 0) return;
  // The end of what an element held may call the host, which cannot do away with a locked array.
  const ArrayLock lock(array);
  for (std::size_t i = 0; i < count; ++i) Element(array, bounds.lower + static_cast<LONG>(i)).Set(values[i]);
}

}  // namespace vestrel::component
