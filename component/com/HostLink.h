// The way to a host's implementation of one callback interface: by the interface itself where the host's
// object has it, otherwise by the names of its operations. One for each object and interface in use.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "component/ClassDescription.h"
#include "component/UIFaderValues.h"
#include "component/com/AutoVariant.h"
#include "component/com/FaderRecord.h"
#include "component/com/HostCaller.h"
#include "component/com/HostObject.h"
#include "core/Variant.h"

namespace vestrel::component {

struct FaceClass;

class HostLink {
 public:
  HostLink(const HostReference& reference, const FaceClass& faceClass);

  // Whether the object has the interface, or at least one operation of its names.
  bool Exists() const;
  HostReference& reference() noexcept { return reference_; }

 private:
  friend class OutgoingCall;

  // The id of the slot's name, asked for once.
  DISPID IdOf(int slot) const;

  HostReference reference_;
  const FaceClass& faceClass_;
  ComPtr<IUnknown> interface_;  // through the virtual table, or none
  HostCaller caller_;
  mutable std::vector<DISPID> ids_;
};

// One call to the host. Arguments are added in order; then Run, which raises the host's failure; then the
// result.
class OutgoingCall {
 public:
  OutgoingCall(const HostLink& link, int slot);
  OutgoingCall(const OutgoingCall&) = delete;
  OutgoingCall& operator=(const OutgoingCall&) = delete;

  void Add(bool value);
  void Add(std::uint8_t value);
  void Add(std::int16_t value);
  void Add(std::int32_t value);
  void Add(float value);
  void Add(std::u16string_view value);
  void Add(const Variant& value);
  void Add(Object* value);
  // Handed over as the record or as an object; what the host writes is in `values` after Run.
  void Add(TUIFaderValues& values);
  void Run();

  template <class R>
  R Result();

 private:
  VARIANT& Next() { return arguments_[count_++]; }
  const Operation& operation() const;
  void RunThroughTable();
  void RunByName();
  void ConvertResult(VARTYPE type, AutoVariant& converted);

  const HostLink& link_;
  int slot_;
  std::size_t count_ = 0;
  std::array<AutoVariant, Operation::kMaxParameters> arguments_;
  AutoVariant result_;
  FaderRecord record_{};
  TUIFaderValues* faders_ = nullptr;
  Ref<UIFaderValues> faderObject_;
};

template <>
inline void OutgoingCall::Result<void>() {}
template <>
bool OutgoingCall::Result<bool>();
template <>
std::int32_t OutgoingCall::Result<std::int32_t>();
template <>
std::u16string OutgoingCall::Result<std::u16string>();

}  // namespace vestrel::component
