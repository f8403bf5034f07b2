// What the operator is told of files that cannot be written, and the order in which buttons are switched off.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using controllerShowEndsTest = ControllerFixture;

TEST_F(controllerShowEndsTest, AShowInAFolderThatTakesNoFileIsAnnouncedAndStaysSetUp) {
  files.PutFolder(u"C:\\app\\Sequences\\Gala");
  files.FailEvery("Replace", platform::FileStatus::AccessDenied);
  controller->CreateNewShow(u"Gala");
  files.FailNothing();
  EXPECT_THAT(TakeLog(), Contains("[Severe] BGC CreateNewShow [Gala]: Show INI is not writable"));
  EXPECT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_FALSE(files.Has(kShowFile));
  EXPECT_EQ(controller->PageManager()->showName(), u"Gala");
  EXPECT_EQ(controller->GetPageNames()->Size(), 0);
}

TEST_F(controllerShowEndsTest, AShowWhoseFolderCannotBeMadeRaises) {
  files.FailEvery("MakeDirectory", platform::FileStatus::AccessDenied);
  EXPECT_RAISES(75, controller->CreateNewShow(u"Gala"));
  files.FailNothing();
  EXPECT_FALSE(files.Has(kShowFile));
  EXPECT_THAT(hostServices.boxes, IsEmpty());
  controller->formShutdown();
  EXPECT_THAT(files.Paths(), ElementsAre(kLog));
}

struct WritingCommand {
  const char* name;
  void (clsButtonGroupController::*operation)(std::u16string_view);
  const char16_t* argument;
};
class controllerBoxTest : public ControllerFixture, public testing::WithParamInterface<WritingCommand> {};

TEST_P(controllerBoxTest, TheLogComesFirstThenTheSplashScreenGoesThenOneBoxIsShown) {
  NewShow();
  files.SetReadOnly(kShowFile, true);
  files.SetReadOnly(kPageFile, true);
  clock.dateTime = u"15/11/2026 07:31:42";
  int severe = 0;
  std::size_t boxesBefore = 9;
  transcript.onCall = [&](const std::string& call) {
    if (call != "HideSplashScreen()") return;
    for (const std::string& line : TakeLog()) severe += line.starts_with("[Severe] BGC") ? 1 : 0;
    boxesBefore = hostServices.boxes.size();
  };
  (controller.get()->*GetParam().operation)(GetParam().argument);
  EXPECT_EQ(severe, 1);
  EXPECT_EQ(boxesBefore, 0U);
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].caption, u"Error");
  EXPECT_EQ(transcript.Take("HideSplashScreen").size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, controllerBoxTest,
    testing::Values(WritingCommand{"AddPage", &clsButtonGroupController::AddPage, u"Act 1"},
                    WritingCommand{"SetPage", &clsButtonGroupController::SetPage, u"Act 1"},
                    WritingCommand{"CreateNewShow", &clsButtonGroupController::CreateNewShow, u"Gala"}),
    [](const auto& command) { return command.param.name; });

TEST_F(controllerShowEndsTest, ClearAllShowsThePageThenZeroesTheFaderThenSwitchesOff) {
  NewShow();
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->Fader()->SetValue(60, true);
  TurnOn(*intro);
  std::vector<std::string> atRefresh;
  std::int32_t faderAtForm = -1;
  transcript.onCall = [&](const std::string& call) {
    if (call == "RefreshPage(3, 0, -)") atRefresh = TakeLog();
    if (call.starts_with("ButtonStateChanged")) faderAtForm = intro->faderValue();
  };
  controller->clearAll();
  EXPECT_THAT(atRefresh, ElementsAre("[Info] BGC.ClearAll():"));
  EXPECT_EQ(faderAtForm, 0);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("RefreshPage(3, 0, -)", "ButtonStateChanged(Intro@2/1, 0, 0, 0, 0)",
                          "RefreshPage(2, 0, Intro@2/1)", "EndLEDTimer()", "setLED(245, 2, true)",
                          "ButtonPlaystateChanged(Intro@2/1, 0, 0, 0, 0, 0)", "RefreshPage(0, 0, -)"));
}

TEST_F(controllerShowEndsTest, ClearAllZeroesALockedPlayingButtonButLeavesItOn) {
  NewShow();
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->Fader()->SetValue(60, true);
  TurnOn(*intro);
  intro->SetLocked(true);
  Forget();
  controller->clearAll();
  EXPECT_EQ(intro->playState(), PlayState_On);
  EXPECT_EQ(intro->faderValue(), 0);
  EXPECT_THAT(TakeLog(), Contains("[Info]     - clearing button [Intro]"));
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(3, 0, -)", "RefreshPage(0, 0, -)"));
}

