// How much memory things take, as the allocator counts it: its own headers and rounding included. Beside each
// stands the sum of what its fields hold.
#include <malloc.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "bench/support/Bench.h"
#include "bench/support/ButtonPages.h"
#include "bench/support/Folder.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "recording/clsRecordController.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

double InUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

// Each thread has a log of its own.
void StartLog() {
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
}

// What is in use more once the work is done. Twice, so that what is made once for all is not counted; the
// second time on a thread of its own, for which nothing is kept from the first.
double Taken(const std::function<Ref<Object>()>& work) {
  work();
  double taken = 0;
  std::thread([&] {
    StartLog();
    const double before = InUse();
    const Ref<Object> kept = work();
    taken = InUse() - before;
  }).join();
  return taken;
}

// Two indices, the type, play state, bump mode, fader mode, lock, visible, highlighted, control, dimmer
// value; the name; the fader's two values and its catch; page and handler.
double FieldsOf(const std::u16string& name) {
  const std::size_t numbers = 2 * 4 + 2 + 4 + 2 + 2 + 1 + 1 + 1 + 4 + 4;
  return static_cast<double>(numbers + name.size() * sizeof(char16_t) + 2 * 4 + 1 + 2 * sizeof(void*));
}

// Time, button, position, mouse button, shift, type.
constexpr double kEventFields = 4 + sizeof(void*) + 2 * 4 + 2 + 2 + 2;

const std::u16string& Name() {
  static const std::u16string name = u"Sequence 12345";
  return name;
}

Ref<Object> NewButtons(std::int32_t count, clsPage* page, IButtonEventHandler* handler) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (std::int32_t i = 1; i <= count; ++i) {
    const auto button = MakeRef<clsButton>();
    button->InitWithValues(page, 1, i, Name(), ButtonType_Sequence, handler);
    list->AddItem(button.get());
  }
  return list;
}

Ref<Object> NewRecording(std::int32_t count, clsButton* button) {
  const auto recorder = MakeRef<clsRecordController>();
  recorder->Init(MakeRef<IRecordEventHandler>().get());
  for (std::int32_t i = 0; i < count; ++i) {
    const auto event = MakeRef<vxEvent>();
    event->Init(i, button, vxEvent_ButtonOn);
    recorder->EventList()->AddItem(event.get());
  }
  return recorder;
}

void AddAmount(const char* figure, double bytes, double fields, double limit = 0) {
  bench::Add(bench::Amount{figure, bytes, "floor (its fields)", fields, limit, "bytes"});
}

}  // namespace

void AddCases() {
  // So that one place counts for all threads.
  mallopt(M_ARENA_MAX, 1);
  StartLog();
  // As many as fill their list, so that the list's spare room is not counted as theirs.
  constexpr std::int32_t kMany = 1 << 14;
  constexpr std::int32_t kMillion = 1000000;
  constexpr std::int32_t kPage = 832;

  const Ref<clsPage> page = bench::NewPage(bench::Folder(), u"Page");
  const auto handler = MakeRef<IPageController>();
  AddAmount("memory of a button", Taken([&] { return NewButtons(kMany, page.get(), handler.get()); }) / kMany,
            FieldsOf(Name()), 320);

  bench::Fill(*page, kPage);
  page->saveToINI();
  const double loaded = Taken([] {
    const Ref<clsPage> read = bench::NewPage(bench::Folder(), u"Page");
    read->loadFromINI();
    return Ref<Object>(read);
  });
  AddAmount("memory of a page of 832 buttons", loaded, kPage * FieldsOf(u"Sequence 123"));

  const auto button = Cast<clsObjectList>(NewButtons(1, nullptr, nullptr).get()).GetItem(0);
  auto& of = Cast<clsButton>(button.get());
  AddAmount("memory of an event", Taken([&] { return NewRecording(kMany, &of); }) / kMany, kEventFields, 64);
  AddAmount("memory of a recording of 1M events", Taken([&] { return NewRecording(kMillion, &of); }),
            kMillion * kEventFields);
}
