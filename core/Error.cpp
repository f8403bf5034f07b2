#include "core/Error.h"

#include <utility>

#include "core/Convert.h"

namespace vestrel {

Error::Error(std::int32_t number, std::u16string source, std::u16string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {
  what_ = "error " + std::to_string(number_) + " (" + ToUtf8(source_) + "): " + ToUtf8(description_);
}

std::u16string_view RuntimeErrorText(std::int32_t number) noexcept {
  switch (number) {
    case Error_InvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case Error_Overflow:
      return u"Overflow";
    case Error_OutOfMemory:
      return u"Out of memory";
    case Error_SubscriptOutOfRange:
      return u"Subscript out of range";
    case Error_DivisionByZero:
      return u"Division by zero";
    case Error_TypeMismatch:
      return u"Type mismatch";
    case Error_BadFileNameOrNumber:
      return u"Bad file name or number";
    case Error_FileNotFound:
      return u"File not found";
    case Error_FileAlreadyOpen:
      return u"File already open";
    case Error_DeviceIO:
      return u"Device I/O error";
    case Error_DiskFull:
      return u"Disk full";
    case Error_InputPastEnd:
      return u"Input past end of file";
    case Error_PermissionDenied:
      return u"Permission denied";
    case Error_PathFileAccess:
      return u"Path/File access error";
    case Error_PathNotFound:
      return u"Path not found";
    case Error_ObjectNotSet:
      return u"Object variable not set";
    default:
      return u"Application-defined or object-defined error";
  }
}

void RaiseError(std::int32_t number) {
  RaiseError(number, u"Vestrel");
}

void RaiseError(std::int32_t number, std::u16string_view source, std::u16string_view detail) {
  std::u16string description(RuntimeErrorText(number));
  if (!detail.empty()) description.append(u": ").append(detail);
  throw Error(number, std::u16string(source), std::move(description));
}

}  // namespace vestrel
