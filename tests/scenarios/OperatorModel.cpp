#include "tests/scenarios/OperatorModel.h"

#include <algorithm>
#include <utility>

namespace vestrel::test::model {

bool Fader::Move(int position) {
  const bool crosses = std::min(outer, position) <= value && value <= std::max(outer, position);
  outer = position;
  if (!engaged && !crosses) return false;
  engaged = true;
  value = position;
  return true;
}

Button* Group::ById(int id) {
  for (Button& button : buttons) {
    if (button.id == id) return &button;
  }
  return nullptr;
}

Button* Group::AtIndex(int index) {
  for (Button& button : buttons) {
    if (button.index == index) return &button;
  }
  return nullptr;
}

bool Group::Idle() const {
  return std::none_of(buttons.begin(), buttons.end(), [](const Button& button) { return button.on; });
}

int Group::After(int index) const {
  for (const Button& button : buttons) {
    if (button.index > index) return button.id;
  }
  return buttons.empty() ? 0 : buttons.front().id;
}

Button Show::New(std::u16string name, int type) {
  Button button;
  button.id = nextId_++;
  button.name = std::move(name);
  button.type = type;
  return button;
}

// The host of the test releases the others of a group when one of its buttons goes on.
void Show::Switch(int group, int id, bool on) {
  Button* const button = G(group).ById(id);
  if (button->locked || button->on == on) return;
  button->on = on;
  if (on && Screen(group) && !button->bump) Release(group, id);
}

void Show::Release(int group, int spared) {
  for (Button& button : G(group).buttons) {
    if (button.id != spared && !button.locked) button.on = false;
  }
}

void Show::Click(int group, int index) {
  Button* const button = G(group).AtIndex(index);
  if (button == nullptr) return;
  if (!button->bump) Switch(group, button->id, !button->on);
  HighlightAfter(group, index);
}

void Show::Press(int group, int index) {
  Button* const button = G(group).AtIndex(index);
  if (button == nullptr || button->locked || !button->bump) return;
  if (group == 0) Switch(group, button->id, true);
  if (group != 9) return;
  if (button->fader.value == 0) Switch(group, button->id, true);
  button->beforePress = button->fader.value;
  button->fader.Force(100);
}

void Show::LetGo(int group, int index) {
  Button* const button = G(group).AtIndex(index);
  if (button == nullptr || button->locked || !button->bump) return;
  if (group == 0) Switch(group, button->id, false);
  if (group != 9) return;
  button->fader.Force(button->beforePress);
  if (button->beforePress == 0) Switch(group, button->id, false);
}

void Show::Toggle(int group, int index) {
  Button* const button = G(group).AtIndex(index);
  if (button == nullptr) return;
  ShowIndex(group, index);
  Switch(group, button->id, !button->on);
  HighlightAfter(group, index);
}

// The host of the test switches the button on that it is told to go with.
void Show::Go(int group) {
  const Button* const button = G(group).ById(G(group).highlight);
  if (button == nullptr) return HighlightAfter(group, -1);
  const int index = button->index;
  ShowIndex(group, index);
  Switch(group, button->id, true);
  HighlightAfter(group, index);
}

void Show::MoveGroupFader(int group, int position) {
  groupPositions[static_cast<std::size_t>(group)] = position;
  Group& moved = G(group);
  const int old = moved.fader.value;
  if (!moved.fader.Move(position) || position == old) return;
  if (old == 0 && position >= 1 && moved.Idle() && moved.highlight != 0) Go(group);
}

void Show::MoveBumpFader(int bump, int position, bool updateUi) {
  bumpPositions[static_cast<std::size_t>(bump)] = position;
  Button* const button = G(9).AtIndex(bump);
  if (button == nullptr || button->locked) return;
  const int old = button->fader.value;
  if (!button->fader.Move(position) || (position == old && !updateUi) || !button->bump) return;
  Switch(9, button->id, position >= 1);
}

void Show::Insert(std::size_t page, int group, int index, Button button) {
  Group& target = pages[page].groups[static_cast<std::size_t>(group)];
  auto at = std::find_if(target.buttons.begin(), target.buttons.end(),
                         [&](const Button& other) { return other.index >= index; });
  if (Screen(group) && at != target.buttons.end() && at->index == index) {
    for (auto later = at; later != target.buttons.end(); ++later) ++later->index;
  }
  button.index = index;
  if (group == 9) {
    button.bump = true;
    button.fader.Force(0);
  }
  if (Screen(group) && target.buttons.empty()) target.highlight = button.id;
  target.buttons.insert(at, std::move(button));
}

Button Show::Take(std::size_t page, int group, int id) {
  Group& source = pages[page].groups[static_cast<std::size_t>(group)];
  const auto at = std::find_if(source.buttons.begin(), source.buttons.end(),
                               [&](const Button& button) { return button.id == id; });
  Button taken = *at;
  const auto later = source.buttons.erase(at);
  if (source.highlight == id) {
    source.highlight = Screen(group) && later != source.buttons.end() ? later->id : 0;
  }
  if (Screen(group)) {
    for (auto next = later; next != source.buttons.end(); ++next) --next->index;
  }
  if (group == 9) taken.bump = false;
  return taken;
}

void Show::LoseFocus(Page& page) {
  for (std::size_t g = 1; g <= 8; ++g) page.groups[g].fader.engaged = false;
  for (Button& button : page.groups[9].buttons) {
    if (button.index <= 8) button.fader.engaged = false;
  }
}

void Show::GainFocus(Page& page) {
  for (std::size_t g = 1; g <= 8; ++g) page.groups[g].fader.outer = groupPositions[g];
  for (Button& button : page.groups[9].buttons) {
    if (button.index <= 8) button.fader.outer = bumpPositions[static_cast<std::size_t>(button.index)];
  }
}

void Show::Select(std::size_t page) {
  if (page == current) return;
  LoseFocus(Shown());
  current = page;
  GainFocus(Shown());
}

void Show::DeletePage(std::size_t page) {
  LoseFocus(Shown());
  pages.erase(pages.begin() + static_cast<std::ptrdiff_t>(page));
  current = 0;
  GainFocus(Shown());
}

void Show::SwitchEverythingOff() {
  for (Group& group : Shown().groups) {
    for (Button& button : group.buttons) button.on = button.on && button.locked;
  }
}

void Show::ClearAll() {
  const std::size_t shown = current;
  for (std::size_t page = 0; page < pages.size(); ++page) {
    Select(page);
    for (Group& group : Shown().groups) {
      for (Button& button : group.buttons) {
        if (button.on) button.fader.Force(0);
      }
    }
    SwitchEverythingOff();
  }
  Select(shown);
}

void Show::Reload() {
  for (Page& page : pages) {
    for (std::size_t g = 0; g < page.groups.size(); ++g) {
      Group& group = page.groups[g];
      group.fader = {false, group.fader.value, group.fader.value};
      for (Button& button : group.buttons) {
        button.on = false;
        button.fader = {};
        button.beforePress = 0;
      }
      group.highlight = Screen(static_cast<int>(g)) && !group.buttons.empty() ? group.buttons.front().id : 0;
    }
  }
  current = 0;
  GainFocus(Shown());
}

}  // namespace vestrel::test::model
