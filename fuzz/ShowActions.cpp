#include "fuzz/ShowActions.h"

#include <iterator>

namespace vestrel::fuzz {
namespace {

struct Scope {
  ShowStage& stage;
  test::FakeClock& clock;
  Choices& choices;

  clsButtonGroupController& controller() const { return *stage.controller; }
  clsRecordController& record() const { return *stage.record; }
  // Groups 0 to 9 and one to each side.
  std::int32_t Group() const { return static_cast<std::int32_t>(choices.Below(12)) - 1; }
  std::int32_t Number() const { return choices.Small(); }
  std::int16_t Short() const { return static_cast<std::int16_t>(choices.Small()); }
  bool Truth() const { return choices.Below(2) == 0; }
  template <class E>
  E Member(std::size_t count) const {
    return static_cast<E>(choices.Below(count));
  }
  Ref<clsButton> Button() const { return controller().buttonWithIndex(Group(), Number()); }
  std::u16string_view Page() const {
    static constexpr std::u16string_view kPages[] = {u"One", u"Two", u"Three", u"a|b", u""};
    return kPages[choices.Below(std::size(kPages))];
  }
  std::u16string_view Name() const {
    static constexpr std::u16string_view kNames[] = {u"Intro", u"Chase",    u"",
                                                     u"a|b",   u" spaces ", u"'quoted'"};
    return kNames[choices.Below(std::size(kNames))];
  }
};

using Action = void (*)(const Scope&);

void AnswerDialogs(const Scope& scope) {
  scope.stage.form->overwrite = scope.Truth();
  scope.stage.form->newName = scope.Name();
}

void PassTime(const Scope& scope) {
  scope.clock.ticks += 10U * scope.choices.Byte();
  scope.record().TimerTick();
  scope.controller().mLEDManager->TimerTick();
}

template <class Operation>
void OnButton(const Scope& scope, Operation operation) {
  if (const Ref<clsButton> button = scope.Button()) operation(*button);
}

constexpr Action kActions[] = {
    AnswerDialogs,
    PassTime,
    [](const Scope& s) { s.controller().controlClicked(s.Number(), 1, 0, 0, 0); },
    [](const Scope& s) { s.controller().controlClicked(s.Number(), s.Short(), s.Short(), 1, 2); },
    [](const Scope& s) { s.controller().controlPressed(s.Number()); },
    [](const Scope& s) { s.controller().controlReleased(s.Number()); },
    [](const Scope& s) { s.controller().ToggleButtonAt(s.Group(), s.Number()); },
    [](const Scope& s) { s.controller().buttonGroupGo(s.Group()); },
    [](const Scope& s) { s.controller().releaseButtonsOnPage(s.Group()); },
    [](const Scope& s) { s.controller().changeButtonGroupPageOffset(s.Group(), s.Member<PageDirEnum>(2)); },
    [](const Scope& s) { s.controller().goToPageWithButtonIndex(s.Group(), s.Number()); },
    [](const Scope& s) { s.controller().highlightButton(s.Group(), s.Member<HighlightDirEnum>(4)); },
    [](const Scope& s) { s.controller().setButtonGroupPageSize(s.Number()); },
    [](const Scope& s) { s.controller().getVisibleGroupButtons(s.Group()); },
    [](const Scope& s) {
      s.controller().assignButton(s.Group(), s.Number(), s.Name(), s.Member<ButtonTypeEnum>(6));
    },
    [](const Scope& s) { OnButton(s, [&](clsButton& button) { s.controller().removeButton(&button); }); },
    [](const Scope& s) {
      s.controller().setModeAssign(s.Name(), s.Member<ButtonTypeEnum>(6), s.stage.assignment.get());
    },
    [](const Scope& s) { s.controller().autoAssignNextAvailable(s.Group()); },
    [](const Scope& s) { s.controller().setModeEditing(s.Truth()); },
    [](const Scope& s) { s.controller().setModeMove(); },
    [](const Scope& s) { s.controller().setModeCopy(); },
    [](const Scope& s) { s.controller().CancelEditMode(); },
    [](const Scope& s) { s.controller().setModeAdjFadeInOut(); },
    [](const Scope& s) { s.controller().beginEditCue(); },
    [](const Scope& s) { s.controller().DeleteButton(s.Truth()); },
    [](const Scope& s) { s.controller().AssignMarkFade(s.Member<MarkFadeTypeEnum>(3)); },
    [](const Scope& s) { s.controller().RenameButton(); },
    [](const Scope& s) { s.controller().ToggleBumpMode(); },
    [](const Scope& s) { s.controller().ToggleLockState(); },
    [](const Scope& s) { s.controller().ChangeFaderMode(s.Member<FaderModeEnum>(4)); },
    [](const Scope& s) { s.controller().groupFaderChanged(s.Group(), s.Number()); },
    [](const Scope& s) { s.controller().BumpFaderChanged(s.Group(), s.Number(), s.Truth()); },
    [](const Scope& s) { s.controller().PushCurrentGroupFaderValues(); },
    [](const Scope& s) { s.controller().AddPage(s.Page()); },
    [](const Scope& s) { s.controller().SetPage(s.Page()); },
    [](const Scope& s) { s.controller().DeletePage(s.Page()); },
    [](const Scope& s) { s.controller().RenamePage(s.Page(), s.Page()); },
    [](const Scope& s) { s.controller().LoadShow(kShow); },
    [](const Scope& s) { s.controller().clearAll(); },
    [](const Scope& s) { s.controller().formLostFocus(); },
    [](const Scope& s) { s.controller().formGotFocus(); },
    [](const Scope& s) { s.controller().RefocusCurrentPage(); },
    [](const Scope& s) { OnButton(s, [&](clsButton& button) { button.SetLocked(s.Truth()); }); },
    [](const Scope& s) {
      OnButton(s, [&](clsButton& button) { button.SetFaderValue(s.Number(), s.Truth()); });
    },
    [](const Scope& s) { OnButton(s, [](clsButton& button) { button.click(1, 0, 0, 0); }); },
    [](const Scope& s) { s.record().Play(); },
    [](const Scope& s) { s.record().Record(); },
    [](const Scope& s) { s.record().Stop_(); },
    [](const Scope& s) { s.record().SetRecordMode(s.Member<RecordModeEnum>(2)); },
    [](const Scope& s) { s.record().SeekToEventIndex(s.Number()); },
    [](const Scope& s) { s.record().updateEventTime(s.Number(), s.Number()); },
    [](const Scope& s) { s.record().SaveEventsTo(u"C:\\data\\take.txt"); },
    [](const Scope& s) {
      s.record().LoadEventsFrom(u"C:\\data\\take.txt", s.controller().GetButtonMap().get());
    },
};

}  // namespace

void Act(ShowStage& stage, test::FakeClock& clock, Choices& choices) {
  const Action action = kActions[choices.Below(std::size(kActions))];
  action({stage, clock, choices});
}

}  // namespace vestrel::fuzz
