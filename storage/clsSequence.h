// One record of a multi file: a sequence and its running parameters. Made and filled by the host or by
// loading a multi file. When it is destroyed, wherever that happens, it writes "off" for its name and page
// into the shortcuts status file beside the library's own "Sequences" folder; a failure there is swallowed.
#pragma once

#include <cstdint>
#include <string>

#include "core/Object.h"

namespace vestrel {

class clsSequence : public Object {
 public:
  VESTREL_OBJECT(clsSequence)

  std::u16string theName;
  std::u16string myMulti;
  std::int32_t myPlayback = 0;
  std::u16string myButtonGroup;
  bool releaseActive = false;
  bool isRunning = false;
  bool timeBool = false;
  bool beatBool = false;
  float theBeat = 0;
  float theTime = 0;
  std::int32_t mySequenceType = 0;
  float currentX = 0;
  float currentY = 0;
  std::u16string tag;
  std::int32_t seqType = 0;
  // Not stored in the file: the page whose multi file the record came from.
  std::u16string myPage;

  // Writes the fields, all but myPage, as one line of the text file open for output under `fnum`. Raises 52
  // when there is none, 57 or 61 when writing fails.
  void SaveToFile(std::int32_t fnum) const;
  // Reads one line written by SaveToFile. For another version than 1.1 it logs that and reads nothing. Raises
  // 52 when no file is open for input under `fnum`, 62 at its end, 13 or 6 for a field that cannot be read;
  // the fields before it are then set.
  void LoadFromFile(std::int32_t fnum, std::int16_t majorVersion, std::int16_t minorVersion);

 protected:
  ~clsSequence() override;

 private:
  void WriteOffStatus() const;
};

}  // namespace vestrel
