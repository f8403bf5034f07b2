// The last calls and callbacks as the page shows them: entries in order, numbered from 1, with the depth at
// which they happened. Bounded in number and in length; what was not sent in time is counted as left out.
#pragma once

#include <cstdint>
#include <deque>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "workbench/server/SessionObserver.h"

namespace vestrel::workbench {

class CallLog : public SessionObserver {
 public:
  // Entries carry times from `start` on, milliseconds.
  explicit CallLog(std::uint64_t start) : start_(start) {}

  // The last `count` entries, oldest first.
  nlohmann::json Last(std::size_t count) const;
  // What came since the last call, oldest first; null when there is nothing.
  nlohmann::json TakeNew();

  void CallBegan(std::string_view command, std::uint64_t now, std::uint64_t turn) override;
  void CallEnded(const CallEnd& end) override;
  void CallbackMade(const std::string& text) override;
  void HostActed(const std::string& text) override;
  void DialogOpened(const std::string& text) override;
  void DialogClosed(const DialogAnswer& answer, const std::string& text) override;

 private:
  struct Entry {
    std::uint64_t number;
    std::uint64_t ms;
    std::uint32_t depth;
    const char* kind;
    std::string text;
    std::vector<std::string> files;
  };
  static nlohmann::json AsJson(const Entry& entry);
  void Add(const char* kind, std::uint32_t depth, std::string_view text, std::vector<std::string> files = {});

  std::uint64_t start_;
  std::uint64_t now_ = 0;
  std::uint32_t depth_ = 0;
  std::uint64_t lastNumber_ = 0;
  std::uint64_t lastTaken_ = 0;
  std::deque<Entry> entries_;
};

}  // namespace vestrel::workbench
