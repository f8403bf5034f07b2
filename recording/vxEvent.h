// One recorded change of a button: when, which, on or off, and the click that caused it. Shared by event
// lists and hosts, either of which may change it; keeps its button alive. A million of them are normal, so it
// holds nothing else.
#pragma once

#include <cstddef>
#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Ref.h"
#include "model/clsButton.h"

namespace vestrel {

class clsDictionary;

class vxEvent : public Object {
  // First, where the base class leaves four bytes free.
  std::int32_t time_ = 0;

 public:
  VESTREL_OBJECT(vxEvent)

  // Transport time in milliseconds; 0 is the start of the recording. A list that the event stands in is not
  // sorted anew when it changes.
  std::int32_t time() const noexcept { return time_; }
  void SetTime(std::int32_t value) noexcept {
    if (value != time_) ++timeChanges_;
    time_ = value;
  }

  // The button that changed; none in a new event.
  Ref<clsButton> button;
  // Where the pointer was, which mouse button and which shift keys were down, as the host reported them.
  float x = 0;
  float y = 0;
  std::int16_t mouseButton = 0;
  std::int16_t shift = 0;
  vxEventTypeEnum eventType = vxEvent_ButtonOn;

  // Sets the three fields.
  void Init(std::int32_t time, clsButton* button, vxEventTypeEnum eventType);
  // Sets the four fields.
  void SetExtras(std::int16_t mouseButton, std::int16_t shift, float x, float y);
  // Reads one line of an event file from f, the number of a text file open for input. True when buttonMap
  // has a button of the name read, which becomes `button`; otherwise false, and `button` is none. The fields
  // are taken one by one, so a line that fails half way leaves the first ones set. Raises 52 for a number
  // that is not open, 62 at the end of the file, 13 or 6 for a field that does not convert (or a map entry
  // that is no button), 91 without a map.
  bool ReadFromFile(std::int16_t f, clsDictionary* buttonMap);
  // Writes its line to f, the number of a text file open for output. Raises 91 without a button, 52 for a
  // number that is not open, and the file's own errors.
  void WriteToFile(std::int16_t f) const;

  // Events come from a pool of their own (recording/EventPool.h).
  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

  // How often the time of any event of this thread changed: while it stands still, a list that was found
  // sorted still is.
  static std::uint64_t TimeChanges() noexcept { return timeChanges_; }

 private:
  static constinit thread_local std::uint64_t timeChanges_;
};

}  // namespace vestrel
