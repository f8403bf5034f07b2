#include "tests/faults/Evening.h"

#include "core/Convert.h"
#include "platform/Platform.h"
#include "tests/support/MemoryFiles.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

constexpr std::u16string_view kShow = u"Sequences\\Gala\\pageSetting.ini";
constexpr std::u16string_view kFirst = u"Sequences\\Gala\\Act 1\\pageSetting.ini";
constexpr std::u16string_view kSecond = u"Sequences\\Gala\\Act 2\\pageSetting.ini";
constexpr std::u16string_view kGuest = u"Sequences\\Gala\\Guest\\pageSetting.ini";
constexpr std::u16string_view kMulti = u"Sequences\\Gala\\Act 1\\Calm.MUL";
constexpr std::u16string_view kStatus = u"Sequences\\shortcutsStatus.ini";
constexpr std::u16string_view kTake = u"take.txt";
constexpr std::u16string_view kSettings = u"settings.ini";
constexpr std::u16string_view kLog = u"log.txt";

constexpr int kKinds = 8;

std::string Page(const std::string& name) {
  std::string text;
  for (int g = 0; g <= 9; ++g) {
    text += "[ButtonGroup" + std::to_string(g) + "]\r\npageOffset=0\r\n";
    if (g > 0 && g < 9) text += "faderValue=0\r\n";
    text += "usedIndices=1|2|3\r\n";
    for (int b = 1; b <= 3; ++b) {
      text += "Button" + std::to_string(b) + "_fields=" + name + " " + std::to_string(g) + std::to_string(b) +
              "|1|0|0|0|0|False\r\n";
    }
  }
  return text;
}

}  // namespace

const std::map<std::u16string, std::string>& Evening::FirstFiles() {
  static const std::map<std::u16string, std::string> kFiles{
      {std::u16string(kShow), "[PageManager]\r\nPageList=Act 1|Act 2\r\n"},
      {std::u16string(kFirst), Page("First")},
      {std::u16string(kSecond), Page("Second")},
      {std::u16string(kMulti), "1,1\r\n0\r\n"},
      {std::u16string(kTake), "0\r\n"},
      {std::u16string(kSettings), "[Screen]\r\nwidth=1\r\n"},
  };
  return kFiles;
}

std::vector<std::u16string> Evening::Promised(int step) {
  const auto list = [](auto... names) { return std::vector<std::u16string>{std::u16string(names)...}; };
  switch (step % kKinds) {
    case 2:
      return list(kFirst);
    case 3: {
      // The guest page belongs to the show in every other round.
      const bool withGuest = step / kKinds % 2 == 1;
      return withGuest ? list(kShow, kFirst, kSecond, kGuest) : list(kShow, kFirst, kSecond);
    }
    case 4:
      return list(kShow);
    case 5:
      return list(kTake);
    case 6:
      return list(kMulti);
    default:
      return {};
  }
}

Evening::Evening(std::u16string app, FakeClock& clock) : app_(std::move(app)), clock_(clock) {}

void Evening::Begin() {
  modLog::Init(app_ + u"\\log.txt");
  host_.Join(app_);
  settings_->UseFile(app_ + u"\\settings.ini");
  settings_->UseSection(u"Screen");
}

void Evening::Load() {
  host_.controller->LoadShow(u"Gala");
}

void Evening::Step(int step) {
  host_.transcript.Take();
  const Ref<clsPageManager> manager = host_.controller->PageManager();
  switch (step % kKinds) {
    case 0:
      return ToggleAButton(step);
    case 1:
      return MoveAFader(step);
    case 2: {
      const Ref<clsPage> page = manager->CurrentPage();
      page->ButtonGroups(3)->pageOffset = step % 10;
      page->ButtonGroups(3)->Fader()->SetValue(step % 101, true);
      return page->saveButtonGroupToINI(3);
    }
    case 3:
      manager->CurrentPage()->ButtonGroups(5)->pageOffset = step / kKinds % 10;
      return manager->saveToINI();
    case 4:
      if (step / kKinds % 2 == 0) return host_.controller->AddPage(u"Guest");
      return host_.controller->DeletePage(u"Guest");
    case 5:
      return SaveTheRecording(step);
    case 6:
      return SaveTheMulti(step);
    default:
      return settings_->WriteLong(u"width", step * step);
  }
}

