// A call through the virtual table, seen by the tables' invokers like any other. Arguments are pointers to
// values in the form in which they travel; a null pointer for an optional argument means that it is left out.
#pragma once

#include "component/Call.h"
#include "component/Operation.h"
#include "component/com/Windows.h"

namespace vestrel::component {

struct Face;

class EarlyCall final : public Call {
 public:
  // `result` is the place of the result, null when there is none.
  EarlyCall(const Operation& operation, void* const* arguments, void* result) noexcept
      : operation_(operation), arguments_(arguments), result_(result) {}

  // What the caller finds when the call fails.
  void EmptyResult() const;

  bool Given(int index) const override;

  bool ReadBoolean(int index) override;
  std::uint8_t ReadByte(int index) override;
  std::int16_t ReadShort(int index) override;
  std::int32_t ReadLong(int index) override;
  float ReadSingle(int index) override;
  std::u16string_view ReadText(int index) override;
  Variant ReadDynamic(int index) override;
  Ref<Object> ReadObject(int index) override;
  TUIFaderValues ReadFaderValues(int index) override;
  std::vector<Variant> ReadArray(int index) override;

  void StoreBoolean(int index, bool value) override;
  void StoreByte(int index, std::uint8_t value) override;
  void StoreShort(int index, std::int16_t value) override;
  void StoreLong(int index, std::int32_t value) override;
  void StoreSingle(int index, float value) override;
  void StoreText(int index, std::u16string_view value) override;
  void StoreDynamic(int index, const Variant& value) override;
  void StoreObject(int index, Object* value) override;
  void StoreFaderValues(int index, const TUIFaderValues& value) override;
  void StoreArray(int index, const std::vector<Variant>& value) override;

 private:
  template <class A>
  A& At(int index) const {
    return *static_cast<A*>(index == kResult ? result_ : arguments_[index]);
  }

  const Operation& operation_;
  void* const* arguments_;
  void* result_;
};

// Calls slot `slot` of the face's class; never throws.
HRESULT CallThroughTable(const Face& face, int slot, void* const* arguments, void* result) noexcept;

}  // namespace vestrel::component
