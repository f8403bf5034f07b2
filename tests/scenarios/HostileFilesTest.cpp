// Files that were damaged by chance, up to a mebibyte long, are loaded and worked with: nothing but the
// library's errors comes, and no file stays open. And what shows made by chance save, they save again after
// they were loaded.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

#include "core/Convert.h"
#include "storage/clsMultiFile.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/Scale.h"
#include "tests/support/SimulatedHost.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

constexpr std::size_t kLongest = 1 << 20;

const std::u16string kApp = u"C:\\app";
const std::u16string kTake = kApp + u"\\take.txt";
const std::u16string kFolder = kApp + u"\\Sequences\\Gala\\";

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }
  std::int32_t Number(std::int32_t first, std::int32_t last) {
    return std::uniform_int_distribution<std::int32_t>(first, last)(random_);
  }
  bool Perhaps() { return Below(2) == 0; }
  // Mostly short, up to `most`.
  std::size_t Length(std::size_t most) { return Below((most >> Below(20)) + 1); }

 private:
  std::mt19937 random_;
};

// One change of the kind that disks, editors and other programs make.
void Damage(std::string& bytes, Chance& chance) {
  static constexpr std::string_view kOdd = "[]=|;\"'\r\n,\t -+.eE0129\x1A\x80\xC3\xFF";
  const std::size_t at = chance.Below(bytes.size() + 1);
  const std::size_t length = std::min(bytes.size() - at, chance.Length(kLongest));
  switch (chance.Below(6)) {
    case 0:
      bytes.erase(at, length);
      return;
    case 1:
      bytes.resize(at);
      return;
    case 2:
      bytes.insert(at, 1 + chance.Length(100), kOdd[chance.Below(kOdd.size())]);
      return;
    case 3:
      if (at < bytes.size()) bytes[at] = static_cast<char>(chance.Below(256));
      return;
    case 4:
      bytes.insert(at, std::string(bytes, chance.Below(bytes.size() + 1), length));
      return;
    default:
      // A stretch over and over.
      for (const std::string piece = bytes.substr(at, 1 + length % 200);
           bytes.size() < chance.Length(kLongest);) {
        bytes.insert(at, piece);
      }
  }
}

std::string Damaged(std::string bytes, Chance& chance) {
  for (std::size_t times = 1 + chance.Below(8); times > 0; --times) Damage(bytes, chance);
  bytes.resize(std::min(bytes.size(), kLongest));
  return bytes;
}

class HostileFilesTest : public testing::Test, protected SimulatedHost {
 protected:
  HostileFilesTest() {
    memory_.PutFolder(kApp);
    modLog::Init(kApp + u"\\log.txt");
    modLog::SetLogLevel(LogLevel_1_SEVERE);
    SetUpHost();
  }

  void SetUpHost() {
    Join(kApp);
    transcript.Take();
  }

  static Ref<clsMultiFile> Multi() {
    auto multi = MakeRef<clsMultiFile>();
    multi->Init(kApp, u"Gala", u"One", u"Calm");
    return multi;
  }

  // Every value of every kind by chance.
  void MakeAShow() {
    controller->CreateNewShow(u"Gala");
    for (const std::u16string_view page : {u"One", u"Two"}) {
      controller->AddPage(page);
      controller->SetPage(page);
      for (std::size_t count = chance_.Below(40); count > 0; --count) MakeAButton();
    }
    controller->PageManager()->saveToINI();
    SaveATake();
    SaveAMulti();
  }

  // No name has a double quote, which takes cannot be read back with.
  void MakeAButton() {
    static constexpr std::array<std::u16string_view, 5> kNames = {u"Intro", u"a b ", u" 'quoted'",
                                                                  u"\u00E9t\u00E9", u"=;[x]"};
    const std::int32_t group = chance_.Number(0, 9);
    const std::int32_t index = chance_.Number(1, group == 9 ? 8 : 60);
    const auto type = static_cast<ButtonTypeEnum>(chance_.Number(1, 4));
    RaisedNumber([&] { controller->assignButton(group, index, kNames[chance_.Below(kNames.size())], type); });
    const Ref<clsButton> button = controller->buttonWithIndex(group, index);
    if (!button) return;
    button->SetLocked(chance_.Perhaps());
    button->SetFaderValue(chance_.Number(0, 100), true);
    if (chance_.Perhaps()) controller->groupFaderChanged(chance_.Number(1, 8), chance_.Number(0, 100));
  }

