#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/Error.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "model/clsButton.h"
#include "model/clsPage.h"
#include "storage/clsIniFile.h"
#include "tests/model/RecordingController.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::u16string_view kLog = u"C:\\log.txt";
constexpr std::u16string_view kIni = u"C:\\page.ini";

class clsButtonTest : public test::TestPlatform {
 protected:
  clsButtonTest() {
    files.PutFolder(u"C:");
    modLog::Init(kLog);
    button = NewButton(2, 5);
  }

  Ref<clsButton> NewButton(std::int32_t group, std::int32_t index, std::u16string_view name = u"Intro",
                           ButtonTypeEnum type = ButtonType_Sequence) {
    auto result = MakeRef<clsButton>();
    result->InitWithValues(page.get(), group, index, name, type, controller.get());
    return result;
  }
  Ref<clsButton> NewBump(std::int32_t group, std::int32_t index) {
    auto result = NewButton(group, index, u"Bump");
    result->SetBumpMode(BumpMode_On);
    return result;
  }
  Ref<clsIniFile> Ini() {
    auto ini = MakeRef<clsIniFile>();
    ini->UseFile(kIni);
    ini->UseSection(u"S");
    return ini;
  }
  void Turn(clsButton& which, PlayStateEnum state) {
    which.setPlayState(state, PSEventSource_AutoRelease, 0, 0, 0, 0, true);
  }

  Ref<test::RecordingController> controller = MakeRef<test::RecordingController>();
  Ref<clsPage> page = MakeRef<clsPage>();
  Ref<clsButton> button;
};

std::int32_t NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return -1;
}

TEST_F(clsButtonTest, ANewButtonHasNoValuesAndNoFader) {
  const auto fresh = MakeRef<clsButton>();
  EXPECT_EQ(fresh->groupIndex, 0);
  EXPECT_EQ(fresh->buttonIndex, 0);
  EXPECT_EQ(fresh->name, u"");
  EXPECT_EQ(fresh->buttonType, 0);
  EXPECT_EQ(fresh->triggeredDimmerValue, 0);
  EXPECT_FALSE(fresh->Fader());
  EXPECT_EQ(NumberOf([&] { fresh->faderValue(); }), Error_ObjectNotSet);
  EXPECT_EQ(NumberOf([&] { fresh->SetFaderValue(1, true); }), Error_ObjectNotSet);
}

TEST_F(clsButtonTest, InitGivesEveryFieldItsFirstValue) {
  const auto fresh = NewBump(9, 3);
  fresh->isVisible = true;
  fresh->controlIndex = 40;
  fresh->isHighlighted = true;
  fresh->triggeredDimmerValue = 5;
  fresh->SetFaderMode(FaderMode_Speed);
  fresh->SetFaderValue(60, true);
  fresh->press();
  fresh->SetLocked(true);
  controller->Take();
  fresh->Init(controller.get(), page.get());
  EXPECT_EQ(fresh->groupIndex, -1);
  EXPECT_EQ(fresh->buttonIndex, -1);
  EXPECT_EQ(fresh->name, u"none");
  EXPECT_EQ(fresh->buttonType, ButtonType_None);
  EXPECT_FALSE(fresh->isVisible);
  EXPECT_EQ(fresh->controlIndex, -1);
  EXPECT_FALSE(fresh->isHighlighted);
  EXPECT_EQ(fresh->triggeredDimmerValue, 100);
  EXPECT_EQ(fresh->playState(), PlayState_Off);
  EXPECT_EQ(fresh->BumpMode(), BumpMode_Off);
  EXPECT_EQ(fresh->FaderMode(), FaderMode_Dimmer);
  EXPECT_EQ(fresh->faderValue(), 0);
  EXPECT_FALSE(fresh->Fader()->Engaged());
  EXPECT_FALSE(fresh->Locked());
  EXPECT_THAT(controller->Take(), IsEmpty());
  fresh->SetBumpMode(BumpMode_On);
  fresh->groupIndex = 9;
  fresh->release();
  EXPECT_EQ(fresh->faderValue(), 0) << "the value before the press is forgotten";
}

