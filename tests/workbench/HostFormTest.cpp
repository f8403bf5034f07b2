#include <optional>

#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/host/HostForm.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {
namespace {

namespace fs = std::filesystem;

class HostFormTest : public Workbench {
 protected:
  HostFormTest() {
    PutSample();
    host.emplace(folder());
    host->SetPageSize(4);
    host->LoadShow(u"Harbour Lights");
    host->LayOut();
  }
  clsButtonGroupController& controller() { return host->controller(); }
  void Edit(std::int32_t control) {
    controller().setModeEditing(true);
    controller().controlClicked(control, 1, 0, 0, 0);
  }
  bool HasFile(std::string_view name) const {
    return fs::exists(folder() / "Sequences" / "Harbour Lights" / "Overture" / name);
  }

  std::optional<SimulatedHost> host;
};

TEST_F(HostFormTest, TheEditPopupIsOpenUntilTheEditModeEnds) {
  Edit(33);
  EXPECT_EQ(host->form().editPopup(), controller().buttonWithIndex(1, 1));
  controller().ToggleLockState();
  EXPECT_FALSE(host->form().editPopup());
}

TEST_F(HostFormTest, EndingTheEditModeEndsItInTheControllerToo) {
  controller().setModeAssign(u"New", ButtonType_Sequence, nullptr);
  controller().CancelEditMode();
  controller().controlClicked(33, 1, 0, 0, 0);
  EXPECT_EQ(controller().buttonWithIndex(1, 1)->playState(), PlayState_On);
}

TEST_F(HostFormTest, TheOperatorsAnswerDecidesTheName) {
  host->answers().renameButton = u"Pink Front";
  Edit(35);
  controller().RenameButton();
  EXPECT_EQ(controller().buttonWithIndex(1, 3)->name, u"Pink Front");
  EXPECT_TRUE(HasFile("Pink Front.ASQ"));
  EXPECT_FALSE(HasFile("Rose Front.ASQ"));
}

TEST_F(HostFormTest, WithoutAnAnswerNothingIsRenamed) {
  Edit(35);
  controller().RenameButton();
  EXPECT_EQ(controller().buttonWithIndex(1, 3)->name, u"Rose Front");
  EXPECT_TRUE(HasFile("Rose Front.ASQ"));
}

TEST_F(HostFormTest, DeletingTakesTheItemsFilesUnlessTheOperatorSaysNo) {
  host->answers().deleteButton = false;
  Edit(35);
  controller().DeleteButton();
  EXPECT_TRUE(HasFile("Rose Front.ASQ"));
  host->answers().deleteButton = true;
  Edit(39);
  controller().DeleteButton();
  EXPECT_FALSE(HasFile("Moonlight.ASQ"));
}

TEST_F(HostFormTest, AMarkHasItsOwnCopyOfTheItem) {
  Edit(39);
  controller().AssignMarkFade(MarkFadeType_Mark);
  EXPECT_TRUE(HasFile("Moonlight Mark.ASQ"));
  EXPECT_TRUE(HasFile("Moonlight.ASQ"));
}

TEST_F(HostFormTest, AGoTurnsTheButtonOnAndThenStepsItsItem) {
  controller().buttonGroupGo(8);
  const Ref<clsButton> button = controller().buttonWithIndex(8, 1);
  EXPECT_EQ(button->playState(), PlayState_On);
  controller().highlightButton(8, Highlight_First);
  controller().buttonGroupGo(8);
  EXPECT_EQ(button->playState(), PlayState_On);
  EXPECT_EQ(host->stage().items()[0].goes, 1);
}

TEST_F(HostFormTest, ThePolicyReleasesTheNeighboursOfAButtonThatStarts) {
  host->SetReleaseOnPlay(true);
  controller().controlClicked(33, 1, 0, 0, 0);
  controller().controlClicked(37, 1, 0, 0, 0);
  controller().controlClicked(34, 1, 0, 0, 0);
  EXPECT_EQ(controller().buttonWithIndex(1, 1)->playState(), PlayState_Off);
  EXPECT_EQ(controller().buttonWithIndex(1, 2)->playState(), PlayState_On);
  EXPECT_EQ(controller().buttonWithIndex(2, 1)->playState(), PlayState_On);
}

TEST_F(HostFormTest, ABumpMarkerFollowsItsButton) {
  host->MoveBumpFader(2, 40);
  EXPECT_TRUE(host->form().bumpMarker(2));
  EXPECT_FALSE(host->form().bumpMarker(1));
  host->MoveBumpFader(2, 0);
  EXPECT_FALSE(host->form().bumpMarker(2));
}

TEST_F(HostFormTest, TheSplashScreenGoesOnce) {
  EXPECT_TRUE(host->form().splashScreen());
  controller().HideSplashScreen();
  controller().HideSplashScreen();
  EXPECT_FALSE(host->form().splashScreen());
}

}  // namespace
}  // namespace vestrel::workbench
