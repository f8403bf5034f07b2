#include "workbench/server/JournalLines.h"

namespace vestrel::workbench {

using nlohmann::json;

void JournalLines::CallBegan(std::string_view command, std::uint64_t now, std::uint64_t turn) {
  json line{{"call", command}, {"ms", now}};
  if (turn > 0) line["turn"] = turn;
  Happened(line);
}

void JournalLines::CallEnded(const CallEnd& end) {
  json line{{end.ok ? "done" : "failed", end.text}};
  if (!end.files.empty()) line["files"] = end.files;
  Happened(line);
}

void JournalLines::CallbackMade(const std::string& text) {
  Happened({{"back", text}});
}

void JournalLines::HostActed(const std::string& text) {
  Happened({{"host", text}});
}

void JournalLines::DialogOpened(const std::string& text) {
  Happened({{"dialog", text}});
}

void JournalLines::DialogClosed(const DialogAnswer& answer, const std::string& /*text*/) {
  Happened({{"answer", answer.yes}, {"text", answer.text}});
}

}  // namespace vestrel::workbench
