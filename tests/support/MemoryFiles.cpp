#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <utility>

namespace vestrel::test {

using platform::File;
using platform::FileInfo;
using platform::FileStatus;
using platform::OpenMode;

std::u16string NormalPath(std::u16string_view path) {
  std::u16string result;
  result.reserve(path.size());
  for (const char16_t unit : path) {
    const bool separator = unit == u'\\' || unit == u'/';
    if (separator && !result.empty() && result.back() == u'\\') continue;
    result += separator ? u'\\' : unit;
  }
  if (result.size() > 1 && result.back() == u'\\') result.pop_back();
  return result;
}

namespace {

std::u16string FolderOf(const std::u16string& path) {
  return path.substr(0, std::min(path.rfind(u'\\'), path.size()));
}

bool HasSeparator(const std::u16string& path) {
  return path.find(u'\\') != std::u16string::npos;
}

}  // namespace

class MemoryFile final : public File {
 public:
  using Node = MemoryFiles::Node;

  MemoryFile(MemoryFiles& files, std::shared_ptr<Node> node, OpenMode mode)
      : files_(files), node_(std::move(node)), mode_(mode) {
    ++files_.openFiles_;
    ++node_->handles;
  }
  ~MemoryFile() override { Drop(); }

  FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override {
    done = 0;
    if (const FileStatus failure = files_.Called("ReadAt"); failure != FileStatus::Ok) return failure;
    if (offset < node_->bytes.size()) done = node_->bytes.copy(buffer.data(), buffer.size(), offset);
    return FileStatus::Ok;
  }

  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    done = 0;
    if (const FileStatus failure = files_.Called("WriteAt"); failure != FileStatus::Ok) return failure;
    if (mode_ == OpenMode::Read) return FileStatus::AccessDenied;
    const bool appends = mode_ == OpenMode::Append || mode_ == OpenMode::AppendOn;
    const std::size_t start = appends ? node_->bytes.size() : offset;
    done = std::min(bytes.size(), files_.writeLimit_);
    if (node_->bytes.size() < start + done) node_->bytes.resize(start + done);
    std::copy_n(bytes.begin(), done, node_->bytes.begin() + static_cast<std::ptrdiff_t>(start));
    return FileStatus::Ok;
  }

  FileStatus Truncate(std::uint64_t size) override {
    if (const FileStatus failure = files_.Called("Truncate"); failure != FileStatus::Ok) return failure;
    node_->bytes.resize(size);
    return FileStatus::Ok;
  }

  FileStatus Info(FileInfo& info) override {
    if (const FileStatus failure = files_.Called("Info"); failure != FileStatus::Ok) return failure;
    info = MemoryFiles::InfoOf(*node_);
    return FileStatus::Ok;
  }

  FileStatus InfoByName(std::u16string_view path, FileInfo& info) override {
    const FileStatus status = files_.Info(path, info);
    const auto named = files_.files_.find(NormalPath(path));
    const bool isOther = named == files_.files_.end() || named->second != node_;
    return status == FileStatus::Ok && isOther ? FileStatus::NotFound : status;
  }

  FileStatus CopyAccess(File& like) override {
    if (const FileStatus failure = files_.Called("CopyAccess"); failure != FileStatus::Ok) return failure;
    node_->readOnly = static_cast<MemoryFile&>(like).node_->readOnly;
    return FileStatus::Ok;
  }

  FileStatus Sync() override { return files_.Called("Sync"); }

  FileStatus Lock(platform::LockMode mode) override {
    const bool exclusive = mode != platform::LockMode::Shared;
    if (const FileStatus failure = files_.Called("Lock"); failure != FileStatus::Ok) return failure;
    Release();
    if (node_->exclusive || (exclusive && node_->shared > 0)) return FileStatus::Busy;  // would wait for ever
    holds_ = exclusive ? Holds::Exclusive : Holds::Shared;
    if (exclusive) {
      node_->exclusive = true;
    } else {
      ++node_->shared;
    }
    return FileStatus::Ok;
  }

  FileStatus Unlock() override {
    if (const FileStatus failure = files_.Called("Unlock"); failure != FileStatus::Ok) return failure;
    Release();
    return FileStatus::Ok;
  }

