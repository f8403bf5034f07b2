// How an argument of each type is read from a word, handed to an operation and reported afterwards: one
// specialisation for every type that public operations take. Part of the machinery of Operation.h.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "workbench/commands/CommandSession.h"
#include "workbench/commands/Parameter.h"
#include "workbench/commands/ReadObject.h"
#include "workbench/commands/ReadWord.h"
#include "workbench/commands/Word.h"
#include "workbench/host/Assignment.h"
#include "workbench/host/ValueText.h"

namespace vestrel::workbench {

// What most arguments share: they take one word, are no object, and hand nothing back.
struct PlainArgument {
  static constexpr bool kTakesWord = true;
  static constexpr bool kIsObject = false;
  // The value after the call, for arguments through which results come back.
  std::optional<std::string> HandedBack() const { return std::nullopt; }
  // The word was "-": no object.
  void ReadNone() {}
};

template <class T>
struct Argument;

template <>
struct Argument<std::int32_t> : PlainArgument {
  static constexpr std::string_view kKind = "number";
  void Read(const Word& word, const Parameter& parameter, CommandSession&) {
    value = ReadWhole(word, parameter, std::numeric_limits<std::int32_t>::min(),
                      std::numeric_limits<std::int32_t>::max());
  }
  std::int32_t Pass() const { return value; }
  std::int32_t value = 0;
};

template <>
struct Argument<std::int16_t> : PlainArgument {
  static constexpr std::string_view kKind = "short number";
  void Read(const Word& word, const Parameter& parameter, CommandSession&) {
    value = static_cast<std::int16_t>(ReadWhole(word, parameter, std::numeric_limits<std::int16_t>::min(),
                                                std::numeric_limits<std::int16_t>::max()));
  }
  std::int16_t Pass() const { return value; }
  std::int16_t value = 0;
};

template <>
struct Argument<float> : PlainArgument {
  static constexpr std::string_view kKind = "real number";
  void Read(const Word& word, const Parameter& parameter, CommandSession&) {
    value = ReadReal(word, parameter);
  }
  float Pass() const { return value; }
  float value = 0;
};

template <>
struct Argument<bool> : PlainArgument {
  static constexpr std::string_view kKind = "true or false";
  void Read(const Word& word, const Parameter& parameter, CommandSession&) {
    value = ReadTruth(word, parameter);
  }
  bool Pass() const { return value; }
  bool value = false;
};

template <>
struct Argument<std::u16string_view> : PlainArgument {
  static constexpr std::string_view kKind = "text";
  void Read(const Word& word, const Parameter& parameter, CommandSession& session) {
    value = ReadText(word, parameter, session.host().appPath());
  }
  std::u16string_view Pass() const { return value; }
  std::u16string value;
};

template <class E>
requires std::is_enum_v<E>
struct Argument<E> : PlainArgument {
  static constexpr std::string_view kKind = "name or number";
  void Read(const Word& word, const Parameter& parameter, CommandSession&) {
    value = static_cast<E>(ReadMember(word, parameter, NamesOf<E>()));
  }
  E Pass() const { return value; }
  E value{};
};

// A number that the operation may overwrite.
template <>
struct Argument<std::int32_t&> : Argument<std::int32_t> {
  std::int32_t& Pass() { return value; }
  std::optional<std::string> HandedBack() const { return ValueText(value); }
};

// A list of texts, written as one word with "|" between them.
template <>
struct Argument<std::span<const Variant>> : PlainArgument {
  static constexpr std::string_view kKind = "texts";
  void Read(const Word& word, const Parameter&, CommandSession&) { values = ReadTexts(word); }
  std::span<const Variant> Pass() const { return values; }
  std::vector<Variant> values;
};

// The fader positions, which are only handed back.
template <>
struct Argument<TUIFaderValues&> : PlainArgument {
  static constexpr std::string_view kKind = "fader positions";
  static constexpr bool kTakesWord = false;
  void Read(const Word&, const Parameter&, CommandSession&) {}
  TUIFaderValues& Pass() { return values; }
  std::optional<std::string> HandedBack() const { return ValueText(values); }
  TUIFaderValues values;
};

// A text that the operation may overwrite; left out, the operation gets none.
template <>
struct Argument<std::u16string*> : PlainArgument {
  static constexpr std::string_view kKind = "text";
  void Read(const Word& word, const Parameter& parameter, CommandSession& session) {
    value = ReadText(word, parameter, session.host().appPath());
  }
  std::u16string* Pass() { return value ? &*value : nullptr; }
  std::optional<std::string> HandedBack() const {
    if (!value) return std::nullopt;
    return ValueText(*value);
  }
  std::optional<std::u16string> value;
};

// An object, kept alive for the length of the call.
template <class T, auto ReadFrom>
struct ObjectArgument : PlainArgument {
  static constexpr bool kIsObject = true;
  void Read(const Word& word, const Parameter& parameter, CommandSession& session) {
    value = ReadFrom(word, parameter, session);
  }
  T* Pass() const { return value.get(); }
  Ref<T> value;
};

template <>
struct Argument<clsButton*> : ObjectArgument<clsButton, ReadButton> {
  static constexpr std::string_view kKind = "button";
};
template <>
struct Argument<clsButtonGroup*> : ObjectArgument<clsButtonGroup, ReadGroup> {
  static constexpr std::string_view kKind = "group";
};
template <>
struct Argument<clsObjectList*> : ObjectArgument<clsObjectList, ReadList> {
  static constexpr std::string_view kKind = "buttons";
};
template <>
struct Argument<clsPage*> : ObjectArgument<clsPage, ReadPage> {
  static constexpr std::string_view kKind = "page";
};
template <>
struct Argument<vxEvent*> : ObjectArgument<vxEvent, ReadEvent> {
  static constexpr std::string_view kKind = "event";
};
template <>
struct Argument<clsDictionary*> : ObjectArgument<clsDictionary, ReadButtonMap> {
  static constexpr std::string_view kKind = "button map";
};
template <>
struct Argument<Object*> : ObjectArgument<Object, ReadObject> {
  static constexpr std::string_view kKind = "button or group";
};

template <>
struct Argument<IComparable*> : ObjectArgument<IComparable, ReadComparable> {
  static constexpr std::string_view kKind = "button, number or text";
};
template <>
struct Argument<clsLong*> : ObjectArgument<clsLong, ReadBoxedNumber> {
  static constexpr std::string_view kKind = "number";
};
template <>
struct Argument<clsString*> : ObjectArgument<clsString, ReadBoxedText> {
  static constexpr std::string_view kKind = "text";
};

// A button that the operation may replace; left out altogether, the operation gets no place for one.
template <>
struct Argument<Ref<clsButton>*> : PlainArgument {
  static constexpr std::string_view kKind = "button";
  static constexpr bool kIsObject = true;
  void Read(const Word& word, const Parameter& parameter, CommandSession& session) {
    value = ReadButton(word, parameter, session);
  }
  void ReadNone() { value.emplace(); }
  Ref<clsButton>* Pass() { return value ? &*value : nullptr; }
  std::optional<std::string> HandedBack() const {
    if (!value) return std::nullopt;
    return ValueText(*value);
  }
  std::optional<Ref<clsButton>> value;
};

// What the host hands to the library: the word "host" stands for its own.
template <class T>
Ref<T> OwnOf(SimulatedHost& host);
template <>
inline Ref<IFormSequenceShortcuts> OwnOf(SimulatedHost& host) {
  return &host.form();
}
template <>
inline Ref<ILEDSetter> OwnOf(SimulatedHost& host) {
  return &host.surface();
}
template <>
inline Ref<IRecordController> OwnOf(SimulatedHost& host) {
  return &host.record();
}
template <>
inline Ref<IRecordEventHandler> OwnOf(SimulatedHost& host) {
  return &host.transport();
}
template <>
inline Ref<IAssignmentCallback> OwnOf(SimulatedHost& host) {
  return MakeRef<Assignment>(host);
}

template <class T>
Ref<T> ReadOwn(const Word& word, const Parameter& parameter, CommandSession& session) {
  ExpectHost(word, parameter);
  return OwnOf<T>(session.host());
}

template <class T>
struct HostArgument : ObjectArgument<T, ReadOwn<T>> {
  static constexpr std::string_view kKind = "host's object";
};
template <>
struct Argument<IFormSequenceShortcuts*> : HostArgument<IFormSequenceShortcuts> {};
template <>
struct Argument<ILEDSetter*> : HostArgument<ILEDSetter> {};
template <>
struct Argument<IRecordController*> : HostArgument<IRecordController> {};
template <>
struct Argument<IRecordEventHandler*> : HostArgument<IRecordEventHandler> {};
template <>
struct Argument<IAssignmentCallback*> : HostArgument<IAssignmentCallback> {};

}  // namespace vestrel::workbench
