// Takes a member pointer apart: class, result and arguments of a function, or class and type of a data
// member.
#pragma once

#include <cstddef>
#include <tuple>

namespace vestrel::component {

template <class C, class R, class... A>
struct FunctionSignature {
  using Class = C;
  using Result = R;
  using Arguments = std::tuple<A...>;
  static constexpr std::size_t kArity = sizeof...(A);
  static constexpr bool kIsData = false;
};

template <class Member>
struct Signature;

template <class C, class R, class... A>
struct Signature<R (C::*)(A...)> : FunctionSignature<C, R, A...> {};
template <class C, class R, class... A>
struct Signature<R (C::*)(A...) const> : FunctionSignature<C, R, A...> {};
template <class C, class R, class... A>
struct Signature<R (C::*)(A...) noexcept> : FunctionSignature<C, R, A...> {};
template <class C, class R, class... A>
struct Signature<R (C::*)(A...) const noexcept> : FunctionSignature<C, R, A...> {};

template <class C, class T>
requires(!std::is_function_v<T>) struct Signature<T C::*> {
  using Class = C;
  using Type = T;
  static constexpr bool kIsData = true;
};

}  // namespace vestrel::component
