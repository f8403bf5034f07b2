// INI text as a value: bytes in, values and names out; and which edits may be planned together. It opens no
// file.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "storage/ProfileEdits.h"

namespace vestrel {

class ProfileText {
 public:
  // `text` must outlive the object.
  explicit ProfileText(std::string_view text) : text_(text) {}

  // The value of the first key of that name in the first section of that name, as a reader gets it: blanks
  // and one pair of quotes round it removed. None when there is no such key; an empty value is a value.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;
  // The names of all sections; doubled ones appear as often as they stand there.
  std::vector<std::string_view> Sections() const;
  // The key names of the first section of that name.
  std::vector<std::string_view> Keys(std::string_view section) const;

  // Whether each edit adds or changes one line and nothing else, and reads back under its name.
  static bool ArePlain(std::span<const ProfileEdit> edits);
  // How many of `edits`, at least one, may be planned together so that the outcome is that of planning them
  // one after the other.
  static std::size_t RunLength(std::span<const ProfileEdit> edits);

 private:
  std::string_view text_;
};

}  // namespace vestrel
