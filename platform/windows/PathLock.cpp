#include "platform/windows/PathLock.h"

#include <cstdint>
#include <mutex>
#include <set>
#include <utility>

#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

// The system would let a thread take its own lock twice. One table for all threads, as it must outlive what
// they hold.
class HeldLocks {
 public:
  bool Has(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    return names_.count({GetCurrentThreadId(), name}) != 0;
  }
  void Add(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    names_.emplace(GetCurrentThreadId(), name);
  }
  void Remove(const std::wstring& name) {
    const std::lock_guard guard(mutex_);
    names_.erase({GetCurrentThreadId(), name});
  }

 private:
  std::mutex mutex_;
  std::set<std::pair<DWORD, std::wstring>> names_;
};

// Never destroyed: at the end of the process files that are still open let go of their locks after that.
HeldLocks& Held() {
  static auto* const held = new HeldLocks;
  return *held;
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
  mutex_ = OpenMutexForAll(name_);
  return mutex_ != nullptr ? Take(0) : FileStatus::IoError;
}

FileStatus PathLock::Wait() {
  return Take(INFINITE);
}

FileStatus PathLock::Take(unsigned long milliseconds) {
  if (Held().Has(name_)) return FileStatus::Busy;
  const DWORD result = WaitForSingleObject(mutex_, milliseconds);
  if (result == WAIT_TIMEOUT) return FileStatus::Busy;
  // A holder that died left the file whole, as every change of it is.
  if (result != WAIT_OBJECT_0 && result != WAIT_ABANDONED) return FileStatus::IoError;
  held_ = true;
  Held().Add(name_);
  return FileStatus::Ok;
}

FileStatus PathLock::Release() {
  if (held_) {
    held_ = false;
    Held().Remove(name_);
    ReleaseMutex(mutex_);
  }
  Drop();
  return FileStatus::Ok;
}

void PathLock::Drop() {
  if (mutex_ != nullptr) CloseHandle(mutex_);
  mutex_ = nullptr;
}

}  // namespace vestrel::platform
