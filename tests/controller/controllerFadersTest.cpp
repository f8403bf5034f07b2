// Moves of the physical faders and what the form is told of them.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class controllerFadersTest : public ControllerFixture {
 protected:
  controllerFadersTest() { NewShow(); }
  // The group's stored value with the physical fader elsewhere.
  void Store(std::int32_t group, std::int32_t value, std::int32_t outer) {
    Group(group)->Fader()->SetValue(value, true);
    Group(group)->Fader()->SetOuterValue(outer);
  }
};

TEST_F(controllerFadersTest, BeforeInitOnlyTheGroupFaderIsQuiet) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  TUIFaderValues values;
  EXPECT_RAISES(0, fresh->groupFaderChanged(1, 10));
  EXPECT_RAISES(0, fresh->BumpFaderChanged(1, 10, true));
  EXPECT_RAISES(91, fresh->GetUIFaderValues(values));
  EXPECT_RAISES(91, fresh->UpdateFaderModelValue(FaderType_Group, 1, 1, true));
  EXPECT_RAISES(91, fresh->PushCurrentGroupFaderValues());
}

TEST_F(controllerFadersTest, ACaughtMoveIsSavedAndReported) {
  files.Put(kPageFile, "");
  controller->groupFaderChanged(2, 40);
  EXPECT_EQ(PageBytes(), "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=40\r\n");
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(0, 2, 40, true, -)"));
}

TEST_F(controllerFadersTest, AMoveIsSavedBeforeItIsReported) {
  files.Put(kPageFile, "");
  std::string atForm;
  transcript.onCall = [&](const std::string&) { atForm = PageBytes(); };
  controller->groupFaderChanged(2, 40);
  EXPECT_EQ(atForm, "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=40\r\n");
}

TEST_F(controllerFadersTest, TheValueThatIsStoredAlreadyChangesNothingButThePosition) {
  Store(2, 40, 20);
  files.Put(kPageFile, "");
  controller->groupFaderChanged(2, 40);
  EXPECT_EQ(PageBytes(), "");
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_TRUE(Group(2)->Fader()->Engaged());
}

TEST_F(controllerFadersTest, AFaderThatHasNotCaughtDoesNothingEvenFromZero) {
  Assign(2, 1, u"Intro");
  Store(2, 0, 50);
  files.Put(kPageFile, "");
  controller->groupFaderChanged(2, 60);
  EXPECT_EQ(PageBytes(), "");
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(Group(2)->Fader()->value(), 0);
}

TEST_F(controllerFadersTest, RaisingAnIdleGroupFromZeroFiresItsHighlight) {
  Assign(2, 1, u"Intro");
  controller->groupFaderChanged(2, 1);
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(0, 2, 1, true, -)",
                                             "GoFromSubmaster(Intro@2/1, 0, 0, false)",
                                             "RefreshPage(2, 0, Intro@2/1)", "RefreshPage(2, 0, Intro@2/1)"));
}

TEST_F(controllerFadersTest, NothingFiresWithoutAHighlightOrWhilePlayingOrFromAnotherValue) {
  controller->groupFaderChanged(1, 1);
  TurnOn(*Assign(2, 1, u"Playing"));
  controller->groupFaderChanged(2, 1);
  Assign(3, 1, u"Idle");
  Store(3, 5, 5);
  controller->groupFaderChanged(3, 6);
  controller->groupFaderChanged(3, 0);
  Store(4, 0, 0);
  Assign(4, 1, u"Below");
  controller->groupFaderChanged(4, -1);
  EXPECT_THAT(transcript.Take("GoFromSubmaster"), IsEmpty());
}

TEST_F(controllerFadersTest, WithoutAHighlightOrWhilePlayingARaiseOnlySavesAndReports) {
  TurnOn(*Assign(2, 1, u"Playing"));
  for (const std::int32_t g : {1, 2}) {
    files.Put(kPageFile, "");
    controller->groupFaderChanged(g, 1);
    EXPECT_EQ(PageBytes(), "[ButtonGroup" + std::to_string(g) + "]\r\npageOffset=0\r\nfaderValue=1\r\n");
    EXPECT_THAT(transcript.Take(),
                ElementsAre("UpdateFaderModelValue(0, " + std::to_string(g) + ", 1, true, -)"));
  }
}

TEST_F(controllerFadersTest, TopAndBumpGroupsSaveAndReportButFireNothing) {
  for (const std::int32_t g : {0, 9}) {
    Assign(g, 1, u"Highlit");
    controller->highlightButton(g, Highlight_First, false);
    Forget();
    files.Put(kPageFile, "");
    controller->groupFaderChanged(g, 40);
    // Their sections hold no fader value.
    EXPECT_EQ(PageBytes(), "[ButtonGroup" + std::to_string(g) + "]\r\npageOffset=0\r\n");
    EXPECT_THAT(transcript.Take(),
                ElementsAre("UpdateFaderModelValue(0, " + std::to_string(g) + ", 40, true, -)"));
  }
}

