// The vocabulary in which a class states its operations, once, in the order of its slots. A table lists
// Method, Get, Put, PutRef, Property, Field and Implements entries; everything else - late binding, virtual
// tables, the interface text, the reference - is derived from it. Entries are types that carry the member
// pointer, so a table whose names do not match the member's signature does not compile.
#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

#include "component/Argument.h"
#include "component/Operation.h"
#include "component/Signature.h"

namespace vestrel::component {

// TableOf<T>::kTable is the table of T; specialised in component/tables/, one header a class.
template <class T>
struct TableOf;

// One slot. `Interface` is the implemented interface that the operation belongs to, or void.
template <auto Pointer, Kind K, bool ByValue = false, class Interface = void>
struct Entry {
  using MemberPointer = decltype(Pointer);
  using MemberSignature = Signature<MemberPointer>;
  using ImplementedInterface = Interface;
  static constexpr auto kPointer = Pointer;
  static constexpr Kind kKind = K;
  static constexpr bool kByValue = ByValue;

  Operation operation;
};

namespace detail {

// Reached only while compiling: the call is no constant expression, and its text names the mistake.
void TableMistake(const char* what);

constexpr bool DefaultFits(const Parameter& parameter) {
  using Default = DefaultValue::Type;
  const ValueType type = parameter.type.type;
  switch (parameter.defaultValue.type) {
    case Default::Required:
      return true;
    case Default::None:
      return type == ValueType::Object || parameter.direction != Direction::In;
    case Default::Boolean:
      return type == ValueType::Boolean;
    case Default::Text:
      return type == ValueType::Text;
    case Default::Long:
      return type == ValueType::Short || type == ValueType::Long || type == ValueType::Single ||
             type == ValueType::Enumeration || type == ValueType::Dynamic;
  }
  return false;
}

template <class A>
constexpr Parameter Typed(Parameter parameter) {
  parameter.type = Argument<A>::kType;
  if (Argument<A>::kWritesBack != (parameter.direction != Direction::In)) TableMistake("wrong direction");
  if (!DefaultFits(parameter)) TableMistake("default of another type");
  return parameter;
}

template <class T>
constexpr TypeDescription ResultType() {
  if constexpr (std::is_void_v<T>) {
    return {};
  } else {
    return Codec<std::remove_cvref_t<T>>::kType;
  }
}

template <class Arguments>
struct ParameterFiller;

template <class... A>
struct ParameterFiller<std::tuple<A...>> {
  template <std::size_t... I>
  static constexpr void Fill(Operation& operation, const Parameter* parameters, std::index_sequence<I...>) {
    ((operation.parameters[I] = Typed<A>(parameters[I])), ...);
  }
};

template <auto Pointer, class... P>
constexpr Operation FunctionOperation(Kind kind, const char* name, const char* help, P... parameters) {
  using S = Signature<decltype(Pointer)>;
  static_assert(sizeof...(P) == S::kArity, "the table names more or fewer parameters than the member has");
  static_assert(S::kArity <= Operation::kMaxParameters);
  Operation operation;
  operation.name = name;
  operation.kind = kind;
  operation.help = help;
  operation.parameterCount = S::kArity;
  if (kind == Kind::Method || kind == Kind::Get) operation.result = ResultType<typename S::Result>();
  const std::array<Parameter, S::kArity + 1> list{Parameter(parameters)..., Parameter()};
  ParameterFiller<typename S::Arguments>::Fill(operation, list.data(), std::make_index_sequence<S::kArity>());
  return operation;
}

template <class T>
struct PutKindOf {
  static constexpr Kind kKind = Kind::Put;
};
template <class T>
struct PutKindOf<Ref<T>> {
  static constexpr Kind kKind = Kind::PutRef;
};

}  // namespace detail

// ---- Entries. Each is given the published name and one sentence of help.
// ------------------------------------

// An operation; then its parameters in order: a plain name, or Optional, InOut, Out (component/Operation.h).
template <auto Pointer, class... P>
constexpr auto Method(const char* name, const char* help, P... parameters) {
  return std::tuple(Entry<Pointer, Kind::Method>{
      detail::FunctionOperation<Pointer>(Kind::Method, name, help, parameters...)});
}

// The same with arguments that travel by value through the virtual table.
template <auto Pointer, class... P>
constexpr auto MethodByValue(const char* name, const char* help, P... parameters) {
  Entry<Pointer, Kind::Method, true> entry{
      detail::FunctionOperation<Pointer>(Kind::Method, name, help, parameters...)};
  entry.operation.argumentsByValue = true;
  return std::tuple(entry);
}

// A property that is read through a function, possibly with indices.
template <auto Pointer, class... P>
constexpr auto Get(const char* name, const char* help, P... parameters) {
  return std::tuple(
      Entry<Pointer, Kind::Get>{detail::FunctionOperation<Pointer>(Kind::Get, name, help, parameters...)});
}

// A property that is written through a function: indices, then the value.
template <auto Pointer, class... P>
constexpr auto Put(const char* name, const char* help, P... parameters) {
  return std::tuple(Entry<Pointer, Kind::Put>{
      detail::FunctionOperation<Pointer>(Kind::Put, name, help, parameters..., "value")});
}

template <auto Getter, auto Setter, class... P>
constexpr auto Property(const char* name, const char* help, P... parameters) {
  return std::tuple_cat(Get<Getter>(name, help, parameters...), Put<Setter>(name, help, parameters...));
}

// A public data member: read and written; one that holds an object is set by reference.
template <auto Pointer>
constexpr auto Field(const char* name, const char* help) {
  using T = typename Signature<decltype(Pointer)>::Type;
  constexpr Kind kPut = detail::PutKindOf<T>::kKind;
  Operation get;
  get.name = name;
  get.kind = Kind::Get;
  get.help = help;
  get.result = Codec<T>::kType;
  Operation put = get;
  put.kind = kPut;
  put.result = {};
  put.parameters[0] = Parameter("value");
  put.parameters[0].type = Codec<T>::kType;
  put.parameterCount = 1;
  return std::tuple(Entry<Pointer, Kind::Get>{get}, Entry<Pointer, kPut>{put});
}

namespace detail {

template <class Interface, auto Pointer, Kind K, bool ByValue, class I>
constexpr auto Prefixed(Entry<Pointer, K, ByValue, I> entry) {
  Entry<Pointer, K, ByValue, Interface> result{entry.operation};
  result.operation.interfaceName = PublishedName<Interface>::value;
  return result;
}

}  // namespace detail

// All operations of an implemented interface, under its prefixed names. The interface's table must be
// included.
template <class Interface>
constexpr auto Implements() {
  return std::apply([](auto... entries) { return std::tuple(detail::Prefixed<Interface>(entries)...); },
                    TableOf<Interface>::kTable.entries);
}

template <class T, class Entries>
struct ClassTable {
  using Class = T;
  static constexpr std::size_t kSize = std::tuple_size_v<Entries>;

  std::string_view help;
  Entries entries;
};

// The table of T from its items, in slot order, after a sentence or two about the class.
template <class T, class... Items>
constexpr auto MakeTable(const char* help, Items... items) {
  auto entries = std::tuple_cat(items...);
  return ClassTable<T, decltype(entries)>{help, entries};
}

}  // namespace vestrel::component
