// Questions of a page that change nothing: buttons by name on all pages, a part of the event list, and the
// list of all commands.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>

#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

// {"results": [...], "more": bool}: buttons whose name holds the text in any letter case, in the order of
// pages and groups; at most 100.
nlohmann::json FindButtons(WorkSession& session, std::string_view text);

// {"total", "from", "rows"}: `count` events from position `from` on, at most 500.
nlohmann::json EventRows(WorkSession& session, std::int64_t from, std::int64_t count);

// [{"name", "args": [{"name", "type", "optional"}], "help"}] in alphabetical order.
nlohmann::json CommandList(const OperationTable& operations);

}  // namespace vestrel::workbench
