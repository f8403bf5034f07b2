// The platform's files, noting which below one folder are written, made or removed: at the single write,
// since settings are mostly changed in their place. Everything else is passed on as it is. Not noted are the
// log file, which every call may write, and scratch files, which are gone when the call ends.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/server/PassedFiles.h"

namespace vestrel::workbench {

class WrittenFiles : public PassedFiles {
 public:
  // `folder` as the library names it. `inner` outlives it.
  WrittenFiles(std::u16string_view folder, platform::Files& inner);

  // Below the folder, UTF-8 with "/", in order of their names, since the last call.
  std::vector<std::string> Take();

  platform::FileStatus Open(std::u16string_view path, platform::OpenMode mode,
                            std::unique_ptr<platform::File>& file) override;
  platform::FileStatus Replace(std::u16string_view from, std::u16string_view to) override;
  platform::FileStatus Remove(std::u16string_view path) override;
  platform::FileStatus MakeDirectory(std::u16string_view path) override;

 private:
  using Names = std::set<std::string>;

  // The path as it is noted; empty: it is not.
  std::string NameOf(std::u16string_view path) const;
  platform::FileStatus Noted(platform::FileStatus status, std::u16string_view path);

  std::string folder_;
  // Shared with the open files: the library may keep one for longer than this lives.
  std::shared_ptr<Names> written_ = std::make_shared<Names>();
};

}  // namespace vestrel::workbench
