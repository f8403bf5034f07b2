// Set-up, focus, show and page commands, shutdown.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using controllerShowsTest = ControllerFixture;

const Calls kDark{"EndLEDTimer()", "setLED(245, -1, false)", "setLED(246, -1, false)",
                  "setLED(247, -1, false)"};

TEST_F(controllerShowsTest, BeforeInitEveryCommandRaisesAndNothingCrashes) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  EXPECT_FALSE(fresh->mLEDManager);
  EXPECT_FALSE(fresh->recordController());
  EXPECT_FALSE(fresh->PageManager());
  EXPECT_RAISES(91, fresh->formLostFocus());
  EXPECT_RAISES(91, fresh->formShutdown());
  EXPECT_RAISES(91, fresh->CreateNewShow(u"Gala"));
  EXPECT_RAISES(91, fresh->LoadShow(u"Gala"));
  EXPECT_RAISES(91, fresh->AddPage(u"Act 1"));
  EXPECT_RAISES(91, fresh->SetPage(u"Act 1"));
  EXPECT_RAISES(91, fresh->DeletePage(u"Act 1"));
  EXPECT_RAISES(91, fresh->RenamePage(u"Act 1", u"Act 2"));
  EXPECT_RAISES(91, fresh->GetPageNames());
  EXPECT_RAISES(91, fresh->InfoDump());
  EXPECT_RAISES(91, fresh->clearAll());
  EXPECT_RAISES(91, fresh->HideSplashScreen());
  EXPECT_RAISES(91, fresh->RefocusCurrentPage());
  EXPECT_RAISES(0, fresh->formGotFocus());
  EXPECT_TRUE(fresh->GetButtonMap()->KeyList()->Size() == 0);
}

TEST_F(controllerShowsTest, InitSetsEverythingUpAndDarkensTheSurface) {
  controller = MakeRef<clsButtonGroupController>();
  Forget();
  controller->Init(form.get(), kApp, lamps.get(), recorder.get());
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] BGC appPath is: C:\\app", "[Info] BGC InitShow()"));
  EXPECT_EQ(transcript.Take(), kDark);
  EXPECT_TRUE(controller->persist());
  EXPECT_TRUE(controller->mLEDManager);
  EXPECT_EQ(controller->PageManager()->showName(), u"$$null_show$$");
  EXPECT_THAT(files.Paths(), ElementsAre(kLog));
}

TEST_F(controllerShowsTest, RightAfterInitThePageSizeIsNotKnown) {
  controller = MakeRef<clsButtonGroupController>();
  controller->Init(form.get(), kApp, lamps.get(), recorder.get());
  // Run 0 of groups of -1 buttons: indices 1 to -1.
  EXPECT_EQ(controller->getVisibleGroupButtons(1)->Size(), 0);
  // Group 2 would begin one control before group 1.
  EXPECT_FALSE(controller->buttonAtControlIndex(33));
}

TEST_F(controllerShowsTest, AnotherInitForgetsThePageSize) {
  NewShow();
  Assign(2, 1, u"Intro");
  controller->Init(form.get(), kApp, lamps.get(), recorder.get());
  controller->LoadShow(u"Gala");
  EXPECT_EQ(controller->getVisibleGroupButtons(2)->Size(), 0);
  controller->setButtonGroupPageSize(4);
  EXPECT_EQ(controller->getVisibleGroupButtons(2)->Size(), 1);
}

TEST_F(controllerShowsTest, TheRecordControllerIsKeptLast) {
  controller = MakeRef<clsButtonGroupController>();
  const auto real = MakeRef<clsRecordController>();
  bool early = false;
  transcript.onCall = [&](const std::string&) { early = early || controller->recordController(); };
  controller->Init(form.get(), kApp, lamps.get(), real.get());
  EXPECT_FALSE(early);
  EXPECT_EQ(controller->recordController(), real);
}

TEST_F(controllerShowsTest, AHostsOwnRecordControllerIsNotHandedOutAsOurs) {
  EXPECT_RAISES(13, controller->recordController());
}

