// One recorded change of a button: when, which, on or off, and the click that caused it. Shared by event
// lists and hosts; keeps its button alive. A million of them are normal, so it holds nothing else.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Ref.h"
#include "model/clsButton.h"

namespace vestrel {

class clsDictionary;

class vxEvent : public Object {
 public:
  VESTREL_OBJECT(vxEvent)

  // Transport time in milliseconds.
  std::int32_t time = 0;
  Ref<clsButton> button;
  float x = 0;
  float y = 0;
  std::int16_t mouseButton = 0;
  std::int16_t shift = 0;
  vxEventTypeEnum eventType = vxEvent_ButtonOn;

  void Init(std::int32_t time, clsButton* button, vxEventTypeEnum eventType);
  void SetExtras(std::int16_t mouseButton, std::int16_t shift, float x, float y);
  // Reads one line of an event file from the open text file f. Answers false, with no button, when buttonMap
  // has no button of the name read. Raises 52, 62 or 13.
  bool ReadFromFile(std::int16_t f, clsDictionary* buttonMap);
  void WriteToFile(std::int16_t f);
};

}  // namespace vestrel
