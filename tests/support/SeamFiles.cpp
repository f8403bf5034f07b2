#include "tests/support/SeamFiles.h"

#include <span>
#include <utility>

#include "tests/support/Allocations.h"

namespace vestrel::test {

using platform::File;
using platform::FileInfo;
using platform::FileStatus;
using platform::OpenMode;

namespace {

FileCall CallOn(std::string_view name, std::u16string_view path) {
  FileCall call;
  call.name = name;
  call.path = path;
  return call;
}

}  // namespace

template <class Action>
FileStatus SeamFiles::Pass(FileCall call, Action action) {
  const Allocations::Spared spared;
  if (before) {
    const FileStatus answer = before(call);
    if (answer != FileStatus::Ok) return answer;
  }
  const FileStatus status = action(call);
  if (status == FileStatus::Ok && after) after(call);
  return status;
}

class SeamFile final : public File {
 public:
  SeamFile(SeamFiles& files, std::unique_ptr<File> inner, std::u16string_view path, OpenMode mode,
           std::uint64_t handle)
      : files_(files), inner_(std::move(inner)), path_(path), mode_(mode), handle_(handle) {
    ++files_.openFiles_;
  }
  ~SeamFile() override { --files_.openFiles_; }

  FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override {
    done = 0;
    return files_.Pass(Call("ReadAt"), [&](FileCall&) { return inner_->ReadAt(offset, buffer, done); });
  }
  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    done = 0;
    FileCall call = Call("WriteAt");
    call.offset = offset;
    call.bytes = {bytes.data(), bytes.size()};
    return files_.Pass(call, [&](FileCall& made) {
      const FileStatus status = inner_->WriteAt(made.offset, std::span(made.bytes), done);
      made.bytes = made.bytes.substr(0, done);
      return status;
    });
  }
  FileStatus Truncate(std::uint64_t size) override {
    FileCall call = Call("Truncate");
    call.offset = size;
    return files_.Pass(call, [&](FileCall&) { return inner_->Truncate(size); });
  }
  FileStatus Info(FileInfo& info) override {
    return files_.Pass(Call("Info"), [&](FileCall&) { return inner_->Info(info); });
  }
  FileStatus InfoByName(std::u16string_view path, FileInfo& info) override {
    return files_.Pass(CallOn("Info", path), [&](FileCall&) { return inner_->InfoByName(path, info); });
  }
  FileStatus CopyAccess(File& like) override {
    return files_.Pass(Call("CopyAccess"),
                       [&](FileCall&) { return inner_->CopyAccess(*static_cast<SeamFile&>(like).inner_); });
  }
  FileStatus Sync() override {
    return files_.Pass(Call("Sync"), [&](FileCall&) { return inner_->Sync(); });
  }
  FileStatus Lock(platform::LockMode mode) override {
    return files_.Pass(Call("Lock"), [&](FileCall&) { return inner_->Lock(mode); });
  }
  FileStatus Unlock() override {
    return files_.Pass(Call("Unlock"), [&](FileCall&) { return inner_->Unlock(); });
  }
  FileStatus LetGo() override {
    return files_.Pass(Call("LetGo"), [&](FileCall&) { return inner_->LetGo(); });
  }
  FileStatus Close() override {
    return files_.Pass(Call("Close"), [&](FileCall&) { return inner_->Close(); });
  }

 private:
  FileCall Call(std::string_view name) const {
    FileCall call;
    call.name = name;
    call.path = path_;
    call.handle = handle_;
    call.mode = mode_;
    return call;
  }

  SeamFiles& files_;
  std::unique_ptr<File> inner_;
  std::u16string path_;
  OpenMode mode_;
  std::uint64_t handle_;
};

FileStatus SeamFiles::Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) {
  FileCall call = CallOn("Open", path);
  call.mode = mode;
  return Pass(call, [&](FileCall& made) {
    std::unique_ptr<File> opened;
    const FileStatus status = inner_.Open(path, mode, opened);
    if (status != FileStatus::Ok) return status;
    made.handle = ++lastHandle_;
    file = std::make_unique<SeamFile>(*this, std::move(opened), path, mode, made.handle);
    return status;
  });
}

FileStatus SeamFiles::Info(std::u16string_view path, FileInfo& info) {
  return Pass(CallOn("Info", path), [&](FileCall&) { return inner_.Info(path, info); });
}

FileStatus SeamFiles::Resolve(std::u16string_view path, std::u16string& real) {
  return Pass(CallOn("Resolve", path), [&](FileCall&) { return inner_.Resolve(path, real); });
}

FileStatus SeamFiles::Replace(std::u16string_view from, std::u16string_view to) {
  FileCall call = CallOn("Replace", from);
  call.to = to;
  return Pass(call, [&](FileCall&) { return inner_.Replace(from, to); });
}

FileStatus SeamFiles::Remove(std::u16string_view path) {
  return Pass(CallOn("Remove", path), [&](FileCall&) { return inner_.Remove(path); });
}

FileStatus SeamFiles::MakeDirectory(std::u16string_view path) {
  return Pass(CallOn("MakeDirectory", path), [&](FileCall&) { return inner_.MakeDirectory(path); });
}

FileStatus SeamFiles::SyncDirectory(std::u16string_view path) {
  return Pass(CallOn("SyncDirectory", path), [&](FileCall&) { return inner_.SyncDirectory(path); });
}

FileStatus SeamFiles::List(std::u16string_view path, std::vector<std::u16string>& names) {
  return Pass(CallOn("List", path), [&](FileCall&) { return inner_.List(path, names); });
}

}  // namespace vestrel::test
