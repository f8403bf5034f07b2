// The platform's files, telling how far one is read or written anew. Files that are changed in their place or
// added to are not told of.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "workbench/server/PassedFiles.h"

namespace vestrel::workbench {

class ProgressFiles : public PassedFiles {
 public:
  // After each part: how many bytes have passed, and how many the file held when it was opened (0: it is
  // being written).
  using Told = std::function<void(std::u16string_view path, std::uint64_t done, std::uint64_t size)>;

  // `inner` outlives it.
  explicit ProgressFiles(platform::Files& inner) : PassedFiles(inner) {}

  // Called on the thread of the files, from within what reads or writes.
  void SetTold(Told told) { told_ = std::move(told); }

  platform::FileStatus Open(std::u16string_view path, platform::OpenMode mode,
                            std::unique_ptr<platform::File>& file) override;

 private:
  Told told_;
};

}  // namespace vestrel::workbench
