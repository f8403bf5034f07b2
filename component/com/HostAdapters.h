// The callback interfaces as hosts implement them, seen from the core.
#pragma once

#include "component/com/HostObject.h"
#include "core/Object.h"

namespace vestrel::component {

// The host's object as the interface that `key` names: a core object of its own that answers for it, or none
// when the key names no callback interface or the host's object does not implement it.
Ref<Object> AdaptHost(TypeKey key, const HostReference& reference);

}  // namespace vestrel::component
