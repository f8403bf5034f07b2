// A host's object on the library's side of the boundary: the one way in and out for objects.
//
// An object of the host's that is handed in becomes a core object of its own (HostObject), one for each
// identity as long as it is in use, so that lists find it again by identity and hand back the same object. It
// answers for every callback interface that the host's object implements, by the interface itself or by name.
#pragma once

#include <string_view>

#include "component/com/ComPtr.h"
#include "core/Object.h"
#include "core/Ref.h"

namespace vestrel::component {

// What stands behind a core object that is a host's; asked for through Object::Query.
struct HostReference {
  ComPtr<IUnknown> identity;
  ComPtr<IDispatch> dispatch;  // none for an object without late binding
};

// The core object for an interface pointer (none for none): the library's own, or a host's.
Ref<Object> ObjectFrom(IUnknown* pointer);

// The interface pointers for a core object, with a reference for the caller; none for none. Raises ComFailure
// for an object that hosts cannot see.
IDispatch* DispatchFor(Object* object);
// The interface of the published class of that name, or the late-bound one when the name is empty.
IUnknown* InterfaceFor(Object* object, std::string_view className);

}  // namespace vestrel::component
