#include "workbench/server/Replay.h"

namespace vestrel::workbench {

using nlohmann::json;

Replay::Replay(JournalReader& journal, WorkSession& session) : journal_(journal), session_(session) {
  session_.SetDoor(this);
  session_.AddObserver(this);
}

Replay::~Replay() {
  session_.SetDoor(nullptr);
  session_.RemoveObserver(this);
}

ReplayReport Replay::Run() {
  while (!AtEnd() && !journal_.Peek()->contains("full")) {
    if (journal_.Peek()->contains("call")) {
      PerformNext();
    } else {
      Happened({{"call", "..."}});
    }
  }
  return report_;
}

void Replay::PerformNext() {
  const json call = *journal_.Peek();
  journal_.Take();
  session_.Perform(call.value("call", ""), call.value("ms", std::uint64_t{0}));
}

void Replay::PerformNested(std::uint64_t turn, bool anyTurn) {
  while (!AtEnd() && journal_.Peek()->contains("call") &&
         (anyTurn || journal_.Peek()->value("turn", std::uint64_t{0}) == turn)) {
    PerformNext();
  }
}

void Replay::Happened(const json& happened) {
  if (AtEnd()) return;
  if (*journal_.Peek() != happened) {
    const auto text = [](const json& line) {
      return line.dump(-1, ' ', false, json::error_handler_t::replace);
    };
    report_.same = false;
    report_.line = journal_.lineNumber();
    report_.expected = text(*journal_.Peek());
    report_.happened = text(happened);
    return;
  }
  journal_.Take();
}

// Its line has been taken.
void Replay::CallBegan(std::string_view /*command*/, std::uint64_t /*now*/, std::uint64_t /*turn*/) {
  ++report_.calls;
}

void Replay::CallbackMade(const std::string& text) {
  ++report_.callbacks;
  JournalLines::CallbackMade(text);
}

DialogAnswer Replay::Ask(const Dialog& /*dialog*/) {
  PerformNested(0, true);
  if (AtEnd()) return {};
  // DialogClosed compares it with itself, or finds that there is none.
  const json& line = *journal_.Peek();
  return {line.value("answer", false), line.value("text", "")};
}

void Replay::Turn(std::uint64_t turn) {
  PerformNested(turn, false);
}

}  // namespace vestrel::workbench
