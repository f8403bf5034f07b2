// What the operator does beside the library's operations: moves faders, answers dialogs, waits.
#include <limits>

#include "core/Convert.h"
#include "workbench/commands/FileWatch.h"
#include "workbench/commands/OperationTable.h"
#include "workbench/commands/ReadWord.h"

namespace vestrel::workbench {

namespace {

constexpr std::int32_t kLongestWait = 24 * 60 * 60 * 1000;

// A command's own check of a number, with the same message as for one that does not fit its type.
void ExpectBetween(std::string_view name, std::int32_t value, std::int32_t least, std::int32_t most) {
  ReadWhole({std::to_string(value), false}, In(name), least, most);
}

void PassTime(CommandSession& session, std::int32_t milliseconds) {
  ExpectBetween("milliseconds", milliseconds, 0, kLongestWait);
  session.host().Advance(static_cast<std::uint64_t>(milliseconds));
}

void MoveGroupFader(CommandSession& session, std::int32_t index, std::int32_t value) {
  ExpectBetween("index", index, 1, 8);
  session.host().MoveGroupFader(index, value);
}

void MoveBumpFader(CommandSession& session, std::int32_t index, std::int32_t value, bool updateUI) {
  ExpectBetween("index", index, 1, 8);
  session.host().MoveBumpFader(index, value, updateUI);
}

// The fader stands elsewhere and the library is not told, as when a host starts with faders that were left
// so.
void PlaceFader(CommandSession& session, std::u16string_view which, std::int32_t index, std::int32_t value) {
  ExpectBetween("index", index, 1, 8);
  ExpectBetween("value", value, 0, 100);
  TUIFaderValues& hands = session.host().surface().positions();
  if (which != u"group" && which != u"bump") {
    RejectWord(In("which"), "\"" + ToUtf8(which) + "\" is neither group nor bump");
  }
  (which == u"group" ? hands.GroupFaders : hands.BumpFaders)[index] = value;
}

void Answer(CommandSession& session, std::u16string_view dialog, std::u16string_view answer) {
  Answers& answers = session.host().answers();
  const Word word{ToUtf8(answer), true};
  if (dialog == u"PromptButtonOverwrite") {
    answers.promptButtonOverwrite = ReadTruth(word, In("answer"));
  } else if (dialog == u"RenameButton") {
    answers.renameButton = answer;
  } else if (dialog == u"DeleteButton") {
    answers.deleteButton = ReadTruth(word, In("answer"));
  } else {
    RejectWord(In("dialog"),
               "\"" + ToUtf8(dialog) + "\" is none of PromptButtonOverwrite, RenameButton, DeleteButton");
  }
}

// The show that is set up goes on under its new name.
void RenameShow(CommandSession& session, std::u16string_view oldName, std::u16string_view newName) {
  SimulatedHost& host = session.host();
  const Ref<clsPageManager> pages = host.controller().PageManager();
  if (pages->showName() != oldName) return host.folders().RenameShow(oldName, newName);
  const std::u16string page = pages->CurrentPageName();
  const bool onPage = pages->PageIsValid();
  pages->saveToINI();
  host.folders().RenameShow(oldName, newName);
  host.LoadShow(newName);
  if (onPage) host.controller().SetPage(page);
  host.LayOut();
}

// In place of the show that is set up another one is loaded first.
void DeleteShow(CommandSession& session, std::u16string_view showName) {
  SimulatedHost& host = session.host();
  if (host.controller().PageManager()->showName() == showName) {
    const std::u16string other = host.folders().FirstShowBut(showName);
    if (other.empty()) RejectWord(In("showName"), "this is the only show");
    host.LoadShow(other);
    host.LayOut();
  }
  host.folders().PutShowAside(showName);
}

void SetPolicy(CommandSession& session, std::u16string_view policy, bool state) {
  if (policy != u"releaseOnPlay") {
    RejectWord(In("policy"), "\"" + ToUtf8(policy) + "\" is not releaseOnPlay");
  }
  session.host().SetReleaseOnPlay(state);
}

void SetInterval(CommandSession& session, std::u16string_view timer, std::int32_t milliseconds) {
  ExpectBetween("milliseconds", milliseconds, 1, kLongestWait);
  if (timer != u"blink" && timer != u"transport") {
    RejectWord(In("timer"), "\"" + ToUtf8(timer) + "\" is neither blink nor transport");
  }
  SimulatedHost& host = session.host();
  HostTimer& chosen = timer == u"blink" ? host.blinkTimer() : host.transportTimer();
  chosen.SetInterval(static_cast<std::uint64_t>(milliseconds));
}

Outcome ListFiles(CommandSession& session) {
  if (session.watch() == nullptr) throw BadCommand("the files are not watched here");
  Outcome outcome;
  for (const FileChange& change : session.watch()->TakeChanges()) {
    outcome.handedBack.push_back({change.path, std::string(FileChangeText(change.kind))});
  }
  return outcome;
}

}  // namespace

std::vector<Operation> HostOperations() {
  return {
      Function<&PassTime>("wait", {In("milliseconds")}),
      Function<&MoveGroupFader>("host.group", {In("index"), In("value")}),
      Function<&MoveBumpFader>("host.bump", {In("index"), In("value"), Optional("updateUI", "true")}),
      Function<&PlaceFader>("host.place", {In("which"), In("index"), In("value")}),
      Function<&Answer>("host.answer", {In("dialog"), In("answer")}),
      Function<&RenameShow>("host.renameShow", {In("oldName"), In("newName")}),
      Function<&DeleteShow>("host.deleteShow", {In("showName")}),
      Function<&SetPolicy>("host.policy", {In("policy"), In("state")}),
      Function<&SetInterval>("host.interval", {In("timer"), In("milliseconds")}),
      Function<&ListFiles>("host.files"),
  };
}

}  // namespace vestrel::workbench
