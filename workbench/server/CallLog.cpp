#include "workbench/server/CallLog.h"

#include <algorithm>

namespace vestrel::workbench {

using nlohmann::json;

namespace {

constexpr std::size_t kMostEntries = 2000;
constexpr std::size_t kLongestText = 2000;

// The beginning of the text, cut between characters.
std::string Shortened(std::string_view text) {
  if (text.size() <= kLongestText) return std::string(text);
  std::size_t length = kLongestText;
  while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) --length;
  return std::string(text.substr(0, length)) + " ... (" + std::to_string(text.size()) + " bytes)";
}

}  // namespace

json CallLog::AsJson(const Entry& entry) {
  json object{{"n", entry.number},
              {"ms", entry.ms},
              {"depth", entry.depth},
              {"kind", entry.kind},
              {"text", entry.text}};
  if (!entry.files.empty()) object["files"] = entry.files;
  return object;
}

json CallLog::Last(std::size_t count) const {
  json entries = json::array();
  for (std::size_t i = entries_.size() - std::min(count, entries_.size()); i < entries_.size(); ++i) {
    entries.push_back(AsJson(entries_[i]));
  }
  return entries;
}

json CallLog::TakeNew() {
  if (lastTaken_ == lastNumber_) return nullptr;
  json entries = json::array();
  for (const Entry& entry : entries_) {
    if (entry.number > lastTaken_) entries.push_back(AsJson(entry));
  }
  lastTaken_ = lastNumber_;
  return entries;
}

void CallLog::Add(const char* kind, std::uint32_t depth, std::string_view text,
                  std::vector<std::string> files) {
  entries_.push_back({++lastNumber_, now_ - start_, depth, kind, Shortened(text), std::move(files)});
  if (entries_.size() > kMostEntries) entries_.pop_front();
}

void CallLog::CallBegan(std::string_view command, std::uint64_t now, std::uint64_t /*turn*/) {
  now_ = now;
  Add("call", depth_, command);
  ++depth_;
}

void CallLog::CallEnded(const CallEnd& end) {
  --depth_;
  if (!end.ok) {
    Add("error", depth_, end.text, end.files);
  } else if (!end.text.empty() || !end.files.empty()) {
    Add("result", depth_, end.text, end.files);
  }
}

void CallLog::CallbackMade(const std::string& text) {
  Add("callback", depth_, text);
}

void CallLog::HostActed(const std::string& text) {
  Add("call", depth_ + 1, "host: " + text);
}

void CallLog::DialogOpened(const std::string& text) {
  Add("callback", depth_, text);
  ++depth_;
}

void CallLog::DialogClosed(const DialogAnswer& /*answer*/, const std::string& text) {
  --depth_;
  Add("result", depth_, "-> " + text);
}

}  // namespace vestrel::workbench