  FileStatus LetGo() override {
    if (const FileStatus failure = files_.Called("LetGo"); failure != FileStatus::Ok) return failure;
    if (!std::exchange(letGo_, true)) --node_->handles;
    return FileStatus::Ok;
  }

  FileStatus Close() override {
    const FileStatus failure = files_.Called("Close");
    Drop();
    return failure;
  }

 private:
  enum class Holds { Nothing, Shared, Exclusive };

  void Release() {
    if (holds_ == Holds::Shared) --node_->shared;
    if (holds_ == Holds::Exclusive) node_->exclusive = false;
    holds_ = Holds::Nothing;
  }

  void Drop() {
    if (node_ == nullptr) return;
    Release();
    if (!letGo_) --node_->handles;
    node_.reset();
    --files_.openFiles_;
  }

  MemoryFiles& files_;
  std::shared_ptr<Node> node_;
  OpenMode mode_;
  bool letGo_ = false;
  Holds holds_ = Holds::Nothing;
};

void MemoryFiles::Put(std::u16string_view path, std::string_view bytes) {
  const std::u16string name = NormalPath(path);
  MakeFoldersOf(name);
  Make(name)->bytes = bytes;
}

void MemoryFiles::PutFolder(std::u16string_view path) {
  const std::u16string name = NormalPath(path);
  MakeFoldersOf(name);
  folders_.insert(name);
}

void MemoryFiles::SetReadOnly(std::u16string_view path, bool readOnly) {
  files_.at(NormalPath(path))->readOnly = readOnly;
}

bool MemoryFiles::Has(std::u16string_view path) const {
  const std::u16string name = NormalPath(path);
  return files_.contains(name) || folders_.contains(name);
}

std::string MemoryFiles::Get(std::u16string_view path) const {
  const auto found = files_.find(NormalPath(path));
  return found == files_.end() ? "<none>" : found->second->bytes;
}

std::vector<std::u16string> MemoryFiles::Paths() const {
  std::vector<std::u16string> paths;
  for (const auto& [path, node] : files_) paths.push_back(path);
  return paths;
}

void MemoryFiles::FailCall(int nth, FileStatus status, bool always) {
  ForgetCalls();
  failAt_ = nth;
  failWith_ = status;
  failAlways_ = always;
}

void MemoryFiles::FailEvery(std::string_view name, FileStatus status) {
  failures_[std::string(name)] = status;
}

void MemoryFiles::FailNothing() {
  failAt_ = 0;
  failAlways_ = false;
  failures_.clear();
}

int MemoryFiles::Calls(std::string_view name) const {
  const auto found = callsByName_.find(name);
  return found == callsByName_.end() ? 0 : found->second;
}

void MemoryFiles::ForgetCalls() {
  calls_ = 0;
  callsByName_.clear();
}

FileStatus MemoryFiles::Called(std::string_view name) {
  ++calls_;
  ++callsByName_[std::string(name)];
  const bool due = failAt_ != 0 && (calls_ == failAt_ || (failAlways_ && calls_ > failAt_));
  if (due) return failWith_;
  const auto failure = failures_.find(name);
  return failure == failures_.end() ? FileStatus::Ok : failure->second;
}

FileStatus MemoryFiles::Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) {
  if (const FileStatus failure = Called("Open"); failure != FileStatus::Ok) return failure;
  const std::u16string name = NormalPath(path);
  if (name.empty()) return FileStatus::BadName;
  if (folders_.contains(name)) return FileStatus::AccessDenied;
  const auto found = files_.find(name);
  std::shared_ptr<Node> node = found == files_.end() ? nullptr : found->second;
  const bool mustExist = mode == OpenMode::Read || mode == OpenMode::ReadWrite;
  if (node != nullptr && mode == OpenMode::CreateNew) return FileStatus::Exists;
  if (node != nullptr && mode != OpenMode::Read && node->readOnly) return FileStatus::AccessDenied;
  if (node == nullptr && (mustExist || !IsFolder(FolderOf(name)))) return MissingStatus(name);
  if (node == nullptr) node = Make(name);
  if (mode == OpenMode::Create) node->bytes.clear();
  file = std::make_unique<MemoryFile>(*this, node, mode);
  return FileStatus::Ok;
}

