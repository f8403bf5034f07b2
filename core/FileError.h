// Turns the status of a file operation into the classic run-time error that hosts know. Used by whatever
// raises file failures to its caller; it opens and touches nothing itself.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Files.h"

namespace vestrel {

// The run-time error number of a failed status (53, 75, 76, ...); 0 for FileStatus::Ok.
std::int32_t ErrorNumberOf(platform::FileStatus status) noexcept;

// Whether the status says that there is nothing of that name, which something could have.
bool IsAbsent(platform::FileStatus status) noexcept;

// Raises the run-time error of a failed `status`; the description ends with the path. Does nothing for
// FileStatus::Ok.
void CheckFileStatus(platform::FileStatus status, std::u16string_view source, std::u16string_view path);

}  // namespace vestrel
