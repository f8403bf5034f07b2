// A show on disk, one click, and the lamps answer: show, page and log files byte by byte, and the callbacks
// of the click in order.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::ElementsAre;

class ShowOnDiskTest : public ControllerFixture {
 protected:
  static constexpr const char* kEmptyGroups[] = {
      "[ButtonGroup0]\r\npageOffset=0\r\nusedIndices=\r\n",
      "[ButtonGroup1]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup4]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup5]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup6]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup7]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup8]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n",
      "[ButtonGroup9]\r\npageOffset=0\r\nusedIndices=\r\n"};
  static constexpr const char* kTestSection = "[Test Section]\r\nWriteTest=15/11/2026 07:31:41\r\n";

  // The page's file with group 2 as given.
  static std::string PageWith(const std::string& group2) {
    std::string result;
    for (int g = 0; g < 10; ++g) result += g == 2 ? group2 : kEmptyGroups[g];
    return result + kTestSection;
  }
  static std::vector<std::string> Lines(const std::string& bytes) {
    std::vector<std::string> result;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
      result.push_back(bytes.substr(begin, end - begin));
    }
    return result;
  }
};

TEST_F(ShowOnDiskTest, ANewShowWithAPageAndAButton) {
  controller->CreateNewShow(u"Gala");
  controller->AddPage(u"Act 1");
  EXPECT_EQ(files.Get(kShowFile), std::string("[PageManager]\r\nPageList=Act 1\r\n") + kTestSection);
  EXPECT_EQ(PageBytes(), PageWith(kEmptyGroups[2]));
  controller->assignButton(2, 1, u"Intro", ButtonType_Sequence);
  controller->assignButton(2, 3, u"Chase", ButtonType_Multi);
  EXPECT_EQ(PageBytes(), PageWith("[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=1|3\r\n"
                                  "Button1_fields=Intro|1|0|0|0|0|False\r\n"
                                  "Button3_fields=Chase|2|0|0|0|0|False\r\n"));
}

TEST_F(ShowOnDiskTest, AClickChangesOneLineOfThePageFile) {
  NewShow();
  controller->assignButton(2, 1, u"Intro", ButtonType_Sequence);
  controller->assignButton(2, 3, u"Chase", ButtonType_Multi);
  Forget();
  Click(39);
  EXPECT_EQ(PageBytes(), PageWith("[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=1|3\r\n"
                                  "Button1_fields=Intro|1|0|0|0|0|False\r\n"
                                  "Button3_fields=Chase|2|1|0|0|0|False\r\n"));
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Chase@2/3, 1, 0, 0, 0)", "StartLEDTimer()",
                          "setLED(245, 2, false)", "ButtonPlaystateChanged(Chase@2/3, 0, 1, 0, 0, 0)",
                          "RefreshPage(2, 0, Intro@2/1)", "RefreshPage(2, 0, Intro@2/1)"));
}

TEST_F(ShowOnDiskTest, AButtonRenumberedLeavesItsOldLineWhichIsNotRead) {
  NewShow();
  controller->assignButton(2, 1, u"Intro", ButtonType_Sequence);
  controller->assignButton(2, 2, u"Chase", ButtonType_Multi);
  controller->removeButton(controller->buttonWithIndex(2, 1).get());
  EXPECT_EQ(PageBytes(), PageWith("[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=1\r\n"
                                  "Button1_fields=Chase|2|0|0|0|0|False\r\n"
                                  "Button2_fields=Chase|2|0|0|0|0|False\r\n"));
  controller->LoadShow(u"Gala");
  EXPECT_EQ(Buttons(2), "Chase@2/1");
}

