// A file system in memory for tests: files and folders filled and read back as bytes, any single call made to
// fail, every call counted by name ("Open", "ReadAt", "WriteAt", "Replace", "Sync", ...). A drive always is
// there, so a test may start at "C:". For one thread.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace vestrel::test {

class MemoryFile;

// "\" for every run of separators, none at the end.
std::u16string NormalPath(std::u16string_view path);

class MemoryFiles final : public platform::Files {
 public:
  // Makes the file, and the folders on its way.
  void Put(std::u16string_view path, std::string_view bytes);
  void PutFolder(std::u16string_view path);
  void SetReadOnly(std::u16string_view path, bool readOnly);
  bool Has(std::u16string_view path) const;
  // The bytes of a file; "<none>" when it is absent.
  std::string Get(std::u16string_view path) const;
  // Every file's path, in order.
  std::vector<std::u16string> Paths() const;

  // From now on, call number `nth` (1 is the next) answers `status` and does nothing; with `always` so do all
  // later ones.
  void FailCall(int nth, platform::FileStatus status, bool always = false);
  // The next calls named `name` ("Sync") answer `status`.
  void FailEvery(std::string_view name, platform::FileStatus status);
  void FailNothing();
  // A write takes at most so many bytes at a time.
  void LimitWrites(std::size_t bytes) { writeLimit_ = bytes; }
  // With false, replacing a file that is open answers AccessDenied, as on some systems.
  void SetReplacesOpenFiles(bool can) { replacesOpenFiles_ = can; }
  // Calls made since the last FailCall or ForgetCalls.
  int Calls() const { return calls_; }
  int Calls(std::string_view name) const;
  void ForgetCalls();
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
  friend class MemoryFile;
  struct Node {
    std::string bytes;
    bool readOnly = false;
    int handles = 0;
    int shared = 0;
    bool exclusive = false;
  };

  // Counts a call and answers what it must fail with, or Ok.
  platform::FileStatus Called(std::string_view name);
  bool IsFolder(const std::u16string& path) const;
  platform::FileStatus MissingStatus(const std::u16string& path) const;
  std::shared_ptr<Node> Make(const std::u16string& path);
  void MakeFoldersOf(const std::u16string& path);
  static platform::FileInfo InfoOf(const Node& node);

  std::map<std::u16string, std::shared_ptr<Node>> files_;
  std::set<std::u16string> folders_;
  std::map<std::string, int, std::less<>> callsByName_;
  std::map<std::string, platform::FileStatus, std::less<>> failures_;
  std::size_t writeLimit_ = static_cast<std::size_t>(-1);
  int calls_ = 0;
  int openFiles_ = 0;
  bool replacesOpenFiles_ = true;
  int failAt_ = 0;
  bool failAlways_ = false;
  platform::FileStatus failWith_ = platform::FileStatus::Ok;
};

}  // namespace vestrel::test