void Evening::ToggleAButton(int step) {
  host_.controller->ToggleButtonAt(1 + step / kKinds % 8, 1 + step / kKinds % 3);
}

void Evening::MoveAFader(int step) {
  const Ref<clsButton> bump = host_.controller->buttonWithIndex(9, 1);
  // A page that could not be read has none.
  if (!bump) return;
  bump->SetFaderValue(step % 101, true);
  host_.controller->PageManager()->CurrentPage()->saveSingleButton(bump.get());
}

void Evening::SaveTheRecording(int step) {
  host_.record->Record();
  clock_.ticks += 1000;
  host_.record->TimerTick();
  host_.controller->ToggleButtonAt(4, 1 + step % 3);
  host_.record->Stop_();
  host_.record->SaveEventsTo(app_ + u"\\take.txt");
}

void Evening::SaveTheMulti(int step) {
  const auto multi = MakeRef<clsMultiFile>();
  multi->Init(app_, u"Gala", u"Act 1", u"Calm");
  for (int i = 0; i <= step / kKinds % 4; ++i) {
    const auto sequence = MakeRef<clsSequence>();
    sequence->theName = u"Part " + LongToText(i);
    sequence->myPage = u"Act " + LongToText(step);
    sequence->theTime = static_cast<float>(step);
    multi->AddSequence(sequence.get());
  }
  multi->Save();
}

const EveningRecord& EveningRecord::Get() {
  static const EveningRecord record(Evening::kSteps);
  return record;
}

EveningRecord::EveningRecord(int steps) {
  const std::u16string app = u"C:\\app";
  MemoryFiles memory;
  SeamFiles seam(memory);
  FakeClock clock;
  FakeHostServices services;
  services.moduleFolder = app;
  const platform::Override override({&clock, &seam, nullptr, &services});
  int step = -1;
  const auto noteAll = [&] {
    for (const std::u16string& path : memory.Paths()) {
      if (!path.ends_with(u'~')) Note(path.substr(app.size() + 1), memory.Get(path), step);
    }
  };
  for (const auto& [name, bytes] : Evening::FirstFiles()) memory.Put(app + u"\\" + name, bytes);
  for (const std::u16string_view made : {kGuest, kStatus, kLog}) Note(std::u16string(made), "<none>", -1);
  noteAll();
  seam.after = [&](const FileCall& call) {
    if (call.name == "WriteAt" || call.name == "Replace") noteAll();
  };
  seam.before = [&](FileCall&) {
    ++calls_;
    return platform::FileStatus::Ok;
  };
  step = 0;
  Evening evening(app, clock);
  evening.Begin();
  evening.Load();
  for (; step < steps; ++step) evening.Step(step);
}

void EveningRecord::Note(const std::u16string& name, const std::string& bytes, int step) {
  std::vector<Version>& versions = versions_[name];
  if (versions.empty() || versions.back().bytes != bytes) versions.push_back({bytes, step});
}

std::vector<std::u16string> EveningRecord::Names() const {
  std::vector<std::u16string> names;
  for (const auto& [name, versions] : versions_) names.push_back(name);
  return names;
}

std::string EveningRecord::Fault(const std::u16string& name, const std::string& bytes, int step) const {
  const std::vector<Version>& versions = versions_.at(name);
  std::size_t first = 0;
  std::size_t end = 0;
  for (; end < versions.size() && versions[end].step <= step; ++end) {
    if (versions[end].step < step) first = end;
  }
  for (std::size_t i = first; i < end; ++i) {
    if (versions[i].bytes == bytes) return {};
  }
  for (const Version& version : versions) {
    if (version.bytes != bytes) continue;
    return ToUtf8(name) + " is that of step " + std::to_string(version.step) + " in step " +
           std::to_string(step);
  }
  return ToUtf8(name) + " holds " + std::to_string(bytes.size()) + " bytes that it never had";
}

}  // namespace vestrel::test