TEST_F(clsButtonTest, InitWithValuesSetsTheFourFields) {
  EXPECT_EQ(button->groupIndex, 2);
  EXPECT_EQ(button->buttonIndex, 5);
  EXPECT_EQ(button->name, u"Intro");
  EXPECT_EQ(button->buttonType, ButtonType_Sequence);
  button->InitWithValues(page.get(), 3, 6, button->name, ButtonType_Multi, controller.get());
  EXPECT_EQ(button->name, u"Intro") << "its own name may be handed back to it";
}

TEST_F(clsButtonTest, LockAndFaderModeNotifyOnChangeOnly) {
  button->SetLocked(false);
  button->SetFaderMode(FaderMode_Dimmer);
  EXPECT_THAT(controller->Take(), IsEmpty());
  button->SetLocked(true);
  button->SetLocked(true);
  button->SetFaderMode(FaderMode_Proportional);
  button->SetFaderMode(FaderMode_Proportional);
  button->SetLocked(false);
  EXPECT_THAT(controller->Take(),
              ElementsAre("LockStateChanged Intro@2/5 locked", "FaderModeChanged Intro@2/5 2",
                          "LockStateChanged Intro@2/5 unlocked"));
}

TEST_F(clsButtonTest, BumpModeNotifiesNobody) {
  button->SetBumpMode(BumpMode_On);
  EXPECT_EQ(button->BumpMode(), BumpMode_On);
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, SetPlayStateHandsOnWhatItWasGiven) {
  button->setPlayState(PlayState_On, PSEventSource_RecPlayback, 2, 3, 4.5F, -1, false, true);
  EXPECT_EQ(button->playState(), PlayState_On);
  EXPECT_THAT(controller->Take(),
              ElementsAre("PlayStateChanged Intro@2/5 on source 2 mouse 2 shift 3 at 4.5,-1 unsaved"));
}

TEST_F(clsButtonTest, SetPlayStateWithTheCurrentValueCallsNobody) {
  button->setPlayState(PlayState_Off, PSEventSource_User, 1, 0, 0, 0);
  button->setPlayState(PlayState_Off, PSEventSource_AutoRelease, 1, 0, 0, 0);
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, SuppressEventChangesTheStateSilently) {
  button->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0, true);
  EXPECT_EQ(button->playState(), PlayState_On);
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, ClickTogglesAsTheUser) {
  button->click(1, 2, 3, 4);
  button->click(2, 0, 0, 0);
  EXPECT_THAT(controller->Take(),
              ElementsAre("PlayStateChanged Intro@2/5 on source 0 mouse 1 shift 2 at 3,4",
                          "PlayStateChanged Intro@2/5 off source 0 mouse 2 shift 0 at 0,0"));
}

TEST_F(clsButtonTest, ClickDoesNothingInBumpModeOrInTheNullState) {
  button->SetBumpMode(BumpMode_On);
  button->click(1, 0, 0, 0);
  EXPECT_EQ(button->playState(), PlayState_Off);
  button->SetBumpMode(BumpMode_Off);
  Turn(*button, PlayState_Null);
  button->click(1, 0, 0, 0);
  EXPECT_EQ(button->playState(), PlayState_Null);
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, ALockedButtonIgnoresEveryPlayStateAndFaderChange) {
  for (const std::int32_t group : {0, 9}) {
    const auto bump = NewBump(group, 1);
    bump->SetFaderValue(40, false);
    bump->SetLocked(true);
    controller->Take();
    bump->press();
    bump->release();
    EXPECT_FALSE(bump->SetFaderValue(0, true));
    bump->setPlayState(PlayState_Off, PSEventSource_User, 1, 0, 0, 0);
    EXPECT_EQ(bump->faderValue(), 40);
    EXPECT_EQ(bump->playState(), PlayState_On);
    EXPECT_THAT(controller->Take(), IsEmpty());
  }
  button->SetLocked(true);
  controller->Take();
  button->click(1, 0, 0, 0);
  EXPECT_EQ(button->playState(), PlayState_Off);
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, AButtonInTheTopGroupIsOnWhilePressed) {
  const auto bump = NewBump(0, 1);
  bump->press();
  bump->press();
  bump->release();
  EXPECT_THAT(controller->Take(),
              ElementsAre("PlayStateChanged Bump@0/1 on source 0 mouse 1 shift 0 at 0,0",
                          "PlayStateChanged Bump@0/1 off source 0 mouse 1 shift 0 at 0,0"));
}

