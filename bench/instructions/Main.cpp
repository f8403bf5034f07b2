// Walks each hot path once for valgrind's callgrind, which counts its instructions; bench/instructions/count
// runs it. What a path needs is made, and the path walked, before anything is counted.
#include <valgrind/callgrind.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "bench/support/ButtonPages.h"
#include "bench/support/LibraryPath.h"
#include "component/ByName.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsDictionary.h"
#include "model/ButtonLine.h"
#include "recording/clsRecordController.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "util/modLog.h"
#include "util/modSprintf.h"

namespace {

using namespace vestrel;

constexpr std::int64_t kButtons = 832;
constexpr std::int32_t kGroups = 10;
constexpr std::int32_t kEvents = 1000;
constexpr int kTimes = 100;

// Counts `path` under the name that count.py finds in what callgrind writes.
void Count(const char* name, const std::function<void()>& path) {
  path();
  CALLGRIND_ZERO_STATS;
  CALLGRIND_TOGGLE_COLLECT;
  path();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(name);
}

// The lines of all buttons, not forced to the disk.
void SaveLines(const clsPage& page, clsIniFile& file) {
  IniBatch batch(file, Sync::No);
  for (std::int32_t g = 0; g < kGroups; ++g) {
    file.UseSection(u"ButtonGroup" + LongToText(g));
    for (Object* item : page.ButtonGroups(g)->buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      file.UseNarrowKeyPrefix(ButtonKey(button.buttonIndex).prefix());
      button.saveToINI(&file);
    }
  }
}

void CountPages(const std::string& folder) {
  const Ref<clsPage> page = bench::NewPage(folder, u"Page");
  bench::Fill(*page, kButtons);
  page->saveToINI();
  const Ref<Object> item = page->ButtonGroups(5)->buttons->GetItem(40);
  auto& button = Cast<clsButton>(item.get());
  Count("click saved, 832 lines", [&] {
    button.buttonType = button.buttonType == ButtonType_Sequence ? ButtonType_Multi : ButtonType_Sequence;
    page->saveSingleButton(&button);
  });
  const auto file = MakeRef<clsIniFile>();
  file->UseFile(bench::LibraryPath(bench::FileOf(folder, "Page")));
  Count("page save, 832 lines in ten commits", [&] {
    bench::ChangeEveryLine(*page);
    page->saveToINI();
  });
  Count("page save, 832 lines in one commit", [&] {
    bench::ChangeEveryLine(*page);
    SaveLines(*page, *file);
  });
  Count("page load, 832 buttons", [&] { page->loadFromINI(); });
}

void CountClick(const std::string& folder) {
  const auto recorder = MakeRef<clsRecordController>();
  recorder->Init(MakeRef<IRecordEventHandler>().get());
  const auto controller = MakeRef<clsButtonGroupController>();
  controller->Init(MakeRef<IFormSequenceShortcuts>().get(), bench::LibraryPath(folder),
                   MakeRef<ILEDSetter>().get(), recorder.get());
  controller->setButtonGroupPageSize(4);
  controller->CreateNewShow(u"Gala");
  controller->AddPage(u"Act 1");
  for (std::int32_t index = 1; index <= 4; ++index)
    controller->assignButton(2, index, u"Intro", ButtonType_Sequence);
  Count("click through the controller", [&] { controller->ToggleButtonAt(2, 1); });
  controller->formShutdown();
}

void CountEvents(const std::string& folder) {
  const auto button = MakeRef<clsButton>();
  button->InitWithValues(nullptr, 1, 1, u"Intro", ButtonType_Sequence, nullptr);
  const auto map = MakeRef<clsDictionary>();
  map->Add(button->name, button.get());
  const auto recorder = MakeRef<clsRecordController>();
  recorder->Init(MakeRef<IRecordEventHandler>().get());
  for (std::int32_t i = 0; i < kEvents; ++i) {
    const auto event = MakeRef<vxEvent>();
    event->Init(i * 7, button.get(), i % 2 == 0 ? vxEvent_ButtonOn : vxEvent_ButtonOff);
    event->SetExtras(1, 0, static_cast<float>(i % 1024), static_cast<float>(i % 768));
    recorder->EventList()->AddItem(event.get());
  }
  const std::u16string path = bench::LibraryPath(folder + "/take.txt");
  Count("event file save, 1000 events", [&] { recorder->SaveEventsTo(path); });
  Count("event file load, 1000 events", [&] { recorder->LoadEventsFrom(path, map.get()); });
  const auto list = MakeRef<vxEventList>();
  list->Init(nullptr);
  list->events()->ExtendWith(recorder->EventList().get());
  Count("playback, 1000 events", [&] {
    list->SeekToEventIndex(0);
    list->UpdateTime(kEvents * 7);
  });
  recorder->ClearEvents();
  Count("tick with nothing due, 100 times", [&] {
    for (int i = 0; i < kTimes; ++i) recorder->TimerTick();
  });
}

void CountText() {
  Count("formatted text, five fields, 100 times", [] {
    for (int i = 0; i < kTimes; ++i) {
      modSprintf::Format(u"button %s: group %d, index %d, type %d, state %d", u"Intro", 2, i, 1, 0);
    }
  });
  Count("log line", [] { modLog::Log(u"button Intro: group 2, index 1", LogLevel_1_SEVERE); });
}

void CountCalls() {
  const Ref<Object> list = component::CreateByName(u"clsObjectList");
  Count("call by name, 100 times", [&] {
    for (int i = 0; i < kTimes; ++i) component::CallByName(list.get(), u"Size");
  });
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::printf("vestrel_instructions FOLDER\n");
    return 2;
  }
  const std::string folder = std::filesystem::absolute(arguments[1]).string();
  std::printf("compiler: %s\n", __VERSION__);
  modLog::Init(bench::LibraryPath(folder + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  CountPages(folder);
  CountClick(folder);
  CountEvents(folder);
  CountText();
  CountCalls();
  return 0;
}
