// A text file being written: fields divided by commas, strings in double quotes, lines ended by CR LF, in the
// narrow page. A new file is written beside its target and put in its place when it is closed, forced to the
// disk; dropped before that, or after a failed write, it leaves the old file as it was. Appending writes to
// the file itself, at its end. Owned by the table of numbered files. Writing raises 57, 61, 70 or 75; the
// file can then only be closed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "storage/NarrowText.h"
#include "storage/ScratchFile.h"

namespace vestrel {

class TextOutput {
 public:
  enum class Kind : std::uint8_t { New, Append };

  // Raises 52, 57, 61, 70 (another writer has it open), 75 (read-only, or a folder) or 76.
  TextOutput(std::u16string_view path, Kind kind);
  TextOutput(const TextOutput&) = delete;
  TextOutput& operator=(const TextOutput&) = delete;

  // Fields of the current line. A quote inside a text is written as it is, so such a text cannot be read
  // back.
  void WriteText(std::u16string_view value);
  void WriteLong(std::int32_t value);
  // The shortest text that reads back to the same value, with a point.
  void WriteSingle(float value);
  // #TRUE# or #FALSE#.
  void WriteBoolean(bool value);
  void EndLine();
  // A whole line as it is, without quotes.
  void WriteLine(std::u16string_view text);

  // For writers that form whole lines themselves: room for `size` bytes, which stays valid until the next
  // call; then the end of what was put there.
  char* Room(std::size_t size) {
    if (capacity_ - used_ < size) MakeRoom(size);
    return buffer_.get() + used_;
  }
  void Written(const char* end) noexcept { used_ = static_cast<std::size_t>(end - buffer_.get()); }

  // Writes what is left and puts a new file in place; a file on which a write failed is dropped. Call once;
  // the object is of no use afterwards.
  void Close();

 private:
  void BeginField();
  void Append(std::string_view bytes);
  void MakeRoom(std::size_t size);
  void Flush();
  void WriteOut(std::string_view bytes);
  void Check(platform::FileStatus status);
  void PutInPlace();

  std::u16string path_;
  Kind kind_;
  ScratchFile scratch_{ScratchFile::kText};
  std::unique_ptr<platform::File> appended_;
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t used_ = 0;
  bool lineHasFields_ = false;
  bool failed_ = false;
  NarrowText narrow_;
};

}  // namespace vestrel