TEST_F(controllerShowsTest, LosingFocusDarkensTheSurface) {
  NewShow();
  controller->formLostFocus();
  EXPECT_EQ(transcript.Take(), kDark);
}

TEST_F(controllerShowsTest, GainingFocusSendsTopButtonsThenGroups) {
  NewShow();
  Assign(0, 17, u"Top");
  Assign(8, 1, u"Last");
  TurnOn(*Assign(2, 1, u"Intro"));
  controller->formGotFocus();
  Calls expected = kDark;
  expected.insert(expected.end(), {"setLED(247, 1, true)", "StartLEDTimer()", "setLED(245, 2, false)",
                                   "setLED(245, 128, true)"});
  EXPECT_EQ(transcript.Take(), expected);
}

TEST_F(controllerShowsTest, GainingFocusLightsTheLampOfEveryGroup) {
  NewShow();
  Calls expected = kDark;
  for (std::int32_t g = 1; g <= 8; ++g) {
    Assign(g, 1, u"Intro");
    expected.push_back("setLED(245, " + std::to_string(1 << (g - 1)) + ", true)");
  }
  controller->formGotFocus();
  EXPECT_EQ(transcript.Take(), expected);
}

TEST_F(controllerShowsTest, RefreshingTheLampsEndsQuietlyAtAFailure) {
  NewShow();
  Assign(0, 1, u"Top");
  Assign(1, 1, u"Intro");
  FailIn("setLED(246, 1,", 5);
  controller->formGotFocus();
  EXPECT_THAT(transcript.Take(), Not(Contains("setLED(245, 1, true)")));
}

TEST_F(controllerShowsTest, RefocusingResumesTheFaders) {
  NewShow();
  controller->RefocusCurrentPage();
  EXPECT_EQ(transcript.Take().front(), "GetUIFaderValues()");
}

TEST_F(controllerShowsTest, ANewShowReplacesTheOldAndClearsTheLamps) {
  NewShow();
  const Ref<clsPageManager> before = controller->PageManager();
  Forget();
  controller->CreateNewShow(u"Encore");
  EXPECT_NE(controller->PageManager(), before);
  EXPECT_EQ(controller->PageManager()->showName(), u"Encore");
  Calls twice = kDark;
  twice.insert(twice.end(), kDark.begin(), kDark.end());
  EXPECT_EQ(transcript.Take(), twice);
  const auto log = TakeLog();
  EXPECT_EQ(log[0], "[Info] BGC CreateNewShow()");
  EXPECT_EQ(log[1], "[Info] BGC InitShow()");
  EXPECT_THAT(hostServices.boxes, IsEmpty());
}

TEST_F(controllerShowsTest, AnUnwritableNewShowIsAnnouncedOnceAndStaysSetUp) {
  files.Put(kShowFile, "");
  files.SetReadOnly(kShowFile, true);
  transcript.Take();
  controller->CreateNewShow(u"Gala");
  EXPECT_THAT(TakeLog(), Contains("[Severe] BGC CreateNewShow [Gala]: Show INI is not writable"));
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].caption, u"Error");
  EXPECT_EQ(hostServices.boxes[0].text,
            u"INI file for show [Gala] is not writeable.\r\n\r\nPlease report to Talvo Systems Inc");
  EXPECT_EQ(controller->PageManager()->showName(), u"Gala");
  Calls expected = kDark;
  expected.emplace_back("HideSplashScreen()");
  expected.insert(expected.end(), kDark.begin(), kDark.end());
  EXPECT_EQ(transcript.Take(), expected);
}

TEST_F(controllerShowsTest, LoadingAShowBringsItsButtonsBack) {
  NewShow();
  Assign(2, 1, u"Intro");
  controller->LoadShow(u"Gala");
  EXPECT_EQ(Buttons(2), "Intro@2/1");
  EXPECT_EQ(TakeLog()[0], "[Info] BGC LoadShow [Gala]");
  EXPECT_EQ(transcript.Take().back(), "setLED(245, 2, true)");
}