FileStatus MemoryFiles::Info(std::u16string_view path, FileInfo& info) {
  if (const FileStatus failure = Called("Info"); failure != FileStatus::Ok) return failure;
  const std::u16string name = NormalPath(path);
  if (const auto found = files_.find(name); found != files_.end()) {
    info = InfoOf(*found->second);
    return FileStatus::Ok;
  }
  if (!IsFolder(name)) return MissingStatus(name);
  info = FileInfo();
  info.directory = true;
  return FileStatus::Ok;
}

FileStatus MemoryFiles::Resolve(std::u16string_view path, std::u16string& real) {
  if (const FileStatus failure = Called("Resolve"); failure != FileStatus::Ok) return failure;
  real = path;
  return FileStatus::Ok;
}

FileStatus MemoryFiles::Replace(std::u16string_view from, std::u16string_view to) {
  if (const FileStatus failure = Called("Replace"); failure != FileStatus::Ok) return failure;
  const auto found = files_.find(NormalPath(from));
  const std::u16string target = NormalPath(to);
  if (found == files_.end()) return MissingStatus(NormalPath(from));
  if (folders_.contains(target)) return FileStatus::AccessDenied;
  if (!IsFolder(FolderOf(target))) return FileStatus::PathNotFound;
  const auto old = files_.find(target);
  const bool inUse = old != files_.end() && old->second->handles > 0;
  if (inUse && !replacesOpenFiles_) return FileStatus::AccessDenied;
  const std::shared_ptr<Node> node = found->second;
  files_.erase(found);
  files_[target] = node;
  return FileStatus::Ok;
}

FileStatus MemoryFiles::Remove(std::u16string_view path) {
  if (const FileStatus failure = Called("Remove"); failure != FileStatus::Ok) return failure;
  const std::u16string name = NormalPath(path);
  if (folders_.contains(name)) return FileStatus::AccessDenied;
  return files_.erase(name) != 0 ? FileStatus::Ok : MissingStatus(name);
}

FileStatus MemoryFiles::MakeDirectory(std::u16string_view path) {
  if (const FileStatus failure = Called("MakeDirectory"); failure != FileStatus::Ok) return failure;
  const std::u16string name = NormalPath(path);
  if (Has(name)) return FileStatus::Exists;
  if (!IsFolder(FolderOf(name))) return FileStatus::PathNotFound;
  folders_.insert(name);
  return FileStatus::Ok;
}

FileStatus MemoryFiles::SyncDirectory(std::u16string_view path) {
  if (const FileStatus failure = Called("SyncDirectory"); failure != FileStatus::Ok) return failure;
  return IsFolder(NormalPath(path)) ? FileStatus::Ok : FileStatus::NotFound;
}

FileStatus MemoryFiles::List(std::u16string_view path, std::vector<std::u16string>& names) {
  if (const FileStatus failure = Called("List"); failure != FileStatus::Ok) return failure;
  const std::u16string folder = NormalPath(path);
  if (!IsFolder(folder)) return MissingStatus(folder);
  names.clear();
  const auto take = [&names, &folder](const std::u16string& name) {
    if (HasSeparator(name) && FolderOf(name) == folder) names.push_back(name.substr(folder.size() + 1));
  };
  for (const auto& [name, node] : files_) take(name);
  for (const std::u16string& name : folders_) take(name);
  return FileStatus::Ok;
}

bool MemoryFiles::IsFolder(const std::u16string& path) const {
  if (files_.contains(path)) return false;
  return path.empty() || path.ends_with(u':') || path == u"\\" || folders_.contains(path);
}

FileStatus MemoryFiles::MissingStatus(const std::u16string& path) const {
  return IsFolder(FolderOf(path)) ? FileStatus::NotFound : FileStatus::PathNotFound;
}

std::shared_ptr<MemoryFiles::Node> MemoryFiles::Make(const std::u16string& path) {
  std::shared_ptr<Node>& node = files_[path];
  if (node == nullptr) node = std::make_shared<Node>();
  return node;
}

void MemoryFiles::MakeFoldersOf(const std::u16string& path) {
  for (std::u16string folder = FolderOf(path); HasSeparator(folder); folder = FolderOf(folder)) {
    folders_.insert(folder);
  }
}

FileInfo MemoryFiles::InfoOf(const Node& node) {
  FileInfo info;
  info.size = node.bytes.size();
  info.readOnly = node.readOnly;
  return info;
}

}  // namespace vestrel::test
