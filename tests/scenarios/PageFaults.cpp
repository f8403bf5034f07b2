#include "tests/scenarios/PageFaults.h"

#include <algorithm>
#include <set>
#include <vector>

#include "core/Cast.h"
#include "core/Convert.h"

namespace vestrel::test {
namespace {

std::int32_t IndexOf(Object* item) {
  return Cast<clsButton>(item).buttonIndex;
}

std::string NameOf(const clsPage& page, std::int32_t group) {
  return ToUtf8(page.pageName()) + " group " + std::to_string(group) + ": ";
}

std::string FaultsOf(clsPage& checked, std::int32_t groupIndex, ListOrder order) {
  const Ref<clsButtonGroup> group = checked.ButtonGroups(groupIndex);
  const ItemSnapshot items = group->buttons->Snapshot();
  const std::string where = NameOf(checked, groupIndex);
  std::vector<Object*> playing;
  int highlighted = 0;
  for (std::int32_t i = 0; i < items.size(); ++i) {
    const auto& button = Cast<clsButton>(items[i]);
    if (button.groupIndex != groupIndex) return where + "a button of another group";
    if (order == ListOrder::ByIndex && i > 0 && IndexOf(items[i]) < IndexOf(items[i - 1])) {
      return where + "not in order";
    }
    if (button.playState() == PlayState_On) playing.push_back(items[i]);
    if (button.isHighlighted && group->highlightedButton != &button) return where + "a stray highlight";
    highlighted += button.isHighlighted ? 1 : 0;
  }
  if (highlighted > 1) return where + "two highlights";
  if (highlighted == 0 && group->highlightedButton) return where + "a highlight on no button";
  if (groupIndex == 0 || groupIndex == 9) return {};
  const ItemSnapshot listed = group->nowPlayingList->Snapshot();
  return std::equal(listed.begin(), listed.end(), playing.begin(), playing.end()) ? "" : where + "what plays";
}

}  // namespace

std::string FaultsOf(clsPage& checked, ListOrder order) {
  std::set<Object*> seen;
  for (std::int32_t g = 0; g <= 9; ++g) {
    const std::string faults = FaultsOf(checked, g, order);
    if (!faults.empty()) return faults;
    for (Object* item : checked.ButtonGroups(g)->buttons->Snapshot()) {
      if (!seen.insert(item).second) return NameOf(checked, g) + "a button twice";
    }
  }
  return {};
}

}  // namespace vestrel::test
