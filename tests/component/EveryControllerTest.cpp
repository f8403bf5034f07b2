#include <gmock/gmock.h>

#include "tests/component/EveryOperation.h"
#include "tests/support/RecordingForm.h"

namespace vestrel::test {
namespace {

using component::ByRef;
using component::Named;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

EVERY_OPERATION_OF(UIFaderValues) {
  const Subject values(u"UIFaderValues");
  values.Put(u"GroupFaders", 1, 40);
  values.Put(u"BumpFaders", 8, 80);
  EXPECT_EQ(values.Get(u"GroupFaders", 1).AsLong(), 40);
  EXPECT_EQ(values.Get(u"GroupFaders", 8).AsLong(), 0);
  EXPECT_EQ(values.Get(u"BumpFaders", 8).AsLong(), 80);
  EXPECT_EQ(values.Error(u"BumpFaders", 0), 9);
}

EVERY_OPERATION_OF(LEDManager) {
  Transcript transcript;
  const Subject lamps(u"LEDManager");
  lamps.Call(u"Init", Ref<Object>(MakeRef<RecordingLamps>(transcript)));
  lamps.Call(u"setButtonsInGroups1To8", 3, true, false);
  EXPECT_THAT(transcript.Take(), ElementsAre("setLED(245, 4, true)"));
  lamps.Call(u"setButtonInTop32", 17, false, true);
  EXPECT_THAT(transcript.Take(), ElementsAre("StartLEDTimer()", "setLED(247, 1, false)"));
  EXPECT_EQ(lamps.Error(u"setButtonInTop32", 33, true, true), 9);
  lamps.Call(u"TimerTick");
  EXPECT_THAT(transcript.Take(), ElementsAre("setLED(247, 1, true)"));
  lamps.Call(u"clearAll");
  EXPECT_THAT(transcript.Take(), Contains("EndLEDTimer()"));
}

EVERY_OPERATION_OF(clsPageManager) {
  files.PutFolder(u"C:\\data\\Sequences");
  const Subject controller(u"clsButtonGroupController");
  controller.Call(u"Init", Subject(u"IFormSequenceShortcuts"), u"C:\\data", Subject(u"ILEDSetter"), nullptr);
  const Subject manager(u"clsPageManager");
  manager.Call(u"Init", u"C:\\data", controller);
  EXPECT_FALSE(manager.Truth(u"PageIsValid"));
  EXPECT_EQ(manager.Get(u"showName").AsString(), u"$$null_show$$");
  manager.Call(u"setShow", u"Gala", true);
  EXPECT_EQ(manager.Get(u"showName").AsString(), u"Gala");
  EXPECT_FALSE(manager.Get(u"IsLoading").AsBoolean());
  EXPECT_TRUE(manager.Truth(u"TestShowWritable"));
  manager.Call(u"SetPage", u"One", true);
  manager.Call(u"SetPage", u"Two");
  EXPECT_EQ(Subject(manager.Get(u"PageList").AsObject()).Number(u"Size"), 2);
  EXPECT_EQ(Subject(manager.Get(u"CurrentPage").AsObject()).Text(u"pageName"), u"One");
  EXPECT_EQ(manager.Get(u"CurrentPageName").AsString(), u"One");
  EXPECT_EQ(Boxes(manager.Item(u"GetPageNames")), "One Two");
  EXPECT_TRUE(manager.Truth(u"PageIsValid"));
  manager.Call(u"RenamePage", u"Two", u"Three");
  EXPECT_EQ(Boxes(manager.Item(u"GetPageNames")), "One Three");
  manager.Call(u"DeletePage", u"One", u"ignored");
  EXPECT_EQ(manager.Text(u"CurrentPageName"), u"Three");
  manager.Call(u"saveToINI", true);
  EXPECT_NE(files.Get(u"C:\\data\\Sequences\\Gala\\pageSetting.ini").find("PageList=Three\r\n"),
            std::string::npos);
}

// A controller with a show of one page, four buttons of a group on the screen, and everything the host hears.
class ControllerByName : public EveryOperation {
 protected:
  ControllerByName() {
    files.PutFolder(u"C:\\data\\Sequences");
    recorder.Call(u"Init", Ref<Object>(MakeRef<RecordingTransport>(transcript)));
    controller.Call(u"Init", Ref<Object>(form), u"C:\\data", Ref<Object>(MakeRef<RecordingLamps>(transcript)),
                    recorder);
    controller.Call(u"setButtonGroupPageSize", 4);
    controller.Call(u"CreateNewShow", u"Gala");
    controller.Call(u"AddPage", u"One");
  }
  void Assign(std::int32_t group, std::int32_t slot, const char16_t* name) {
    controller.Call(u"assignButton", group, slot, name, ButtonType_Sequence);
  }
  Subject Button(std::int32_t group, std::int32_t index) {
    return controller.Item(u"buttonWithIndex", group, index);
  }
  std::string Names(const Subject& list) {
    std::string result;
    for (std::int32_t i = 0; i < list.Number(u"Size"); ++i) {
      result += (i == 0 ? "" : " ") + ToUtf8(list.Item(u"GetItem", i).Text(u"name"));
    }
    return result;
  }
  // Makes the button of that control the one that the edit operations act on.
  void Edit(std::int32_t controlIndex) {
    controller.Call(u"setModeEditing", true);
    controller.Call(u"controlClicked", controlIndex, 1, 0, 0, 0);
    transcript.Take();
  }

