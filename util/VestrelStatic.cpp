#include "util/VestrelStatic.h"

#include "controller/ControlIndex.h"
#include "core/Cast.h"
#include "core/Error.h"
#include "core/Version.h"
#include "core/modObjectList.h"
#include "storage/Folders.h"
#include "storage/TextFile.h"
#include "util/modLog.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

template <class T>
T& Given(T* object) {
  if (object == nullptr) RaiseError(Error_ObjectNotSet, u"VestrelStatic");
  return *object;
}

std::int32_t OpenTextFile(std::u16string_view filename, TextFile::Mode mode) {
  const std::int32_t number = TextFile::FreeNumber();
  TextFile::Open(number, filename, mode);
  return number;
}

}  // namespace

void VestrelStatic::Init(std::u16string_view logFilename) {
  modLog::Init(logFilename);
}

void VestrelStatic::SetLogLevel(LogLevel_Enum level) {
  modLog::SetLogLevel(level);
}

void VestrelStatic::Log(std::u16string_view text, LogLevel_Enum level) {
  modLog::Log(text, level);
}

Ref<clsLogger> VestrelStatic::GetLogger() const {
  return modLog::GetLogger();
}

bool VestrelStatic::IsSomething(Object* value) const {
  return value != nullptr;
}

std::int32_t VestrelStatic::OneBasedMod(std::int32_t value, std::int32_t modValue) const {
  return modControlIndex::OneBasedMod(value, modValue);
}

std::int32_t VestrelStatic::ZeroToOneBased(std::int32_t index) const {
  return modControlIndex::ZeroToOneBased(index);
}

std::int32_t VestrelStatic::OneToZeroBased(std::int32_t index) const {
  return modControlIndex::OneToZeroBased(index);
}

void VestrelStatic::Assert(bool isTrue) const {
  modUtils::Assert(isTrue);
}

bool VestrelStatic::AreEqual(IComparable* a, IComparable* b, std::u16string_view field) const {
  return Given(a).CompareTo(b, field) == 0;
}

bool VestrelStatic::NotEqual(IComparable* a, IComparable* b, std::u16string_view field) const {
  return Given(a).CompareTo(b, field) != 0;
}

std::u16string VestrelStatic::Basename(std::u16string_view filename, std::u16string_view delim) const {
  return modUtils::Basename(filename, delim);
}

std::u16string VestrelStatic::RemoveFileExt(std::u16string_view filename) const {
  return modUtils::RemoveFileExt(filename);
}

void VestrelStatic::deleteINI(std::u16string_view appPath, std::u16string_view showName,
                              std::u16string_view pageName) const {
  modUtils::deleteINI(appPath, showName, pageName);
}

std::int32_t VestrelStatic::globalToLocalControlIndex(std::int32_t buttonsPerGroup,
                                                      std::int32_t controlIndex) const {
  return modControlIndex::globalToLocalControlIndex(buttonsPerGroup, controlIndex);
}

Variant VestrelStatic::controlIndexFromButtonIndex(std::int32_t buttonsPerGroup, std::int32_t groupIndex,
                                                   std::int32_t buttonIndex) const {
  return modControlIndex::controlIndexFromButtonIndex(buttonsPerGroup, groupIndex, buttonIndex);
}

std::int32_t VestrelStatic::returnGroupFromPosition(std::int32_t buttonsPerGroup,
                                                    std::int32_t thePosition) const {
  return modControlIndex::returnGroupFromPosition(buttonsPerGroup, thePosition);
}

std::int32_t VestrelStatic::returnFirstPositionFromGroup(std::int32_t buttonsPerGroup,
                                                         std::int32_t theGroup) const {
  return modControlIndex::returnFirstPositionFromGroup(buttonsPerGroup, theGroup);
}

Ref<clsButton> VestrelStatic::AsButton(Object* obj) const {
  return CastOrNone<clsButton>(obj);
}

Ref<clsLong> VestrelStatic::BoxLong(std::int32_t longValue) const {
  return vestrel::BoxLong(longValue);
}

std::int32_t VestrelStatic::UnboxLong(clsLong* boxed) const {
  return Given(boxed).value();
}

Ref<clsString> VestrelStatic::BoxString(std::u16string_view stringValue) const {
  return vestrel::BoxString(stringValue);
}

std::u16string VestrelStatic::UnboxString(clsString* boxed) const {
  return Given(boxed).value();
}

Ref<clsObjectList> VestrelStatic::StringListFrom(std::span<const Variant> values) const {
  return modObjectList::StringListFromArray(values);
}

Ref<clsObjectList> VestrelStatic::ListFromSplitString(std::u16string_view source,
                                                      std::u16string_view delim) const {
  return modObjectList::StringListFromSplit(source, delim);
}

std::u16string VestrelStatic::Version() const {
  return std::u16string(vestrel::Version());
}

std::int32_t VestrelStatic::OpenTextFileForOutput(std::u16string_view filename) const {
  return OpenTextFile(filename, TextFile::Mode::Output);
}

std::int32_t VestrelStatic::OpenTextFileForInput(std::u16string_view filename) const {
  return OpenTextFile(filename, TextFile::Mode::Input);
}

std::int32_t VestrelStatic::OpenTextFileForAppend(std::u16string_view filename) const {
  return OpenTextFile(filename, TextFile::Mode::Append);
}

void VestrelStatic::CloseTextFile(std::int32_t number) const {
  TextFile::Close(number);
}

}  // namespace vestrel
