// Finds names among many, whatever the case of their ASCII letters. A name belongs to a scope, so that one
// table serves the keys of many sections. Names keep the order in which they were added; they must outlive
// the table. Nothing is raised but std::bad_alloc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vestrel {

class NameTable {
 public:
  // Of a name that is not there.
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // Makes room for that many names in an empty table.
  void Reserve(std::size_t names);

  std::uint32_t size() const noexcept { return static_cast<std::uint32_t>(names_.size()); }

  // The position of the name, which is added at the end if it is not there yet.
  std::uint32_t Add(std::uint32_t scope, std::string_view text);
  // The position of the name, or kNone.
  std::uint32_t Find(std::uint32_t scope, std::string_view text) const noexcept;
  // Whether the name stands at that position, which may be any: for names that are asked for in order.
  bool IsAt(std::uint32_t position, std::uint32_t scope, std::string_view text) const noexcept;

 private:
  struct Name {
    std::string_view text;
    std::uint32_t scope;
    std::uint32_t hash;
  };

  std::size_t SlotOf(std::uint32_t scope, std::string_view text, std::uint32_t hash) const noexcept;
  void Spread(std::size_t slots);

  std::vector<Name> names_;
  std::vector<std::uint32_t> slots_;  // positions + 1, 0 for an empty slot; none or a power of two
};

}  // namespace vestrel
