// Checks for the host programs: each is counted, a failing one is printed, and the program ends with a line
// of the totals, without which the suite does not believe it.
#pragma once

#include <cstdio>
#include <string>
#include <type_traits>

namespace host {

inline int passedChecks = 0;
inline int failedChecks = 0;

inline std::string Narrow(const std::wstring& text) {
  std::string result;
  for (const wchar_t unit : text) result += unit < 128 ? static_cast<char>(unit) : '?';
  return result;
}
inline std::string Shown(const std::wstring& value) {
  return Narrow(value);
}
inline std::string Shown(const wchar_t* value) {
  return Narrow(value);
}
template <class T>
requires std::is_arithmetic_v<T> std::string Shown(T value) {
  return std::to_string(value);
}
inline std::string Shown(const void* value) {
  return std::to_string(reinterpret_cast<std::size_t>(value));
}

inline void Checked(bool holds, const char* what, const char* file, int line,
                    const std::string& detail = {}) {
  if (holds) {
    ++passedChecks;
    return;
  }
  ++failedChecks;
  std::printf("FAILED %s:%d: %s %s\n", file, line, what, detail.c_str());
}

inline int Totals(const char* program) {
  std::printf("%s: %d passed, %d failed\n", program, passedChecks, failedChecks);
  std::fflush(stdout);
  return failedChecks == 0 && passedChecks > 0 ? 0 : 1;
}

}  // namespace host

#define CHECK(condition) ::host::Checked((condition), #condition, __FILE__, __LINE__)
#define CHECK_EQ(actual, expected)                                                                 \
  do {                                                                                             \
    const auto actualValue = (actual);                                                             \
    const decltype(actualValue) expectedValue = (expected);                                        \
    ::host::Checked(actualValue == expectedValue, #actual " == " #expected, __FILE__, __LINE__,    \
                    "is " + ::host::Shown(actualValue) + ", not " + ::host::Shown(expectedValue)); \
  } while (false)
