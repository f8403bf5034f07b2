// Playing a recording: an event fired, a tick with nothing due, a seek. The floors walk a plain array of
// events and make the same calls out, read the clock, and look a number up in a sorted array.
#include <algorithm>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "bench/support/Bench.h"
#include "bench/support/Folder.h"
#include "core/Cast.h"
#include "platform/Platform.h"
#include "recording/clsRecordController.h"
#include "recording/vxEventList.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;
using bench::Kind;

constexpr std::int32_t kStep = 7;

class CountFired : public virtual IVXEventListHandler {
 public:
  VESTREL_OBJECT(CountFired, IVXEventListHandler)
  void EventFired(vxEvent* /*ev*/, std::int32_t eventIndex) override { last = eventIndex; }
  std::int32_t last = 0;
};

// `size` events of 60 buttons. The buttons are locked, so that firing one does nothing but call out.
struct Recording {
  Recording(std::int64_t count, bool sorted) : size(count) {
    list->Init(handler.get());
    for (int i = 0; i < 60; ++i) {
      const auto button = MakeRef<clsButton>();
      button->InitWithValues(nullptr, 1, i + 1, u"Button", ButtonType_Sequence, nullptr);
      button->SetLocked(true);
      buttons.push_back(button);
    }
    for (std::int32_t i = 0; i < size; ++i) {
      const auto event = MakeRef<vxEvent>();
      // In an unsorted one the very last is out of order.
      event->Init(sorted || i + 1 < size ? i * kStep : 0, buttons[static_cast<std::size_t>(i) % 60].get(),
                  vxEvent_ButtonOn);
      list->events()->AddItem(event.get());
      raw.push_back(event.get());
    }
  }

  std::int64_t size;
  Ref<CountFired> handler = MakeRef<CountFired>();
  Ref<vxEventList> list = MakeRef<vxEventList>();
  std::vector<Ref<clsButton>> buttons;
  std::vector<vxEvent*> raw;
};

void AddFiring(const std::shared_ptr<Recording>& recording) {
  const std::int64_t size = recording->size;
  const auto end = static_cast<std::int32_t>(size) * kStep;
  bench::Add(bench::Case{"playback of all events", "Vestrel", size, size,
                         [=] { recording->list->UpdateTime(end); },
                         [=] { recording->list->SeekToEventIndex(0); }});
  bench::Add(bench::Case{"playback of all events", "floor (walk and the two calls out)", size, size, [=] {
                           IVXEventListHandler* const handler = recording->handler.get();
                           bench::Keep(handler);
                           std::int32_t index = 0;
                           for (vxEvent* event : recording->raw) {
                             if (event->time() > end) break;
                             event->button->setPlayState(PlayState_On, PSEventSource_RecPlayback, 0, 0, 0, 0);
                             handler->EventFired(event, index++);
                           }
                         }});
}

void AddSeek(const std::shared_ptr<Recording>& recording, const char* what) {
  const std::int64_t size = recording->size;
  const auto target = static_cast<std::int32_t>(size / 4 * 3) * kStep;
  bench::Add(bench::Case{what, "Vestrel", size, 1, [=] { recording->list->SeekTime(target); }});
  bench::Add(bench::Case{what, "looking from the start", size, 1, [=] {
                           std::size_t at = 0;
                           while (at < recording->raw.size() && recording->raw[at]->time() <= target) ++at;
                           bench::Keep(at);
                         }});
  bench::Add(bench::Case{what, "floor (upper_bound)", size, 1, [=] {
                           bench::Keep(std::upper_bound(
                               recording->raw.begin(), recording->raw.end(), target,
                               [](std::int32_t value, vxEvent* event) { return value < event->time(); }));
                         }});
}

void AddTick(const std::shared_ptr<Recording>& recording) {
  // What would be due is a day away, so ticks find nothing.
  const auto transport = std::make_shared<Ref<clsRecordController>>(MakeRef<clsRecordController>());
  (*transport)->Init(MakeRef<IRecordEventHandler>().get());
  for (vxEvent* event : recording->raw) {
    const auto later = MakeRef<vxEvent>();
    later->Init(86400000, event->button.get(), vxEvent_ButtonOn);
    (*transport)->EventList()->AddItem(later.get());
  }
  bench::Add(bench::Case{"tick with nothing due", "Vestrel", recording->size, 1,
                         [=] { (*transport)->TimerTick(); }});
  bench::Add(bench::Case{"tick with nothing due", "floor (clock read)", recording->size, 1,
                         [] { bench::Keep(platform::clock().TickCount()); }});
}

}  // namespace

void AddCases() {
  constexpr std::int64_t kMillion = 1000000;
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  const std::vector<std::int64_t> sizes = bench::Quick()
                                              ? std::vector<std::int64_t>{kMillion}
                                              : std::vector<std::int64_t>{1000, 10000, 100000, kMillion};
  for (const std::int64_t size : sizes) {
    const auto sorted = std::make_shared<Recording>(size, true);
    AddFiring(sorted);
    AddSeek(sorted, "seek, sorted");
    AddSeek(std::make_shared<Recording>(size, false), "seek, out of order");
  }
  AddTick(std::make_shared<Recording>(1000, true));
  const auto claim = [](const char* figure, const char* what, std::int64_t size, const char* other, Kind kind,
                        double factor) {
    bench::Add(bench::Claim{figure, what, size, other, kind, factor});
  };
  claim("fire an event, of 1M", "playback of all events", kMillion, "floor (walk and the two calls out)",
        Kind::AtMostTimes, 1.5);
  claim("tick with nothing due", "tick with nothing due", 1000, "floor (clock read)", Kind::AtMostTimes, 1.2);
  claim("seek among 1M events", "seek, sorted", kMillion, "looking from the start", Kind::TimesFaster, 4000);
  claim("seek among 1M events", "seek, sorted", kMillion, "floor (upper_bound)", Kind::Shown, 0);
  claim("seek among 1M events out of order", "seek, out of order", kMillion, "looking from the start",
        Kind::Shown, 0);
}
