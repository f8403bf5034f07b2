// Files passed through to other Files, with a look at every call: what tests use to make calls fail, to cut
// writes short, to write calls down, or to end the process at one of them. For one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace vestrel::test {

struct FileCall {
  std::string_view name;     // "Open", "WriteAt", "Replace", ...
  std::u16string_view path;  // of a call on an open file: the path it was opened by
  std::u16string_view to;    // of Replace
  std::uint64_t handle = 0;  // of a call on an open file, and of an Open that succeeded; from 1 on
  std::uint64_t offset = 0;  // of WriteAt; of Truncate: the size
  std::string_view bytes;    // of WriteAt
  platform::OpenMode mode = platform::OpenMode::Read;  // of Open, and of the file
};

class SeamFiles final : public platform::Files {
 public:
  explicit SeamFiles(platform::Files& inner) : inner_(inner) {}

  // Before each call: another answer than Ok becomes the call's, which is not made. May shorten `bytes`.
  std::function<platform::FileStatus(FileCall& call)> before;
  // After each call that succeeded; `bytes` are those that were written.
  std::function<void(const FileCall& call)> after;
  // Handles open now.
  int OpenFiles() const { return openFiles_; }

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
  friend class SeamFile;

  template <class Action>
  platform::FileStatus Pass(FileCall call, Action action);

  platform::Files& inner_;
  std::uint64_t lastHandle_ = 0;
  int openFiles_ = 0;
};

}  // namespace vestrel::test
