#include "storage/ProfileEdits.h"

namespace vestrel {
namespace {

// Those of a click and of a fader.
constexpr std::size_t kUsualEdits = 2;

}  // namespace

void ProfileEdits::Add(const ProfileEdit& edit) {
  if (edits_.empty()) edits_.reserve(kUsualEdits);
  ProfileEdit kept{KeepSection(edit.section), texts_.Keep(edit.key), std::nullopt};
  if (edit.value) kept.value = texts_.Keep(*edit.value);
  edits_.push_back(kept);
}

// Edits mostly come section by section and share its name.
std::string_view ProfileEdits::KeepSection(std::string_view section) {
  const bool isShared = !edits_.empty() && edits_.back().section == section;
  return isShared ? edits_.back().section : texts_.Keep(section);
}

}  // namespace vestrel
