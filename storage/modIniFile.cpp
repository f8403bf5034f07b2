#include "storage/modIniFile.h"

#include <limits>
#include <span>

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

std::optional<std::string> FindOnDisk(std::u16string_view fileName, std::string_view section,
                                      std::string_view key) {
  FileBytes bytes;
  if (ReadWholeFile(fileName, bytes) != platform::FileStatus::Ok) return std::nullopt;
  return FindInFile(bytes.view(), section, key);
}

void Write(std::u16string_view fileName, const ProfileEdit& edit) {
  if (IniBatch* batch = IniBatch::OpenFor(fileName)) {
    batch->Add(edit);
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

// Writes the value or, when there is none, deletes the key. `variable` is the caller's, if there is one.
void Change(std::u16string_view fileName, const ValueName& name, std::optional<std::u16string_view> value,
            std::u16string* variable) {
  NarrowText narrow;
  const NarrowCopy section(narrow, name.section);
  const NarrowCopy key(narrow, name.prefix, name.key);
  if (value && value->size() > std::numeric_limits<std::int16_t>::max())
    RaiseError(Error_Overflow, u"modIniFile");
  const NarrowCopy narrowValue(narrow, value.value_or(std::u16string_view()));
  ProfileEdit edit{section.view(), key.view(), std::nullopt};
  if (value) edit.value = narrowValue.view();
  if (variable != nullptr && profile::HasLineEnd(narrowValue.view())) BlankLineBreaks(*variable);
  Write(fileName, edit);
  narrow.WarnOfLosses();
}

}  // namespace

std::u16string ReadIniString(std::u16string_view fileName, std::u16string_view section,
                             std::u16string_view key, std::u16string_view defaultValue) {
  TextBuffer text;
  ReadIniText(fileName, {KeptName(section), KeptName(), key}, defaultValue, text);
  return std::u16string(text.view());
}

void WriteIniString(std::u16string_view fileName, std::u16string_view section, std::u16string_view key,
                    std::u16string* value) {
  WriteIniString(fileName, {KeptName(section), KeptName(), key}, value);
}

void WriteIniString(std::u16string_view fileName, const ValueName& name, std::u16string* value) {
  std::optional<std::u16string_view> given;
  if (value != nullptr) given = *value;
  Change(fileName, name, given, value);
}

void ReadIniText(std::u16string_view fileName, const ValueName& name, std::u16string_view defaultValue,
                 TextBuffer& text) {
  NarrowText narrow;
  const NarrowCopy section(narrow, name.section);
  const NarrowCopy key(narrow, name.prefix, name.key);
  std::optional<std::string> own;
  std::optional<std::string_view> value = ReadIniBytes(fileName, section.view(), key.view(), own);
  if (!value) value = own = WithoutTrailingSpaces(narrow(defaultValue));
  AppendWidened(*value, text);
  narrow.WarnOfLosses();
}

void WriteIniText(std::u16string_view fileName, const ValueName& name, std::u16string_view value) {
  Change(fileName, name, value, nullptr);
}

std::optional<std::string_view> ReadIniBytes(std::u16string_view fileName, std::string_view section,
                                             std::string_view key, std::optional<std::string>& own) {
  if (IniBatch* batch = IniBatch::OpenFor(fileName)) return batch->Find(section, key, own);
  return own = FindOnDisk(fileName, section, key);
}

std::optional<std::string_view> ReadIniBytes(std::u16string_view fileName, const NarrowValueName& name,
                                             std::optional<std::string>& own) {
  NarrowText narrow;
  const NarrowCopy section(narrow, name.section);
  const NarrowCopy key(narrow, name.prefix, name.key);
  const auto value = ReadIniBytes(fileName, section.view(), key.view(), own);
  narrow.WarnOfLosses();
  return value;
}

void AppendWidened(std::string_view value, TextBuffer& text) {
  if (value.size() <= kLongestRead && platform::CopyAscii(value, text.Room(value.size()))) {
    text.Advance(value.size());
  } else {
    const std::size_t length = platform::encoding().CutLength(value, kLongestRead);
    text.Append(platform::encoding().Widen(value.substr(0, length)));
  }
}

void WriteIniBytes(std::u16string_view fileName, const NarrowValueName& name, std::string_view value) {
  NarrowText narrow;
  const NarrowCopy section(narrow, name.section);
  const NarrowCopy key(narrow, name.prefix, name.key);
  Write(fileName, {section.view(), key.view(), value});
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
