#include "component/com/TypeInformation.h"

#include <algorithm>

#include "component/Guid.h"
#include "component/com/Module.h"

namespace vestrel::component {

// Not kept: the system caches type libraries, and one kept here could not be let go when the module unloads.
HRESULT TypeInformationOf(const GUID& id, ITypeInfo** result) noexcept {
  *result = nullptr;
  try {
    ComPtr<ITypeLib> library;
    const HRESULT code = LoadTypeLibEx(WideOf(ModulePath()), REGKIND_NONE, library.Receive());
    return FAILED(code) ? code : library->GetTypeInfoOfGuid(id, result);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

GUID SystemGuid(const Guid& guid) noexcept {
  GUID result{guid.data1, guid.data2, guid.data3, {}};
  std::copy(guid.data4.begin(), guid.data4.end(), result.Data4);
  return result;
}

}  // namespace vestrel::component
