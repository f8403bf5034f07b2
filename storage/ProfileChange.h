// Decides what a set of edits does to an INI file's bytes: nothing, an overwrite of a few bytes in place, or
// a whole new file. Pure; ProfileFile carries it out.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "storage/ProfileEdits.h"

namespace vestrel {

// A disk writes a sector whole or not at all, so bytes inside one may be overwritten in place.
constexpr std::size_t kSectorSize = 512;

struct ProfileChange {
  enum class Kind : std::uint8_t { None, InPlace, Whole };

  Kind kind = Kind::None;
  std::size_t offset = 0;  // InPlace: where `bytes` go
  std::string bytes;       // InPlace: the bytes that differ; Whole: the new file
};

// The edits, made one after the other, on a file with these bytes.
ProfileChange PlanChange(std::string_view file, std::span<const ProfileEdit> edits);

// The value of a key in a file with these bytes, in the narrow page, as ProfileText::Find gives it.
std::optional<std::string> FindInFile(std::string_view file, std::string_view section, std::string_view key);

// The file's bytes after the edits.
std::string EditedFile(std::string_view file, std::span<const ProfileEdit> edits);

}  // namespace vestrel