  void SaveATake() {
    record->Record();
    for (std::size_t count = chance_.Below(20); count > 0; --count) {
      clock_.ticks += static_cast<std::uint32_t>(chance_.Below(1000));
      record->TimerTick();
      controller->controlClicked(chance_.Number(1, 64), 1, 0, 0, 0);
    }
    record->Stop_();
    record->SaveEventsTo(kTake);
  }

  void SaveAMulti() {
    const Ref<clsMultiFile> multi = Multi();
    for (std::size_t count = chance_.Below(4); count > 0; --count) {
      const auto sequence = MakeRef<clsSequence>();
      sequence->theName = u"Part, \u00E9 " + LongToText(chance_.Number(0, 9));
      sequence->theTime = static_cast<float>(chance_.Number(-1000, 1000)) / 8;
      multi->AddSequence(sequence.get());
    }
    multi->Save();
  }

  // Loads everything and works with what came of it; the library may refuse any of it.
  void LoadAndWork() {
    RaisedNumber([&] { controller->LoadShow(u"Gala"); });
    RaisedNumber([&] { record->LoadEventsFrom(kTake, controller->GetButtonMap().get()); });
    RaisedNumber([&] { Multi()->Load(); });
    for (int i = 0; i < 4; ++i) {
      RaisedNumber([&] { controller->controlClicked(chance_.Number(1, 64), 1, 0, 0, 0); });
    }
    RaisedNumber([&] { controller->SetPage(u"Two"); });
    RaisedNumber([&] { record->Play(); });
    RaisedNumber([&] { record->Stop_(); });
    RaisedNumber([&] { controller->PageManager()->saveToINI(); });
  }

  // Everything that is saved, the log aside, as it is saved once it was loaded.
  std::string LoadedAndSaved() {
    SetUpHost();
    controller->LoadShow(u"Gala");
    controller->PageManager()->saveToINI();
    record->LoadEventsFrom(kTake, controller->GetButtonMap().get());
    record->SaveEventsTo(kTake);
    const Ref<clsMultiFile> multi = Multi();
    multi->Load();
    multi->Save();
    std::string all;
    for (const std::u16string& path : memory_.Paths()) {
      if (!path.ends_with(u"log.txt")) all += ToUtf8(path) + "\n" + memory_.Get(path);
    }
    return all;
  }

  Chance chance_{11};
  FakeClock clock_;
  MemoryFiles memory_;
  FakeHostServices services_;

 private:
  platform::Override override_{{&clock_, &memory_, nullptr, &services_}};
};

TEST_F(HostileFilesTest, DamagedFilesAreRefusedOrWorkedWith) {
  const std::array<std::u16string, 5> files = {
      kFolder + u"pageSetting.ini", kFolder + u"One\\pageSetting.ini", kFolder + u"Two\\pageSetting.ini",
      kFolder + u"One\\Calm.MUL", kTake};
  const int rounds = RunsLong() ? 100'000 : 200;
  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    if (round % 50 == 0) {
      SetUpHost();
      MakeAShow();
    }
    const std::u16string& file = files[chance_.Below(files.size())];
    const std::string whole = memory_.Get(file);
    memory_.Put(file, Damaged(whole, chance_));
    SetUpHost();
    LoadAndWork();
    EXPECT_EQ(memory_.OpenFiles(), 0) << "round " << round;
    memory_.Put(file, whole);
    transcript.Take();
  }
}

TEST_F(HostileFilesTest, ShowsMadeByChanceSaveTheSameBytesOnceLoaded) {
  const int rounds = RunsLong() ? 10'000 : 50;
  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    SetUpHost();
    MakeAShow();
    const std::string first = LoadedAndSaved();
    EXPECT_EQ(LoadedAndSaved(), first) << "round " << round;
    transcript.Take();
  }
}

}  // namespace
}  // namespace vestrel::test
