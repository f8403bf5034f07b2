// Two processes write one settings file and a third one reads it: no update is lost and no read is torn. The
// program runs itself as those processes.
//
//   Shared FOLDER WRITES
#include <windows.h>

#include <cstdlib>
#include <string>

#include "tests/component/host/Check.h"
#include "tests/faults/RisingNumbers.h"

namespace vestrel::test {
namespace {

// Role 0 reads, the others write.
int Play(const std::wstring& file, std::int32_t role, std::int32_t writes) {
  const std::u16string path(file.begin(), file.end());
  return role == 0 ? ReadRising(path, writes) : WriteRising(path, role, writes);
}

HANDLE Start(const std::wstring& file, int role, std::int32_t writes) {
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring line = L"\"" + std::wstring(program) + L"\" \"" + file + L"\" " + std::to_wstring(writes) +
                      L" " + std::to_wstring(role);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  CHECK(
      CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process));
  CloseHandle(process.hThread);
  return process.hProcess;
}

int AnswerOf(HANDLE process) {
  WaitForSingleObject(process, INFINITE);
  DWORD code = 0;
  CHECK(GetExitCodeProcess(process, &code));
  CloseHandle(process);
  return static_cast<int>(code);
}

void Test(const std::wstring& folder, std::int32_t writes) {
  const std::wstring file = folder + L"\\shared.ini";
  const std::u16string path(file.begin(), file.end());
  const HANDLE reader = Start(file, 0, writes);
  const HANDLE one = Start(file, 1, writes);
  const HANDLE two = Start(file, 2, writes);
  const int first = AnswerOf(one);
  const int second = AnswerOf(two);
  // It would wait for ever for a writer that failed.
  if (first != 0 || second != 0) TerminateProcess(reader, 99);
  CHECK_EQ(first, 0);
  CHECK_EQ(second, 0);
  CHECK_EQ(AnswerOf(reader), 0);
  CHECK_EQ(LastRising(path, 1), writes);
  CHECK_EQ(LastRising(path, 2), writes);
}

}  // namespace
}  // namespace vestrel::test

int wmain(int count, wchar_t** arguments) {
  if (count < 3) return 2;
  const auto writes = static_cast<std::int32_t>(std::wcstol(arguments[2], nullptr, 10));
  if (count == 4) {
    return vestrel::test::Play(arguments[1],
                               static_cast<std::int32_t>(std::wcstol(arguments[3], nullptr, 10)), writes);
  }
  vestrel::test::Test(arguments[1], writes);
  return host::Totals("Shared");
}
