// The file of a multi button: the list of sequences that it starts, with their running parameters. Made and
// owned by the host, which calls Init first. Before that AddSequence, Load, Save and Delete(true) raise 91,
// and Delete() finds no file. The format is described in docs/multi-file.md.
#pragma once

#include <string>
#include <string_view>

#include "core/Object.h"
#include "core/Ref.h"
#include "core/clsObjectList.h"
#include "storage/clsSequence.h"

namespace vestrel {

class clsMultiFile : public Object {
 public:
  VESTREL_OBJECT(clsMultiFile)

  // The list itself, of clsSequence; none before Init.
  Ref<clsObjectList> SequenceList() const { return sequenceList_; }

  // Names the file, appPath\Sequences\showName\pageName\buttonName.MUL, and starts an empty list.
  void Init(std::u16string_view appPath, std::u16string_view showName, std::u16string_view pageName,
            std::u16string_view buttonName);
  void AddSequence(clsSequence* seq);
  // Appends the file's records to the list. A file of another version than 1.1 is logged and leaves the list
  // as it was. Raises 53, 57, 75 or 76 when it cannot be read, 62, 13 or 6 for what is no record; the records
  // before that one are then in the list. The list's observer may call Init: the others still go to the old
  // list.
  void Load();
  // Writes the file anew; the old one stays until the new one is complete. Raises 57, 61, 70, 75 or 76, and
  // 13 for an item of the list that is no clsSequence.
  void Save();
  // Deletes the file if it is there, and with `withSequenceFiles` first, for each sequence of the list, its
  // files with the endings ASQ, BMP and UQF in the page's folder. Logs each. Raises 57, 70 or 75 for one that
  // cannot be deleted.
  void Delete(bool withSequenceFiles = false);

 private:
  clsObjectList& List() const;
  Ref<clsSequence> SequenceAt(std::int32_t index) const;
  void DeleteSequenceFiles(const clsSequence& sequence) const;

  std::u16string appPath_;
  std::u16string showName_;
  std::u16string pageName_;
  std::u16string filePath_;
  std::u16string buttonName_;
  Ref<clsObjectList> sequenceList_;
};

}  // namespace vestrel
