// What the checks of the host programs are written with: short names for calls through the door in use, and a
// folder of the program's own.
#pragma once

#include <string>
#include <vector>

#include "tests/component/host/Automation.h"
#include "tests/component/host/Check.h"

namespace host {

using Arguments = std::vector<Argument>;

inline Door* door = nullptr;
// With a separator at its end.
inline std::wstring folder;

inline Outcome Try(const Value& object, const wchar_t* member, const Arguments& arguments = {},
                   Access access = Access::Method) {
  return door->Call(object.object(), member, access, arguments);
}

inline Value Must(const Value& object, const wchar_t* member, const Arguments& arguments, Access access) {
  if (object.object() == nullptr) {
    Checked(false, "there is an object for", Narrow(member).c_str(), 0);
    return {};
  }
  const Outcome outcome = door->Call(object.object(), member, access, arguments);
  Checked(
      SUCCEEDED(outcome.code), Narrow(member).c_str(), door->name(), 0,
      std::to_string(outcome.error) + " " + std::to_string(outcome.code) + " " + Narrow(outcome.description));
  return outcome.result;
}
inline Value Call(const Value& object, const wchar_t* member, const Arguments& arguments = {}) {
  return Must(object, member, arguments, Access::Method);
}
inline Value Get(const Value& object, const wchar_t* member, const Arguments& arguments = {}) {
  return Must(object, member, arguments, Access::Get);
}
inline void Put(const Value& object, const wchar_t* member, const Argument& value) {
  Must(object, member, {value}, Access::Put);
}
inline void PutRef(const Value& object, const wchar_t* member, const Argument& value) {
  Must(object, member, {value}, Access::PutRef);
}

// Writes and reads back.
inline void CheckProperty(const Value& object, const wchar_t* member, const Value& value) {
  Put(object, member, value);
  Checked(Get(object, member).text() == value.text(), "reads back", Narrow(member).c_str(), 0);
}

inline Value Box(int number) {
  Value box = Create(L"clsLong");
  Put(box, L"value", number);
  return box;
}
inline Value BoxText(const wchar_t* text) {
  Value box = Create(L"clsString");
  Put(box, L"value", text);
  return box;
}
inline int Unbox(const Value& box) {
  return Get(box, L"value").number();
}

inline const Value& None() {
  static const Value none{static_cast<IDispatch*>(nullptr)};
  return none;
}

}  // namespace host
