// What happens in a session as the lines of a journal (docs/workbench-protocol.md, "The journal"): for those
// who write it and those who compare with it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "workbench/server/SessionObserver.h"

namespace vestrel::workbench {

class JournalLines : public SessionObserver {
 public:
  void CallBegan(std::string_view command, std::uint64_t now, std::uint64_t turn) override;
  void CallEnded(const CallEnd& end) override;
  void CallbackMade(const std::string& text) override;
  void HostActed(const std::string& text) override;
  void DialogOpened(const std::string& text) override;
  void DialogClosed(const DialogAnswer& answer, const std::string& text) override;

 private:
  virtual void Happened(const nlohmann::json& line) = 0;
};

}  // namespace vestrel::workbench
