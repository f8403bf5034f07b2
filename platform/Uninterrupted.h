// Calls that a signal interrupted, made again.
#pragma once

#include "platform/Files.h"

namespace vestrel::platform {

// Makes a call again that was interrupted; a call that is interrupted without end fails in the end.
template <class Call>
FileStatus Uninterrupted(Call call) {
  FileStatus status = call();
  for (int i = 0; i < 100 && status == FileStatus::Interrupted; ++i) status = call();
  return status;
}

}  // namespace vestrel::platform
