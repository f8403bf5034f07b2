// One read and one write of an INI value, as complete calls: each sees what others wrote and is in the file
// when it returns, unless an IniBatch for the file is open. Texts go through the narrow page both ways. The
// file format's rules are in docs/ini-format.md.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "storage/IniBatch.h"
#include "storage/KeptName.h"
#include "util/TextBuffer.h"

namespace vestrel::modIniFile {

using Batch = IniBatch;

// The most that a read hands back, in bytes of the narrow page; longer values are cut, never inside a
// character.
constexpr std::size_t kLongestRead = 254;

// The value of the key, or `defaultValue` (its trailing spaces cut) when file, section or key is absent;
// either cut to kLongestRead.
std::u16string ReadIniString(std::u16string_view fileName, std::u16string_view section,
                             std::u16string_view key, std::u16string_view defaultValue);

// Writes the value, or deletes the key when there is none. In the caller's variable every carriage return and
// line feed becomes a blank; the file gets them as they were. No failed write is reported. Raises 6 for a
// value of more than 32767 characters, before anything is changed.
void WriteIniString(std::u16string_view fileName, std::u16string_view section, std::u16string_view key,
                    std::u16string* value);

// The section and the key of a value; the key's name begins with the prefix. A narrow key is all ASCII.
template <class Key>
struct NameOf {
  const KeptName& section;
  const KeptName& prefix;
  Key key;
};
using ValueName = NameOf<std::u16string_view>;
using NarrowValueName = NameOf<std::string_view>;

// As the two above, for whoever reads and writes many values: the value is appended to `text`; that of
// WriteIniText is nobody's variable.
void ReadIniText(std::u16string_view fileName, const ValueName& name, std::u16string_view defaultValue,
                 TextBuffer& text);
void WriteIniString(std::u16string_view fileName, const ValueName& name, std::u16string* value);
void WriteIniText(std::u16string_view fileName, const ValueName& name, std::u16string_view value);

// As these, in the narrow page: the value whole as the file has it, none when there is none, in `own` or in
// the batch that is open, until that is used again.
std::optional<std::string_view> ReadIniBytes(std::u16string_view fileName, std::string_view section,
                                             std::string_view key, std::optional<std::string>& own);
std::optional<std::string_view> ReadIniBytes(std::u16string_view fileName, const NarrowValueName& name,
                                             std::optional<std::string>& own);
// Appends what a reader gets of these bytes: at most kLongestRead.
void AppendWidened(std::string_view value, TextBuffer& text);
// A value of at most 32767 bytes.
void WriteIniBytes(std::u16string_view fileName, const NarrowValueName& name, std::string_view value);

// Logs one WARNING line when a value is longer than a read hands back. For whoever writes lists.
void WarnIfCutOnReading(std::u16string_view fileName, std::u16string_view section, std::u16string_view key,
                        std::u16string_view value);

}  // namespace vestrel::modIniFile
