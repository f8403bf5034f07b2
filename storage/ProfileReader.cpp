#include "storage/ProfileReader.h"

#include "storage/ProfileLines.h"

namespace vestrel {

std::optional<std::string_view> ProfileReader::Find(std::string_view section, std::string_view key) {
  section = profile::TrimSpaces(section);
  key = profile::TrimSpaces(key);
  if (const auto value = cursor_.Next(section, key)) return profile::ReadableValue(*value);
  if (!index_) index_.emplace(text_);
  return index_->Find(section, key);
}

}  // namespace vestrel
