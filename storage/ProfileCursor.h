// Reads an INI text along with its reader: finds the keys of a section that are asked for in the order in
// which they stand. Whoever asks otherwise goes on with ProfileIndex.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "storage/AscendingNames.h"

namespace vestrel {

class ProfileCursor {
 public:
  // `text` must outlive the object.
  explicit ProfileCursor(std::string_view text) noexcept : text_(text) {}

  // The value of the key, all that follows its "=", where its line is the one behind the last found and
  // certainly the first of that name in the first section of that name; none where that is not known. The
  // names are without spaces at their ends.
  std::optional<std::string_view> Next(std::string_view section, std::string_view key) noexcept;

 private:
  bool Enter(std::string_view section) noexcept;
  bool IsAmongPassed(std::string_view key) const noexcept;

  std::string_view text_;
  std::string_view section_;  // its name
  std::size_t begin_ = 0;     // of its first line
  std::size_t at_ = 0;        // of the line to come
  int sections_ = 0;          // looked for
  AscendingNames names_;      // of the lines from begin_ to at_
  int passed_ = 0;            // these lines
};

}  // namespace vestrel