TEST_F(controllerShowsTest, LoadingNeverShowsABoxEvenForReadOnlyFiles) {
  NewShow();
  files.SetReadOnly(kShowFile, true);
  files.SetReadOnly(kPageFile, true);
  controller->LoadShow(u"Gala");
  EXPECT_THAT(hostServices.boxes, IsEmpty());
  EXPECT_THAT(transcript.Take(), Not(Contains("HideSplashScreen()")));
}

TEST_F(controllerShowsTest, AFailedLoadReachesTheHostAndTheOldFileStays) {
  NewShow();
  files.Put(kPageFile, "[ButtonGroup0]\r\npageOffset=much\r\n");
  EXPECT_RAISES(13, controller->LoadShow(u"Gala"));
  controller->formShutdown();
  EXPECT_EQ(files.Get(kShowFile),
            "[PageManager]\r\nPageList=Act 1\r\n[Test Section]\r\nWriteTest=15/11/2026 07:31:41\r\n");
}

TEST_F(controllerShowsTest, AddingAPageThatIsNotTheFirstLeavesTheCurrentOne) {
  NewShow();
  controller->AddPage(u"Act 2");
  EXPECT_EQ(controller->PageManager()->CurrentPageName(), u"Act 1");
  EXPECT_EQ(TakeLog()[0], "[Info] BGC AddPage [Act 2]");
  EXPECT_EQ(transcript.Take(), kDark);
  controller->SetPage(u"Act 2");
  EXPECT_EQ(controller->PageManager()->CurrentPageName(), u"Act 2");
  EXPECT_EQ(TakeLog()[0], "[Info] BGC SetPage [Act 2]");
}

struct PageCommand {
  const char* name;
  void (clsButtonGroupController::*operation)(std::u16string_view);
};
class controllerPageCommandTest : public ControllerFixture,
                                  public testing::WithParamInterface<PageCommand> {};

TEST_P(controllerPageCommandTest, AnUnwritablePageIsAnnouncedAndStaysCurrent) {
  NewShow();
  files.SetReadOnly(kPageFile, true);
  clock.dateTime = u"15/11/2026 07:31:42";
  (controller.get()->*GetParam().operation)(u"Act 1");
  EXPECT_THAT(TakeLog(),
              Contains(std::string("[Severe] BGC ") + GetParam().name + " [Act 1]: INI file not writable"));
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].text,
            u"Page [Act 1] not writable.\r\n\r\nPlease create a new show as a precaution, and file a bug "
            u"report with Talvo Systems Inc.");
  EXPECT_EQ(transcript.Take()[0], "HideSplashScreen()");
  EXPECT_EQ(controller->PageManager()->CurrentPageName(), u"Act 1");
}

