// The one exception type of the library: a number, the source that raised it and a description. Platform
// run-time errors carry the classic numbers below.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace vestrel {

// Classic run-time error numbers (the ones that automation hosts know by number).
enum ErrorNumber : std::int32_t {
  Error_InvalidProcedureCall = 5,
  Error_Overflow = 6,
  Error_OutOfMemory = 7,
  Error_SubscriptOutOfRange = 9,
  Error_DivisionByZero = 11,
  Error_TypeMismatch = 13,
  Error_BadFileNameOrNumber = 52,
  Error_FileNotFound = 53,
  Error_FileAlreadyOpen = 55,
  Error_DeviceIO = 57,
  Error_DiskFull = 61,
  Error_InputPastEnd = 62,
  Error_PermissionDenied = 70,
  Error_PathFileAccess = 75,
  Error_PathNotFound = 76,
  Error_ObjectNotSet = 91,
};

class Error : public std::exception {
 public:
  Error(std::int32_t number, std::u16string source, std::u16string description);

  std::int32_t number() const noexcept { return number_; }
  const std::u16string& source() const noexcept { return source_; }
  const std::u16string& description() const noexcept { return description_; }
  // "error N (source): description" in UTF-8, for test output and crash logs.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  std::u16string source_;
  std::u16string description_;
  std::string what_;
};

// The classic description of a run-time error number ("Type mismatch"); for an unknown number the text
// "Application-defined or object-defined error".
std::u16string_view RuntimeErrorText(std::int32_t number) noexcept;

// Raises the run-time error `number` with its classic description. `source` names the operation, by default
// the library. `detail`, where given, follows the description after ": " (a file name, a line number).
[[noreturn]] void RaiseError(std::int32_t number);
[[noreturn]] void RaiseError(std::int32_t number, std::u16string_view source,
                             std::u16string_view detail = {});

}  // namespace vestrel
