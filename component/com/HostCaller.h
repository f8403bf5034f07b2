// Late-bound calls to a host's object. Script engines' class instances answer only the extended dispatch
// interface, so that is asked first.
#pragma once

#include <string_view>

#include "component/com/AutoVariant.h"
#include "component/com/ComPtr.h"

namespace vestrel::component {

class HostCaller {
 public:
  explicit HostCaller(IUnknown* object);

  explicit operator bool() const noexcept { return extended_ || plain_; }
  // The id of a member, or DISPID_UNKNOWN. The exact spelling goes before another letter case.
  DISPID Find(std::u16string_view name) const;
  // Calls, reads or writes (`flags`) with the arguments in reverse order, the value of a put first. Raises
  // the host's failure as an error of the library.
  void Invoke(DISPID id, WORD flags, VARIANT* reversed, UINT count, VARIANT* result) const;

 private:
  ComPtr<IDispatchEx> extended_;
  ComPtr<IDispatch> plain_;
};

}  // namespace vestrel::component
