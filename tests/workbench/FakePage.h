// A page that is no browser.
#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "workbench/server/PageClient.h"

namespace vestrel::workbench {

// Keeps the frames that it is sent, and the state as a page would.
class FakePage : public PageClient {
 public:
  void Send(Frame frame) override { Take(nlohmann::json::parse(*frame)); }
  void GoAway() override { sentAway = true; }

  // The last frame of that type with that id, or null.
  nlohmann::json Answer(const std::string& type, int id) const {
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
      if (frame->value("t", "") == type && frame->value("id", nlohmann::json()) == id) return *frame;
    }
    return nullptr;
  }
  nlohmann::json Done(int id) const { return Answer("done", id); }
  std::size_t Count(const std::string& type) const {
    std::size_t count = 0;
    for (const auto& frame : frames) count += frame.value("t", "") == type ? 1U : 0U;
    return count;
  }
  // All log texts so far, a line each.
  std::string LogText() const {
    std::string text;
    for (const auto& frame : frames) {
      for (const auto& entry :
           frame.value(frame.value("t", "") == "hello" ? "log" : "entries", nlohmann::json::array())) {
        text += entry.value("text", "") + "\n";
      }
    }
    return text;
  }

  std::vector<nlohmann::json> frames;
  nlohmann::json state;
  std::uint64_t sequence = 0;
  bool inOrder = true;
  bool sentAway = false;

 private:
  void Take(nlohmann::json frame) {
    const std::string type = frame.value("t", "");
    if (type == "hello") {
      state = frame["state"];
      sequence = frame["seq"];
    } else if (type == "patch") {
      inOrder = inOrder && frame["seq"] == sequence + 1;
      sequence = frame["seq"];
      for (const auto& [key, value] : frame["set"].items()) state[key] = value;
    }
    frames.push_back(std::move(frame));
  }
};

}  // namespace vestrel::workbench