TEST_F(clsButtonTest, ABumpPressAtZeroSwitchesOnAndTheReleaseOff) {
  const auto bump = NewBump(9, 3);
  bump->press();
  EXPECT_EQ(bump->faderValue(), 100);
  bump->release();
  EXPECT_EQ(bump->faderValue(), 0);
  EXPECT_THAT(controller->Take(),
              ElementsAre("PlayStateChanged Bump@9/3 on source 0 mouse 1 shift 0 at 0,0",
                          "FaderValueChanged Bump@9/3 100 update", "FaderValueChanged Bump@9/3 0 update",
                          "PlayStateChanged Bump@9/3 off source 0 mouse 1 shift 0 at 0,0"));
}

TEST_F(clsButtonTest, ABumpPressAboveZeroLeavesThePlayState) {
  const auto bump = NewBump(9, 3);
  bump->Fader()->SetValue(40, true);
  bump->press();
  EXPECT_EQ(bump->faderValue(), 100);
  EXPECT_FALSE(bump->Fader()->Engaged());
  bump->release();
  EXPECT_EQ(bump->faderValue(), 40);
  EXPECT_EQ(bump->playState(), PlayState_Off);
  EXPECT_THAT(controller->Take(),
              ElementsAre("FaderValueChanged Bump@9/3 100 update", "FaderValueChanged Bump@9/3 40 update"));
}

TEST_F(clsButtonTest, ABumpReleaseAboveZeroLeavesAPlayingButtonOn) {
  const auto bump = NewBump(9, 3);
  bump->Fader()->SetValue(40, true);
  Turn(*bump, PlayState_On);
  bump->press();
  bump->release();
  EXPECT_EQ(bump->playState(), PlayState_On);
  EXPECT_FALSE(bump->Fader()->Engaged()) << "neither of the two engages";
  EXPECT_THAT(controller->Take(),
              ElementsAre("FaderValueChanged Bump@9/3 100 update", "FaderValueChanged Bump@9/3 40 update"));
}

TEST_F(clsButtonTest, PressAndReleaseDoNothingInOtherGroupsOrOutsideBumpMode) {
  for (const std::int32_t group : {-1, 1, 3, 8, 10}) {
    const auto bump = NewBump(group, 1);
    bump->press();
    bump->release();
  }
  for (const std::int32_t group : {0, 9}) {
    const auto plain = NewButton(group, 1);
    plain->press();
    plain->release();
  }
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, AButtonMovedWhileItsPressIsReportedIsNotPressedTwice) {
  const auto bump = NewBump(0, 1);
  controller->onCall = [&] { bump->groupIndex = 9; };
  bump->press();
  EXPECT_EQ(bump->faderValue(), 0);
  EXPECT_EQ(controller->Take().size(), 1U);
}

struct FaderMove {
  const char* name;
  BumpModeEnum mode;
  PlayStateEnum state;
  std::int32_t from;   // the model value, where the physical fader stands as well
  std::int32_t outer;  // where the physical fader stands
  std::int32_t to;
  bool updateUI;
  bool result;
  std::vector<std::string> calls;
};

