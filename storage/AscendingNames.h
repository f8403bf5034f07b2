// Knows of names that come in ascending order, as those of a file that was written in order do, that none
// came before, without keeping them.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vestrel {

class AscendingNames {
 public:
  // Takes the next name. Whether it differs from all before, whatever the case of ASCII letters; false where
  // that is not known.
  bool IsNew(std::string_view name) noexcept;

 private:
  // Equal for names that are the same; of two with a number at one place the larger for the larger number.
  struct Rank {
    std::size_t size = 0;
    std::uint64_t front = 0;
    std::uint64_t back = 0;

    auto operator<=>(const Rank&) const = default;  // NOLINT(modernize-use-nullptr): not written here
  };

  Rank largest_;
};

}  // namespace vestrel
