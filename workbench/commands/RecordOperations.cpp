// The operations of the record controller and of the lamp manager.
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

using Record = clsRecordController;

std::vector<Operation> RecordOperations() {
  return {
      Method<&Record::EventList>("record.EventList"),
      Method<&Record::Init>("record.Init", {Optional("eventHandler", "host")}),
      Method<&Record::ChangePlaystate>("record.ChangePlaystate", {In("newState")}),
      Method<&Record::Play>("record.Play"),
      Method<&Record::Record>("record.Record"),
      Method<&Record::Stop_>("record.Stop_"),
      Method<&Record::ClearEvents>("record.ClearEvents"),
      Method<&Record::SetRecordMode>("record.SetRecordMode", {In("mode")}),
      Method<&Record::SaveEventsTo>("record.SaveEventsTo", {Path("filename")}),
      Method<&Record::LoadEventsFrom>("record.LoadEventsFrom",
                                      {Path("filename"), Optional("buttonMap", "buttons")}),
      Method<&Record::TimerTick>("record.TimerTick"),
      Method<&Record::SeekToEventIndex>("record.SeekToEventIndex", {In("index")}),
      Method<&Record::updateEventTime>("record.updateEventTime", {In("eventIndex"), In("newTime")}),
      Method<&Record::timecodeToMS>("record.timecodeToMS", {In("tc"), Optional("result")}),
      Method<&Record::msToTimecode>("record.msToTimecode", {In("x")}),
      Method<&Record::EventFired>("record.IVXEventListHandler_EventFired", {In("ev"), In("eventIndex")}),
      Method<&Record::ButtonPlaystateChanged>(
          "record.IRecordController_ButtonPlaystateChanged",
          {In("button"), In("eventSource"), In("mouseButton"), In("shift"), In("x"), In("y")}),
  };
}

std::vector<Operation> LampOperations() {
  return {
      Method<&LEDManager::Init>("leds.Init", {Optional("setter", "host")}),
      Method<&LEDManager::clearAll>("leds.clearAll"),
      Method<&LEDManager::setButtonsInGroups1To8>("leds.setButtonsInGroups1To8",
                                                  {In("groupIndex"), In("hasAssigned"), In("hasPlaying")}),
      Method<&LEDManager::setButtonInTop32>("leds.setButtonInTop32",
                                            {In("controlIndex"), In("assigned"), In("playing")}),
      Method<&LEDManager::TimerTick>("leds.TimerTick"),
  };
}

}  // namespace vestrel::workbench
