// How each parameter of an operation's own C++ signature is filled from a call and, where it is a reference
// that the operation may write to, stored back.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

#include "component/Codec.h"

namespace vestrel::component {

// How a call ended: in an error, with the answer that there is a result (true, of an operation that answers
// whether there is one), or otherwise.
enum class Ending { Failed, Done, Affirmed };

// What an argument is made from.
struct ArgumentSource {
  Call& call;
  int index;
  const Parameter& parameter;
};

template <class T>
T ReadOrDefault(const ArgumentSource& source) {
  return source.call.Given(source.index) ? Codec<T>::Read(source.call, source.index)
                                         : Codec<T>::Default(source.parameter.defaultValue);
}

// Argument<A> for a parameter of type A: kType, kWritesBack, a constructor from a source, Pass() for the call
// and, where it writes back, Finish() after it. This one is for values and constant references.
template <class A>
class Argument {
 public:
  using Value = std::remove_cvref_t<A>;
  static constexpr TypeDescription kType = Codec<Value>::kType;
  static constexpr bool kWritesBack = false;

  explicit Argument(const ArgumentSource& source) : value_(ReadOrDefault<Value>(source)) {}
  const Value& Pass() { return value_; }

 private:
  Value value_;
};

// A borrowed object.
template <Published T>
class Argument<T*> {
 public:
  using Value = Ref<T>;
  static constexpr TypeDescription kType = Codec<Ref<T>>::kType;
  static constexpr bool kWritesBack = false;

  explicit Argument(const ArgumentSource& source) : value_(ReadOrDefault<Ref<T>>(source)) {}
  T* Pass() { return value_.get(); }

 private:
  Ref<T> value_;
};

template <class T>
inline constexpr bool kComparesCheaply = !std::is_class_v<T> || std::is_same_v<T, std::u16string>;
template <class T>
inline constexpr bool kComparesCheaply<Ref<T>> = true;

// What a result argument holds until the operation writes to it: a value that operations hardly write, and
// when one does, its answer tells. What the caller's variable holds does not matter to them, need not
// convert, and stays when nothing is written.
template <class T>
struct Unwritten;

template <>
struct Unwritten<std::int32_t> {
  static std::int32_t Make() { return std::numeric_limits<std::int32_t>::min() + 0x2B5D; }
};
template <>
struct Unwritten<std::u16string> {
  static std::u16string Make() { return u"\uFFFE\uFFFFunwritten"; }
};
template <class T>
struct Unwritten<Ref<T>> {
  static Ref<T> Make() { return MakeRef<T>(); }
};
template <>
struct Unwritten<Ref<Object>> {
  class Placeholder : public Object {};
  static Ref<Object> Make() { return MakeRef<Placeholder>(); }
};

// The value behind a reference, with what it was before the call, so that only what was written is stored
// back. What a failing operation had written by then is stored as well, where that can be told.
template <class T>
class WrittenValue {
 public:
  explicit WrittenValue(const ArgumentSource& source) : value_(Before(source)), before_(value_) {}

  T& value() { return value_; }
  void Finish(const ArgumentSource& source, Ending ending) {
    if (!source.call.Given(source.index)) return;
    const bool told = ending == Ending::Affirmed && source.parameter.direction == Direction::Out;
    if constexpr (kComparesCheaply<T>) {
      if (value_ == before_ && !told) return;
    } else {
      if (ending == Ending::Failed) return;
    }
    Codec<T>::Store(source.call, source.index, value_);
  }

 private:
  static T Before(const ArgumentSource& source) {
    if constexpr (requires { Unwritten<T>::Make(); }) {
      if (source.parameter.direction == Direction::Out) return Unwritten<T>::Make();
    }
    return ReadOrDefault<T>(source);
  }

  T value_;
  T before_;
};

template <class T>
requires(!std::is_const_v<T>) class Argument<T&> {
 public:
  using Value = T;
  static constexpr TypeDescription kType = Codec<T>::kType;
  static constexpr bool kWritesBack = true;

  explicit Argument(const ArgumentSource& source) : value_(source) {}
  T& Pass() { return value_.value(); }
  void Finish(const ArgumentSource& source, Ending ending) { value_.Finish(source, ending); }

 private:
  WrittenValue<T> value_;
};

// An optional reference: null when the caller left it out.
template <class T>
requires(!Published<T> && !std::is_const_v<T>) class Argument<T*> {
 public:
  using Value = T;
  static constexpr TypeDescription kType = Codec<T>::kType;
  static constexpr bool kWritesBack = true;

  explicit Argument(const ArgumentSource& source) {
    if (source.call.Given(source.index)) value_.emplace(source);
  }
  T* Pass() { return value_ ? &value_->value() : nullptr; }
  void Finish(const ArgumentSource& source, Ending ending) {
    if (value_) value_->Finish(source, ending);
  }

 private:
  std::optional<WrittenValue<T>> value_;
};

// An array that is only read.
template <class T>
class Argument<std::span<const T>> {
 public:
  using Value = std::vector<T>;
  static constexpr TypeDescription kType = Codec<Value>::kType;
  static constexpr bool kWritesBack = false;

  explicit Argument(const ArgumentSource& source) : value_(ReadOrDefault<Value>(source)) {}
  std::span<const T> Pass() { return value_; }

 private:
  Value value_;
};

// An array of targets for whole numbers: what the elements held before does not matter, and those that the
// operation does not set keep it.
template <>
class Argument<std::span<std::int32_t>> {
 public:
  using Value = std::vector<Variant>;
  static constexpr TypeDescription kType = Codec<Value>::kType;
  static constexpr bool kWritesBack = true;

  explicit Argument(const ArgumentSource& source)
      : elements_(ReadOrDefault<Value>(source)), numbers_(elements_.size(), kUnset) {}
  std::span<std::int32_t> Pass() { return numbers_; }
  void Finish(const ArgumentSource& source, Ending /*ending*/) {
    bool changed = false;
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
      if (numbers_[i] == kUnset) continue;
      elements_[i] = numbers_[i];
      changed = true;
    }
    if (changed) source.call.StoreArray(source.index, elements_);
  }

 private:
  // No target is ever given this number: groups of digits have no sign.
  static constexpr std::int32_t kUnset = std::numeric_limits<std::int32_t>::min();

  std::vector<Variant> elements_;
  std::vector<std::int32_t> numbers_;
};

}  // namespace vestrel::component