TEST_F(clsButtonTest, SetFaderValueDoesWhatTheTableSays) {
  const std::string on = "PlayStateChanged Bump@9/1 on source 0 mouse 1 shift 0 at 0,0";
  const std::string off = "PlayStateChanged Bump@9/1 off source 0 mouse 1 shift 0 at 0,0";
  const std::vector<FaderMove> table = {
      {"bump, off, goes on",
       BumpMode_On,
       PlayState_Off,
       0,
       0,
       30,
       false,
       true,
       {on, "FaderValueChanged Bump@9/1 30"}},
      {"bump, from 1 on",
       BumpMode_On,
       PlayState_Off,
       0,
       0,
       1,
       true,
       true,
       {on, "FaderValueChanged Bump@9/1 1 update"}},
      {"bump, on, stays on",
       BumpMode_On,
       PlayState_On,
       30,
       30,
       60,
       false,
       true,
       {"FaderValueChanged Bump@9/1 60"}},
      {"bump, on, goes off",
       BumpMode_On,
       PlayState_On,
       30,
       30,
       0,
       false,
       true,
       {off, "FaderValueChanged Bump@9/1 0"}},
      {"bump, off, to 0",
       BumpMode_On,
       PlayState_Off,
       30,
       30,
       0,
       false,
       true,
       {"FaderValueChanged Bump@9/1 0"}},
      {"bump, negative",
       BumpMode_On,
       PlayState_On,
       30,
       30,
       -5,
       false,
       true,
       {"FaderValueChanged Bump@9/1 -5"}},
      {"bump, null state",
       BumpMode_On,
       PlayState_Null,
       0,
       0,
       30,
       false,
       true,
       {"FaderValueChanged Bump@9/1 30"}},
      {"bump, same value", BumpMode_On, PlayState_Off, 30, 30, 30, false, true, {}},
      {"bump, same value, update",
       BumpMode_On,
       PlayState_Off,
       30,
       30,
       30,
       true,
       true,
       {on, "FaderValueChanged Bump@9/1 30 update"}},
      {"bump, not caught", BumpMode_On, PlayState_Off, 50, 10, 40, true, false, {}},
      {"plain, caught", BumpMode_Off, PlayState_Off, 0, 0, 30, true, true, {}},
      {"plain, not caught", BumpMode_Off, PlayState_Off, 50, 10, 40, true, false, {}},
  };
  for (const FaderMove& row : table) {
    const auto bump = NewButton(9, 1, u"Bump");
    bump->SetBumpMode(row.mode);
    Turn(*bump, row.state);
    bump->Fader()->SetValue(row.from, true);
    bump->Fader()->ResumeTracking(row.outer);
    EXPECT_EQ(bump->SetFaderValue(row.to, row.updateUI), row.result) << row.name;
    EXPECT_EQ(bump->faderValue(), row.result ? row.to : row.from) << row.name;
    EXPECT_EQ(controller->Take(), row.calls) << row.name;
  }
}

TEST_F(clsButtonTest, CopyTakesPlaceTypeAndNameAndNothingElse) {
  button->SetFaderMode(FaderMode_Speed);
  button->SetBumpMode(BumpMode_On);
  button->SetFaderValue(70, false);
  button->SetLocked(true);
  button->isVisible = true;
  button->controlIndex = 40;
  button->triggeredDimmerValue = 3;
  controller->Take();
  const auto copy = button->Copy();
  EXPECT_NE(copy, button);
  EXPECT_EQ(copy->CompareTo(button.get()), 0);
  EXPECT_EQ(copy->Page(), page);
  EXPECT_EQ(copy->playState(), PlayState_Off);
  EXPECT_EQ(copy->faderValue(), 0);
  EXPECT_EQ(copy->FaderMode(), FaderMode_Dimmer);
  EXPECT_EQ(copy->BumpMode(), BumpMode_Off);
  EXPECT_FALSE(copy->Locked());
  EXPECT_FALSE(copy->isVisible);
  EXPECT_EQ(copy->controlIndex, -1);
  EXPECT_EQ(copy->triggeredDimmerValue, 100);
  EXPECT_THAT(controller->Take(), IsEmpty());
  copy->SetLocked(true);
  EXPECT_THAT(controller->Take(), ElementsAre("LockStateChanged Intro@2/5 locked")) << "the same handler";
}

TEST_F(clsButtonTest, CopyTakesANewNameOrHandsItsOwnBack) {
  std::u16string name = u"Encore";
  EXPECT_EQ(button->Copy(&name)->name, u"Encore");
  EXPECT_EQ(name, u"Encore");
  name.clear();
  EXPECT_EQ(button->Copy(&name)->name, u"Intro");
  EXPECT_EQ(name, u"Intro");
}

TEST_F(clsButtonTest, ToStringNamesGroupIndexNameAndType) {
  EXPECT_EQ(button->toString(), u"group: 2, buttonIndex: 5, name: Intro, type: 1");
  const auto fresh = MakeRef<clsButton>();
  fresh->Init(nullptr, nullptr);
  EXPECT_EQ(fresh->toString(), u"group: -1, buttonIndex: -1, name: none, type: 999");
}

