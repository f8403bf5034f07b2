// Gathers the writes to one INI file and commits them as one change; until then its reads, from one reading
// of the file, see what it gathered. Everything that goes through modIniFile or clsIniFile on this thread
// with the same file name takes part. A batch opened inside another on the same file joins it: its commit
// commits what both gathered so far. Made on the stack around a save or a load; the end of its life commits
// what is left, unless an error ends it: a save that was not gathered whole is dropped whole. No failure is
// reported but by Commit's answer, by RequireReadable and by std::bad_alloc.
#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "storage/FileIo.h"
#include "storage/ProfileEdits.h"
#include "storage/ProfileFile.h"
#include "storage/ProfileReader.h"

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
  void Add(const ProfileEdit& edit);
  // The value lies in `own` or in the batch, until the batch is used again.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key,
                                       std::optional<std::string>& own);

 private:
  // Whether an error ends a save half way. During a load it is others that write, each for itself.
  bool IsBrokenOff() const noexcept;
  // Drops what was gathered since this batch was opened.
  void Drop() noexcept;
  std::optional<std::string_view> FindAmongPending(std::string_view section, std::string_view key,
                                                   std::optional<std::string>& own);
  void Load();
  void Forget();

  std::u16string fileName_;
  Sync sync_;
  IniBatch* outer_;   // the batch this one joined, none for an outermost one
  IniBatch* before_;  // the batch opened before on this thread
  int errorsBefore_ = std::uncaught_exceptions();
  bool loads_ = false;
  int commits_ = 0;
  // Of the batch this one joined, when it did.
  std::size_t editsBefore_ = 0;
  int commitsBefore_ = 0;
  ProfileEdits edits_;
  bool loaded_ = false;
  platform::FileStatus readStatus_ = platform::FileStatus::Ok;
  FileBytes bytes_;
  std::optional<ProfileReader> reader_;
};

}  // namespace vestrel
