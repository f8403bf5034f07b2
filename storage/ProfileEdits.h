// Values to be written and keys to be deleted, gathered in order.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "storage/TextArena.h"

namespace vestrel {

// A value to be written, or with no value a key to be deleted. The texts are the maker's and must outlive it.
struct ProfileEdit {
  std::string_view section;
  std::string_view key;
  std::optional<std::string_view> value;
};

class ProfileEdits {
 public:
  // Adds the edit with copies of its texts.
  void Add(const ProfileEdit& edit);
  // Drops all but the first `count`, which are at most as many as there are.
  void Shorten(std::size_t count) noexcept { edits_.resize(count); }

  bool empty() const noexcept { return edits_.empty(); }
  std::size_t size() const noexcept { return edits_.size(); }
  // Valid until the next change; the texts as long as the object lives, wherever it is moved.
  std::span<const ProfileEdit> view() const noexcept { return edits_; }

 private:
  std::string_view KeepSection(std::string_view section);

  std::vector<ProfileEdit> edits_;
  TextArena texts_;
};

}  // namespace vestrel