TEST_F(controllerFadersTest, AnyGroupHasAFaderAndAnotherIndexIsQuiet) {
  EXPECT_RAISES(0, controller->groupFaderChanged(12, 10));
  EXPECT_RAISES(0, controller->groupFaderChanged(-1, 10));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerFadersTest, AFailedReportEndsItQuietlyAfterTheSave) {
  Assign(2, 1, u"Intro");
  files.Put(kPageFile, "");
  FailIn("UpdateFaderModelValue", 5);
  EXPECT_RAISES(0, controller->groupFaderChanged(2, 40));
  EXPECT_NE(PageBytes(), "");
  EXPECT_THAT(transcript.Take(), Not(Contains("GoFromSubmaster(Intro@2/1, 0, 0, false)")));
}

TEST_F(controllerFadersTest, ABumpFaderDrivesTheButtonOfItsNumber) {
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  files.Put(kPageFile, "as it was");
  controller->BumpFaderChanged(3, 40, true);
  EXPECT_EQ(bump->faderValue(), 40);
  EXPECT_EQ(bump->playState(), PlayState_On);
  const Calls calls = transcript.Take();
  EXPECT_THAT(calls, ElementsAre("ButtonStateChanged(Bump@9/3, 1, 0, 0, 0)", "HighlightBump(3, true)",
                                 "ButtonPlaystateChanged(Bump@9/3, 0, 1, 0, 0, 0)", "UpdateFaderUI(1, 3, 40)",
                                 "UpdateFaderModelValue(1, 3, 40, true, Bump@9/3)",
                                 "UpdateFaderModelValue(1, 3, 40, true, Bump@9/3)"));
}

TEST_F(controllerFadersTest, ABumpFadersOwnMoveSavesNothing) {
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  TurnOn(*bump);
  files.Put(kPageFile, "as it was");
  controller->BumpFaderChanged(3, 40, false);
  EXPECT_EQ(PageBytes(), "as it was");
  EXPECT_EQ(transcript.Take("UpdateFaderUI").size(), 0U);
}

TEST_F(controllerFadersTest, ABumpFaderWithoutAButtonDoesNothing) {
  for (const std::int32_t index : {1, 2, 4}) Assign(9, index, u"Bump");
  controller->BumpFaderChanged(3, 40, true);
  controller->BumpFaderChanged(-1, 40, true);
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerFadersTest, ABumpFaderThatHasNotCaughtReportsNothing) {
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  bump->Fader()->SetValue(80, true);
  bump->Fader()->SetOuterValue(20);
  controller->BumpFaderChanged(3, 40, true);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(bump->faderValue(), 80);
}

TEST_F(controllerFadersTest, PositionsAndModelValuesPassThrough) {
  form->positions.GroupFaders[4] = 44;
  form->positions.BumpFaders[5] = 55;
  TUIFaderValues values;
  controller->GetUIFaderValues(values);
  EXPECT_EQ(values.GroupFaders[4], 44);
  EXPECT_EQ(values.BumpFaders[5], 55);
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  controller->UpdateFaderModelValue(FaderType_BumpFader, 3, 12, false, bump.get());
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(1, 3, 12, false, Bump@9/3)"));
}

TEST_F(controllerFadersTest, PushesTheEightGroupValues) {
  for (std::int32_t g = 1; g <= 8; ++g) Group(g)->Fader()->SetValue(g * 10, true);
  Assign(9, 1, u"Bump");
  controller->PushCurrentGroupFaderValues();
  EXPECT_THAT(transcript.Take(),
              ElementsAre("UpdateFaderUI(0, 1, 10)", "UpdateFaderUI(0, 2, 20)", "UpdateFaderUI(0, 3, 30)",
                          "UpdateFaderUI(0, 4, 40)", "UpdateFaderUI(0, 5, 50)", "UpdateFaderUI(0, 6, 60)",
                          "UpdateFaderUI(0, 7, 70)", "UpdateFaderUI(0, 8, 80)"));
}

TEST_F(controllerFadersTest, AGroupFaderPicksUpAfterAPageChange) {
  controller->groupFaderChanged(2, 50);
  controller->AddPage(u"Act 2");
  form->positions.GroupFaders[2] = 50;
  controller->SetPage(u"Act 2");
  Forget();
  controller->groupFaderChanged(2, 40);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  controller->groupFaderChanged(2, 0);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  controller->groupFaderChanged(2, 5);
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(0, 2, 5, true, -)"));
}

}  // namespace
}  // namespace vestrel::test
