// A settings file that another program holds without sharing, as virus scanners do for a moment: a change
// waits for it, and is told to have failed when it is held for good.
//
//   HeldFile FOLDER
#include <windows.h>

#include <string>
#include <thread>

#include "storage/IniBatch.h"
#include "storage/modIniFile.h"
#include "tests/component/host/Check.h"

namespace vestrel::test {
namespace {

constexpr DWORD kMoment = 60;

HANDLE Hold(const std::wstring& path) {
  return CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
}

std::u16string Read(const std::u16string& path) {
  return modIniFile::ReadIniString(path, u"A", u"k", u"none");
}

bool Write(const std::u16string& path, std::u16string value) {
  IniBatch batch(path, Sync::No);
  modIniFile::WriteIniString(path, u"A", u"k", &value);
  return batch.Commit();
}

// Writes while another thread holds the file and lets go after a moment.
bool WriteWhileHeldForAMoment(const std::u16string& path, std::u16string value) {
  const HANDLE held = Hold({path.begin(), path.end()});
  CHECK(held != INVALID_HANDLE_VALUE);
  std::thread other([held] {
    Sleep(kMoment);
    CloseHandle(held);
  });
  const bool written = Write(path, std::move(value));
  other.join();
  return written;
}

void Test(const std::wstring& folder) {
  const std::wstring name = folder + L"\\held.ini";
  const std::u16string path(name.begin(), name.end());
  CHECK(Write(path, u"1"));
  CHECK(WriteWhileHeldForAMoment(path, u"2"));
  CHECK(Read(path) == u"2");
  // Of another length, so that the file is replaced.
  CHECK(WriteWhileHeldForAMoment(path, u"a longer value"));
  CHECK(Read(path) == u"a longer value");
  const HANDLE held = Hold(name);
  CHECK(!Write(path, u"3"));
  CHECK(Read(path) == u"none");
  CloseHandle(held);
  CHECK(Read(path) == u"a longer value");
  CHECK(Write(path, u"4"));
  CHECK(Read(path) == u"4");
}

}  // namespace
}  // namespace vestrel::test

int wmain(int count, wchar_t** arguments) {
  if (count < 2) return 2;
  vestrel::test::Test(arguments[1]);
  return host::Totals("HeldFile");
}
