#include "workbench/server/WorkSession.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <utility>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "workbench/commands/OutputText.h"
#include "workbench/commands/Word.h"
#include "workbench/server/Refusals.h"

namespace vestrel::workbench {

namespace {

bool ChangesEvents(std::string_view operation) {
  constexpr std::array<std::string_view, 6> kNames{"record.Init",           "record.Record",
                                                   "record.Stop_",          "record.ClearEvents",
                                                   "record.LoadEventsFrom", "record.updateEventTime"};
  return std::find(kNames.begin(), kNames.end(), operation) != kNames.end();
}

// "= result" and "name = value", separated by "; ".
std::string OutcomeText(const Outcome& outcome) {
  std::string text;
  if (outcome.result) text = "= " + *outcome.result;
  for (const NamedText& entry : outcome.handedBack) {
    text += (text.empty() ? "" : "; ") + entry.name + " = " + entry.value;
  }
  return text;
}

// Clicks save the settings files that there are; those are listed nowhere.
bool ChangesFolders(const std::vector<std::string>& files) {
  return std::any_of(files.begin(), files.end(),
                     [](const std::string& file) { return !file.ends_with("/pageSetting.ini"); });
}

// Callbacks after which the host copies, moves or deletes items.
bool ChangesItems(std::string_view callback) {
  constexpr std::array<std::string_view, 4> kNames{"CopyButtonFiles", "CreateMarkFadeButton", "DeleteButton",
                                                   "RenameButton"};
  return std::find(kNames.begin(), kNames.end(), callback) != kNames.end();
}

CommandResult Failure(std::string text) {
  return {false, {}, std::move(text)};
}

std::string DialogText(const Dialog& dialog) {
  const char* const kinds[] = {"question", "name", "message"};
  return std::string(kinds[static_cast<std::size_t>(dialog.kind)]) + " [" + dialog.title +
         "]: " + OneLine(dialog.text);
}

std::string AnswerText(const Dialog& dialog, const DialogAnswer& answer) {
  if (dialog.kind == DialogKind::Text && answer.yes) return "\"" + OneLine(answer.text) + "\"";
  return answer.yes ? "yes" : "no";
}

// Counts a level up for as long as it lives.
class Level {
 public:
  explicit Level(std::uint32_t& depth) : depth_(depth) { ++depth_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;
  ~Level() { --depth_; }

 private:
  std::uint32_t& depth_;
};

// Another value for as long as it lives.
class Exchanged {
 public:
  Exchanged(std::uint64_t& place, std::uint64_t value)
      : place_(place), before_(std::exchange(place, value)) {}
  Exchanged(const Exchanged&) = delete;
  Exchanged& operator=(const Exchanged&) = delete;
  ~Exchanged() { place_ = before_; }

 private:
  std::uint64_t& place_;
  std::uint64_t before_;
};

// Keeps an item's files while the button that used them is overwritten by one that uses them as well: the
// host deletes them with the old button.
class KeptItem {
 public:
  KeptItem(ItemFiles& files, ButtonTypeEnum type, ItemName item)
      : files_(files), type_(type), item_(std::move(item)), aside_{item_.page, item_.name + u"~"} {
    files_.Copy(type_, item_, aside_);
  }
  KeptItem(const KeptItem&) = delete;
  KeptItem& operator=(const KeptItem&) = delete;
  ~KeptItem() {
    if (files_.Exists(type_, item_)) {
      files_.Delete(type_, aside_);
    } else {
      files_.Move(type_, aside_, item_);
    }
  }

