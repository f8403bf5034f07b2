// Calls the member behind a table entry with the arguments of a call in progress. One function an entry,
// whatever door the call came through.
#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "component/Table.h"

namespace vestrel::component {

// `self` is the T whose table it is. Raises what the operation raises, and CallFailure for an argument that
// does not convert.
using InvokeFunction = void (*)(void* self, Call& call, const Operation& operation);

namespace detail {

template <class T, class E, class Arguments>
struct FunctionInvoker;

template <class T, class E, class... A>
struct FunctionInvoker<T, E, std::tuple<A...>> {
  using Result = typename E::MemberSignature::Result;

  template <std::size_t... I>
  static void Apply(T& self, Call& call, const Operation& operation, std::index_sequence<I...> positions) {
    const ArgumentSource sources[] = {{call, static_cast<int>(I), operation.parameters[I]}...,
                                      {call, 0, operation.parameters[0]}};
    std::tuple<Argument<A>...> arguments{sources[I]...};
    if constexpr (!(Argument<A>::kWritesBack || ...)) {
      Run(self, call, arguments, positions);
    } else {
      Ending ending = Ending::Failed;
      try {
        ending = Run(self, call, arguments, positions);
      } catch (...) {
        (FinishFailed(std::get<I>(arguments), sources[I]), ...);
        throw;
      }
      (Finish(std::get<I>(arguments), sources[I], ending), ...);
    }
  }

 private:
  template <std::size_t... I>
  static Ending Run(T& self, [[maybe_unused]] Call& call,
                    [[maybe_unused]] std::tuple<Argument<A>...>& arguments,
                    std::index_sequence<I...> /*positions*/) {
    if constexpr (std::is_void_v<Result> || E::kKind == Kind::Put || E::kKind == Kind::PutRef) {
      (self.*E::kPointer)(std::get<I>(arguments).Pass()...);
      return Ending::Done;
    } else {
      decltype(auto) result = (self.*E::kPointer)(std::get<I>(arguments).Pass()...);
      Codec<std::remove_cvref_t<Result>>::Store(call, Call::kResult, result);
      if constexpr (std::is_same_v<Result, bool>) return result ? Ending::Affirmed : Ending::Done;
      return Ending::Done;
    }
  }
  template <class X>
  static void Finish(X& argument, const ArgumentSource& source, Ending ending) {
    if constexpr (X::kWritesBack) argument.Finish(source, ending);
  }
  // The operation's own error is the one that is told.
  template <class X>
  static void FinishFailed(X& argument, const ArgumentSource& source) noexcept {
    try {
      Finish(argument, source, Ending::Failed);
    } catch (...) {
    }
  }
};

}  // namespace detail

template <class T, class E>
void InvokeEntry(void* object, Call& call, [[maybe_unused]] const Operation& operation) {
  auto& self = *static_cast<T*>(object);
  if constexpr (!E::MemberSignature::kIsData) {
    using Arguments = typename E::MemberSignature::Arguments;
    detail::FunctionInvoker<T, E, Arguments>::Apply(self, call, operation,
                                                    std::make_index_sequence<std::tuple_size_v<Arguments>>());
  } else if constexpr (E::kKind == Kind::Get) {
    Codec<typename E::MemberSignature::Type>::Store(call, Call::kResult, self.*E::kPointer);
  } else {
    self.*E::kPointer = Codec<typename E::MemberSignature::Type>::Read(call, 0);
  }
}

}  // namespace vestrel::component
