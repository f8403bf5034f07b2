#include "storage/clsIniFile.h"

#include "core/Convert.h"
#include "platform/Platform.h"
#include "storage/ProfileLines.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

// Some regions' date and time hold characters that the narrow page lacks, or end with a blank; neither would
// come back from a file.
std::u16string TimeThatReadsBack() {
  bool lossy = false;
  const std::string bytes = platform::encoding().Narrow(platform::clock().LocalDateTimeText(), lossy);
  return platform::encoding().Widen(profile::TrimBlanks(bytes));
}

}  // namespace

void clsIniFile::UseFile(std::u16string_view fname) {
  fileName_ = fname;
  section_.Set(u"Default Section");
  keyPrefix_.Clear();
  isSet_ = true;
}

void clsIniFile::UseSection(std::u16string_view section) {
  section_.Set(section);
  keyPrefix_.Clear();
}

void clsIniFile::UseKeyPrefix(std::u16string_view keyPrefix) {
  keyPrefix_.Set(keyPrefix);
  keyPrefix_.Append('_');
}

void clsIniFile::UseNarrowKeyPrefix(std::string_view keyPrefix) {
  keyPrefix_.SetAscii(keyPrefix);
  keyPrefix_.Append('_');
}

std::int32_t clsIniFile::ReadLong(std::u16string_view key, std::int32_t defaultValue) {
  TextBuffer text;
  ReadText(key, LongToText(defaultValue), text);
  return TextToLong(text.view());
}

std::u16string clsIniFile::ReadString(std::u16string_view key, std::u16string_view defaultValue) {
  TextBuffer text;
  ReadText(key, defaultValue, text);
  return std::u16string(text.view());
}

bool clsIniFile::ReadBool(std::u16string_view key, bool defaultValue) {
  TextBuffer text;
  ReadText(key, BooleanToText(defaultValue), text);
  return TextToBoolean(text.view());
}

void clsIniFile::ReadText(std::u16string_view key, std::u16string_view defaultValue, TextBuffer& text) const {
  modIniFile::ReadIniText(fileName_, {section_, keyPrefix_, key}, defaultValue, text);
}

std::optional<std::string_view> clsIniFile::ReadBytes(std::string_view key,
                                                      std::optional<std::string>& own) const {
  return modIniFile::ReadIniBytes(fileName_, {section_, keyPrefix_, key}, own);
}

void clsIniFile::WriteLong(std::u16string_view key, std::int32_t value) {
  std::u16string text = LongToText(value);
  WriteString(key, text);
}

void clsIniFile::WriteString(std::u16string_view key, std::u16string& value) {
  modIniFile::WriteIniString(fileName_, {section_, keyPrefix_, key}, &value);
}

void clsIniFile::WriteBool(std::u16string_view key, bool value) {
  std::u16string text(BooleanToText(value));
  WriteString(key, text);
}

void clsIniFile::WriteText(std::u16string_view key, std::u16string_view value) const {
  modIniFile::WriteIniText(fileName_, {section_, keyPrefix_, key}, value);
}

void clsIniFile::WriteBytes(std::string_view key, std::string_view value) const {
  modIniFile::WriteIniBytes(fileName_, {section_, keyPrefix_, key}, value);
}

void clsIniFile::DeleteKey(std::u16string_view key) {
  modIniFile::WriteIniString(fileName_, {section_, keyPrefix_, key}, nullptr);
}

bool clsIniFile::TestWritable() {
  const std::u16string written = TimeThatReadsBack();
  modLog::LogFormat(LogLevel_4_SPEW, u"writing test value [%s] to INI filename [%s]", written, fileName_);
  std::u16string value = written;
  modIniFile::WriteIniString(fileName_, u"Test Section", u"WriteTest", &value);
  // Only the file itself can tell.
  if (IniBatch* batch = IniBatch::OpenFor(fileName_)) batch->Commit();
  return modIniFile::ReadIniString(fileName_, u"Test Section", u"WriteTest", u"xxxxxx") == written;
}

}  // namespace vestrel
