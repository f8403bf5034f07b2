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
  section_ = u"Default Section";
  keyPrefix_.clear();
  isSet_ = true;
}

void clsIniFile::UseSection(std::u16string_view section) {
  section_ = section;
  keyPrefix_.clear();
}

void clsIniFile::UseKeyPrefix(std::u16string_view keyPrefix) {
  keyPrefix_ = keyPrefix;
  keyPrefix_ += u'_';
}

std::int32_t clsIniFile::ReadLong(std::u16string_view key, std::int32_t defaultValue) {
  return TextToLong(Read(key, LongToText(defaultValue)));
}

std::u16string clsIniFile::ReadString(std::u16string_view key, std::u16string_view defaultValue) {
  return Read(key, defaultValue);
}

bool clsIniFile::ReadBool(std::u16string_view key, bool defaultValue) {
  return TextToBoolean(Read(key, BooleanToText(defaultValue)));
}

void clsIniFile::WriteLong(std::u16string_view key, std::int32_t value) {
  std::u16string text = LongToText(value);
  WriteString(key, text);
}

void clsIniFile::WriteString(std::u16string_view key, std::u16string& value) {
  modIniFile::WriteIniString(fileName_, section_, FullKey(key), &value);
}

void clsIniFile::WriteBool(std::u16string_view key, bool value) {
  std::u16string text(BooleanToText(value));
  WriteString(key, text);
}

void clsIniFile::DeleteKey(std::u16string_view key) {
  modIniFile::WriteIniString(fileName_, section_, FullKey(key), nullptr);
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

std::u16string clsIniFile::FullKey(std::u16string_view key) const {
  std::u16string full;
  full.reserve(keyPrefix_.size() + key.size());
  return full.append(keyPrefix_).append(key);
}

std::u16string clsIniFile::Read(std::u16string_view key, std::u16string_view defaultText) const {
  return modIniFile::ReadIniString(fileName_, section_, FullKey(key), defaultText);
}

}  // namespace vestrel