TEST_F(clsButtonTest, PrintObjectLogsItsFieldsWithTheStrayPercent) {
  button->isVisible = true;
  button->controlIndex = 37;
  Turn(*button, PlayState_On);
  button->PrintObject();
  EXPECT_THAT(files.Get(kLog),
              EndsWith("[Info] button object: Intro - gi 2, bi 5, bt 1, ps 1, iv -1, ci 37%\r\n"));
}

TEST_F(clsButtonTest, SavesItsLineUnderThePrefixInForce) {
  Turn(*button, PlayState_On);
  button->Fader()->SetValue(100, true);
  const auto ini = Ini();
  ini->UseKeyPrefix(u"Button5");
  button->saveToINI(ini.get());
  EXPECT_EQ(files.Get(kIni), "[S]\r\nButton5_fields=Intro|1|1|0|0|100|False\r\n");
}

TEST_F(clsButtonTest, LoadsItsLineOffAndDefersWhatWasSaved) {
  files.Put(kIni, "[S]\r\nfields=Chase|2|1|1|2|60|True\r\n");
  button->SetFaderValue(80, false);
  Turn(*button, PlayState_On);
  page->SetPageNamePrivate(u"Act 1");
  controller->onCall = [&] {
    EXPECT_EQ(button->playState(), PlayState_Off);
    EXPECT_EQ(button->faderValue(), 0);
  };
  button->loadFromINI(Ini().get(), 7, 8);
  EXPECT_EQ(button->toString(), u"group: 7, buttonIndex: 8, name: Chase, type: 2");
  EXPECT_EQ(button->BumpMode(), BumpMode_On);
  EXPECT_EQ(button->FaderMode(), FaderMode_Proportional);
  EXPECT_TRUE(button->Locked());
  EXPECT_THAT(controller->Take(), ElementsAre("DeferPlaystateFor Act 1 Chase@7/8 1 60"))
      << "and no notification of lock or mode";
}

TEST_F(clsButtonTest, AFaderThatLoadingSetsToZeroIsNotPickedUp) {
  files.Put(kIni, "[S]\r\nfields=Chase|2|1|1|2|60|True\r\n");
  for (const std::int32_t outer : {20, 80, 100}) {
    button->Fader()->SetValue(80, true);
    button->Fader()->SetOuterValue(outer);
    button->Fader()->PauseTracking();
    button->loadFromINI(Ini().get(), 7, 8);
    EXPECT_EQ(button->faderValue(), 0) << outer;
    EXPECT_FALSE(button->Fader()->Engaged()) << outer;
  }
}

TEST_F(clsButtonTest, ALineOfOtherThanSevenFieldsIsSkippedWithAWarning) {
  for (const std::string value :
       {"Chase|2|1|1|2|60", "Chase|2|1|1|2|60|True|", "Ch|ase|2|1|1|2|60|True", ""}) {
    files.Put(kIni, "[S]\r\nfields=" + value + "\r\n");
    button->loadFromINI(Ini().get(), 7, 8);
    EXPECT_EQ(button->toString(), u"group: 7, buttonIndex: 8, name: Intro, type: 1");
    EXPECT_THAT(files.Get(kLog),
                EndsWith("[Warning] skipping button load -- incorrect number of fields in INI\r\n"));
    files.Put(kLog, "");
  }
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, AnAbsentLineIsSkippedToo) {
  button->loadFromINI(Ini().get(), 7, 8);
  EXPECT_EQ(button->name, u"Intro");
  EXPECT_EQ(button->groupIndex, 7);
  EXPECT_THAT(files.Get(kLog), HasSubstr("skipping button load"));
}

TEST_F(clsButtonTest, AFieldThatDoesNotConvertRaisesAndOnlyTheIndicesAreTaken) {
  files.Put(kIni, "[S]\r\nfields=Chase|two|1|1|2|60|True\r\n");
  EXPECT_EQ(NumberOf([&] { button->loadFromINI(Ini().get(), 7, 8); }), Error_TypeMismatch);
  EXPECT_EQ(button->toString(), u"group: 7, buttonIndex: 8, name: Intro, type: 1");
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsButtonTest, ALineWithNoFileRaises91) {
  EXPECT_EQ(NumberOf([&] { button->loadFromINI(nullptr, 1, 1); }), Error_ObjectNotSet);
  EXPECT_EQ(NumberOf([&] { button->saveToINI(nullptr); }), Error_ObjectNotSet);
}

