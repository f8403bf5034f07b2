#include "storage/clsMultiFile.h"

#include "core/Cast.h"
#include "core/Error.h"
#include "storage/Folders.h"
#include "storage/TextFile.h"
#include "util/modLog.h"
#include "util/modSprintf.h"

namespace vestrel {

namespace {

constexpr std::int16_t kMajorVersion = 1;
constexpr std::int16_t kMinorVersion = 1;
constexpr std::u16string_view kSequenceFileEndings[] = {u"ASQ", u"BMP", u"UQF"};

void DeleteIfThere(const std::u16string& path, std::u16string_view message) {
  if (!modUtils::FileExists(path)) return;
  modLog::LogFormat(LogLevel_3_INFO, message, path);
  modUtils::RemoveFile(path);
}

}  // namespace

void clsMultiFile::Init(std::u16string_view appPath, std::u16string_view showName,
                        std::u16string_view pageName, std::u16string_view buttonName) {
  appPath_ = appPath;
  showName_ = showName;
  pageName_ = pageName;
  buttonName_ = buttonName;
  filePath_ =
      modSprintf::Format(u"%s\\\\Sequences\\\\%s\\\\%s\\\\%s.MUL", appPath, showName, pageName, buttonName);
  sequenceList_ = MakeRef<clsObjectList>();
}

void clsMultiFile::AddSequence(clsSequence* seq) {
  List().AddItem(seq);
}

void clsMultiFile::Load() {
  // The list's observer may set this file up anew, or let go of it.
  const Ref<clsObjectList> list(&List());
  const std::u16string page = pageName_;
  const TextFile::Opened file(filePath_, TextFile::Mode::Input);
  TextInput& input = TextFile::Input(file.number());
  const std::int16_t major = input.ReadShort();
  const std::int16_t minor = input.ReadShort();
  if (major != kMajorVersion || minor != kMinorVersion) {
    modLog::LogFormat(LogLevel_3_INFO, u"*** unknown multi file format version %d.%d ***",
                      std::int32_t{major}, std::int32_t{minor});
    return;
  }
  const std::int32_t count = input.ReadLong();
  for (std::int32_t i = 0; i < count; ++i) {
    const Ref<clsSequence> sequence = MakeRef<clsSequence>();
    sequence->LoadFromFile(file.number(), major, minor);
    sequence->myPage = page;
    list->AddItem(sequence.get());
  }
}

void clsMultiFile::Save() {
  const std::int32_t count = List().Size();
  TextFile::Opened file(filePath_, TextFile::Mode::Output);
  TextOutput& output = TextFile::Output(file.number());
  output.WriteLong(kMajorVersion);
  output.WriteLong(kMinorVersion);
  output.EndLine();
  output.WriteLong(count);
  output.EndLine();
  for (std::int32_t i = 0; i < count; ++i) SequenceAt(i)->SaveToFile(file.number());
  file.Close();
}

void clsMultiFile::Delete(bool withSequenceFiles) {
  const std::int32_t count = withSequenceFiles ? List().Size() : 0;
  for (std::int32_t i = 0; i < count; ++i) DeleteSequenceFiles(*SequenceAt(i));
  DeleteIfThere(filePath_, u"deleting multi file: %s");
}

clsObjectList& clsMultiFile::List() const {
  if (!sequenceList_) RaiseError(Error_ObjectNotSet, u"clsMultiFile");
  return *sequenceList_;
}

Ref<clsSequence> clsMultiFile::SequenceAt(std::int32_t index) const {
  return &Cast<clsSequence>(List().GetItem(index).get());
}

void clsMultiFile::DeleteSequenceFiles(const clsSequence& sequence) const {
  for (const std::u16string_view ending : kSequenceFileEndings) {
    DeleteIfThere(modSprintf::Format(u"%s\\\\Sequences\\\\%s\\\\%s\\\\%s.%s", appPath_, showName_, pageName_,
                                     sequence.theName, ending),
                  u"deleting multi seq file: %s");
  }
}

}  // namespace vestrel
