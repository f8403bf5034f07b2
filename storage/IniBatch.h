// Gathers the writes to one INI file and commits them as one change; until then its reads, from one reading
// of the file, see what it gathered. Everything that goes through modIniFile or clsIniFile on this thread
// with the same file name takes part. A batch opened inside another on the same file joins it: its commit
// commits what both gathered so far. Made on the stack around a save or a load; the end of its life commits
// what is left. No failure is reported but by Commit's answer and by RequireReadable.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "storage/FileIo.h"
#include "storage/ProfileFile.h"
#include "storage/ProfileIndex.h"
#include "storage/ProfileText.h"

namespace vestrel {

class clsIniFile;

class IniBatch {
 public:
  using Sync = vestrel::Sync;

  // `fileName` is the full path, spelled as the writes will spell it. With Sync::Yes its commits are forced
  // to the disk.
  IniBatch(std::u16string_view fileName, Sync sync);
  // For the file that `file` is bound to now.
  IniBatch(const clsIniFile& file, Sync sync);
  IniBatch(const IniBatch&) = delete;
  IniBatch& operator=(const IniBatch&) = delete;
  ~IniBatch();

  // Puts what was gathered into the file; true when all of it is there. Later writes are gathered anew, later
  // reads see the file anew. What could not be written is dropped.
  bool Commit();

  // Reads the file if that was not done yet. Raises 57, 70 or 75 when it is there but cannot be read; an
  // absent file is none. For loads, whose result a later save puts in the file's place.
  void RequireReadable();

  // The outermost batch that is open for the file on this thread; null when there is none.
  static IniBatch* OpenFor(std::u16string_view fileName) noexcept;

  // For modIniFile: names and values in the narrow page.
  void Add(ProfileEdit edit);
  std::optional<std::string> Find(std::string_view section, std::string_view key);

 private:
  void Load();
  void Forget();

  std::u16string fileName_;
  Sync sync_;
  IniBatch* outer_;   // the batch this one joined, none for an outermost one
  IniBatch* before_;  // the batch opened before on this thread
  std::vector<ProfileEdit> edits_;
  bool loaded_ = false;
  platform::FileStatus readStatus_ = platform::FileStatus::Ok;
  FileBytes bytes_;
  std::optional<ProfileIndex> index_;
};

}  // namespace vestrel
