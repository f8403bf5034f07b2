#include "workbench/commands/OutputText.h"

#include "core/Convert.h"
#include "workbench/host/ValueText.h"

namespace vestrel::workbench {

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char byte : text) {
    if (byte != '\r') line += byte == '\n' ? ' ' : byte;
  }
  return line;
}

std::string CallText(const HostCall& call) {
  return std::string(call.name) + "(" + JoinTexts(call.arguments) + ")" + call.note;
}

std::string ErrorText(const Error& error) {
  return OneLine("error " + std::to_string(error.number()) + " (" + ToUtf8(error.source()) +
                 "): " + ToUtf8(error.description()));
}

std::string WithoutFolder(std::string text, std::string_view dataFolder) {
  constexpr std::string_view kPlaceholder = "DATA";
  std::size_t at = text.find(dataFolder);
  while (at != std::string::npos) {
    text.replace(at, dataFolder.size(), kPlaceholder);
    at = text.find(dataFolder, at + kPlaceholder.size());
  }
  return text;
}

}  // namespace vestrel::workbench
