// A file written beside its target under a name of its own and put in the target's place in one step, so that
// whatever happens the target is the old file or the new one, whole. Two writers of one target never share
// the scratch file; one that a crash left behind is used up by the next writer. Dropping the object drops the
// scratch file. Statuses come back; nothing is raised but std::bad_alloc.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace vestrel {

class ScratchFile {
 public:
  // What the scratch file's name has behind the target's; one for each kind of writer, so that a file open as
  // text never stops the saving of settings.
  static constexpr std::u16string_view kSettings = u".new~";
  static constexpr std::u16string_view kText = u".txt~";

  explicit ScratchFile(std::u16string_view suffix) : suffix_(suffix) {}
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { Discard(); }

  // Makes the empty scratch file of `target`. With LockMode::TryExclusive another writer's answers Busy, with
  // LockMode::Exclusive it is waited for.
  platform::FileStatus Open(std::u16string_view target, platform::LockMode lock);
  platform::FileStatus Append(std::string_view bytes);
  // Gives the file the access rights of `old`, the open target.
  platform::FileStatus CopyAccess(platform::File& old);
  // Puts the file in the target's place. With `sync` the bytes are forced to the disk before and the name
  // after.
  platform::FileStatus PutInPlace(bool sync);
  // Where memory is out the file stays, for the next writer to use up.
  void Discard() noexcept;

  // Removes what a writer that crashed left beside `target`; one in use stays. Only for who holds the
  // target's lock.
  static void RemoveLeftover(std::u16string_view target, std::u16string_view suffix);

 private:
  platform::FileStatus OpenOnce(platform::LockMode lock, bool& again);

  std::u16string_view suffix_;
  std::u16string target_;
  std::u16string path_;
  std::unique_ptr<platform::File> file_;
  std::uint64_t size_ = 0;
};

}  // namespace vestrel