  void ShowsAndPages();
  void Input();
  void Navigation();
  void Editing();
  void Faders();
  void Handlers();

  Transcript transcript;
  Ref<RecordingForm> form = MakeRef<RecordingForm>(transcript);
  Subject recorder{u"clsRecordController"};
  Subject controller{u"clsButtonGroupController"};
};

void ControllerByName::ShowsAndPages() {
  EXPECT_EQ(Subject(controller.Get(u"recordController").AsObject()), recorder);
  EXPECT_TRUE(controller.Get(u"persist").AsBoolean());
  controller.Put(u"persist", false);
  EXPECT_FALSE(controller.Get(u"persist").AsBoolean());
  controller.Put(u"persist", true);
  EXPECT_EQ(Subject(controller.Get(u"PageManager").AsObject()).Text(u"showName"), u"Gala");
  controller.Call(u"AddPage", u"Two");
  controller.Call(u"SetPage", u"Two");
  EXPECT_EQ(controller.Item(u"PageManager").Text(u"CurrentPageName"), u"Two");
  controller.Call(u"RenamePage", u"Two", u"Three");
  EXPECT_EQ(Boxes(controller.Item(u"GetPageNames")), "One Three");
  controller.Call(u"DeletePage", u"Three");
  EXPECT_EQ(Boxes(controller.Item(u"GetPageNames")), "One");
  transcript.Take();
  controller.Call(u"HideSplashScreen");
  EXPECT_THAT(transcript.Take(), ElementsAre("HideSplashScreen()"));
  controller.Call(u"RefocusCurrentPage");
  EXPECT_THAT(transcript.Take(), Contains("GetUIFaderValues()"));
  controller.Call(u"formLostFocus");
  EXPECT_THAT(transcript.Take(), Contains("setLED(246, -1, false)"));
  Assign(1, 1, u"Intro");
  transcript.Take();
  controller.Call(u"formGotFocus");
  EXPECT_THAT(transcript.Take(), Contains("setLED(245, 1, true)"));
  controller.Call(u"InfoDump");
  EXPECT_THAT(LogLines(), Contains("[Info]        - (1) button [Intro] [state: 0]"));
  EXPECT_TRUE(controller.Item(u"GetButtonMap").Truth(u"HasKey", u"intro"));
  const Subject lamps(controller.Get(u"mLEDManager").AsObject());
  controller.Put(u"mLEDManager", lamps);
  EXPECT_EQ(controller.Item(u"mLEDManager"), lamps);
  controller.Call(u"controlClicked", 33, 1, 0, 0, 0);
  EXPECT_EQ(Button(1, 1).Number(u"playState"), PlayState_On);
  controller.Call(u"clearAll");
  EXPECT_EQ(Button(1, 1).Number(u"playState"), PlayState_Off);
  controller.Call(u"controlClicked", 33, 1, 0, 0, 0);
  controller.Call(u"formShutdown");
  EXPECT_EQ(Button(1, 1).Number(u"playState"), PlayState_Off);
  controller.Call(u"LoadShow", u"Gala");
  EXPECT_EQ(Button(1, 1).Text(u"name"), u"Intro");
  controller.Call(u"removeButton", Button(1, 1));
}

void ControllerByName::Input() {
  Assign(1, 1, u"A");
  Assign(1, 2, u"B");
  Assign(0, 7, u"Top");
  controller.Call(u"fakeMouseUp", 5, u"test");
  EXPECT_EQ(LogLines().back(), "[Info] fake mouseUp from [5] from [test]");
  Button(0, 7).Put(u"BumpMode", BumpMode_On);
  controller.Call(u"controlPressed", 7);
  EXPECT_EQ(Button(0, 7).Number(u"playState"), PlayState_On);
  controller.Call(u"controlReleased", 7);
  EXPECT_EQ(Button(0, 7).Number(u"playState"), PlayState_Off);
  Variant clicked;
  transcript.Take();
  controller.Call(u"controlClicked", 33, 1, 2, 3.5, 4, TriggerMode_Toggle, true, ByRef(clicked));
  EXPECT_EQ(Subject(clicked.AsObject()), Button(1, 1));
  EXPECT_THAT(transcript.Take(), Contains("ButtonStateChanged(A@1/1, 1, 2, 3.5, 4)"));
  // An empty slot gives none; without returnButton the variable is left alone.
  controller.Call(u"controlClicked", 36, 1, 0, 0, 0, TriggerMode_Toggle, true, ByRef(clicked));
  ASSERT_EQ(clicked.kind(), Variant::Kind::Object);
  EXPECT_FALSE(clicked.AsObject());
  clicked = 7;
  controller.Call(u"controlClicked", 36, 1, 0, 0, 0, TriggerMode_Toggle, false, ByRef(clicked));
  EXPECT_EQ(clicked.AsLong(), 7);
  Variant excluded;
  controller.Call(u"releaseButtonsOnPage", 1, ButtonType_None, ByRef(excluded));
  EXPECT_EQ(Button(1, 1).Number(u"playState"), PlayState_Off);
  EXPECT_EQ(Subject(excluded.AsObject()).Text(u"name"), u"x");
  EXPECT_TRUE(controller.Truth(u"ToggleButtonAt", 1, 2));
  EXPECT_FALSE(controller.Truth(u"ToggleButtonAt", 1, 3));
  EXPECT_EQ(Button(1, 2).Number(u"playState"), PlayState_On);
  controller.Call(u"releaseButtonsOnPage", -1);
  controller.Call(u"highlightButton", 1, Highlight_First);
  transcript.Take();
  controller.Call(u"buttonGroupGo", 1, 2, Named(u"manualCrossfade", true));
  EXPECT_THAT(transcript.Take(), Contains("GoFromSubmaster(A@1/1, 2, 0, true)"));
}

void ControllerByName::Navigation() {
  // After the buttons A and B of the test before.
  Assign(1, 3, u"C");
  EXPECT_EQ(controller.Number(u"getPageOffset", 1), 0);
  EXPECT_TRUE(controller.Truth(u"changeButtonGroupPageOffset", 1, PageDir_Next));
  EXPECT_EQ(Names(controller.Item(u"getVisibleGroupButtons", 1)), "");
  EXPECT_TRUE(controller.Truth(u"goToPageWithButtonIndex", 1, 2));
  EXPECT_EQ(Names(controller.Item(u"getVisibleGroupButtons", 1)), "A B C");
  Variant before = -3;
  EXPECT_EQ(controller.Item(u"getPrevButton", 1, ByRef(before)).Text(u"name"), u"C");
  EXPECT_EQ(before.AsLong(), 999999);
  EXPECT_EQ(controller.Item(u"getNextButton", 1, 1).Text(u"name"), u"B");
  controller.Call(u"highlightButton", 1, Highlight_NextAfter,
                  Named(u"afterButton", Variant(Button(1, 2).object())));
  EXPECT_EQ(controller.Item(u"getHighlightedButton", 1).Text(u"name"), u"C");
  EXPECT_EQ(controller.Item(u"buttonAtControlIndex", 34).Text(u"name"), u"B");
  EXPECT_EQ(Names(controller.Item(u"getButtons")), "Top A B C");
  EXPECT_EQ(Names(controller.Item(u"getButtons", Named(u"buttonType", 2))), "");
  EXPECT_EQ(Names(controller.Item(u"getButtons", 0)), "Top");
  EXPECT_TRUE(controller.Truth(u"buttonIsVisible", Button(1, 3)));
  Button(1, 3).Put(u"isVisible", true);
  Button(0, 7).Put(u"isVisible", true);
  controller.Call(u"resetVisibility", 1);
  EXPECT_FALSE(Button(1, 3).Truth(u"isVisible"));
  EXPECT_TRUE(Button(0, 7).Truth(u"isVisible"));
  const Subject list(u"clsObjectList");
  list.Call(u"AddItem", Button(1, 2));
  controller.Call(u"setButtonGroupButtonList", 1, list);
  EXPECT_EQ(Names(controller.Item(u"getButtons", 1)), "B");
}

void ControllerByName::Editing() {
  // Group 2, whose controls begin at 37.
  const Ref<RecordingAssignment> callback = MakeRef<RecordingAssignment>(transcript);
  controller.Call(u"setModeAssign", u"Wash", ButtonType_Sequence, Ref<Object>(callback));
  transcript.Take();
  controller.Call(u"autoAssignNextAvailable", 2);
  EXPECT_THAT(transcript.Take(), Contains("CompleteAssignment(false)"));
  EXPECT_EQ(Names(controller.Item(u"getButtons", 2)), "Wash");
  controller.Call(u"setModeEditing", false);
  Edit(37);
  controller.Call(u"ToggleBumpMode");
  EXPECT_EQ(Button(2, 1).Number(u"BumpMode"), BumpMode_On);
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()"));
  Button(2, 1).Put(u"BumpMode", BumpMode_Off);
  Edit(37);
  controller.Call(u"ToggleLockState");
  EXPECT_TRUE(Button(2, 1).Truth(u"Locked"));
  Button(2, 1).Put(u"Locked", false);
  Edit(37);
  controller.Call(u"ChangeFaderMode", FaderMode_Speed);
  EXPECT_EQ(Button(2, 1).Number(u"FaderMode"), FaderMode_Speed);
  Edit(37);
  form->newName = u"Wash 2";
  controller.Call(u"RenameButton");
  EXPECT_EQ(Names(controller.Item(u"getButtons", 2)), "Wash 2");
  Edit(37);
  controller.Call(u"AssignMarkFade", MarkFadeType_Fade);
  EXPECT_EQ(Names(controller.Item(u"getButtons", 2)), "Wash 2 Wash 2 Fade");
  Edit(37);
  controller.Call(u"setModeCopy");
  controller.Call(u"controlClicked", 40, 1, 0, 0, 0);
  EXPECT_EQ(Button(2, 4).Text(u"name"), u"Wash 2 copy");
  Edit(40);
  controller.Call(u"setModeMove");
  controller.Call(u"controlClicked", 41, 1, 0, 0, 0);
  EXPECT_EQ(Button(3, 1).Text(u"name"), u"Wash 2 copy");
  Edit(41);
  EXPECT_EQ(controller.Item(u"setModeAdjFadeInOut"), Button(3, 1));
  EXPECT_EQ(Button(3, 1).Number(u"playState"), PlayState_On);
  Edit(41);
  controller.Call(u"beginEditCue");
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()"));
  controller.Call(u"CancelEditMode");
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()"));
  Edit(41);
  controller.Call(u"DeleteButton", true);
  EXPECT_THAT(transcript.Take(), Contains("DeleteButton(Wash 2 copy@3/1, true)"));
  EXPECT_FALSE(Button(3, 1));
  // A failure, though its number is 0.
  EXPECT_THROW(controller.Call(u"assignButton", 10, 1, u"x", 1), vestrel::Error);
}

void ControllerByName::Faders() {
  Assign(9, 3, u"Bump");
  transcript.Take();
  controller.Call(u"groupFaderChanged", 1, 40);
  EXPECT_THAT(transcript.Take(), Contains("UpdateFaderModelValue(0, 1, 40, true, -)"));
  controller.Call(u"BumpFaderChanged", 3, 20, true);
  EXPECT_THAT(transcript.Take(), Contains("UpdateFaderModelValue(1, 3, 20, true, Bump@9/3)"));
  form->positions.GroupFaders[2] = 60;
  Variant values;
  controller.Call(u"GetUIFaderValues", ByRef(values));
  EXPECT_EQ(Subject(values.AsObject()).Number(u"GroupFaders", 2), 60);
  transcript.Take();
  controller.Call(u"UpdateFaderModelValue", FaderType_Group, 2, 61, false);
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(0, 2, 61, false, -)"));
  controller.Call(u"PushCurrentGroupFaderValues");
  EXPECT_EQ(transcript.Take("UpdateFaderUI").size(), 8U);
}

void ControllerByName::Handlers() {
  const Subject bump = Button(9, 3);
  transcript.Take();
  controller.Call(u"IButtonEventHandler_LockStateChanged", bump);
  controller.Call(u"IButtonEventHandler_FaderModeChanged", bump);
  EXPECT_THAT(transcript.Take(), ElementsAre("LockStateChanged(Bump@9/3)", "FaderModeChanged(Bump@9/3)"));
  controller.Call(u"IButtonEventHandler_FaderValueChanged", bump, true);
  EXPECT_THAT(transcript.Take(), Contains("UpdateFaderUI(1, 3, 20)"));
  controller.Call(u"IButtonEventHandler_PlayStateChanged", bump, PSEventSource_User, 1, 0, 0, 0);
  EXPECT_THAT(transcript.Take(), Contains("HighlightBump(3, true)"));
  controller.Call(u"IButtonEventHandler_DeferPlaystateFor",
                  controller.Item(u"PageManager").Item(u"CurrentPage"), bump, PlayState_On, 5);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  const Subject group = controller.Item(u"PageManager").Item(u"CurrentPage").Item(u"ButtonGroups", 5);
  const Subject list(u"clsObjectList");
  list.Call(u"AddItem", bump);
  controller.Call(u"IObjListEventHandler_ItemAdded", list, bump, 0, group);
  EXPECT_EQ(group.Item(u"highlightedButton"), bump);
  list.Call(u"Clear");
  controller.Call(u"IObjListEventHandler_ItemRemoved", list, bump, 0, group);
  EXPECT_FALSE(group.Item(u"highlightedButton"));
}

using EveryOperationOfController = ControllerByName;
const bool testedController = TestedClasses().insert("clsButtonGroupController").second;

TEST_F(EveryOperationOfController, clsButtonGroupController) {
  ShowsAndPages();
  Input();
  Navigation();
  Editing();
  Faders();
  Handlers();
}

}  // namespace
}  // namespace vestrel::test
