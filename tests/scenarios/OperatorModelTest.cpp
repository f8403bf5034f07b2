// Random operator sequences, the library against a simple model: after every operation both hold the same
// show, the derived state (what plays, the highlight, the lamps) is what the buttons say, and the page file
// gives the page back. Seeds are fixed; the full suite runs ten times as many as the quick one.
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/controller/ControllerFixture.h"
#include "tests/scenarios/OperatorModel.h"
#include "tests/support/Scale.h"

namespace vestrel::test {
namespace {

constexpr int kOperationsPerSeed = 2000;
constexpr int kSeedsInFull = 10;
constexpr std::size_t kMostButtons = 25;

class OperatorModelTest : public ControllerFixture, public testing::WithParamInterface<int> {
 protected:
  void Run(unsigned seed);

 private:
  using Operation = bool (OperatorModelTest::*)();

  // ---- The host: releases the others of a group when a button goes on, and plays what it is told to.
  void InstallHost();

  // ---- Chance.
  int Any(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }
  bool Perhaps() { return Any(0, 1) == 1; }
  std::u16string AnyName() { return u"n" + LongToText(Any(1, 40)); }
  int AnyGroup() { return Any(0, 9); }
  // A button of the page in view; false when there is none in the group drawn.
  bool AnyButton(model::Place& place);
  // A place where a button may be put, from the run in view; a taken one only where that shifts.
  bool AnyTarget(model::Place& place);
  int SlotOf(const model::Place& place) {
    return place.group == 0 ? place.index : place.index - show_->G(place.group).offset * show_->size();
  }
  int ControlOf(const model::Place& place) {
    return place.group == 0 ? place.index : 32 + (place.group - 1) * show_->size() + SlotOf(place);
  }
  bool Accepts(const model::Place& place) {
    return place.index >= 1 && place.index <= show_->LastIndex(place.group);
  }

  // ---- Operations; each answers whether it was carried out.
  bool AssignAtSlot();
  bool AssignByClick();
  bool AssignAutomatically();
  bool Overwrite();
  bool Move();
  bool Copy();
  bool Delete();
  bool MarkOrFade();
  bool Rename();
  bool ToggleFlags();
  bool ClickControl();
  bool PressControl();
  bool ReleaseControl();
  bool ToggleButton();
  bool ReleaseGroup();
  bool Go();
  bool GroupFader();
  bool BumpFader();
  bool PageGroup();
  bool ShowRun();
  bool Highlight();
  bool SelectPage();
  bool AddPage();
  bool DeletePage();
  bool RenamePage();
  bool Save();
  bool Reload();
  bool FocusLostAndGained();
  bool ClearAll();
  bool Shutdown();

  // ---- Helpers of operations.
  // Makes the button at the place the edit button, bringing it into view first.
  bool PickForEditing(const model::Place& place);
  std::size_t AnotherPage();
  // Runs `operation`; whether it was refused for the index, which is what the model expects for `accepted`.
  template <class Action>
  bool Refused(bool accepted, Action action);
  void PlaceNew(const model::Place& place, std::u16string_view name, int type);

  // ---- What holds after every operation.
  void Compare();
  void CompareGroup(std::int32_t g);
  void CheckLamps();
  void CheckFile();
  void CheckLog();