TEST_P(controllerPageCommandTest, WithoutAShowBothThePageManagerAndTheCommandComplain) {
  (controller.get()->*GetParam().operation)(u"Act 1");
  EXPECT_EQ(hostServices.boxes.size(), 2U);
  EXPECT_EQ(transcript.Take("HideSplashScreen").size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Commands, controllerPageCommandTest,
                         testing::Values(PageCommand{"AddPage", &clsButtonGroupController::AddPage},
                                         PageCommand{"SetPage", &clsButtonGroupController::SetPage}),
                         [](const auto& command) { return command.param.name; });

TEST_F(controllerShowsTest, DeletingAPageRefreshesTheLamps) {
  NewShow();
  Assign(3, 1, u"Intro");
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  Forget();
  controller->DeletePage(u"Act 2");
  EXPECT_EQ(TakeLog()[0], "[Info] BGC DeletePage [Act 2]");
  EXPECT_EQ(transcript.Take().back(), "setLED(245, 4, true)");
  EXPECT_EQ(Names(controller->GetPageNames()), "Act 1");
}

TEST_F(controllerShowsTest, DeletingAPageWritesNoOther) {
  NewShow();
  controller->AddPage(u"Act 2");
  files.Put(kPageFile, "as it was");
  controller->DeletePage(u"Act 2");
  EXPECT_EQ(PageBytes(), "as it was");
}

TEST_F(controllerShowsTest, RenamingAPageHasNoLineOfItsOwnAndNoLamps) {
  NewShow();
  controller->RenamePage(u"Act 1", u"Finale");
  EXPECT_THAT(TakeLog(), Not(Contains(HasSubstr("BGC"))));
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(Names(controller->GetPageNames()), "Finale");
}

TEST_F(controllerShowsTest, HidesTheSplashScreenThroughTheForm) {
  controller->HideSplashScreen();
  EXPECT_THAT(transcript.Take(), ElementsAre("HideSplashScreen()"));
}

TEST_F(controllerShowsTest, ShutdownSavesFirstAndThenSwitchesOff) {
  NewShow();
  TurnOn(*Assign(2, 1, u"Intro"));
  std::string whenSaved;
  transcript.onCall = [&](const std::string&) {
    if (whenSaved.empty()) whenSaved = PageBytes();
  };
  controller->formShutdown();
  const auto log = TakeLog();
  EXPECT_EQ(log[0], "[Info] button group controller shutdown");
  EXPECT_EQ(log[1], "[Info] saving show...");
  EXPECT_EQ(log[3], "[Info] show saved");
  // The switching off is saved before the form hears of it.
  EXPECT_THAT(whenSaved, HasSubstr("Button1_fields=Intro|1|0|0|0|0|False"));
  EXPECT_THAT(PageBytes(), HasSubstr("Button1_fields=Intro|1|0|0|0|0|False"));
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls[0], "ButtonStateChanged(Intro@2/1, 0, 0, 0, 0)");
  EXPECT_EQ(calls.back(), "ButtonPlaystateChanged(Intro@2/1, 0, 0, 0, 0, 0)");
}

TEST_F(controllerShowsTest, ShutdownSavesThePlayingStateBeforeItEnds) {
  NewShow();
  TurnOn(*Assign(2, 1, u"Intro"));
  std::string atLastPump;
  hostServices.onPump = [&] { atLastPump = PageBytes(); };
  controller->formShutdown();
  EXPECT_THAT(atLastPump, HasSubstr("Button1_fields=Intro|1|1|0|0|0|False"));
}

TEST_F(controllerShowsTest, ClearAllSwitchesOffOnEveryPageAndComesBack) {
  NewShow();
  controller->AddPage(u"Act 2");
  const Ref<clsButton> here = Assign(2, 1, u"Intro");
  TurnOn(*here);
  controller->SetPage(u"Act 2");
  const Ref<clsButton> there = Assign(3, 1, u"Chase");
  there->SetFaderValue(60, false);
  TurnOn(*there);
  Assign(3, 2, u"Quiet");
  Forget();
  controller->clearAll();
  EXPECT_EQ(here->playState(), PlayState_Off);
  EXPECT_EQ(there->playState(), PlayState_Off);
  EXPECT_EQ(there->faderValue(), 0);
  EXPECT_EQ(controller->PageManager()->CurrentPageName(), u"Act 2");
  EXPECT_THAT(TakeLog(),
              ElementsAre("[Info] BGC.ClearAll():", "[Info]   - clearing page [Act 1]",
                          "[Info]     - clearing button [Intro]", "[Info]   - clearing page [Act 2]",
                          "[Info]     - clearing button [Chase]"));
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls.back(), "RefreshPage(0, 0, -)");
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "RefreshPage(0, 0, -)"), 1);
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "RefreshPage(3, 0, -)"), 2);
  EXPECT_THAT(calls, Contains("ButtonStateChanged(Chase@3/1, 0, 0, 0, 0)"));
}

TEST_F(controllerShowsTest, ClearAllWithoutPagesOnlyRefreshes) {
  controller->CreateNewShow(u"Gala");
  Forget();
  controller->clearAll();
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(0, 0, -)"));
  EXPECT_THAT(hostServices.boxes, IsEmpty());
}

