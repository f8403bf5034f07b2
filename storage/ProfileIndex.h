// Finds the keys of one INI text without reading through it each time; for loading many values of one file.
// Quickest when they are asked for in the order in which they stand.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "storage/NameTable.h"

namespace vestrel {

class ProfileIndex {
 public:
  // `text` must outlive the object.
  explicit ProfileIndex(std::string_view text);

  // As ProfileText::Find.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key);

 private:
  void AddSection(std::size_t begin);

  std::string_view text_;
  // Sections, and keys in the scope that the position of their section is; the first of each name.
  NameTable names_;
  std::vector<std::string_view> values_;  // of the names; none of sections
  std::uint32_t section_ = NameTable::kNone;
  std::uint32_t last_ = NameTable::kNone;  // found
};

}  // namespace vestrel