TEST_F(controllerShowEndsTest, ClearAllWithNoShowTellsTheOperatorAndRefreshes) {
  controller->clearAll();
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] BGC.ClearAll():",
                                     "[Severe] BGC SetPage [$$null_page$$]: attempted to set page on null "
                                     "show"));
  EXPECT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(0, 0, -)"));
}

TEST_F(controllerShowEndsTest, ClearAllOfAShowLoadedHalfWayMakesNoPageAndLeavesTheDiskAlone) {
  const std::u16string_view second = u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini";
  NewShow();
  Assign(2, 1, u"Intro");
  controller->AddPage(u"Act 2");
  files.Put(second, "[ButtonGroup0]\r\npageOffset=much\r\n");
  EXPECT_RAISES(13, controller->LoadShow(u"Gala"));
  const std::vector<std::u16string> paths = files.Paths();
  const std::string before = files.Get(kShowFile) + PageBytes() + files.Get(second);
  Forget();
  controller->clearAll();
  EXPECT_EQ(transcript.Take().back(), "RefreshPage(0, 0, -)");
  EXPECT_EQ(Names(controller->GetPageNames()), "Act 1");
  EXPECT_EQ(controller->PageManager()->CurrentPageName(), u"$$null_page$$");
  EXPECT_EQ(files.Paths(), paths);
  EXPECT_EQ(files.Get(kShowFile) + PageBytes() + files.Get(second), before);
  EXPECT_THAT(hostServices.boxes, IsEmpty());
}

// What a host may do while it hears that the first of two playing buttons went off.
struct Diversion {
  const char* name;
  void (*run)(clsButtonGroupController& controller);
  std::u16string_view file;
};
class controllerDivertedTest : public ControllerFixture, public testing::WithParamInterface<Diversion> {
 protected:
  static constexpr std::string_view kOther = "Button2_fields=Other|4|0|0|0|0|False";

  controllerDivertedTest() {
    NewShow();
    controller->AddPage(u"Act 2");
    TurnOn(*Assign(2, 1, u"Intro"));
    chase = Assign(2, 2, u"Chase");
    TurnOn(*chase);
    InFirst("ButtonStateChanged", [&] {
      GetParam().run(*controller);
      controller->assignButton(2, 1, u"First", ButtonType_Auto);
      controller->assignButton(2, 2, u"Other", ButtonType_Auto);
    });
  }
  std::string OtherBytes() const { return files.Get(GetParam().file); }

  Ref<clsButton> chase;
};

TEST_P(controllerDivertedTest, ShutdownSwitchesTheOtherOffWithoutWritingItIntoAnotherPage) {
  controller->formShutdown();
  EXPECT_EQ(chase->playState(), PlayState_Off);
  EXPECT_EQ(transcript.Take("ButtonStateChanged").size(), 2U);
  EXPECT_THAT(OtherBytes(), HasSubstr(kOther));
}

TEST_P(controllerDivertedTest, ClearAllWritesNoButtonIntoAnotherPage) {
  controller->clearAll();
  EXPECT_THAT(OtherBytes(), HasSubstr(kOther));
}

INSTANTIATE_TEST_SUITE_P(Hosts, controllerDivertedTest,
                         testing::Values(Diversion{"AnotherShow",
                                                   [](clsButtonGroupController& controller) {
                                                     controller.CreateNewShow(u"Encore");
                                                     controller.AddPage(u"Act 9");
                                                   },
                                                   u"C:\\app\\Sequences\\Encore\\Act 9\\pageSetting.ini"},
                                         Diversion{"AnotherPage",
                                                   [](clsButtonGroupController& controller) {
                                                     controller.SetPage(u"Act 2");
                                                   },
                                                   u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini"}),
                         [](const auto& diversion) { return diversion.param.name; });

TEST_F(controllerShowEndsTest, ShutdownSwitchesOffInGroupOrderAndLeavesLockedButtonsOn) {
  NewShow();
  TurnOn(*Assign(9, 1, u"Bump"));
  TurnOn(*Assign(3, 2, u"Later"));
  TurnOn(*Assign(3, 1, u"Earlier"));
  const Ref<clsButton> locked = Assign(2, 1, u"Locked");
  TurnOn(*locked);
  locked->SetLocked(true);
  TurnOn(*Assign(0, 1, u"Top"));
  controller->formShutdown();
  EXPECT_THAT(
      transcript.Take("ButtonStateChanged"),
      ElementsAre("ButtonStateChanged(Top@0/1, 0, 0, 0, 0)", "ButtonStateChanged(Earlier@3/1, 0, 0, 0, 0)",
                  "ButtonStateChanged(Later@3/2, 0, 0, 0, 0)", "ButtonStateChanged(Bump@9/1, 0, 0, 0, 0)"));
  EXPECT_EQ(locked->playState(), PlayState_On);
}

}  // namespace
}  // namespace vestrel::test
