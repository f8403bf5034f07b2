// The library's way to its settings files: bound to one INI file at a time, with a current section and key
// prefix. Owned by whoever reads or writes settings; holds names only, no open file and no values. Every call
// is complete: nothing is cached or pending afterwards, unless an IniBatch for the file is open. Not bound,
// it reads and writes a file without a name: defaults come back and nothing is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Object.h"
#include "storage/IniBatch.h"
#include "storage/KeptName.h"
#include "util/TextBuffer.h"

namespace vestrel {

class clsIniFile : public Object {
 public:
  VESTREL_OBJECT(clsIniFile)

  // The bound file's full path; empty before UseFile.
  const std::u16string& filename() const noexcept { return fileName_; }
  // Whether UseFile was called.
  bool IsSet() const noexcept { return isSet_; }

  // Binds to a file; the section becomes "Default Section" and the key prefix empty.
  void UseFile(std::u16string_view fname);
  // Selects a section (without brackets) and clears the key prefix.
  void UseSection(std::u16string_view section);
  // From now on keys begin with `keyPrefix` and "_", also when `keyPrefix` is empty.
  void UseKeyPrefix(std::u16string_view keyPrefix);
  // The same of a prefix that is all ASCII; for the library's own loops, as ReadText and WriteText are.
  void UseNarrowKeyPrefix(std::string_view keyPrefix);

  // The value of the key, or the default when there is none; a value is cut to 254 characters. Raises 13 when
  // the text is no number (or neither a number nor "True" or "False"), 6 when it does not fit.
  std::int32_t ReadLong(std::u16string_view key, std::int32_t defaultValue);
  std::u16string ReadString(std::u16string_view key, std::u16string_view defaultValue);
  // As ReadString, appended to `text`.
  void ReadText(std::u16string_view key, std::u16string_view defaultValue, TextBuffer& text) const;
  bool ReadBool(std::u16string_view key, bool defaultValue);
  // The value whole and in the narrow page, none when there is none; `key` is all ASCII. It lies in `own` or
  // in the batch that is open for the file, until that is used again.
  std::optional<std::string_view> ReadBytes(std::string_view key, std::optional<std::string>& own) const;

  // No failed write is reported.
  void WriteLong(std::u16string_view key, std::int32_t value);
  // Line breaks in the caller's `value` become blanks; the file gets them as they were. Raises 6 for more
  // than 32767 characters.
  void WriteString(std::u16string_view key, std::u16string& value);
  void WriteBool(std::u16string_view key, bool value);
  // As WriteString, for a value that is nobody's variable.
  void WriteText(std::u16string_view key, std::u16string_view value) const;
  // The same of a value of at most 32767 bytes in the narrow page; `key` is all ASCII.
  void WriteBytes(std::string_view key, std::string_view value) const;
  // Removes the key from the current section; an absent one is no failure.
  void DeleteKey(std::u16string_view key);

  // Writes the date and time into key "WriteTest" of section "Test Section", where it stays, and tells
  // whether it reads back. Logs at LogLevel_4_SPEW; raises 91 without a log.
  bool TestWritable();

 private:
  std::u16string fileName_;
  KeptName section_;
  KeptName keyPrefix_;
  bool isSet_ = false;
};

}  // namespace vestrel