TEST_F(clsButtonTest, ALockedButtonStillSavesAndLoads) {
  button->SetLocked(true);
  button->saveToINI(Ini().get());
  EXPECT_EQ(files.Get(kIni), "[S]\r\nfields=Intro|1|0|0|0|0|True\r\n");
  files.Put(kIni, "[S]\r\nfields=Chase|2|1|1|2|60|False\r\n");
  button->loadFromINI(Ini().get(), 1, 1);
  EXPECT_EQ(button->name, u"Chase");
  EXPECT_FALSE(button->Locked());
}

TEST_F(clsButtonTest, WholeOrderIsByIndexWithEqualityOverFourFields) {
  EXPECT_EQ(button->CompareTo(NewButton(2, 5).get()), 0);
  EXPECT_EQ(button->CompareTo(NewButton(2, 4).get()), 1);
  EXPECT_EQ(button->CompareTo(NewButton(2, 6).get(), u"all"), -1);
  EXPECT_EQ(button->CompareTo(NewButton(9, 4, u"x").get()), 1);
  for (const auto& other :
       {NewButton(2, 5, u"intro"), NewButton(3, 5), NewButton(2, 5, u"Intro", ButtonType_Multi)}) {
    EXPECT_EQ(button->CompareTo(other.get()), -1);
    EXPECT_EQ(other->CompareTo(button.get()), -1) << "neither comes after the other";
  }
}

TEST_F(clsButtonTest, ButtonIndexOrdersByThatNumberAlone) {
  EXPECT_EQ(button->CompareTo(NewButton(7, 5, u"x").get(), u"buttonIndex"), 0);
  EXPECT_EQ(button->CompareTo(NewButton(2, 6).get(), u"buttonIndex"), -1);
  EXPECT_EQ(button->CompareTo(NewButton(2, 4).get(), u"buttonIndex"), 1);
}

TEST_F(clsButtonTest, AnotherFieldOfCompareToIsAnError) {
  for (const std::u16string_view field : {u"All", u"buttonindex", u"name", u""}) {
    try {
      button->CompareTo(button.get(), field);
      ADD_FAILURE();
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), errBadFieldName);
      EXPECT_EQ(error.source(), u"clsButton.IComparable_CompareTo");
      EXPECT_EQ(error.description(), u"unsupported field (yet)");
    }
  }
}

TEST_F(clsButtonTest, ComparingWithWhatIsNoButtonIsATypeMismatch) {
  EXPECT_EQ(NumberOf([&] { button->CompareTo(MakeRef<clsString>().get()); }), Error_TypeMismatch);
  EXPECT_EQ(NumberOf([&] { button->CompareTo(nullptr); }), Error_ObjectNotSet);
}

TEST_F(clsButtonTest, FieldCompareOrdersTheValueAgainstTheName) {
  for (const std::u16string_view field : {u"name", u"NAME", u"Name"}) {
    EXPECT_EQ(button->FieldCompare(field, u"Intro"), 0);
    EXPECT_EQ(button->FieldCompare(field, u"intro"), 1);
    EXPECT_EQ(button->FieldCompare(field, u"Chase"), -1);
  }
  button->name = u"12";
  EXPECT_EQ(button->FieldCompare(u"name", 12), 0) << "the value is taken as text";
}

TEST_F(clsButtonTest, AnotherFieldOfFieldCompareIsLoggedAndFailsTheAssertion) {
  try {
    button->FieldCompare(u"Index", 1);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 7155);
    EXPECT_EQ(error.source(), u"modUtils.Assert()");
    EXPECT_EQ(error.description(), u"assert false");
  }
  EXPECT_THAT(files.Get(kLog),
              EndsWith("[Severe] unhandled field in clsButton.IComparable_FieldCompare: Index\r\n"));
}

