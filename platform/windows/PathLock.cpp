#include "platform/windows/PathLock.h"

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

// The locks of this process: one table for all threads, as it must outlive what they hold.
class ProcessLocks {
 public:
  ProcessLocks() { kept_.reserve(kMostKept + 1); }

  // Whether this thread holds it: the system would let it take its own lock twice.
  bool IsHeld(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    return held_.count({GetCurrentThreadId(), name}) != 0;
  }
  void Hold(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    held_.emplace(GetCurrentThreadId(), name);
  }
  void Release(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    held_.erase({GetCurrentThreadId(), name});
  }

  // A mutex that was kept under this name, which is the caller's now; none: nullptr.
  HANDLE TakeKept(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    const auto found = FindKept(name);
    if (found == kept_.end()) return nullptr;
    const HANDLE handle = found->second;
    kept_.erase(found);
    return handle;
  }
  // Keeps a mutex open that is likely to be wanted again, as a page's file is written at each click of its
  // buttons: opening and closing it costs as much as locking and unlocking. Needs no memory.
  void Keep(std::wstring name, HANDLE handle) noexcept {
    const std::lock_guard guard(mutex_);
    if (FindKept(name) != kept_.end()) {
      CloseHandle(handle);
      return;
    }
    kept_.emplace_back(std::move(name), handle);
    if (kept_.size() <= kMostKept) return;
    CloseHandle(kept_.front().second);
    kept_.erase(kept_.begin());
  }

 private:
  static constexpr std::size_t kMostKept = 16;
  using Kept = std::vector<std::pair<std::wstring, HANDLE>>;

  Kept::iterator FindKept(const std::wstring& name) {
    return std::find_if(kept_.begin(), kept_.end(), [&](const auto& entry) { return entry.first == name; });
  }

  std::mutex mutex_;
  std::set<std::pair<DWORD, std::wstring>> held_;
  Kept kept_;  // the latest last
};

// Never destroyed: at the end of the process files that are still open let go of their locks after that.
ProcessLocks& Locks() {
  static auto* const locks = new ProcessLocks;
  return *locks;
}

std::wstring LockName(const std::wstring& path) {
  std::wstring folded = FullPath(path);
  CharLowerBuffW(folded.data(), static_cast<DWORD>(folded.size()));
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const wchar_t unit : folded) hash = (hash ^ unit) * 0x100000001B3U;
  return L"Global\\vestrel-" + std::to_wstring(hash);
}

// Users of one machine share their files' locks.
HANDLE OpenMutexForAll(const std::wstring& name) {
  SECURITY_DESCRIPTOR forAll{};
  InitializeSecurityDescriptor(&forAll, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&forAll, TRUE, nullptr, FALSE);
  SECURITY_ATTRIBUTES attributes{sizeof attributes, &forAll, FALSE};
  return CreateMutexW(&attributes, FALSE, name.c_str());
}

}  // namespace

PathLock::~PathLock() {
  Release();
}

FileStatus PathLock::Try(const std::wstring& path) {
  Release();
  name_ = LockName(path);
  mutex_ = Locks().TakeKept(name_);
  if (mutex_ == nullptr) mutex_ = OpenMutexForAll(name_);
  return mutex_ != nullptr ? Take(0) : FileStatus::IoError;
}

FileStatus PathLock::Wait() {
  return Take(INFINITE);
}

FileStatus PathLock::Take(unsigned long milliseconds) {
  if (Locks().IsHeld(name_)) return FileStatus::Busy;
  const DWORD result = WaitForSingleObject(mutex_, milliseconds);
  if (result == WAIT_TIMEOUT) return FileStatus::Busy;
  // A holder that died left the file whole, as every change of it is.
  if (result != WAIT_OBJECT_0 && result != WAIT_ABANDONED) return FileStatus::IoError;
  held_ = true;
  Locks().Hold(name_);
  return FileStatus::Ok;
}

FileStatus PathLock::Release() {
  if (std::exchange(held_, false)) {
    Locks().Release(name_);
    ReleaseMutex(mutex_);
  }
  if (mutex_ != nullptr) Locks().Keep(std::move(name_), std::exchange(mutex_, nullptr));
  return FileStatus::Ok;
}

}  // namespace vestrel::platform
