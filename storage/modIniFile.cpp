#include "storage/modIniFile.h"

#include <limits>
#include <optional>

#include "core/Error.h"
#include "platform/Ascii.h"
#include "platform/Platform.h"
#include "storage/FileIo.h"
#include "storage/NarrowText.h"
#include "storage/ProfileChange.h"
#include "storage/ProfileFile.h"
#include "storage/ProfileLines.h"
#include "util/modLog.h"

namespace vestrel::modIniFile {
namespace {

std::optional<std::string> Find(std::u16string_view fileName, std::string_view section,
                                std::string_view key) {
  if (IniBatch* batch = IniBatch::OpenFor(fileName)) return batch->Find(section, key);
  FileBytes bytes;
  if (ReadWholeFile(fileName, bytes) != platform::FileStatus::Ok) return std::nullopt;
  return FindInFile(bytes.view(), section, key);
}

void Write(std::u16string_view fileName, ProfileEdit edit) {
  if (IniBatch* batch = IniBatch::OpenFor(fileName)) {
    batch->Add(std::move(edit));
  } else {
    ProfileFile(fileName).Commit(std::span(&edit, 1), Sync::No);
  }
}

void BlankLineBreaks(std::u16string& value) {
  for (char16_t& unit : value) {
    if (unit == u'\r' || unit == u'\n') unit = u' ';
  }
}

std::string WithoutTrailingSpaces(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace

std::u16string ReadIniString(std::u16string_view fileName, std::u16string_view section,
                             std::u16string_view key, std::u16string_view defaultValue) {
  NarrowText narrow;
  std::optional<std::string> value = Find(fileName, narrow(section), narrow(key));
  if (!value) value = WithoutTrailingSpaces(narrow(defaultValue));
  narrow.WarnOfLosses();
  value->resize(platform::encoding().CutLength(*value, kLongestRead));
  return platform::encoding().Widen(*value);
}

void WriteIniString(std::u16string_view fileName, std::u16string_view section, std::u16string_view key,
                    std::u16string* value) {
  NarrowText narrow;
  ProfileEdit edit{narrow(section), narrow(key), std::nullopt};
  if (value != nullptr) {
    if (value->size() > std::numeric_limits<std::int16_t>::max()) RaiseError(Error_Overflow, u"modIniFile");
    edit.value = narrow(*value);
    if (profile::HasLineEnd(*edit.value)) BlankLineBreaks(*value);
  }
  Write(fileName, std::move(edit));
  narrow.WarnOfLosses();
}

void WarnIfCutOnReading(std::u16string_view fileName, std::u16string_view section, std::u16string_view key,
                        std::u16string_view value) {
  bool lossy = false;
  // Most are so short that they fit in any page, or so that letters of one byte do.
  const bool fits = value.size() * 4 <= kLongestRead ||
                    (value.size() <= kLongestRead && platform::IsAscii(value)) ||
                    platform::encoding().Narrow(value, lossy).size() <= kLongestRead;
  if (fits) return;
  modLog::LogFormat(LogLevel_2_WARNING,
                    u"[%s] %s in [%s] is longer than the %d characters that are read back", section, key,
                    fileName, static_cast<std::int32_t>(kLongestRead));
}

}  // namespace vestrel::modIniFile
