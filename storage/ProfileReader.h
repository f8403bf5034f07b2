// Finds the values of one INI text for whoever reads many: without a search where the keys are asked for as
// they stand, through an index of all otherwise.
#pragma once

#include <optional>
#include <string_view>

#include "storage/ProfileCursor.h"
#include "storage/ProfileIndex.h"

namespace vestrel {

class ProfileReader {
 public:
  // `text` must outlive the object.
  explicit ProfileReader(std::string_view text) noexcept : text_(text), cursor_(text) {}

  // As ProfileText::Find.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key);

 private:
  std::string_view text_;
  ProfileCursor cursor_;
  std::optional<ProfileIndex> index_;
};

}  // namespace vestrel