TEST_F(ShowOnDiskTest, TheLogOfAnEvening) {
  files.Put(kLog, "");
  modLog::Init(kLog);
  Start();
  controller->CreateNewShow(u"Gala");
  controller->AddPage(u"Act 1");
  controller->assignButton(2, 1, u"Intro", ButtonType_Sequence);
  Click(37);
  controller->LoadShow(u"Gala");
  controller->formShutdown();
  EXPECT_THAT(
      Lines(files.Get(kLog)),
      ElementsAre(
          "[LogSystem] ========================================",
          "[LogSystem] logging started at 15/11/2026 07:31:41", "[Info] BGC appPath is: C:\\app",
          "[Info] BGC InitShow()", "[Info] BGC setButtonGroupPageSize: 4", "[Info] BGC CreateNewShow()",
          "[Info] BGC InitShow()", "[Info] CreateDirs() created dir [C:\\app\\Sequences]",
          "[Info] CreateDirs() created dir [C:\\app\\Sequences\\Gala]",
          "[Info] clsPageManager.setShow(): using INI path [C:\\app\\Sequences\\Gala\\pageSetting.ini]",
          "[Info] clsPageManager.setShow(): creating new show [Gala]",
          "[Info] clsPageManager.saveToINI(): writing to INI "
          "[C:\\app\\Sequences\\Gala\\pageSetting.ini]",
          "[Info] BGC AddPage [Act 1]", "[Info] CreateDirs() created dir [C:\\app\\Sequences\\Gala\\Act 1]",
          "[Info] clsPageManager.saveToINI(): writing to INI "
          "[C:\\app\\Sequences\\Gala\\pageSetting.ini]",
          "[Info] BGC LoadShow [Gala]", "[Info] BGC InitShow()",
          "[Info] clsPageManager.setShow(): using INI path [C:\\app\\Sequences\\Gala\\pageSetting.ini]",
          "[Info] clsPageManager.setShow(): loading existing show [Gala]", "[Info] loading from page: Act 1",
          "[Info] button group controller shutdown", "[Info] saving show...",
          "[Info] clsPageManager.saveToINI(): writing to INI "
          "[C:\\app\\Sequences\\Gala\\pageSetting.ini]",
          "[Info] show saved"));
}

TEST_F(ShowOnDiskTest, WhatWasPlayingComesBackOff) {
  NewShow();
  TurnOn(*Assign(2, 1, u"Intro"));
  controller->groupFaderChanged(2, 40);
  controller->LoadShow(u"Gala");
  EXPECT_EQ(controller->buttonWithIndex(2, 1)->playState(), PlayState_Off);
  EXPECT_EQ(Playing(2), "");
  EXPECT_EQ(Group(2)->Fader()->value(), 40);
  EXPECT_EQ(transcript.Take().back(), "setLED(245, 2, true)");
}

TEST_F(ShowOnDiskTest, RecordingAnEveningAndPlayingItBack) {
  const auto recording = MakeRef<clsRecordController>();
  const auto transport = MakeRef<RecordingTransport>(transcript);
  recording->Init(transport.get());
  controller->Init(form.get(), kApp, lamps.get(), recording.get());
  controller->setButtonGroupPageSize(4);
  NewShow();
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  recording->Record();
  clock.ticks += 500;
  recording->TimerTick();
  Click(37);
  clock.ticks += 500;
  recording->TimerTick();
  Click(37);
  recording->Stop_();
  EXPECT_EQ(recording->EventList()->Size(), 2);
  Forget();
  recording->Play();
  clock.ticks += 600;
  recording->TimerTick();
  EXPECT_EQ(intro->playState(), PlayState_On);
  clock.ticks += 600;
  recording->TimerTick();
  EXPECT_EQ(intro->playState(), PlayState_Off);
  EXPECT_THAT(
      transcript.Take("CurrentPlayingEvent"),
      ElementsAre("CurrentPlayingEvent(500 on Intro@2/1, 0)", "CurrentPlayingEvent(1000 off Intro@2/1, 1)"));
  EXPECT_EQ(recording->EventList()->Size(), 2);
}

}  // namespace
}  // namespace vestrel::test
