// An INI file on disk: reads it whole and carries out changes of it. A lock is held from before the file is
// read until it is changed, so nothing that another process writes is lost; a change is made in place where a
// crash cannot tear it, otherwise written beside and put in place. Keeps nothing between calls. Statuses come
// back; nothing is raised.
#pragma once

#include <span>
#include <string_view>

#include "platform/Files.h"
#include "storage/ProfileEdits.h"

namespace vestrel {

// Whether a commit waits until the disk holds it.
enum class Sync : bool { No, Yes };

class ProfileFile {
 public:
  // `path` must outlive the object.
  explicit ProfileFile(std::u16string_view path) : path_(path) {}

  // Makes all the edits, one after the other, as one change. An absent file is made unless the edits leave
  // nothing to write; its folder is not. What is there already is not written again.
  platform::FileStatus Commit(std::span<const ProfileEdit> edits, Sync sync);

 private:
  platform::FileStatus Try(std::span<const ProfileEdit> edits, Sync sync, bool& again);
  platform::FileStatus Change(platform::File& target, std::span<const ProfileEdit> edits, Sync sync,
                              bool& again);
  platform::FileStatus Replace(platform::File& target, std::string_view bytes, Sync sync);
  platform::FileStatus Create(std::span<const ProfileEdit> edits, Sync sync, bool& again);

  std::u16string_view path_;
};

}  // namespace vestrel
