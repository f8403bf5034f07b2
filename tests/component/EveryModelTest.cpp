#include "model/clsButton.h"
#include "tests/component/EveryOperation.h"

namespace vestrel::test {
namespace {

using component::ByRef;
using component::Named;

class Handler : public IButtonEventHandler {
 public:
  std::string heard;

  void PlayStateChanged(clsButton* button, PSEventSourceEnum, std::int16_t, std::int16_t, float, float,
                        bool suppressSave) override {
    heard += std::string(button->playState() == PlayState_On ? "on" : "off") + (suppressSave ? "! " : " ");
  }
  void LockStateChanged(clsButton*) override { heard += "lock "; }
  void FaderModeChanged(clsButton*) override { heard += "mode "; }
  void FaderValueChanged(clsButton*, bool updateUI) override { heard += updateUI ? "fader+ " : "fader "; }
  void DeferPlaystateFor(clsPage*, clsButton*, PlayStateEnum state, std::int32_t value) override {
    heard += "defer" + std::to_string(state) + "/" + std::to_string(value) + " ";
  }
};

Subject Button(const Ref<Handler>& handler, std::int32_t group, std::int32_t index, const char16_t* name) {
  Subject button(u"clsButton");
  button.Call(u"InitWithValues", nullptr, group, index, name, ButtonType_Sequence, Ref<Object>(handler));
  return button;
}

EVERY_OPERATION_OF(clsButton) {
  const Ref<Handler> handler = MakeRef<Handler>();
  const Subject fresh(u"clsButton");
  fresh.Call(u"Init", Ref<Object>(handler), nullptr);
  EXPECT_EQ(fresh.Get(u"name").AsString(), u"none");
  EXPECT_EQ(fresh.Get(u"triggeredDimmerValue").AsLong(), 100);
  const Subject button = Button(handler, 2, 5, u"Intro");
  EXPECT_EQ(button.Get(u"groupIndex").AsLong(), 2);
  EXPECT_EQ(button.Get(u"buttonIndex").AsLong(), 5);
  EXPECT_EQ(button.Get(u"buttonType").AsLong(), 1);
  EXPECT_FALSE(button.Get(u"isVisible").AsBoolean());
  EXPECT_EQ(button.Get(u"controlIndex").AsLong(), -1);
  EXPECT_FALSE(button.Get(u"isHighlighted").AsBoolean());
  EXPECT_EQ(button.Get(u"playState").AsLong(), PlayState_Off);
  EXPECT_EQ(button.Text(u"toString"), u"group: 2, buttonIndex: 5, name: Intro, type: 1");

  const Subject plain = Button(handler, 1, 1, u"x");
  plain.Put(u"groupIndex", 3);
  plain.Put(u"buttonIndex", 6);
  plain.Put(u"name", u"Chase");
  plain.Put(u"buttonType", ButtonType_Multi);
  plain.Put(u"isVisible", true);
  plain.Put(u"controlIndex", 40);
  plain.Put(u"isHighlighted", true);
  plain.Put(u"triggeredDimmerValue", 80);
  EXPECT_EQ(plain.Number(u"triggeredDimmerValue"), 80);
  EXPECT_TRUE(plain.Truth(u"isHighlighted"));
  plain.Call(u"PrintObject");
  EXPECT_EQ(LogLines().back(), "[Info] button object: Chase - gi 3, bi 6, bt 2, ps 0, iv -1, ci 40%");
  EXPECT_EQ(button.Number(u"IComparable_CompareTo", plain), -1);
  EXPECT_EQ(plain.Number(u"IComparable_CompareTo", button, u"buttonIndex"), 1);
  EXPECT_EQ(plain.Error(u"IComparable_CompareTo", button, u"All"), 1001);
  EXPECT_EQ(plain.Number(u"IComparable_FieldCompare", u"NAME", u"Chase"), 0);
  EXPECT_EQ(plain.Error(u"IComparable_FieldCompare", u"type", 2), 7155);

  button.Call(u"click", 1, 0, 0.5, 0.5);
  EXPECT_EQ(button.Number(u"playState"), PlayState_On);
  button.Call(u"setPlayState", PlayState_Off, PSEventSource_User, 1, 0, 0, 0, Named(u"suppressSave", true));
  button.Call(u"setPlayState", PlayState_On, PSEventSource_User, 1, 0, 0, 0, true);
  EXPECT_EQ(handler->heard, "on off! ");
  handler->heard.clear();

  const Subject bump = Button(handler, 9, 3, u"Bump");
  bump.Put(u"BumpMode", BumpMode_On);
  EXPECT_EQ(bump.Get(u"BumpMode").AsLong(), BumpMode_On);
  bump.Call(u"press");
  EXPECT_EQ(bump.Get(u"faderValue").AsLong(), 100);
  bump.Call(u"release");
  EXPECT_EQ(bump.Get(u"faderValue").AsLong(), 0);
  EXPECT_TRUE(bump.Truth(u"SetFaderValue", 30, false));
  EXPECT_EQ(Subject(bump.Get(u"Fader").AsObject()).Number(u"value"), 30);
  EXPECT_EQ(handler->heard, "on fader+ fader+ off on fader ");
  handler->heard.clear();
  bump.Put(u"FaderMode", FaderMode_Speed);
  EXPECT_EQ(bump.Get(u"FaderMode").AsLong(), FaderMode_Speed);
  bump.Put(u"Locked", true);
  EXPECT_TRUE(bump.Get(u"Locked").AsBoolean());
  EXPECT_FALSE(bump.Truth(u"SetFaderValue", 60, true));
  EXPECT_EQ(handler->heard, "mode lock ");

  Variant name = u"";
  const Subject copy = button.Item(u"Copy", ByRef(name));
  EXPECT_EQ(name.AsString(), u"Intro");
  EXPECT_EQ(copy.Number(u"playState"), PlayState_Off);
  EXPECT_EQ(button.Item(u"Copy", u"Other").Text(u"name"), u"Other");

  const Subject ini(u"clsIniFile");
  ini.Call(u"UseFile", u"C:\\data\\b.ini");
  bump.Call(u"saveToINI", ini);
  EXPECT_EQ(ini.Text(u"ReadString", u"fields", u""), u"Bump|1|1|1|1|30|True");
  const Subject loaded = Button(handler, 1, 1, u"x");
  handler->heard.clear();
  loaded.Call(u"loadFromINI", ini, 4, 7);
  EXPECT_EQ(handler->heard, "defer1/30 ");
  EXPECT_EQ(loaded.Text(u"toString"), u"group: 4, buttonIndex: 7, name: Bump, type: 1");
}

EVERY_OPERATION_OF(clsFaderCatch) {
  const Subject fader(u"clsFaderCatch");
  fader.Call(u"Init");
  EXPECT_TRUE(fader.Truth(u"SetValue", 50, true));
  EXPECT_EQ(fader.Get(u"value").AsLong(), 50);
  EXPECT_FALSE(fader.Get(u"Engaged").AsBoolean());
  EXPECT_TRUE(fader.Truth(u"SetValue", 60));
  EXPECT_TRUE(fader.Get(u"Engaged").AsBoolean());
  fader.Call(u"PauseTracking");
  EXPECT_FALSE(fader.Truth(u"Engaged"));
  EXPECT_FALSE(fader.Truth(u"ResumeTracking", 10));
  EXPECT_FALSE(fader.Truth(u"SetValue", 20));
  EXPECT_TRUE(fader.Call(u"SetOuterValue", 60).IsEmpty());
  EXPECT_TRUE(fader.Truth(u"Engaged"));
}

EVERY_OPERATION_OF(clsButtonGroup) {
  const Subject group(u"clsButtonGroup");
  group.Call(u"Init", 3, nullptr);
  EXPECT_EQ(group.Get(u"groupIndex").AsLong(), 3);
  group.Put(u"pageOffset", 2);
  EXPECT_EQ(group.Get(u"pageOffset").AsLong(), 2);
  EXPECT_FALSE(group.Get(u"highlightedButton").AsObject());
  const Subject button(u"clsButton");
  group.Put(u"highlightedButton", button);
  EXPECT_EQ(group.Item(u"highlightedButton"), button);
  EXPECT_EQ(Subject(group.Get(u"buttons").AsObject()).Number(u"Size"), 0);
  const Subject list(u"clsObjectList");
  group.Put(u"buttons", list);
  EXPECT_EQ(group.Item(u"buttons"), list);
  EXPECT_EQ(Subject(group.Get(u"nowPlayingList").AsObject()).Number(u"Size"), 0);
  group.Put(u"nowPlayingList", list);
  EXPECT_EQ(group.Item(u"nowPlayingList"), list);
  EXPECT_EQ(Subject(group.Get(u"Fader").AsObject()).Number(u"value"), 0);
}

EVERY_OPERATION_OF(clsDeferred) {
  const Subject deferred(u"clsDeferred");
  const Subject page(u"clsPage");
  const Subject button(u"clsButton");
  EXPECT_FALSE(deferred.Get(u"page").AsObject());
  deferred.Put(u"page", page);
  deferred.Put(u"button", button);
  deferred.Put(u"playState", PlayState_Null);
  deferred.Put(u"faderValue", 55);
  EXPECT_EQ(Subject(deferred.Get(u"page").AsObject()), page);
  EXPECT_EQ(Subject(deferred.Get(u"button").AsObject()), button);
  EXPECT_EQ(deferred.Get(u"playState").AsLong(), PlayState_Null);
  EXPECT_EQ(deferred.Get(u"faderValue").AsLong(), 55);
}

EVERY_OPERATION_OF(clsPage) {
  constexpr const char16_t* kFile = u"C:\\data\\Sequences\\Gala\\One\\pageSetting.ini";
  files.PutFolder(u"C:\\data\\Sequences\\Gala\\One");
  files.PutFolder(u"C:\\data\\Sequences\\Gala\\Two");
  const Subject controller(u"clsButtonGroupController");
  controller.Call(u"Init", Subject(u"IFormSequenceShortcuts"), u"C:\\data", Subject(u"ILEDSetter"), nullptr);
  const Subject page(u"clsPage");
  page.Call(u"Init", u"C:\\data", controller, u"Gala", u"One");
  EXPECT_EQ(page.Get(u"pageName").AsString(), u"One");
  const Subject group(page.Get(u"ButtonGroups", 2).AsObject());
  const Subject button(u"clsButton");
  button.Call(u"InitWithValues", page, 2, 1, u"Intro", ButtonType_Sequence, controller);
  group.Item(u"buttons").Call(u"AddItem", button);
  page.Call(u"saveSingleButton", button);
  EXPECT_EQ(files.Get(kFile), "[ButtonGroup2]\r\nusedIndices=1\r\nButton1_fields=Intro|1|0|0|0|0|False\r\n");
  page.Call(u"saveButtonGroupToINI", 3, false);
  EXPECT_NE(files.Get(kFile).find("[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\n"), std::string::npos);
  page.Call(u"saveToINI", Named(u"withButtons", false));
  EXPECT_NE(files.Get(kFile).find("[ButtonGroup9]\r\npageOffset=0\r\n"), std::string::npos);
  const Subject read(u"clsPage");
  read.Call(u"Init", u"C:\\data", controller, u"Gala", u"One", true);
  read.Call(u"loadFromINI");
  EXPECT_EQ(
      Subject(read.Get(u"ButtonGroups", 2).AsObject()).Item(u"buttons").Item(u"GetItem", 0).Text(u"name"),
      u"Intro");
  const Subject fader = group.Item(u"Fader");
  fader.Call(u"SetOuterValue", 0);
  EXPECT_TRUE(fader.Truth(u"Engaged"));
  page.Call(u"LostFocus");
  EXPECT_FALSE(fader.Truth(u"Engaged"));
  page.Call(u"GotFocus");
  EXPECT_TRUE(fader.Truth(u"SetValue", 10));
  EXPECT_EQ(page.Number(u"IComparable_CompareTo", read, u"pageName"), 0);
  EXPECT_EQ(page.Number(u"IComparable_CompareTo", read), -1);
  EXPECT_EQ(page.Number(u"IComparable_FieldCompare", u"pageName", u"One"), 0);
  page.Put(u"pageNamePrivate", u"Zero");
  EXPECT_EQ(page.Text(u"pageName"), u"Zero");
  page.Call(u"Rename", u"Two");
  EXPECT_TRUE(page.Truth(u"TestWritable"));
  EXPECT_TRUE(files.Has(u"C:\\data\\Sequences\\Gala\\Two\\pageSetting.ini"));
}

}  // namespace
}  // namespace vestrel::test
