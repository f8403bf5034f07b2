#include <gtest/gtest.h>

#include <fstream>

#include "core/Convert.h"
#include "tests/workbench/PageHostFixture.h"
#include "workbench/server/Hub.h"

namespace vestrel::workbench {
namespace {

using nlohmann::json;

class HubTest : public PageHost {
 protected:
  // Something that the page would do while a dialog is open.
  void Meanwhile(std::function<void()> work) { boost::asio::post(loop(), std::move(work)); }
  int OpenDialog() const { return page.state["dialog"]["id"].get<int>(); }
  // What the log tells of files so far.
  std::set<std::string> FilesTold() const {
    std::set<std::string> files;
    for (const json& frame : page.frames) {
      for (const json& entry : frame.value("entries", json::array())) {
        for (const json& file : entry.value("files", json::array())) files.insert(file);
      }
    }
    return files;
  }
  bool HasItem(const std::string& id) const {
    for (const json& item : page.state["items"]) {
      if (item["id"] == id) return true;
    }
    return false;
  }
  void AskToOverwrite() {
    Tell(page, {{"t", "do"}, {"id", 1}, {"cmd", "setModeAssign \"Moonlight\" ButtonType_Sequence"}});
  }
};

TEST_F(HubTest, APageIsGreetedWithEverything) {
  const json& hello = page.frames.front();
  EXPECT_EQ(hello["t"], "hello");
  for (const char* key : {"show", "layout", "group.0", "group.9", "surface", "transport", "edit", "stage",
                          "items", "dialog", "progress", "clients"}) {
    EXPECT_TRUE(hello["state"].contains(key)) << key;
  }
  EXPECT_EQ(hello["state"]["show"]["name"], "Harbour Lights");
  EXPECT_EQ(hello["state"]["group.0"]["slots"].size(), 32U);
  EXPECT_EQ(hello["state"]["group.3"]["slots"].size(), 8U);
  EXPECT_GT(hello["commands"].size(), 180U);
  EXPECT_GT(hello["log"].size(), 5U);
}

TEST_F(HubTest, AClickChangesTheButtonAndWhatPlaysForEveryPage) {
  FakePage other;
  hub().Join(other);
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  for (const FakePage* each : {&page, &other}) {
    EXPECT_EQ(each->state["group.1"]["slots"][0]["on"], true);
    ASSERT_EQ(each->state["stage"].size(), 1U);
    EXPECT_EQ(each->state["stage"][0]["name"], "Amber Front");
    EXPECT_EQ(each->state["clients"], 2);
    EXPECT_TRUE(each->inOrder);
    EXPECT_NE(each->LogText().find("ButtonStateChanged(Amber Front@1/1"), std::string::npos);
  }
  EXPECT_EQ(page.state, other.state);
  EXPECT_EQ(other.Count("done"), 0U);
  hub().Leave(other);
  EXPECT_EQ(page.state["clients"], 1);
}

TEST_F(HubTest, OnlyWhatChangedIsSent) {
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  for (const json& frame : page.frames) {
    if (frame["t"] != "patch") continue;
    EXPECT_FALSE(frame["set"].contains("group.5"));
    EXPECT_FALSE(frame["set"].contains("show"));
  }
}

TEST_F(HubTest, AHeldButtonIsReleasedWhenItsPageGoes) {
  FakePage other;
  hub().Join(other);
  // "Haze Burst" is a top button in bump mode.
  Tell(other, {{"t", "press"}, {"id", 1}, {"control", 9}});
  EXPECT_EQ(page.state["group.0"]["slots"][8]["on"], true);
  hub().Leave(other);
  EXPECT_EQ(page.state["group.0"]["slots"][8]["on"], false);
}

TEST_F(HubTest, AButtonThatTwoPagesHoldIsReleasedByTheLast) {
  FakePage other;
  hub().Join(other);
  Tell(other, {{"t", "press"}, {"id", 1}, {"control", 9}});
  Tell(page, {{"t", "press"}, {"id", 2}, {"control", 9}});
  Tell(other, {{"t", "release"}, {"id", 3}, {"control", 9}});
  EXPECT_EQ(page.state["group.0"]["slots"][8]["on"], true);
  Tell(page, {{"t", "release"}, {"id", 4}, {"control", 9}});
  EXPECT_EQ(page.state["group.0"]["slots"][8]["on"], false);
  EXPECT_TRUE(page.Done(4)["ok"]);
  hub().Leave(other);
}

TEST_F(HubTest, AFaderTellsWhereTheHandIsAndHowFarToGo) {
  Tell(page, {{"t", "fader"}, {"id", 1}, {"which", "group"}, {"number", 1}, {"value", 30}});
  const json& fader = page.state["surface"]["group"][0];
  EXPECT_EQ(fader["hand"], 30);
  EXPECT_EQ(fader["stored"], 80);
  EXPECT_EQ(fader["caught"], false);
  EXPECT_EQ(fader["way"], 1);
  EXPECT_EQ(fader["distance"], 50);
  Tell(page, {{"t", "fader"}, {"id", 2}, {"which", "group"}, {"number", 1}, {"value", 85}});
  EXPECT_EQ(page.state["surface"]["group"][0]["caught"], true);
  EXPECT_EQ(page.state["surface"]["group"][0]["way"], 0);
}

TEST_F(HubTest, LampsBlinkByTheTimerAlone) {
  EXPECT_TRUE(Succeeds("controlClicked 1 1 0 0 0"));
  EXPECT_EQ(page.state["surface"]["blinking"], true);
  const auto lamp = [&] { return page.state["surface"]["masks"]["246"].get<std::string>()[0]; };
  const char before = lamp();
  loop().run_one();
  const char after = lamp();
  EXPECT_NE(before, after);
  EXPECT_EQ(page.state["surface"]["blink"]["246"].get<std::string>()[0], '#');
  EXPECT_TRUE(Succeeds("controlClicked 1 1 0 0 0"));
  EXPECT_EQ(page.state["surface"]["blinking"], false);
}

TEST_F(HubTest, ADialogWaitsForAnyPageWhileTheLoopGoesOn) {
  FakePage other;
  hub().Join(other);
  bool asked = false;
  Meanwhile([&] {
    asked = true;
    EXPECT_EQ(other.state["dialog"]["kind"], "yesno");
    Tell(other, {{"t", "ping"}, {"id", 2}});
    EXPECT_FALSE(other.Answer("pong", 2).is_null());
    Tell(other, {{"t", "find"}, {"id", 3}, {"text", "moon"}});
    EXPECT_EQ(other.Answer("found", 3)["results"].size(), 1U);
    Tell(other, {{"t", "do"}, {"id", 4}, {"cmd", "controlClicked 33 1 0 0 0"}});
    EXPECT_EQ(other.Done(4)["error"], "refused: a dialog is waiting for its answer");
    Tell(other, {{"t", "press"}, {"id", 5}, {"control", 9}});
    EXPECT_EQ(other.state["group.0"]["slots"][8]["on"], true);
    EXPECT_TRUE(page.Done(1).is_null());
    Tell(other, {{"t", "answer"}, {"id", 6}, {"dialog", OpenDialog()}, {"value", true}});
  });
  AskToOverwrite();
  EXPECT_TRUE(asked);
  EXPECT_TRUE(other.Done(6)["ok"]);
  EXPECT_TRUE(page.Done(1)["ok"]);
  EXPECT_TRUE(page.state["dialog"].is_null());
  EXPECT_NE(page.LogText().find(
                "PromptButtonOverwrite(\"Do you want to overwrite the existing [Moonlight] button?\") "
                "-> true"),
            std::string::npos);
  hub().Leave(other);
}

TEST_F(HubTest, TheFirstAnswerCounts) {
  Meanwhile([&] {
    const int dialog = OpenDialog();
    Tell(page, {{"t", "answer"}, {"id", 2}, {"dialog", dialog + 1}, {"value", true}});
    Tell(page, {{"t", "answer"}, {"id", 3}, {"dialog", dialog}, {"value", "text"}});
    Tell(page, {{"t", "answer"}, {"id", 4}, {"dialog", dialog}, {"value", false}});
    Tell(page, {{"t", "answer"}, {"id", 5}, {"dialog", dialog}, {"value", true}});
  });
  AskToOverwrite();
  EXPECT_FALSE(page.Done(2)["ok"]);
  EXPECT_EQ(page.Answer("error", 3)["text"], "\"value\" does not answer this dialog");
  EXPECT_TRUE(page.Done(4)["ok"]);
  EXPECT_FALSE(page.Done(5)["ok"]);
  EXPECT_NE(page.LogText().find("-> false"), std::string::npos);
}

TEST_F(HubTest, ANameThatCannotBeIsRefusedAndTheDialogStaysOpen) {
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  Meanwhile([&] {
    EXPECT_EQ(page.state["dialog"]["kind"], "text");
    EXPECT_EQ(page.state["dialog"]["value"], "Amber Front");
    Tell(page, {{"t", "answer"}, {"id", 2}, {"dialog", OpenDialog()}, {"value", "a|b"}});
    EXPECT_FALSE(page.Done(2)["ok"]);
    Tell(page, {{"t", "answer"}, {"id", 3}, {"dialog", OpenDialog()}, {"value", "cool front"}});
    EXPECT_FALSE(page.Done(3)["ok"]);
    Tell(page, {{"t", "answer"}, {"id", 4}, {"dialog", OpenDialog()}, {"value", "Warm Front"}});
  });
  EXPECT_TRUE(Succeeds("RenameButton"));
  EXPECT_TRUE(page.Done(4)["ok"]);
  EXPECT_EQ(page.state["group.1"]["slots"][0]["name"], "Warm Front");
}

TEST_F(HubTest, ADialogWaitsForThePagesToComeBack) {
  FakePage late;
  Meanwhile([&] {
    hub().Leave(page);
    Meanwhile([&] {
      hub().Join(late);
      EXPECT_EQ(late.state["dialog"]["kind"], "yesno");
      Tell(late, {{"t", "answer"}, {"id", 2}, {"dialog", late.state["dialog"]["id"]}, {"value", false}});
    });
  });
  AskToOverwrite();
  EXPECT_TRUE(late.Done(2)["ok"]);
  EXPECT_TRUE(page.Done(1).is_null());
  hub().Leave(late);
}

TEST_F(HubTest, ShuttingDownAnswersADialogWithNoAndSaves) {
  Meanwhile([&] { hub().ShutDown(); });
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  AskToOverwrite();
  EXPECT_TRUE(page.sentAway);
  EXPECT_NE(page.LogText().find("-> false"), std::string::npos);
  EXPECT_NE(page.LogText().find("formShutdown"), std::string::npos);
  EXPECT_TRUE(session().host().stage().items().empty());
  loop().run();
  EXPECT_TRUE(loop().stopped());
}

TEST_F(HubTest, MalformedFramesGetAnErrorAndChangeNothing) {
  const std::uint64_t sequence = page.sequence;
  const std::string log = page.LogText();
  const char* const frames[] = {"",
                                "nonsense",
                                "{",
                                "[]",
                                "7",
                                "null",
                                "{}",
                                "{\"t\":7}",
                                "{\"t\":\"unknown\"}",
                                "{\"t\":\"do\"}",
                                "{\"t\":\"do\",\"cmd\":5}",
                                "{\"t\":\"do\",\"cmd\":\"\xFF\xFE\"}",
                                "{\"t\":\"do\",\"cmd\":\"\\ud800\"}",
                                "{\"t\":\"do\",\"cmds\":[]}",
                                "{\"t\":\"do\",\"cmds\":\"clearAll\"}",
                                "{\"t\":\"do\",\"cmds\":[\"setModeEditing true\",5]}",
                                "{\"t\":\"press\",\"control\":0}",
                                "{\"t\":\"press\",\"control\":-1}",
                                "{\"t\":\"press\",\"control\":1.5}",
                                "{\"t\":\"press\",\"control\":\"1\"}",
                                "{\"t\":\"press\",\"control\":99999999999999999999}",
                                "{\"t\":\"press\",\"control\":18446744073709551615}",
                                "{\"t\":\"fader\",\"which\":\"side\",\"number\":1,\"value\":1}",
                                "{\"t\":\"fader\",\"which\":\"group\",\"number\":9,\"value\":1}",
                                "{\"t\":\"fader\",\"which\":\"group\",\"number\":1,\"value\":101}",
                                "{\"t\":\"find\"}",
                                "{\"t\":\"events\",\"from\":-1,\"count\":5}",
                                "{\"t\":\"answer\",\"dialog\":\"x\",\"value\":true}"};
  std::size_t errors = 0;
  for (const char* frame : frames) {
    hub().Receive(page, frame);
    EXPECT_EQ(page.Count("error"), ++errors) << frame;
  }
  hub().Receive(page, std::string(60'000, '['));
  EXPECT_EQ(page.Count("error"), ++errors);
  EXPECT_EQ(page.sequence, sequence);
  EXPECT_EQ(page.LogText(), log);
}

TEST_F(HubTest, BadCommandsAreAnsweredWithTheirError) {
  EXPECT_EQ(ErrorOf("nonsense"), "unknown operation \"nonsense\"");
  EXPECT_EQ(ErrorOf("controlclicked"), "unknown operation \"controlclicked\"; did you mean controlClicked?");
  EXPECT_EQ(ErrorOf(""), "there is no command");
  EXPECT_EQ(ErrorOf("# only a note"), "there is no command");
  EXPECT_TRUE(ErrorOf("setModeMove").starts_with("error 91 "));
  EXPECT_EQ(Do("pages.showName")["results"][""], "\"Harbour Lights\"");
}

TEST_F(HubTest, CommandsOfOneFrameArePerformedInTurnAndToldAtTheEnd) {
  const std::size_t before = page.Count("patch");
  Tell(page,
       {{"t", "do"},
        {"id", 1},
        {"cmds", {"setModeEditing true", "controlClicked 33 1 0 0 0", "setModeCopy", "pages.showName"}}});
  EXPECT_EQ(page.Done(1)["results"][""], "\"Harbour Lights\"");
  EXPECT_EQ(page.Count("patch"), before + 1);
  EXPECT_EQ(page.state["edit"]["mode"], "Copy");
}

TEST_F(HubTest, CommandsOfOneFrameEndWithTheFirstThatFails) {
  Tell(page, {{"t", "do"}, {"id", 1}, {"cmds", {"setModeMove", "controlClicked 33 1 0 0 0"}}});
  EXPECT_TRUE(page.Done(1)["error"].get<std::string>().starts_with("error 91 "));
  EXPECT_EQ(page.state["group.1"]["slots"][0]["on"], false);
}

TEST_F(HubTest, AFrameWithTooManyCommandsChangesNothing) {
  Tell(page, {{"t", "do"}, {"id", 1}, {"cmds", json(257, "controlClicked 33 1 0 0 0")}});
  EXPECT_FALSE(page.Answer("error", 1).is_null());
  EXPECT_EQ(page.state["group.1"]["slots"][0]["on"], false);
}

TEST_F(HubTest, EventsAreSentInParts) {
  EXPECT_TRUE(Succeeds("record.Record"));
  for (int i = 0; i < 6; ++i) EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  EXPECT_TRUE(Succeeds("record.Stop_"));
  EXPECT_EQ(page.state["transport"]["events"], 6);
  EXPECT_EQ(page.state["transport"]["dirty"], true);
  Tell(page, {{"t", "events"}, {"id", 1}, {"from", 4}, {"count", 10}});
  const json part = page.Answer("events", 1);
  EXPECT_EQ(part["total"], 6);
  EXPECT_EQ(part["from"], 4);
  ASSERT_EQ(part["rows"].size(), 2U);
  EXPECT_EQ(part["rows"][1]["i"], 5);
  EXPECT_EQ(part["rows"][1]["text"], "Amber Front@1/1");
  EXPECT_EQ(part["rows"][1]["kind"], "off");
  Tell(page, {{"t", "events"}, {"id", 2}, {"from", 100}, {"count", 10}});
  EXPECT_EQ(page.Answer("events", 2)["rows"].size(), 0U);
  EXPECT_TRUE(Succeeds("record.SaveEventsTo take.evt"));
  EXPECT_EQ(page.state["transport"]["dirty"], false);
}

TEST_F(HubTest, ButtonsAreFoundOnEveryPage) {
  Tell(page, {{"t", "find"}, {"id", 1}, {"text", "CHASE"}});
  const json found = page.Answer("found", 1);
  EXPECT_EQ(found["more"], false);
  std::set<std::string> pages;
  for (const json& result : found["results"]) pages.insert(result["page"]);
  EXPECT_EQ(pages, (std::set<std::string>{"Overture", "Act One", "Finale"}));
}

TEST_F(HubTest, ButtonsAreFoundInAnyLetterCase) {
  EXPECT_TRUE(Succeeds("assignButton 1 6 \"Caf\xC3\xA9 Glow\" ButtonType_Sequence"));
  Tell(page, {{"t", "find"}, {"id", 1}, {"text", "CAF\xC3\x89"}});
  ASSERT_EQ(page.Answer("found", 1)["results"].size(), 1U);
  EXPECT_EQ(page.Answer("found", 1)["results"][0]["name"], "Caf\xC3\xA9 Glow");
}

TEST_F(HubTest, ACallTellsWhichFilesItWrote) {
  EXPECT_TRUE(Succeeds("AddPage \"Encore\""));
  const std::set<std::string> files = FilesTold();
  EXPECT_TRUE(files.contains("Sequences/Harbour Lights/pageSetting.ini"));
  EXPECT_TRUE(files.contains("Sequences/Harbour Lights/Encore/pageSetting.ini"));
  EXPECT_FALSE(files.contains("vestrel.log"));
}

TEST_F(HubTest, ASaveThatChangesTheFileInItsPlaceIsTold) {
  const std::filesystem::path file = folder() / "Sequences/Harbour Lights/Overture/pageSetting.ini";
  const std::string before = FileBytes(file);
  EXPECT_TRUE(Succeeds("changeButtonGroupPageOffset 1 1"));
  EXPECT_EQ(FilesTold(), std::set<std::string>{"Sequences/Harbour Lights/Overture/pageSetting.ini"});
  const std::string after = FileBytes(file);
  EXPECT_NE(after, before);
  EXPECT_EQ(after.size(), before.size());
}

TEST_F(HubTest, ASaveOfSettingsDoesNotListTheFoldersAgain) {
  const std::uint64_t before = session().fileChanges();
  EXPECT_TRUE(Succeeds("changeButtonGroupPageOffset 1 1"));
  EXPECT_TRUE(Succeeds("pages.saveToINI"));
  EXPECT_EQ(session().fileChanges(), before);
}

TEST_F(HubTest, AnItemIsListedUnderItsNewNameOfTheSameLength) {
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 35 1 0 0 0"));
  Meanwhile([&] {
    EXPECT_EQ(page.state["dialog"]["value"], "Rose Front");
    Tell(page, {{"t", "answer"}, {"id", 2}, {"dialog", OpenDialog()}, {"value", "Pink Front"}});
  });
  ASSERT_TRUE(HasItem("Overture/Rose Front.ASQ"));
  EXPECT_TRUE(Succeeds("RenameButton"));
  EXPECT_TRUE(HasItem("Overture/Pink Front.ASQ"));
  EXPECT_FALSE(HasItem("Overture/Rose Front.ASQ"));
}

TEST_F(HubTest, CopiesAndMarksAreListedAndWhatIsDeletedIsNot) {
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 35 1 0 0 0"));
  EXPECT_TRUE(Succeeds("setModeCopy"));
  EXPECT_TRUE(Succeeds("controlClicked 40 1 0 0 0"));
  EXPECT_TRUE(HasItem("Overture/Rose Front copy.ASQ"));
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 40 1 0 0 0"));
  EXPECT_TRUE(Succeeds("DeleteButton true"));
  EXPECT_FALSE(HasItem("Overture/Rose Front copy.ASQ"));
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 35 1 0 0 0"));
  EXPECT_TRUE(Succeeds("AssignMarkFade MarkFadeType_Mark"));
  EXPECT_TRUE(HasItem("Overture/Rose Front Mark.ASQ"));
}

TEST_F(HubTest, WhileTheLibraryWorksCommandsWaitTheirTurn) {
  // Saving a show lets the loop turn once for every group.
  Meanwhile([&] {
    Tell(page, {{"t", "do"}, {"id", 2}, {"cmd", "controlClicked 33 1 0 0 0"}});
    EXPECT_TRUE(page.Done(2).is_null());
    Tell(page, {{"t", "ping"}, {"id", 3}});
    EXPECT_FALSE(page.Answer("pong", 3).is_null());
  });
  EXPECT_TRUE(Succeeds("pages.saveToINI"));
  EXPECT_FALSE(page.Answer("pong", 3).is_null());
  loop().poll();
  EXPECT_TRUE(page.Done(2)["ok"]);
  EXPECT_EQ(page.state["group.1"]["slots"][0]["on"], true);
}

TEST_F(HubTest, LongWorkTellsItsProgress) {
  EXPECT_TRUE(Succeeds("LoadShow \"Harbour Lights\""));
  bool told = false;
  for (const json& frame : page.frames) {
    if (frame["t"] == "patch" && frame["set"].contains("progress") && !frame["set"]["progress"].is_null()) {
      told = frame["set"]["progress"]["what"] == "LoadShow";
    }
  }
  EXPECT_TRUE(told);
  EXPECT_TRUE(page.state["progress"].is_null());
}

// Events of a recording that takes a while to read.
std::string ManyEvents(int count) {
  std::string text = std::to_string(count) + "\r\n";
  for (int i = 0; i < count; ++i) text += std::to_string(i) + ",\"Amber Front\",0,1,0,0,0\r\n";
  return text;
}

TEST_F(HubTest, WhileEventsAreReadThePageHearsHowFarItIs) {
  const std::string events = ManyEvents(300'000);
  std::ofstream(folder() / "many.evt", std::ios::binary) << events;
  FakePage late;
  Meanwhile([&] {
    Tell(page, {{"t", "ping"}, {"id", 2}});
    Tell(page, {{"t", "find"}, {"id", 3}, {"text", "moon"}});
    Tell(page, {{"t", "events"}, {"id", 4}, {"from", 0}, {"count", 1}});
    EXPECT_FALSE(page.Answer("pong", 2).is_null());
    EXPECT_TRUE(page.Answer("found", 3).is_null());
    EXPECT_TRUE(page.Answer("events", 4).is_null());
    hub().Join(late);
    EXPECT_EQ(late.state["show"], page.state["show"]);
  });
  EXPECT_TRUE(Succeeds("record.LoadEventsFrom many.evt"));
  std::size_t between = 0;
  for (const json& frame : page.frames) {
    const json progress =
        frame["t"] == "patch" ? frame["set"].value("progress", json(nullptr)) : json(nullptr);
    if (progress.is_null() || progress["total"] == 0) continue;
    EXPECT_EQ(progress["what"], "record.LoadEventsFrom");
    EXPECT_EQ(progress["total"], events.size());
    between += progress["done"] > 0 && progress["done"] < events.size() ? 1U : 0U;
  }
  EXPECT_GT(between, 0U);
  EXPECT_TRUE(page.inOrder);
  EXPECT_TRUE(page.state["progress"].is_null());
  EXPECT_EQ(page.state["transport"]["events"], 300'000);
  loop().poll();
  EXPECT_EQ(page.Answer("found", 3)["results"].size(), 1U);
  EXPECT_EQ(page.Answer("events", 4)["total"], 300'000);
  EXPECT_EQ(late.state, page.state);
  hub().Leave(late);
}

TEST_F(HubTest, TooMuchWaitingIsRefusedAndStillEveryButtonIsLetGo) {
  FakePage other;
  hub().Join(other);
  Tell(other, {{"t", "press"}, {"id", 1}, {"control", 9}});
  Meanwhile([&] {
    for (int i = 0; i < 1001; ++i) Tell(page, {{"t", "press"}, {"id", i}, {"control", 10}});
    EXPECT_EQ(page.Answer("error", 1000)["text"], "too much is waiting; nothing was done");
    hub().Leave(other);
  });
  EXPECT_TRUE(Succeeds("pages.saveToINI"));
  loop().poll();
  EXPECT_EQ(page.state["group.0"]["slots"][8]["on"], false);
}

TEST_F(HubTest, ThePictureOfAPageThatComesLateIsTheSame) {
  for (int control = 1; control < 100; control += 3)
    Do("controlClicked " + std::to_string(control) + " 1 0 0 0");
  FakePage late;
  hub().Join(late);
  EXPECT_EQ(late.state, page.state);
  EXPECT_EQ(late.sequence, page.sequence);
  hub().Leave(late);
}

}  // namespace
}  // namespace vestrel::workbench