 private:
  ItemFiles& files_;
  ButtonTypeEnum type_;
  ItemName item_;
  ItemName aside_;
};

ButtonTypeEnum TypeOf(const Word& word) {
  return static_cast<ButtonTypeEnum>(ReadMember(word, In("buttonType"), NamesOf<ButtonTypeEnum>()));
}

}  // namespace

WorkSession::WorkSession(const std::filesystem::path& dataFolder, const ClockStart& start)
    : dataFolder_(dataFolder),
      start_(start),
      progress_(platform::files()),
      files_(dataFolder.u16string(), progress_),
      override_({.files = &files_}) {
  progress_.SetTold([this](std::u16string_view path, std::uint64_t done, std::uint64_t size) {
    if (depth_ > 0 && asking_ == 0 && door_ != nullptr) door_->FileMoved(ToUtf8(path), done, size);
  });
  Begin(start);
}

void WorkSession::Begin(const ClockStart& start) {
  host_ = std::make_unique<SimulatedHost>(dataFolder_, start);
  commands_ = std::make_unique<CommandSession>(*host_, nullptr);
  host_->calls().SetListener(this);
  host_->SetDialogs(*this);
}

void WorkSession::Restart(const ClockStart& start) {
  // The old host gives the platform's services back before the new one takes them.
  commands_.reset();
  host_.reset();
  Begin(start);
  hasFocus_ = true;
  recordMode_ = RecordMode_Merge;
  recordingChanged_ = false;
  blinking_ = {};
  blinkPhase_ = false;
  ++fileChanges_;
}

bool WorkSession::IsQuiet() const {
  return depth_ == 0 && host_->stage().items().empty() && !recordingChanged_ &&
         host_->controller().EditMode() == EditMode_None && host_->transport().state() == Stopped &&
         !host_->transport().recording() && host_->record().EventList()->Size() == 0;
}

WorkSession::~WorkSession() {
  host_->calls().SetListener(nullptr);
  host_->SetDialogs(host_->answers());
}

CommandResult WorkSession::Perform(std::string_view command, std::uint64_t now) {
  host_->GoOnTo(std::max(now, host_->Now()));
  if (depth_ == 0) lastTurn_ = 0;
  for (SessionObserver* observer : observers_) observer->CallBegan(command, host_->Now(), currentTurn_);
  const Level level(depth_);
  CommandResult result = Try(command);
  const CallEnd end{result.ok, WithoutPath(result.ok ? OutcomeText(result.outcome) : result.error),
                    files_.Take()};
  if (ChangesFolders(end.files)) ++fileChanges_;
  for (SessionObserver* observer : observers_) observer->CallEnded(end);
  return result;
}

CommandResult WorkSession::Try(std::string_view command) {
  try {
    return Invoke(command);
  } catch (const Refusal& refusal) {
    return Failure("refused: " + OneLine(refusal.what()));
  } catch (const BadCommand& bad) {
    return Failure(OneLine(bad.what()));
  } catch (const Error& error) {
    return Failure(ErrorText(error));
  } catch (const std::exception& failure) {
    return Failure("failure: " + OneLine(failure.what()));
  }
}

CommandResult WorkSession::Invoke(std::string_view command) {
  const std::vector<Word> words = SplitLine(command);
  if (words.empty()) throw BadCommand("there is no command");
  const Operation& operation = operations_.Get(words.front().text);
  ExpectHarmless(words, *this);
  // Counted beforehand: a command that fails midway has changed something as well.
  if (ChangesEvents(operation.name)) ++recordingRevision_;
  std::optional<KeptItem> kept;
  if (operation.name == "setModeAssign" && words.size() > 2) {
    kept.emplace(host_->files(), TypeOf(words[2]),
                 ItemName{host_->controller().PageManager()->CurrentPageName(), FromUtf8(words[1].text)});
  }
  const auto lamps = Lamps();
  const bool assigning = host_->controller().EditMode() == EditMode_Assign;
  CommandResult result{true, operation.invoke(*commands_, std::span(words).subspan(1)), {}};
  kept.reset();
  if (assigning && (operation.name == "controlClicked" || operation.name == "autoAssignNextAvailable")) {
    // The library stays in this mode; a host that places one button at a time leaves it.
    host_->LeaveEditMode();
  }
  if (operation.name == "leds.TimerTick") NoteBlinking(lamps);
  if (!host_->blinkTimer().running()) blinking_ = {};
  Invoked(operation.name, words);
  return result;
}

// What the library leaves to the host: folders that follow their pages, and items that come to the page on
// which they are used.
void WorkSession::KeepFolders(std::string_view name, const std::vector<Word>& words) {
  const auto text = [&](std::size_t position) { return FromUtf8(words.at(position).text); };
  const Ref<clsPageManager> pages = host_->controller().PageManager();
  if (name == "RenamePage") {
    host_->folders().MovePage(pages->showName(), text(1), text(2));
  } else if (name == "DeletePage") {
    if (pages->GetPageNames()->FindObjectValue(BoxString(text(1)).get()) < 0) {
      host_->folders().PutPageAside(pages->showName(), text(1));
    }
  } else if (name == "setModeAssign") {
    FetchItem(text(1), TypeOf(words.at(2)));
  } else if (name == "assignButton") {
    FetchItem(text(3), TypeOf(words.at(4)));
  } else if (!name.starts_with("host.") || !name.ends_with("Show")) {
    return;
  }
  ++fileChanges_;
}

void WorkSession::FetchItem(std::u16string_view name, ButtonTypeEnum type) {
  const Ref<clsPageManager> pages = host_->controller().PageManager();
  const ItemName wanted{pages->CurrentPageName(), std::u16string(name)};
  if (host_->files().Exists(type, wanted)) return;
  const Ref<clsObjectList> list = pages->PageList();
  for (std::int32_t i = 0; i < list->Size(); ++i) {
    const ItemName other{Cast<clsPage>(list->GetItem(i).get()).pageName(), wanted.name};
    if (host_->files().Exists(type, other)) return host_->files().Copy(type, other, wanted);
  }
}

void WorkSession::Invoked(std::string_view name, const std::vector<Word>& words) {
  KeepFolders(name, words);
  if (name == "record.SetRecordMode") {
    recordMode_ = static_cast<RecordModeEnum>(ReadMember(words.at(1), In("mode"), NamesOf<RecordModeEnum>()));
  } else if (name == "formLostFocus" || name == "formGotFocus") {
    hasFocus_ = name == "formGotFocus";
  } else if (name == "record.Init") {
    recordMode_ = RecordMode_Merge;
    recordingChanged_ = false;
  } else if (name == "record.SaveEventsTo" || name == "record.LoadEventsFrom") {
    recordingChanged_ = false;
  } else if (name == "record.updateEventTime" || name == "record.ClearEvents") {
    recordingChanged_ = true;
  }
}

std::array<std::uint16_t, ControlSurface::kRows> WorkSession::Lamps() const {
  std::array<std::uint16_t, ControlSurface::kRows> lamps{};
  for (std::size_t row = 0; row < lamps.size(); ++row) lamps.at(row) = host_->surface().LitLamps(row);
  return lamps;
}

void WorkSession::NoteBlinking(const std::array<std::uint16_t, ControlSurface::kRows>& before) {
  const auto after = Lamps();
  for (std::size_t row = 0; row < after.size(); ++row) {
    blinking_.at(row) = static_cast<std::uint16_t>(before.at(row) ^ after.at(row));
  }
  blinkPhase_ = !blinkPhase_;
}

std::string WorkSession::WithoutPath(std::string text) const {
  return WithoutFolder(std::move(text), ToUtf8(host_->appPath()));
}

DialogAnswer WorkSession::Ask(const Dialog& dialog) {
  const std::string text = WithoutPath(DialogText(dialog));
  for (SessionObserver* observer : observers_) observer->DialogOpened(text);
  const Level level(asking_);
  const Exchanged turn(currentTurn_, 0);
  const DialogAnswer answer = door_->Ask(dialog);
  const std::string answered = AnswerText(dialog, answer);
  for (SessionObserver* observer : observers_) observer->DialogClosed(answer, answered);
  return answer;
}

void WorkSession::CallbackMade(const HostCall& call) {
  if (call.name == "NewEventRecorded") recordingChanged_ = true;
  if (ChangesItems(call.name)) ++fileChanges_;
  const std::string text = WithoutPath(CallText(call));
  for (SessionObserver* observer : observers_) observer->CallbackMade(text);
}

void WorkSession::HostActed(const HostCall& call) {
  const std::string text = WithoutPath(CallText(call));
  for (SessionObserver* observer : observers_) observer->HostActed(text);
}

bool WorkSession::ConfirmOverwrite(std::u16string_view promptText) {
  return Ask({DialogKind::YesNo, "Overwrite", ToUtf8(promptText), {}}).yes;
}

bool WorkSession::ConfirmDelete(const clsButton& button) {
  const std::string name = ToUtf8(button.name);
  return Ask({DialogKind::YesNo, "Delete", "Delete the files of \"" + name + "\" as well?", {}}).yes;
}

std::u16string WorkSession::AskName(const clsButton& button) {
  const std::string name = ToUtf8(button.name);
  const DialogAnswer answer = Ask({DialogKind::Text, "Rename", "The new name of \"" + name + "\"", name});
  if (!answer.yes || answer.text.empty()) return {};
  const std::u16string newName = FromUtf8(answer.text);
  ExpectFreeButtonName(newName, *this);
  return newName;
}

void WorkSession::ShowMessage(std::u16string_view text, std::u16string_view caption) {
  Ask({DialogKind::Message, ToUtf8(caption), ToUtf8(text), {}});
}

void WorkSession::PumpMessages() {
  if (door_ == nullptr) return;
  const Exchanged turn(currentTurn_, ++lastTurn_);
  door_->Turn(currentTurn_);
}

}  // namespace vestrel::workbench
