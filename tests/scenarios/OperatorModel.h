// A simple model of what an operator does to a show, written from the rules and without the library: pages of
// ten sorted groups, play states, highlights and faders with pick-up. The library is compared with it after
// every operation.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace vestrel::test::model {

struct Fader {
  bool engaged = false;
  int value = 0;
  int outer = 0;

  // The physical fader moved; whether the value follows.
  bool Move(int position);
  void Force(int position) { value = outer = position; }
};

struct Button {
  int id = 0;
  std::u16string name;
  int type = 1;
  int index = 0;
  bool on = false;
  bool locked = false;
  bool bump = false;
  int mode = 0;
  Fader fader;
  int beforePress = 0;
};

struct Group {
  std::vector<Button> buttons;
  int offset = 0;
  Fader fader;
  // The id of the highlighted button, 0 for none.
  int highlight = 0;

  Button* ById(int id);
  Button* AtIndex(int index);
  // Whether nothing of the group plays.
  bool Idle() const;
  // The id of the first button above the index, wrapping; 0 in an empty group.
  int After(int index) const;
};

struct Page {
  std::u16string name;
  std::array<Group, 10> groups;
};

// Where a button stands.
struct Place {
  int group = 0;
  int index = 0;
};

class Show {
 public:
  explicit Show(int buttonsPerGroup) : size_(buttonsPerGroup) {}

  std::vector<Page> pages;
  // The page in view.
  std::size_t current = 0;
  // Where the physical faders stand, 1 to 8.
  std::array<int, 9> groupPositions{};
  std::array<int, 9> bumpPositions{};

  Page& Shown() { return pages[current]; }
  Group& G(int group) { return Shown().groups[static_cast<std::size_t>(group)]; }
  int size() const { return size_; }
  int LastIndex(int group) const { return group == 0 ? 32 : size_ * 10; }
  Button New(std::u16string name, int type);

  void Switch(int group, int id, bool on);
  void Release(int group, int spared);
  void Click(int group, int index);
  void Press(int group, int index);
  void LetGo(int group, int index);
  void Toggle(int group, int index);
  void Go(int group);
  void MoveGroupFader(int group, int position);
  void MoveBumpFader(int bump, int position, bool updateUi);
  void ShowIndex(int group, int index) { G(group).offset = (index - 1) / size_; }

  void Insert(std::size_t page, int group, int index, Button button);
  Button Take(std::size_t page, int group, int id);
  void Select(std::size_t page);
  void DeletePage(std::size_t page);
  void SwitchEverythingOff();
  void ClearAll();
  // What a reload from disk leaves.
  void Reload();

 private:
  static bool Screen(int group) { return group >= 1 && group <= 8; }
  void HighlightAfter(int group, int index) { G(group).highlight = G(group).After(index); }
  void LoseFocus(Page& page);
  void GainFocus(Page& page);

  int size_;
  int nextId_ = 1;
};

}  // namespace vestrel::test::model
