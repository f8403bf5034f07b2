// A month of operating on a simulated clock that passes the tick count's wrap, on real files: shows are
// loaded, pages turned, buttons and faders used, takes recorded, played, saved and loaded. What it takes of
// memory and of open files stays the same from day to day. The one thing that grows is the list of deferred
// states: a load adds an entry for each button it reads, which holds that button and its page, and nothing
// takes entries out before the controller is set up anew. So the simulated host sets its controller up every
// morning.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/Convert.h"
#include "platform/Platform.h"
#include "tests/faults/Faults.h"
#include "tests/support/Allocations.h"
#include "tests/support/FakeServices.h"
#include "tests/support/SimulatedHost.h"
#include "tests/support/TempFolder.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSecond = 1000;
constexpr std::uint32_t kHour = 3600 * kSecond;
constexpr std::uint32_t kTick = 40;
// From one take to the next: the take, its playback, and a minute for each operation.
constexpr std::uint32_t kTurn = kHour + 15 * kSecond;

std::ptrdiff_t OpenDescriptors() {
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

class SoakTest : public testing::Test, protected SimulatedHost {
 protected:
  SoakTest() {
    hostServices.moduleFolder = folder.Path();
    modLog::Init(folder.Path("log.txt"));
    modLog::SetLogLevel(LogLevel_1_SEVERE);
    Join(folder.Path());
    controller->CreateNewShow(u"Month");
    for (const std::u16string_view page : {u"One", u"Two", u"Three"}) {
      controller->AddPage(page);
      controller->SetPage(page);
      Fill();
    }
  }

  void Fill() {
    for (std::int32_t group = 0; group <= 9; ++group) {
      for (std::int32_t slot = 1; slot <= 3; ++slot) {
        const std::u16string name = u"b" + LongToText(group) + u"." + LongToText(slot);
        controller->assignButton(group, slot, name, ButtonType_Sequence);
      }
    }
  }

  int Any(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random); }

  void Advance(std::uint32_t milliseconds) {
    clock.ticks += milliseconds;
    transcript.Take();
  }

  // Playing or recording, with the host's timer running; answers the time that the last tick was told.
  int RunTransport(std::uint32_t milliseconds) {
    const std::uint32_t begin = clock.ticks;
    std::string last;
    for (std::uint32_t passed = 0; passed < milliseconds; passed += kTick) {
      Advance(kTick);
      if (passed % kSecond == 0) controller->ToggleButtonAt(Any(1, 8), Any(1, 3));
      record->TimerTick();
      last = transcript.Take("UpdateTimecodeDisplay").back();
    }
    takesOverTheWrap += clock.ticks < begin ? 1 : 0;
    return std::stoi(last.substr(last.find('(') + 1));
  }

  void OneTake() {
    record->Record();
    EXPECT_EQ(RunTransport(10 * kSecond), 10'000);
    record->Stop_();
    record->SaveEventsTo(folder.Path("take.txt"));
    EXPECT_GT(record->EventList()->Size(), 0);
    record->Play();
    EXPECT_EQ(RunTransport(5 * kSecond), 5'000);
    record->Stop_();
    const Ref<clsDictionary> map = controller->GetButtonMap();
    record->LoadEventsFrom(folder.Path("take.txt"), map.get());
    record->ClearEvents();
  }

  void OneOperation() {
    switch (Any(0, 8)) {
      case 0:
        return controller->controlClicked(static_cast<std::int32_t>(Any(1, 64)), 1, 0, 0, 0);
      case 1:
        return controller->groupFaderChanged(Any(1, 8), Any(0, 100));
      case 2:
        return controller->BumpFaderChanged(Any(1, 8), Any(0, 100), true);
      case 3:
        controller->controlPressed(Any(65, 68));
        return controller->controlReleased(Any(65, 68));
      case 4:
        return controller->highlightButton(Any(1, 8), Highlight_Next);
      case 5:
        return controller->buttonGroupGo(Any(1, 8));
      case 6:
        controller->changeButtonGroupPageOffset(Any(1, 8), Perhaps() ? PageDir_Next : PageDir_Prev);
        return;
      case 7:
        return controller->SetPage(Perhaps() ? u"One" : u"Two");
      default:
        return controller->mLEDManager->TimerTick();
    }
  }
  bool Perhaps() { return Any(0, 1) == 1; }

  // Twenty-four hours: a minute between operations, a take every hour, a save of the show at night.
  void OneDay() {
    Join(folder.Path());
    controller->LoadShow(u"Month");
    for (int hour = 0; hour < 24; ++hour) {
      const std::uint32_t begin = clock.ticks;
      OneTake();
      while (clock.ticks - begin < kTurn) {
        OneOperation();
        Advance(60 * kSecond);
      }
    }
    controller->formShutdown();
    modLog::Log(u"day over");
  }

  TempFolder folder{FolderInMemory()};
  FakeClock clock;
  int takesOverTheWrap = 0;
  FakeHostServices hostServices;
  std::mt19937 random{2026};

 private:
  platform::Override override_{{&clock, nullptr, nullptr, &hostServices}};
};

TEST_F(SoakTest, DaysOfOperatingTakeNoMoreOfMemoryAndFiles) {
  const int days = RunsLong() ? 30 : 2;
  // The wrap comes in the middle of a take of the day in the middle.
  clock.ticks = 0U - (static_cast<std::uint32_t>(days) * 12 * kTurn + 5 * kSecond);
  OneDay();
  Join(folder.Path());
  transcript.Take();
  const std::ptrdiff_t descriptors = OpenDescriptors();
  const long objects = Object::LiveCount();
  const long blocks = Allocations::Live();
  const long bytes = Allocations::LiveBytes();
  for (int day = 2; day <= days && !HasFailure(); ++day) {
    OneDay();
    Join(folder.Path());
    transcript.Take();
    EXPECT_EQ(OpenDescriptors(), descriptors) << "day " << day;
    EXPECT_EQ(Object::LiveCount(), objects) << "day " << day;
    EXPECT_EQ(Allocations::Live(), blocks) << "day " << day;
    EXPECT_LT(Allocations::LiveBytes(), bytes + 1024) << "day " << day;
  }
  EXPECT_EQ(takesOverTheWrap, 1);
}

TEST_F(SoakTest, EventsThatAreDroppedLeaveTheirMemoryToTheNext) {
  const auto makeAndDrop = [] {
    std::vector<Ref<vxEvent>> events(10'000);
    for (Ref<vxEvent>& event : events) event = MakeRef<vxEvent>();
  };
  makeAndDrop();
  const long before = Allocations::LiveBytes();
  for (int i = 0; i < 3; ++i) makeAndDrop();
  EXPECT_EQ(Allocations::LiveBytes(), before);
}

TEST_F(SoakTest, ShowsThatAreLoadedAndLetGoLeaveNothing) {
  const int cycles = RunsLong() ? 10'000 : 20;
  const auto cycle = [this] {
    const auto recorder = MakeRef<clsRecordController>();
    recorder->Init(transport.get());
    const auto host = MakeRef<clsButtonGroupController>();
    host->Init(form.get(), folder.Path(), lamps.get(), recorder.get());
    host->LoadShow(u"Month");
    host->formShutdown();
    transcript.Take();
  };
  cycle();
  const std::ptrdiff_t descriptors = OpenDescriptors();
  const long objects = Object::LiveCount();
  const long blocks = Allocations::Live();
  for (int i = 0; i < cycles; ++i) cycle();
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_EQ(Object::LiveCount(), objects);
  EXPECT_EQ(Allocations::Live(), blocks);
}

// The growth by rule: each load adds what the one before added, and the next set-up lets all of it go.
TEST_F(SoakTest, LoadsAddToTheDeferredListUntilTheNextSetUp) {
  Join(folder.Path());
  const long before = Object::LiveCount();
  controller->LoadShow(u"Month");
  const long once = Object::LiveCount();
  controller->LoadShow(u"Month");
  const long twice = Object::LiveCount();
  controller->LoadShow(u"Month");
  EXPECT_GT(twice, once);
  EXPECT_EQ(Object::LiveCount() - twice, twice - once);
  Join(folder.Path());
  EXPECT_EQ(Object::LiveCount(), before);
}

}  // namespace
}  // namespace vestrel::test
