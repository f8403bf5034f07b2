// The screen's parts as JSON: groups with their slots, surface, transport, edit mode and stage. Pure reading.
#pragma once

#include <nlohmann/json.hpp>

#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

// Group `number`, 0 to 9, of the page that is current.
nlohmann::json GroupState(WorkSession& session, std::int32_t number);
nlohmann::json SurfaceState(WorkSession& session);
nlohmann::json TransportState(WorkSession& session);
nlohmann::json EditState(WorkSession& session);
nlohmann::json StageState(WorkSession& session);

// A member's name without its prefix: "Sequence" for ButtonType_Sequence.
template <class E>
std::string ShortName(E value) {
  const std::string name = ValueText(value);
  const std::size_t underscore = name.find('_');
  return underscore == std::string::npos ? name : name.substr(underscore + 1);
}

}  // namespace vestrel::workbench
