// Finds the keys of one INI text without reading through it each time; for loading many values of one file.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vestrel {

class ProfileIndex {
 public:
  // `text` must outlive the object.
  explicit ProfileIndex(std::string_view text);

  // As ProfileText::Find.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

 private:
  struct Entry {
    std::string_view section;
    std::string_view key;
    std::string_view value;
    std::uint64_t hash = 0;
  };

  void AddSection(std::size_t begin);
  void Add(const Entry& entry);
  void Grow();
  std::size_t SlotOf(std::string_view section, std::string_view key, std::uint64_t hash) const;

  std::string_view text_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // 1-based positions in entries_, 0 for an empty slot; a power of two
};

}  // namespace vestrel
