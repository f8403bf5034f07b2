// One call in progress, as the door that received it (late-bound dispatch, or the native by-name door) holds
// its arguments and takes its result. The tables' invokers see arguments only through it, so there is one
// invoker an operation whatever the door. Lives on the stack of the door for the length of the call.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "controller/interfaces/TUIFaderValues.h"
#include "core/Variant.h"

namespace vestrel::component {

// Why a call did not reach its operation.
enum class CallStatus : std::uint8_t {
  Ok,
  UnknownMember,        // no such operation, or not callable in this way
  WrongArgumentCount,   // more arguments than the operation takes
  ArgumentRequired,     // an argument without a default was left out
  UnknownArgumentName,  // a named argument that the operation does not have
  TypeMismatch,         // the argument does not convert
  Overflow,             // the argument converts but does not fit
};

// Thrown by Call's readers for an argument that does not convert; doors turn it into their own codes.
struct CallFailure {
  CallStatus status;
  int argument;  // 0-based
};

class Call {
 public:
  // Stands for the result wherever an argument's index is wanted.
  static constexpr int kResult = -1;

  Call() = default;
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  // Whether the caller gave argument `index` (0-based, in the order of the table).
  virtual bool Given(int index) const = 0;

  // Each reads one given argument; throws CallFailure when it does not convert.
  virtual bool ReadBoolean(int index) = 0;
  virtual std::uint8_t ReadByte(int index) = 0;
  virtual std::int16_t ReadShort(int index) = 0;
  virtual std::int32_t ReadLong(int index) = 0;
  virtual float ReadSingle(int index) = 0;
  // Valid until the call ends.
  virtual std::u16string_view ReadText(int index) = 0;
  virtual Variant ReadDynamic(int index) = 0;
  // None for none; the caller's own objects come as adapters.
  virtual Ref<Object> ReadObject(int index) = 0;
  virtual TUIFaderValues ReadFaderValues(int index) = 0;
  virtual std::vector<Variant> ReadArray(int index) = 0;

  // Each writes a by-reference argument back, or delivers the result (kResult). An argument that the caller
  // passed in a way that takes nothing back is left alone.
  virtual void StoreBoolean(int index, bool value) = 0;
  virtual void StoreByte(int index, std::uint8_t value) = 0;
  virtual void StoreShort(int index, std::int16_t value) = 0;
  virtual void StoreLong(int index, std::int32_t value) = 0;
  virtual void StoreSingle(int index, float value) = 0;
  virtual void StoreText(int index, std::u16string_view value) = 0;
  virtual void StoreDynamic(int index, const Variant& value) = 0;
  virtual void StoreObject(int index, Object* value) = 0;
  virtual void StoreFaderValues(int index, const TUIFaderValues& value) = 0;
  // Writes the elements into the caller's own array where there is one.
  virtual void StoreArray(int index, const std::vector<Variant>& value) = 0;

 protected:
  ~Call() = default;
};

}  // namespace vestrel::component
