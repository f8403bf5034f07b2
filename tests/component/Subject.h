// An object under test as a host sees it: its operations called by name, each noted, so that a test can say
// which ones it left out.
#pragma once

#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "component/ByName.h"
#include "tests/support/Errors.h"

namespace vestrel::test {

// The slots called so far, "clsLong 1 put value".
std::set<std::string>& CalledSlots();
// How a slot is noted there.
std::string NoteOf(std::string_view className, std::int32_t id, component::Kind kind, std::string_view name);

class Subject {
 public:
  // A new object of the class.
  explicit Subject(const char16_t* className) : object_(component::CreateByName(className)) {}
  template <class T>
  Subject(Ref<T> object) : object_(std::move(object)) {}  // NOLINT(google-explicit-constructor)

  Object* get() const noexcept { return object_.get(); }
  const Ref<Object>& object() const noexcept { return object_; }
  explicit operator bool() const noexcept { return static_cast<bool>(object_); }
  bool operator==(const Subject& other) const noexcept { return object_.get() == other.object_.get(); }

  template <class... A>
  Variant Call(std::u16string_view name, A&&... arguments) const {
    return Invoke(component::Kind::Method, name, {ToActual(std::forward<A>(arguments))...});
  }
  template <class... A>
  Variant Get(std::u16string_view name, A&&... arguments) const {
    return Invoke(component::Kind::Get, name, {ToActual(std::forward<A>(arguments))...});
  }
  template <class... A>
  void Put(std::u16string_view name, A&&... arguments) const {
    Invoke(component::Kind::Put, name, {ToActual(std::forward<A>(arguments))...});
  }

  // The result of a call, or of reading a property, as what it must be.
  template <class... A>
  std::int32_t Number(std::u16string_view name, A&&... arguments) const {
    return Call(name, std::forward<A>(arguments)...).AsLong();
  }
  template <class... A>
  bool Truth(std::u16string_view name, A&&... arguments) const {
    return Call(name, std::forward<A>(arguments)...).AsBoolean();
  }
  template <class... A>
  double Fraction(std::u16string_view name, A&&... arguments) const {
    return Call(name, std::forward<A>(arguments)...).AsDouble();
  }
  template <class... A>
  std::u16string Text(std::u16string_view name, A&&... arguments) const {
    return Call(name, std::forward<A>(arguments)...).AsString();
  }
  template <class... A>
  Subject Item(std::u16string_view name, A&&... arguments) const {
    return Call(name, std::forward<A>(arguments)...).AsObject();
  }
  // The number of the error that a call raises, 0 for none.
  template <class... A>
  std::int32_t Error(std::u16string_view name, A&&... arguments) const {
    return RaisedNumber([&] { Call(name, std::forward<A>(arguments)...); });
  }

 private:
  static component::Actual ToActual(component::Actual actual) { return actual; }
  static component::Actual ToActual(const Subject& subject) { return component::In(subject.object_); }
  static component::Actual ToActual(std::nullptr_t) { return component::In(Ref<Object>()); }
  template <class T>
  static component::Actual ToActual(const T& value) {
    if constexpr (std::is_enum_v<T>) {
      return component::In(static_cast<std::int32_t>(value));
    } else {
      return component::In(Variant(value));
    }
  }

  Variant Invoke(component::Kind kind, std::u16string_view name,
                 const std::vector<component::Actual>& arguments) const;

  Ref<Object> object_;
};

}  // namespace vestrel::test
