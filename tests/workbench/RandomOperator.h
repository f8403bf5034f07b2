// An operator who does anything that the page lets one do, in an order that its seed decides: for runs that
// are recorded and replayed. Answers dialogs, and presses buttons while they are open.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "workbench/server/DialogDoor.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

class RandomOperator : public DialogDoor {
 public:
  RandomOperator(WorkSession& session, std::uint32_t seed) : session_(session), random_(seed) {
    session_.SetDoor(this);
    now_ = session_.start().ticks;
  }

  // Performs that many commands, those within dialogs and turns included.
  void Work(std::uint64_t commands) {
    Do("setButtonGroupPageSize 8");
    Do("LoadShow \"Harbour Lights\"");
    while (done_ < commands) Do(Command());
  }

  std::uint64_t done() const noexcept { return done_; }
  std::uint64_t refused() const noexcept { return refused_; }
  std::uint64_t dialogs() const noexcept { return dialogs_; }
  std::uint64_t nested() const noexcept { return nested_; }

 private:
  DialogAnswer Ask(const Dialog& dialog) override {
    ++dialogs_;
    Nest(2);
    if (dialog.kind == DialogKind::Text) return {Below(4) > 0, Name()};
    return {Below(2) == 0, {}};
  }
  void Turn(std::uint64_t /*turn*/) override { Nest(20); }

  // Now and then something else comes in between.
  void Nest(int rarely) {
    if (session_.depth() > 2 || Below(rarely) != 0) return;
    ++nested_;
    Do(Below(2) == 0 ? Fader() : "controlPressed " + Control());
    Do("leds.TimerTick");
  }

  void Do(const std::string& command) {
    now_ += static_cast<std::uint64_t>(Below(40));
    ++done_;
    refused_ += session_.Perform(command, now_).ok ? 0U : 1U;
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  std::string Number(int least, int most) { return std::to_string(least + Below(most - least + 1)); }
  std::string Control() { return Number(1, 104); }
  std::string Group() { return Number(0, 9); }
  std::string Type() { return Number(1, 4); }
  std::string Name() {
    static const char* const kNames[] = {"Amber", "Blue", "Chase", "Dusk", "Eclipse",
                                         "Flood", "Glow", "a/b",   ""};
    return std::string(kNames[Below(9)]) + (Below(2) == 0 ? "" : " " + Number(1, 40));
  }
  std::string Quoted(const std::string& text) { return "\"" + text + "\""; }
  std::string Page() {
    static const char* const kPages[] = {"Overture", "Act One", "Finale", "Encore", "Curtain", "a|b"};
    return Quoted(kPages[Below(6)]);
  }
  std::string Button() { return "@" + Group() + "/" + Number(1, 12); }
  std::string Fader() {
    return (Below(2) == 0 ? "host.group " : "host.bump ") + Number(1, 8) + " " + Number(0, 100);
  }

  std::string Command() {
    switch (Below(12)) {
      case 0:
        return Fader();
      case 1:
        return Below(2) == 0 ? "leds.TimerTick" : "record.TimerTick";
      case 2:
        return Below(2) == 0 ? "controlPressed " + Control() : "controlReleased " + Control();
      case 3:
        return Layout();
      case 4:
        return Editing();
      case 5:
        return Recording();
      case 6:
        return ButtonChange();
      case 7:
        return Below(10) == 0 ? Pages() : "buttonGroupGo " + Group();
      default:
        return "controlClicked " + Control() + " 1 0 " + Number(0, 60) + " 2.5";
    }
  }

  std::string Layout() {
    switch (Below(5)) {
      case 0:
        return "changeButtonGroupPageOffset " + Group() + " " + Number(0, 1);
      case 1:
        return "goToPageWithButtonIndex " + Number(1, 8) + " " + Number(1, 30);
      case 2:
        return "highlightButton " + Number(1, 8) + " " + Number(0, 2);
      case 3:
        return "ToggleButtonAt " + Group() + " " + Number(1, 10);
      default:
        return Below(2) == 0 ? "formLostFocus" : "formGotFocus";
    }
  }

  std::string Editing() {
    switch (Below(12)) {
      case 0:
        return "setModeAssign " + Quoted(Name()) + " " + Type();
      case 1:
        return "autoAssignNextAvailable " + Group();
      case 2:
        return "setModeMove";
      case 3:
        return "setModeCopy";
      case 4:
        return "DeleteButton " + std::string(Below(2) == 0 ? "true" : "false");
      case 5:
        return "AssignMarkFade " + Number(0, 1);
      case 6:
        return "RenameButton";
      case 7:
        return "ToggleLockState";
      case 8:
        return "ToggleBumpMode";
      case 9:
        return "ChangeFaderMode " + Number(0, 2);
      case 10:
        return "CancelEditMode";
      default:
        return "setModeEditing true";
    }
  }

  std::string Recording() {
    switch (Below(9)) {
      case 0:
        return "record.Play";
      case 1:
        return "record.Record";
      case 2:
        return "record.Stop_";
      case 3:
        return "record.SetRecordMode " + Number(0, 1);
      case 4:
        return "record.SeekToEventIndex " + Number(0, 20);
      case 5:
        return "record.updateEventTime " + Number(0, 20) + " " + Number(0, 60000);
      case 6:
        return "record.SaveEventsTo evening" + Number(1, 3) + ".evt";
      case 7:
        return "record.LoadEventsFrom evening" + Number(1, 3) + ".evt";
      default:
        return Below(6) == 0 ? "record.ClearEvents" : "record.TimerTick";
    }
  }

  std::string ButtonChange() {
    switch (Below(5)) {
      case 0:
        return "button.SetLocked " + Button() + " " + (Below(3) == 0 ? "true" : "false");
      case 1:
        return "button.SetFaderValue " + Button() + " " + Number(0, 100) + " true";
      case 2:
        return "button.setPlayState " + Button() + " " + Number(0, 1);
      case 3:
        return "releaseButtonsOnPage " + Number(-1, 9);
      default:
        return "host.policy releaseOnPlay " + std::string(Below(2) == 0 ? "on" : "off");
    }
  }

  std::string Pages() {
    switch (Below(8)) {
      case 0:
        return "AddPage " + Page();
      case 1:
        return "DeletePage " + Page();
      case 2:
        return "RenamePage " + Page() + " " + Page();
      case 3:
        return "clearAll";
      case 4:
        return "CreateNewShow " + Quoted("Show " + Number(1, 50));
      case 5:
        return "LoadShow \"Harbour Lights\"";
      case 6:
        return "formShutdown";
      default:
        return "SetPage " + Page();
    }
  }

  WorkSession& session_;
  std::mt19937 random_;
  std::uint64_t now_ = 0;
  std::uint64_t done_ = 0;
  std::uint64_t refused_ = 0;
  std::uint64_t dialogs_ = 0;
  std::uint64_t nested_ = 0;
};

}  // namespace vestrel::workbench
