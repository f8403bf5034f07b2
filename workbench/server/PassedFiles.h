// Files that pass every call on to other Files, for classes that look at some of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Files.h"

namespace vestrel::workbench {

class PassedFile : public platform::File {
 public:
  explicit PassedFile(std::unique_ptr<platform::File> inner) : inner_(std::move(inner)) {}

  platform::FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override;
  platform::FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override;
  platform::FileStatus Truncate(std::uint64_t size) override;
  platform::FileStatus Info(platform::FileInfo& info) override;
  platform::FileStatus InfoByName(std::u16string_view path, platform::FileInfo& info) override;
  // `like` is a PassedFile as well.
  platform::FileStatus CopyAccess(platform::File& like) override;
  platform::FileStatus Sync() override;
  platform::FileStatus Lock(platform::LockMode mode) override;
  platform::FileStatus Unlock() override;
  platform::FileStatus LetGo() override;
  platform::FileStatus Close() override;

 private:
  std::unique_ptr<platform::File> inner_;
};

// Whoever wraps one file that it opens wraps all of them in a PassedFile.
class PassedFiles : public platform::Files {
 public:
  // `inner` outlives it.
  explicit PassedFiles(platform::Files& inner) : inner_(inner) {}

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
  platform::Files& inner_;
};

}  // namespace vestrel::workbench