TEST_F(controllerShowsTest, ClearAllStopsWhenTheHostLoadsAnotherShow) {
  NewShow();
  TurnOn(*Assign(2, 1, u"Intro"));
  TurnOn(*Assign(2, 2, u"Chase"));
  InFirst("ButtonStateChanged", [&] { ReplaceShow(); });
  controller->clearAll();
  EXPECT_EQ(Names(controller->GetPageNames()), "Act 9");
  EXPECT_THAT(transcript.Take(), Not(Contains("RefreshPage(0, 0, -)")));
}

TEST_F(controllerShowsTest, ClearAllDoesNotMakeADeletedPageAgain) {
  NewShow();
  controller->AddPage(u"Act 2");
  Forget();
  InFirst("RefreshPage(3, 0, -)", [&] { controller->DeletePage(u"Act 2"); });
  controller->clearAll();
  EXPECT_EQ(Names(controller->GetPageNames()), "Act 1");
  EXPECT_EQ(transcript.Take().back(), "RefreshPage(0, 0, -)");
}

TEST_F(controllerShowsTest, TheDumpListsEveryPageGroupAndButton) {
  NewShow();
  controller->AddPage(u"Act 2");
  Assign(1, 3, u"Intro");
  TurnOn(*Assign(9, 2, u"Bump"));
  controller->InfoDump();
  const auto log = TakeLog();
  ASSERT_EQ(log.size(), 2U + 2 * 11 + 2);
  EXPECT_EQ(log[0], "[Info] BGC.InfoDump():");
  EXPECT_EQ(log[1], "[Info]  - number of pages: 2");
  EXPECT_EQ(log[2], "[Info]    - page [Act 1]");
  EXPECT_EQ(log[3], "[Info]      - group 0");
  EXPECT_EQ(log[4], "[Info]      - group 1");
  EXPECT_EQ(log[5], "[Info]        - (3) button [Intro] [state: 0]");
  EXPECT_EQ(log[13], "[Info]      - group 9");
  EXPECT_EQ(log[14], "[Info]        - (2) button [Bump] [state: 1]");
  EXPECT_EQ(log[15], "[Info]    - page [Act 2]");
  EXPECT_EQ(log[25], "[Info]      - group 9");
}

TEST_F(controllerShowsTest, TheButtonMapHoldsTheLastButtonOfAName) {
  NewShow();
  Assign(1, 1, u"Intro");
  const Ref<clsButton> last = Assign(9, 1, u"INTRO");
  Assign(2, 1, u"Chase");
  const Ref<clsDictionary> map = controller->GetButtonMap();
  EXPECT_EQ(Names(map->KeyList()), "Intro|Chase");
  EXPECT_EQ(&Cast<clsButton>(map->ValueOf(u"intro").get()), last.get());
}

TEST_F(controllerShowsTest, AnotherShowEndsTheEditModeAndForgetsTheEditButton) {
  NewShow();
  const Ref<clsButton> button = Assign(2, 1, u"Intro");
  Pick(*button);
  controller->CreateNewShow(u"Encore");
  EXPECT_RAISES(91, controller->ToggleLockState());
  controller->AddPage(u"Act 1");
  Assign(2, 1, u"Chase");
  Click(37);
  EXPECT_EQ(Playing(2), "Chase@2/1");
}

TEST_F(controllerShowsTest, AShowSetUpFromACallbackOfAnotherOneStays) {
  bool nested = false;
  transcript.onCall = [&](const std::string&) {
    if (!std::exchange(nested, true)) controller->CreateNewShow(u"Inner");
  };
  controller->CreateNewShow(u"Outer");
  EXPECT_EQ(controller->PageManager()->showName(), u"Inner");
  EXPECT_EQ(files.Get(u"C:\\app\\Sequences\\Inner\\pageSetting.ini").substr(0, 13), "[PageManager]");
}

}  // namespace
}  // namespace vestrel::test
