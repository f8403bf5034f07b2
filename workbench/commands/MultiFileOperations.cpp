// The operations of the multi file. A sequence record is written as its fields, in the order of the file.
#include "storage/clsSequence.h"
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

namespace {

void AddSequence(CommandSession& session, std::u16string_view theName, std::u16string_view myMulti,
                 std::int32_t myPlayback, std::u16string_view myButtonGroup, bool releaseActive,
                 bool isRunning, bool timeBool, bool beatBool, float theBeat, float theTime,
                 std::int32_t mySequenceType, float currentX, float currentY, std::u16string_view tag,
                 std::int32_t seqType) {
  auto sequence = MakeRef<clsSequence>();
  sequence->theName = theName;
  sequence->myMulti = myMulti;
  sequence->myPlayback = myPlayback;
  sequence->myButtonGroup = myButtonGroup;
  sequence->releaseActive = releaseActive;
  sequence->isRunning = isRunning;
  sequence->timeBool = timeBool;
  sequence->beatBool = beatBool;
  sequence->theBeat = theBeat;
  sequence->theTime = theTime;
  sequence->mySequenceType = mySequenceType;
  sequence->currentX = currentX;
  sequence->currentY = currentY;
  sequence->tag = tag;
  sequence->seqType = seqType;
  session.multi().AddSequence(sequence.get());
}

}  // namespace

std::vector<Operation> MultiFileOperations() {
  return {
      Method<&clsMultiFile::SequenceList>("multi.SequenceList"),
      Method<&clsMultiFile::Init>("multi.Init",
                                  {Path("appPath"), In("showName"), In("pageName"), In("buttonName")}),
      Function<&AddSequence>(
          "multi.AddSequence",
          {In("theName"), Optional("myMulti"), Optional("myPlayback"), Optional("myButtonGroup"),
           Optional("releaseActive"), Optional("isRunning"), Optional("timeBool"), Optional("beatBool"),
           Optional("theBeat"), Optional("theTime"), Optional("mySequenceType"), Optional("currentX"),
           Optional("currentY"), Optional("tag"), Optional("seqType")}),
      Method<&clsMultiFile::Load>("multi.Load"),
      Method<&clsMultiFile::Save>("multi.Save"),
      Method<&clsMultiFile::Delete>("multi.Delete", {Optional("withSequenceFiles")}),
  };
}

}  // namespace vestrel::workbench