  std::mt19937 random_;
  std::optional<model::Show> show_;
  int nextPage_ = 2;
};

void OperatorModelTest::InstallHost() {
  transcript.onCall = [this](const std::string& call) {
    const bool changed = call.starts_with("ButtonStateChanged(");
    if (!changed && !call.starts_with("GoFromSubmaster(")) return;
    // "Name@group/index": find the button that the call names.
    const std::size_t open = call.find('(') + 1;
    const std::size_t at = call.find('@');
    const std::size_t slash = call.find('/');
    const Ref<clsButton> button = controller->buttonWithIndex(std::stoi(call.substr(at + 1, slash - at - 1)),
                                                              std::stoi(call.substr(slash + 1)));
    ASSERT_TRUE(button) << call;
    ASSERT_EQ(ToUtf8(button->name), call.substr(open, at - open));
    if (!changed) return button->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
    if (button->playState() != PlayState_On) return;
    Ref<clsButton> spared = button;
    controller->releaseButtonsOnPage(button->groupIndex, ButtonType_None, &spared);
  };
}

bool OperatorModelTest::AnyButton(model::Place& place) {
  place.group = AnyGroup();
  const auto& buttons = show_->G(place.group).buttons;
  if (buttons.empty()) return false;
  place.index = buttons[static_cast<std::size_t>(Any(0, static_cast<int>(buttons.size()) - 1))].index;
  return true;
}

bool OperatorModelTest::AnyTarget(model::Place& place) {
  place.group = AnyGroup();
  model::Group& group = show_->G(place.group);
  const int slot = place.group == 0 ? Any(1, 32) : Any(1, show_->size());
  place.index = place.group == 0 ? slot : group.offset * show_->size() + slot;
  const bool shifts = place.group >= 1 && place.group <= 8;
  return group.buttons.size() < kMostButtons && (shifts || group.AtIndex(place.index) == nullptr);
}

template <class Action>
bool OperatorModelTest::Refused(bool accepted, Action action) {
  const std::int32_t number = RaisedNumber(action);
  EXPECT_EQ(number, accepted ? 0 : BGCErr_ButtonIndexOutOfRange);
  return !accepted;
}

void OperatorModelTest::PlaceNew(const model::Place& place, std::u16string_view name, int type) {
  show_->Insert(show_->current, place.group, place.index, show_->New(std::u16string(name), type));
}

bool OperatorModelTest::AssignAtSlot() {
  model::Place place;
  if (!AnyTarget(place)) return false;
  const std::u16string name = AnyName();
  const int type = Any(1, 4);
  const auto act = [&] {
    controller->assignButton(place.group, SlotOf(place), name, static_cast<ButtonTypeEnum>(type));
  };
  if (!Refused(Accepts(place), act)) PlaceNew(place, name, type);
  return true;
}

bool OperatorModelTest::AssignByClick() {
  model::Place place;
  if (!AnyTarget(place)) return false;
  const std::u16string name = u"clicked" + LongToText(Any(1, 1000000));
  controller->setModeAssign(name, ButtonType_Timeline, assignment.get());
  if (!Refused(Accepts(place), [&] { Click(ControlOf(place)); })) PlaceNew(place, name, ButtonType_Timeline);
  controller->setModeEditing(false);
  return true;
}

bool OperatorModelTest::AssignAutomatically() {
  model::Place place{Any(1, 9), 1};
  model::Group& group = show_->G(place.group);
  if (group.buttons.size() >= kMostButtons) return false;
  while (group.AtIndex(place.index) != nullptr) ++place.index;
  const std::u16string name = u"auto" + LongToText(Any(1, 1000000));
  controller->setModeAssign(name, ButtonType_Auto, nullptr);
  show_->ShowIndex(place.group, place.index);
  const auto act = [&] { controller->autoAssignNextAvailable(place.group); };
  if (!Refused(Accepts(place), act)) PlaceNew(place, name, ButtonType_Auto);
  controller->setModeEditing(false);
  return true;
}

bool OperatorModelTest::Overwrite() {
  model::Place place;
  if (!AnyButton(place)) return false;
  const std::u16string name = show_->G(place.group).AtIndex(place.index)->name;
  // The first button of that name on the page is the one that is meant.
  for (place.group = 0; place.group <= 9; ++place.group) {
    model::Button* found = nullptr;
    for (auto& button : show_->G(place.group).buttons) {
      if (found == nullptr && button.name == name) found = &button;
    }
    if (found == nullptr) continue;
    place.index = found->index;
    break;
  }
  form->overwrite = Perhaps();
  const auto act = [&] { controller->setModeAssign(name, ButtonType_Multi, assignment.get()); };
  if (!form->overwrite) return !Refused(true, act);
  if (Refused(Accepts(place), act)) return true;
  show_->Take(show_->current, place.group, show_->G(place.group).AtIndex(place.index)->id);
  PlaceNew(place, name, ButtonType_Multi);
  return true;
}

bool OperatorModelTest::PickForEditing(const model::Place& place) {
  if (place.group != 0) {
    controller->goToPageWithButtonIndex(place.group, place.index);
    show_->ShowIndex(place.group, place.index);
  }
  controller->setModeEditing(true);
  Click(ControlOf(place));
  return true;
}

std::size_t OperatorModelTest::AnotherPage() {
  const auto page = static_cast<std::size_t>(Any(0, static_cast<int>(show_->pages.size()) - 1));
  controller->SetPage(show_->pages[page].name);
  show_->Select(page);
  return page;
}

bool OperatorModelTest::Move() {
  model::Place from;
  if (!AnyButton(from)) return false;
  PickForEditing(from);
  const std::size_t source = show_->current;
  const int id = show_->G(from.group).AtIndex(from.index)->id;
  controller->setModeMove();
  show_->Switch(from.group, id, false);
  if (Any(0, 3) == 0) AnotherPage();
  model::Place to;
  if (AnyTarget(to)) {
    const bool same = source == show_->current && from.group == to.group && from.index == to.index;
    const bool refused = Refused(same || Accepts(to), [&] { Click(ControlOf(to)); });
    if (!refused && !same) {
      show_->Insert(show_->current, to.group, to.index, show_->Take(source, from.group, id));
    }
  }
  controller->setModeEditing(false);
  return true;
}

bool OperatorModelTest::Copy() {
  model::Place from;
  if (!AnyButton(from)) return false;
  PickForEditing(from);
  const model::Button original = *show_->G(from.group).AtIndex(from.index);
  controller->setModeCopy();
  if (Any(0, 3) == 0) AnotherPage();
  model::Place to;
  // Names grow by a copy of a copy; the lists must stay short enough to be read back.
  if (original.name.size() < 20 && AnyTarget(to)) {
    const bool refused = Refused(Accepts(to), [&] { Click(ControlOf(to)); });
    if (!refused) PlaceNew(to, original.name + u" copy", original.type);
  }
  controller->setModeEditing(false);
  return true;
}

bool OperatorModelTest::Delete() {
  model::Place place;
  if (!AnyButton(place)) return false;
  PickForEditing(place);
  controller->DeleteButton(Perhaps());
  show_->Take(show_->current, place.group, show_->G(place.group).AtIndex(place.index)->id);
  return true;
}

bool OperatorModelTest::MarkOrFade() {
  model::Place place;
  if (!AnyButton(place)) return false;
  const bool shifts = place.group >= 1 && place.group <= 8;
  const model::Button original = *show_->G(place.group).AtIndex(place.index);
  if (!shifts || original.name.size() > 30 || show_->G(place.group).buttons.size() >= kMostButtons)
    return false;
  PickForEditing(place);
  const bool mark = Perhaps();
  if (!mark) ++place.index;
  const auto act = [&] { controller->AssignMarkFade(mark ? MarkFadeType_Mark : MarkFadeType_Fade); };
  if (!Refused(Accepts(place), act))
    PlaceNew(place, original.name + (mark ? u" Mark" : u" Fade"), original.type);
  controller->setModeEditing(false);
  return true;
}

bool OperatorModelTest::Rename() {
  model::Place place;
  if (!AnyButton(place)) return false;
  PickForEditing(place);
  form->newName = Perhaps() ? AnyName() : std::u16string();
  controller->RenameButton();
  model::Button& button = *show_->G(place.group).AtIndex(place.index);
  const bool wasOn = button.on;
  show_->Switch(place.group, button.id, false);
  if (!form->newName.empty()) button.name = form->newName;
  if (wasOn) show_->Switch(place.group, button.id, true);
  return true;
}

bool OperatorModelTest::ToggleFlags() {
  model::Place place;
  if (!AnyButton(place)) return false;
  PickForEditing(place);
  model::Button& button = *show_->G(place.group).AtIndex(place.index);
  switch (Any(0, 2)) {
    case 0:
      controller->ToggleBumpMode();
      button.bump = !button.bump;
      break;
    case 1:
      controller->ToggleLockState();
      button.locked = !button.locked;
      break;
    default:
      button.mode = Any(0, 2);
      controller->ChangeFaderMode(static_cast<FaderModeEnum>(button.mode));
  }
  return true;
}

bool OperatorModelTest::ClickControl() {
  model::Place place{AnyGroup(), 0};
  const int slot = place.group == 0 ? Any(1, 32) : Any(1, show_->size());
  place.index = place.group == 0 ? slot : show_->G(place.group).offset * show_->size() + slot;
  Click(ControlOf(place));
  show_->Click(place.group, place.index);
  return true;
}

bool OperatorModelTest::PressControl() {
  model::Place place{Perhaps() ? 0 : 9, 0};
  place.index = place.group == 0 ? Any(1, 32) : show_->G(9).offset * show_->size() + Any(1, show_->size());
  controller->controlPressed(ControlOf(place));
  show_->Press(place.group, place.index);
  return true;
}

bool OperatorModelTest::ReleaseControl() {
  model::Place place{Perhaps() ? 0 : 9, 0};
  place.index = place.group == 0 ? Any(1, 32) : show_->G(9).offset * show_->size() + Any(1, show_->size());
  controller->controlReleased(ControlOf(place));
  show_->LetGo(place.group, place.index);
  return true;
}

bool OperatorModelTest::ToggleButton() {
  model::Place place;
  if (!AnyButton(place) || place.group == 0) return false;
  EXPECT_TRUE(controller->ToggleButtonAt(place.group, place.index));
  show_->Toggle(place.group, place.index);
  return true;
}

bool OperatorModelTest::ReleaseGroup() {
  const int group = Any(-1, 9);
  controller->releaseButtonsOnPage(group);
  if (group == 0 || group == 9) return true;
  for (int g = group < 0 ? 0 : group; g <= (group < 0 ? 9 : group); ++g) show_->Release(g, 0);
  return true;
}

bool OperatorModelTest::Go() {
  const int group = Any(1, 8);
  controller->buttonGroupGo(group);
  show_->Go(group);
  return true;
}

bool OperatorModelTest::GroupFader() {
  const int group = Any(1, 8);
  const int position = Any(0, 4) == 0 ? 0 : Any(0, 100);
  form->positions.GroupFaders[group] = position;
  controller->groupFaderChanged(group, position);
  show_->MoveGroupFader(group, position);
  return true;
}

bool OperatorModelTest::BumpFader() {
  const int bump = Any(1, 8);
  const int position = Any(0, 4) == 0 ? 0 : Any(0, 100);
  const bool updateUi = Perhaps();
  form->positions.BumpFaders[bump] = position;
  controller->BumpFaderChanged(bump, position, updateUi);
  show_->MoveBumpFader(bump, position, updateUi);
  return true;
}

bool OperatorModelTest::PageGroup() {
  const int group = Any(1, 9);
  const bool next = Perhaps();
  int& offset = show_->G(group).offset;
  const bool moves = next ? offset < 9 : offset > 0;
  EXPECT_EQ(controller->changeButtonGroupPageOffset(group, next ? PageDir_Next : PageDir_Prev), moves);
  if (moves) offset += next ? 1 : -1;
  return true;
}

bool OperatorModelTest::ShowRun() {
  model::Place place;
  if (!AnyButton(place) || place.group == 0) return false;
  controller->goToPageWithButtonIndex(place.group, place.index);
  show_->ShowIndex(place.group, place.index);
  return true;
}

bool OperatorModelTest::Highlight() {
  const int g = Any(1, 8);
  const bool follow = Perhaps();
  controller->highlightButton(g, Highlight_First, follow);
  model::Group& group = show_->G(g);
  group.highlight = group.After(-1);
  if (follow && group.highlight != 0) show_->ShowIndex(g, group.ById(group.highlight)->index);
  return true;
}

bool OperatorModelTest::SelectPage() {
  AnotherPage();
  return true;
}

bool OperatorModelTest::AddPage() {
  if (show_->pages.size() >= 4) return false;
  const std::u16string name = u"Act " + LongToText(nextPage_++);
  controller->AddPage(name);
  show_->pages.push_back({name, {}});
  return true;
}

bool OperatorModelTest::DeletePage() {
  if (show_->pages.size() < 2) return false;
  const auto page = static_cast<std::size_t>(Any(0, static_cast<int>(show_->pages.size()) - 1));
  controller->DeletePage(show_->pages[page].name);
  show_->DeletePage(page);
  return true;
}

bool OperatorModelTest::RenamePage() {
  const auto page = static_cast<std::size_t>(Any(0, static_cast<int>(show_->pages.size()) - 1));
  const std::u16string name = u"Act " + LongToText(nextPage_++);
  controller->RenamePage(show_->pages[page].name, name);
  show_->pages[page].name = name;
  return Save();
}

bool OperatorModelTest::Save() {
  controller->PageManager()->saveToINI();
  return true;
}

bool OperatorModelTest::Reload() {
  Save();
  controller->LoadShow(u"Gala");
  show_->Reload();
  return true;
}

bool OperatorModelTest::FocusLostAndGained() {
  controller->formLostFocus();
  controller->formGotFocus();
  return true;
}

bool OperatorModelTest::ClearAll() {
  controller->clearAll();
  // The lamps show the page that was cleared last until the form has the focus again.
  controller->formGotFocus();
  show_->ClearAll();
  return true;
}

bool OperatorModelTest::Shutdown() {
  controller->formShutdown();
  show_->SwitchEverythingOff();
  return true;
}

void OperatorModelTest::CompareGroup(std::int32_t g) {
  const model::Group& expected = show_->G(g);
  const Ref<clsButtonGroup> group = Group(g);
  const ItemSnapshot items = group->buttons->Snapshot();
  ASSERT_EQ(static_cast<std::size_t>(items.size()), expected.buttons.size()) << "group " << g;
  EXPECT_EQ(group->pageOffset, expected.offset);
  std::vector<Object*> playing;
  int highlighted = 0;
  for (std::int32_t i = 0; i < items.size(); ++i) {
    const auto& button = Cast<clsButton>(items[i]);
    const model::Button& wanted = expected.buttons[static_cast<std::size_t>(i)];
    ASSERT_EQ(button.buttonIndex, wanted.index) << "group " << g << " position " << i;
    ASSERT_EQ(button.name, wanted.name);
    ASSERT_EQ(button.buttonType, wanted.type);
    ASSERT_EQ(button.groupIndex, g);
    ASSERT_EQ(button.playState() == PlayState_On, wanted.on) << ToUtf8(button.toString());
    ASSERT_EQ(button.Locked(), wanted.locked);
    ASSERT_EQ(button.BumpMode() == BumpMode_On, wanted.bump);
    ASSERT_EQ(button.FaderMode(), wanted.mode);
    ASSERT_EQ(button.faderValue(), wanted.fader.value);
    ASSERT_EQ(button.Fader()->Engaged(), wanted.fader.engaged);
    ASSERT_EQ(button.Page(), Page());
    ASSERT_EQ(button.isHighlighted, expected.highlight == wanted.id);
    ASSERT_TRUE(!button.isHighlighted || group->highlightedButton == &button);
    highlighted += button.isHighlighted ? 1 : 0;
    if (wanted.on && g >= 1 && g <= 8) playing.push_back(items[i]);
  }
  ASSERT_LE(highlighted, 1);
  ASSERT_TRUE(highlighted == 1 || !group->highlightedButton);
  const ItemSnapshot listed = group->nowPlayingList->Snapshot();
  ASSERT_EQ(std::vector<Object*>(listed.begin(), listed.end()), playing);
  ASSERT_EQ(group->Fader()->value(), expected.fader.value);
  ASSERT_EQ(group->Fader()->Engaged(), expected.fader.engaged);
}

// What is reported again is sent only where the lamp shows something else.
void OperatorModelTest::CheckLamps() {
  transcript.Take();
  for (std::int32_t g = 1; g <= 8; ++g) {
    const model::Group& group = show_->G(g);
    controller->mLEDManager->setButtonsInGroups1To8(g, !group.buttons.empty(), !group.Idle());
  }
  for (std::int32_t control = 1; control <= 32; ++control) {
    const model::Button* const button = show_->G(0).AtIndex(control);
    controller->mLEDManager->setButtonInTop32(control, button != nullptr, button != nullptr && button->on);
  }
  EXPECT_THAT(transcript.Take(), testing::IsEmpty());
}

void OperatorModelTest::CheckFile() {
  const auto read = MakeRef<clsPage>();
  read->Init(kApp, nullptr, u"Gala", show_->Shown().name);
  read->loadFromINI();
  for (std::int32_t g = 0; g <= 9; ++g) {
    const ItemSnapshot items = read->ButtonGroups(g)->buttons->Snapshot();
    const auto& expected = show_->G(g).buttons;
    ASSERT_EQ(static_cast<std::size_t>(items.size()), expected.size()) << "group " << g << "\n"
                                                                       << PageBytes();
    for (std::int32_t i = 0; i < items.size(); ++i) {
      const auto& button = Cast<clsButton>(items[i]);
      const model::Button& wanted = expected[static_cast<std::size_t>(i)];
      ASSERT_EQ(button.buttonIndex, wanted.index);
      ASSERT_EQ(button.name, wanted.name);
      ASSERT_EQ(button.buttonType, wanted.type);
    }
  }
}

// Nothing failed behind a trap.
void OperatorModelTest::CheckLog() {
  const std::string log = files.Get(kLog);
  EXPECT_EQ(log.find("PlayStateChanged:"), std::string::npos) << log;
  EXPECT_EQ(log.find("error in"), std::string::npos) << log;
  EXPECT_EQ(log.find("ButtonGroupGo:"), std::string::npos) << log;
  EXPECT_EQ(log.find("[Warning]"), std::string::npos) << log;
  files.Put(kLog, "");
}

void OperatorModelTest::Compare() {
  ASSERT_EQ(controller->PageManager()->CurrentPageName(), show_->Shown().name);
  std::string names;
  for (const model::Page& page : show_->pages) names += (names.empty() ? "" : "|") + ToUtf8(page.name);
  ASSERT_EQ(Names(controller->GetPageNames()), names);
  for (std::int32_t g = 0; g <= 9; ++g) ASSERT_NO_FATAL_FAILURE(CompareGroup(g));
  ASSERT_NO_FATAL_FAILURE(CheckLamps());
  ASSERT_NO_FATAL_FAILURE(CheckFile());
  CheckLog();
}

void OperatorModelTest::Run(unsigned seed) {
  // The number says how often the operation is drawn.
  struct Weighted {
    int weight;
    const char* name;
    Operation operation;
  };
  static const std::vector<Weighted> kOperations{
      {10, "assign", &OperatorModelTest::AssignAtSlot},
      {6, "assign by click", &OperatorModelTest::AssignByClick},
      {4, "assign automatically", &OperatorModelTest::AssignAutomatically},
      {3, "overwrite", &OperatorModelTest::Overwrite},
      {10, "move", &OperatorModelTest::Move},
      {5, "copy", &OperatorModelTest::Copy},
      {8, "delete", &OperatorModelTest::Delete},
      {4, "mark or fade", &OperatorModelTest::MarkOrFade},
      {4, "rename", &OperatorModelTest::Rename},
      {5, "toggle flags", &OperatorModelTest::ToggleFlags},
      {25, "click", &OperatorModelTest::ClickControl},
      {6, "press", &OperatorModelTest::PressControl},
      {6, "release", &OperatorModelTest::ReleaseControl},
      {5, "toggle", &OperatorModelTest::ToggleButton},
      {2, "release group", &OperatorModelTest::ReleaseGroup},
      {5, "go", &OperatorModelTest::Go},
      {8, "group fader", &OperatorModelTest::GroupFader},
      {8, "bump fader", &OperatorModelTest::BumpFader},
      {6, "page group", &OperatorModelTest::PageGroup},
      {3, "show run", &OperatorModelTest::ShowRun},
      {2, "highlight", &OperatorModelTest::Highlight},
      {4, "select page", &OperatorModelTest::SelectPage},
      {1, "add page", &OperatorModelTest::AddPage},
      {1, "delete page", &OperatorModelTest::DeletePage},
      {1, "rename page", &OperatorModelTest::RenamePage},
      {1, "save", &OperatorModelTest::Save},
      {1, "reload", &OperatorModelTest::Reload},
      {1, "focus", &OperatorModelTest::FocusLostAndGained},
      {1, "clear all", &OperatorModelTest::ClearAll},
      {1, "shutdown", &OperatorModelTest::Shutdown}};
  std::vector<int> weights;
  for (const Weighted& entry : kOperations) weights.push_back(entry.weight);
  std::discrete_distribution<std::size_t> draw(weights.begin(), weights.end());

  random_.seed(seed);
  show_.emplace(Any(1, 8));
  show_->pages.push_back({u"Act 1", {}});
  nextPage_ = 2;
  form->positions = {};
  Start();
  controller->setButtonGroupPageSize(show_->size());
  NewShow();
  InstallHost();
  for (int done = 0; done < kOperationsPerSeed;) {
    const Weighted& entry = kOperations[draw(random_)];
    if (!(this->*entry.operation)()) continue;
    ++done;
    Compare();
    ASSERT_FALSE(HasFailure()) << "seed " << seed << ", operation " << done << ": " << entry.name;
  }
  transcript.onCall = nullptr;
}

TEST_P(OperatorModelTest, TheLibraryAndTheModelAgreeAfterEveryOperation) {
  const int seeds = RunsLong() ? kSeedsInFull : 1;
  for (int i = 0; i < seeds; ++i) {
    ASSERT_NO_FATAL_FAILURE(Run(static_cast<unsigned>(GetParam() * kSeedsInFull + i)));
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, OperatorModelTest, testing::Range(0, 10));

}  // namespace
}  // namespace vestrel::test