TEST_F(clsButtonTest, AListFindsAButtonByIndexWithAProbe) {
  const auto list = MakeRef<clsObjectList>();
  for (const std::int32_t index : {1, 5, 9}) list->AddItem(NewButton(2, index).get());
  const auto probe = MakeRef<clsButton>();
  probe->buttonIndex = 5;
  EXPECT_EQ(list->FindObjectValue(probe.get(), u"buttonIndex"), 1);
  probe->buttonIndex = 4;
  EXPECT_EQ(list->FindObjectValue(probe.get(), u"buttonIndex"), -1);
}

TEST_F(clsButtonTest, AListSortsButtonsByIndex) {
  const auto list = MakeRef<clsObjectList>();
  for (const std::int32_t index : {7, 1, 5}) list->AddItem(NewButton(2, index).get());
  list->SortInPlace();
  EXPECT_EQ(Cast<clsButton>(list->GetItem(0).get()).buttonIndex, 1);
  EXPECT_EQ(Cast<clsButton>(list->GetItem(2).get()).buttonIndex, 7);
}

TEST_F(clsButtonTest, WhatTheHandlerRaisesReachesTheCallerAfterTheChange) {
  controller->onCall = [] { RaiseError(Error_DeviceIO); };
  EXPECT_EQ(NumberOf([&] { button->click(1, 0, 0, 0); }), Error_DeviceIO);
  EXPECT_EQ(button->playState(), PlayState_On);
  EXPECT_EQ(NumberOf([&] { button->SetLocked(true); }), Error_DeviceIO);
  EXPECT_TRUE(button->Locked());
}

TEST_F(clsButtonTest, TheHandlerMayDropTheLastReferenceToTheButton) {
  const long before = Object::LiveCount();
  auto bump = NewBump(9, 1);
  clsButton* const raw = bump.get();
  controller->onCall = [&] { bump = nullptr; };
  EXPECT_TRUE(raw->SetFaderValue(30, true));
  EXPECT_EQ(controller->Take().size(), 2U);
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST_F(clsButtonTest, TheHandlerMayChangeTheButtonAgain) {
  controller->onCall = [&] {
    controller->onCall = nullptr;
    button->setPlayState(PlayState_Off, PSEventSource_AutoRelease, 1, 0, 0, 0);
  };
  button->click(1, 0, 0, 0);
  EXPECT_EQ(button->playState(), PlayState_Off);
  EXPECT_EQ(controller->Take().size(), 2U);
}

TEST_F(clsButtonTest, AButtonWhosePageAndHandlerAreGoneStaysUsable) {
  controller = nullptr;
  page = nullptr;
  button->click(1, 0, 0, 0);
  button->SetLocked(true);
  button->SetLocked(false);
  button->SetFaderMode(FaderMode_Speed);
  button->SetBumpMode(BumpMode_On);
  EXPECT_TRUE(button->SetFaderValue(0, true));
  EXPECT_EQ(button->playState(), PlayState_Off);
  files.Put(kIni, "[S]\r\nfields=Chase|2|1|1|2|60|False\r\n");
  button->loadFromINI(Ini().get(), 1, 1);
  EXPECT_EQ(button->Copy()->name, u"Chase");
}

TEST_F(clsButtonTest, AHandlerOfTheHostsIsKeptAlive) {
  class HostHandler : public IButtonEventHandler {
   public:
    VESTREL_OBJECT(HostHandler, IButtonEventHandler)
    explicit HostHandler(int& count) : locks(count) {}
    void LockStateChanged(clsButton* /*button*/) override { ++locks; }
    int& locks;
  };
  int locks = 0;
  const long before = Object::LiveCount();
  {
    const auto own = MakeRef<clsButton>();
    own->Init(MakeRef<HostHandler>(locks).get(), nullptr);
    own->SetLocked(true);
  }
  EXPECT_EQ(locks, 1);
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST_F(clsButtonTest, AButtonWithItsFaderFitsItsBudget) {
  constexpr std::size_t kAllocations = 2;
  constexpr std::size_t kAllocatorOverhead = 16;
  constexpr std::size_t kListSlot = 16;  // storage doubles, so up to two slots an item
  constexpr std::size_t kName = 64;      // thirty characters outside the object
  EXPECT_LE(sizeof(clsButton) + sizeof(clsFaderCatch) + kAllocations * kAllocatorOverhead + kListSlot + kName,
            320U);
}

}  // namespace
}  // namespace vestrel
