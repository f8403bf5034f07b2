// What happens in words, one line each, for every place that tells it: printed runs, the log, the journal.
#pragma once

#include <string>
#include <string_view>

#include "core/Error.h"
#include "workbench/host/HostListener.h"

namespace vestrel::workbench {

// Line breaks as one blank each.
std::string OneLine(std::string_view text);
// "name(argument, argument)" and the note.
std::string CallText(const HostCall& call);
// "error N (source): description".
std::string ErrorText(const Error& error);
// DATA for the data folder's own path, UTF-8 and not empty, so that the text is the same wherever that is.
std::string WithoutFolder(std::string text, std::string_view dataFolder);

}  // namespace vestrel::workbench
