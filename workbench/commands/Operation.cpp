#include "workbench/commands/Operation.h"

namespace vestrel::workbench {

std::string Operation::UsageText(std::string_view name, const std::vector<Parameter>& parameters,
                                 const std::vector<std::string_view>& kinds) {
  std::string usage(name);
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (kinds[i].empty()) continue;
    const std::string parameter(parameters[i].name);
    usage += parameters[i].optional ? " [" + parameter + "]" : " " + parameter;
  }
  return usage;
}

Operation Shown(Operation operation) {
  operation.invoke = [invoke = operation.invoke](CommandSession& session, std::span<const Word> words) {
    Outcome outcome = invoke(session, words);
    session.host().LayOut();
    return outcome;
  };
  return operation;
}

namespace detail {

void ExpectWordCount(std::string_view name, const std::vector<Parameter>& parameters,
                     const std::vector<std::string_view>& kinds, std::size_t words) {
  std::size_t position = 0;
  std::string problem;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (kinds[i].empty()) continue;
    if (position++ >= words && !parameters[i].optional && problem.empty()) {
      problem = std::string(parameters[i].name) + " is missing";
    }
  }
  if (words > position) problem = "too many arguments";
  if (!problem.empty())
    throw BadCommand(problem + "; usage: " + Operation::UsageText(name, parameters, kinds));
}

const Word* WordFor(const Parameter& parameter, bool isObject, const Word* given, Word& otherwise) {
  if (given != nullptr && !given->IsPlaceholder()) return given;
  if (given != nullptr && !isObject && !parameter.optional) RejectWord(parameter, "cannot be left out");
  if (parameter.otherwise.empty()) return nullptr;
  otherwise = {std::string(parameter.otherwise), false};
  return &otherwise;
}

}  // namespace detail

}  // namespace vestrel::workbench
