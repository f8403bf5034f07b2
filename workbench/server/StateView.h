// What the page shows, derived from the library and the host after each call: one JSON value for each
// top-level key (docs/workbench-protocol.md), and which of them changed. Keeps the values that were sent
// last; changes nothing in the session.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

class StateView {
 public:
  // The session outlives it.
  explicit StateView(WorkSession& session) : session_(session) {}

  // All keys as they stand; they count as sent.
  nlohmann::json Whole();
  // The keys that changed since they were sent, or null.
  nlohmann::json TakeChanges();
  // While held the session is not asked: what it told last stands, and only the keys of others change.
  void Hold(bool held) noexcept { held_ = held; }
  // A key that something else than the session owns (dialog, progress, clients).
  void Set(const std::string& key, nlohmann::json value) { others_[key] = std::move(value); }

 private:
  using Keys = std::map<std::string, nlohmann::json>;
  Keys Derive();
  nlohmann::json Show();
  void LookAtFolders();

  WorkSession& session_;
  bool held_ = false;
  Keys sent_;
  Keys others_;
  // What the folders hold, looked at again when a call changed files or the page is another.
  std::uint64_t seenChanges_ = 0;
  bool looked_ = false;
  std::u16string seenPage_;
  nlohmann::json shows_;
  nlohmann::json items_;
};

}  // namespace vestrel::workbench
