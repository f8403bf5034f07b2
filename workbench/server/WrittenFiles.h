// The platform's files, noting which below one folder are written, made or removed. Everything else is passed
// on as it is. The log file is not noted: every call may write it.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace vestrel::workbench {

class WrittenFiles : public platform::Files {
 public:
  // `folder` as the library names it. `inner` outlives it.
  WrittenFiles(std::u16string folder, platform::Files& inner) : folder_(std::move(folder)), inner_(inner) {}

  // Below the folder, UTF-8 with "/", in order of their names, since the last call.
  std::vector<std::string> Take();

  platform::FileStatus Open(std::u16string_view path, platform::OpenMode mode,
                            std::unique_ptr<platform::File>& file) override;
  platform::FileStatus Info(std::u16string_view path, platform::FileInfo& info) override;
  platform::FileStatus Resolve(std::u16string_view path, std::u16string& real) override;
  platform::FileStatus Replace(std::u16string_view from, std::u16string_view to) override;
  platform::FileStatus Remove(std::u16string_view path) override;
  platform::FileStatus MakeDirectory(std::u16string_view path) override;
  platform::FileStatus SyncDirectory(std::u16string_view path) override;
  platform::FileStatus List(std::u16string_view path, std::vector<std::u16string>& names) override;

 private:
  platform::FileStatus Noted(platform::FileStatus status, std::u16string_view path);

  std::u16string folder_;
  platform::Files& inner_;
  std::set<std::string> written_;
};

}  // namespace vestrel::workbench
