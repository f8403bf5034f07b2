// An operation as the command language knows it: its name, its parameters with what the operator may write
// for each, and how it is invoked. Built from a public operation of a class, or from a free function of the
// host, whose argument and result types say the rest:
//
//   Method<&clsButtonGroupController::SetPage>("SetPage", {In("pageName")})
//   Function<&PassTime>("wait", {In("milliseconds")})
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "workbench/commands/Argument.h"
#include "workbench/commands/CommandSession.h"
#include "workbench/commands/Parameter.h"

namespace vestrel::workbench {

struct NamedText {
  std::string name;
  std::string value;
};

// What a command brought back, as text.
struct Outcome {
  std::optional<std::string> result;
  std::vector<NamedText> handedBack;
};

struct Operation {
  std::string_view name;
  std::vector<Parameter> parameters;
  // What each parameter takes; empty for one that takes no word.
  std::vector<std::string_view> kinds;
  // Reads the words and performs the operation. Raises BadCommand before anything was done, and whatever the
  // operation raises.
  std::function<Outcome(CommandSession&, std::span<const Word>)> invoke;

  // "controlClicked controlIndex mouseButton shift x y [triggerMode] [returnButton] [buttonVar]".
  std::string Usage() const { return UsageText(name, parameters, kinds); }
  static std::string UsageText(std::string_view name, const std::vector<Parameter>& parameters,
                               const std::vector<std::string_view>& kinds);
};

// The object that commands on class C work on.
template <class C>
C& TargetOf(CommandSession& session);
template <>
inline clsButtonGroupController& TargetOf(CommandSession& session) {
  return session.host().controller();
}
template <>
inline clsRecordController& TargetOf(CommandSession& session) {
  return session.host().record();
}
template <>
inline LEDManager& TargetOf(CommandSession& session) {
  return *session.host().controller().mLEDManager;
}
template <>
inline clsMultiFile& TargetOf(CommandSession& session) {
  return session.multi();
}
template <>
inline GlobalButtons& TargetOf(CommandSession& session) {
  return session.globals();
}
template <>
inline VestrelStatic& TargetOf(CommandSession& session) {
  return session.statics();
}

namespace detail {

template <class M>
struct MethodTraits;
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...)> {
  using Class = C;
  using Arguments = std::tuple<Argument<A>...>;
};
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...) const> : MethodTraits<R (C::*)(A...)> {};
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...) noexcept> : MethodTraits<R (C::*)(A...)> {};
template <class C, class R, class... A>
struct MethodTraits<R (C::*)(A...) const noexcept> : MethodTraits<R (C::*)(A...)> {};

template <class F>
struct FunctionTraits;
template <class R, class... A>
struct FunctionTraits<R (*)(CommandSession&, A...)> {
  using Arguments = std::tuple<Argument<A>...>;
};

// Raises BadCommand, with the usage, when the words do not match the parameters in number.
void ExpectWordCount(std::string_view name, const std::vector<Parameter>& parameters,
                     const std::vector<std::string_view>& kinds, std::size_t words);
// The word for a parameter, or null when it is left out.
const Word* WordFor(const Parameter& parameter, bool isObject, const Word* given, Word& otherwise);

template <class A>
void ReadArgument(A& argument, const Parameter& parameter, CommandSession& session,
                  std::span<const Word>& words) {
  if (!A::kTakesWord) return;
  const Word* given = words.empty() ? nullptr : &words.front();
  if (given != nullptr) words = words.subspan(1);
  if (A::kIsObject && given != nullptr && given->IsPlaceholder()) return argument.ReadNone();
  Word otherwise;
  const Word* word = WordFor(parameter, A::kIsObject, given, otherwise);
  if (word != nullptr) argument.Read(*word, parameter, session);
}

template <class Tuple, std::size_t... I>
void ReadArguments(Tuple& arguments, const std::vector<Parameter>& parameters, CommandSession& session,
                   [[maybe_unused]] std::span<const Word> words, std::index_sequence<I...>) {
  (ReadArgument(std::get<I>(arguments), parameters[I], session, words), ...);
}

template <class Tuple, std::size_t... I>
void ReportHandedBack(const Tuple& arguments, const std::vector<Parameter>& parameters, Outcome& outcome,
                      std::index_sequence<I...>) {
  [[maybe_unused]] const auto report = [&](const Parameter& parameter,
                                           const std::optional<std::string>& value) {
    if (value) outcome.handedBack.push_back({std::string(parameter.name), *value});
  };
  (report(parameters[I], std::get<I>(arguments).HandedBack()), ...);
}

// Calls and keeps the result as text. A function may also bring back a whole Outcome.
template <class Call>
Outcome Perform(Call call) {
  using Result = std::invoke_result_t<Call>;
  if constexpr (std::is_void_v<Result>) {
    call();
    return {};
  } else if constexpr (std::is_same_v<Result, Outcome>) {
    return call();
  } else {
    return {ValueText(call()), {}};
  }
}

template <class Arguments, class Invoke>
Operation Build(std::string_view name, std::vector<Parameter> parameters, Invoke invoke) {
  using Indices = std::make_index_sequence<std::tuple_size_v<Arguments>>;
  std::vector<std::string_view> kinds = [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::vector<std::string_view>{
        (std::tuple_element_t<I, Arguments>::kTakesWord ? std::tuple_element_t<I, Arguments>::kKind : "")...};
  }
  (Indices{});
  auto run = [name, parameters, kinds, invoke](CommandSession& session, std::span<const Word> words) {
    ExpectWordCount(name, parameters, kinds, words.size());
    Arguments arguments;
    ReadArguments(arguments, parameters, session, words, Indices{});
    Outcome outcome = Perform([&] {
      return std::apply([&](auto&... each) { return invoke(session, each.Pass()...); }, arguments);
    });
    ReportHandedBack(arguments, parameters, outcome, Indices{});
    return outcome;
  };
  return {name, std::move(parameters), std::move(kinds), run};
}

}  // namespace detail

// A public operation of the class whose object TargetOf answers.
template <auto M>
Operation Method(std::string_view name, std::vector<Parameter> parameters = {}) {
  using Traits = detail::MethodTraits<decltype(M)>;
  return detail::Build<typename Traits::Arguments>(
      name, std::move(parameters), [](CommandSession& session, auto&&... arguments) {
        return (TargetOf<typename Traits::Class>(session).*
                M)(std::forward<decltype(arguments)>(arguments)...);
      });
}

// A function whose first argument is the session.
template <auto F>
Operation Function(std::string_view name, std::vector<Parameter> parameters = {}) {
  using Traits = detail::FunctionTraits<decltype(F)>;
  return detail::Build<typename Traits::Arguments>(
      name, std::move(parameters), [](CommandSession& session, auto&&... arguments) {
        return F(session, std::forward<decltype(arguments)>(arguments)...);
      });
}

// The operation, after which the controls are laid out anew, as a form does that shows something else then.
Operation Shown(Operation operation);

}  // namespace vestrel::workbench
