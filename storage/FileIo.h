// Whole reads and writes over the platform's single calls: interrupted ones are made again, short ones
// continued. Statuses come back; nothing is raised but std::bad_alloc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/Files.h"
#include "platform/Uninterrupted.h"

namespace vestrel {

using platform::Uninterrupted;

// A file's bytes in memory that is not cleared first.
struct FileBytes {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;

  std::string_view view() const { return {data.get(), size}; }
};

// All of the file, whose size is `size`; what shrank meanwhile comes back shorter.
platform::FileStatus ReadAll(platform::File& file, std::uint64_t size, FileBytes& bytes);

// Writes all of `bytes` at `offset`; `done` says how many were written, also on a failure.
platform::FileStatus WriteAll(platform::File& file, std::uint64_t offset, std::string_view bytes,
                              std::size_t& done);

// Opens, locks for reading, reads and closes.
platform::FileStatus ReadWholeFile(std::u16string_view path, FileBytes& bytes);

// The folder part of a path; "." for a bare name.
std::u16string_view FolderOf(std::u16string_view path);

}  // namespace vestrel
