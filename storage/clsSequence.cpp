#include "storage/clsSequence.h"

#include "platform/Platform.h"
#include "storage/TextFile.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

std::u16string_view Trimmed(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

// The name of a show would stand between the separators; the status file belongs to none.
std::u16string StatusFile() {
  const std::u16string_view noShow;
  return platform::hostServices()
      .ModuleFolder()
      .append(u"\\Sequences\\")
      .append(noShow)
      .append(u"\\")
      .append(u"\\shortcutsStatus.ini");
}

}  // namespace

clsSequence::~clsSequence() {
  try {
    WriteOffStatus();
  } catch (...) {
    // Nobody is left to be told.
  }
}

void clsSequence::SaveToFile(std::int32_t fnum) const {
  TextOutput& file = TextFile::Output(fnum);
  file.WriteText(theName);
  file.WriteText(myMulti);
  file.WriteLong(myPlayback);
  file.WriteText(myButtonGroup);
  file.WriteBoolean(releaseActive);
  file.WriteBoolean(isRunning);
  file.WriteBoolean(timeBool);
  file.WriteBoolean(beatBool);
  file.WriteSingle(theBeat);
  file.WriteSingle(theTime);
  file.WriteLong(mySequenceType);
  file.WriteSingle(currentX);
  file.WriteSingle(currentY);
  file.WriteText(tag);
  file.WriteLong(seqType);
  file.EndLine();
}

void clsSequence::LoadFromFile(std::int32_t fnum, std::int16_t majorVersion, std::int16_t minorVersion) {
  if (majorVersion != 1 || minorVersion != 1) {
    modLog::Log(u"*** attempted to load from unhandled version in clsSequence ***");
    return;
  }
  TextInput& file = TextFile::Input(fnum);
  theName = file.ReadText();
  myMulti = file.ReadText();
  myPlayback = file.ReadLong();
  myButtonGroup = file.ReadText();
  releaseActive = file.ReadBoolean();
  isRunning = file.ReadBoolean();
  timeBool = file.ReadBoolean();
  beatBool = file.ReadBoolean();
  theBeat = file.ReadSingle();
  theTime = file.ReadSingle();
  mySequenceType = file.ReadLong();
  currentX = file.ReadSingle();
  currentY = file.ReadSingle();
  tag = file.ReadText();
  seqType = file.ReadLong();
}

void clsSequence::WriteOffStatus() const {
  std::u16string off = u"off";
  modIniFile::WriteIniString(StatusFile(), Trimmed(theName), Trimmed(myPage), &off);
}

}  // namespace vestrel
