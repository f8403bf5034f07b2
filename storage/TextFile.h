// The table of numbered text files, one a thread, as hosts and the file formats use it: a file is opened
// under a number, written or read through it and closed. Files still open when the thread ends are dropped: a
// new file that was not closed never was.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "storage/TextInput.h"
#include "storage/TextOutput.h"

namespace vestrel::TextFile {

enum class Mode : std::uint8_t {
  Output,  // a new file, which takes the old one's place when it is closed
  Input,   // the file as it is, from its beginning
  Append,  // at the end of the file, which is made when absent
};

constexpr std::int32_t kHighestNumber = 511;

// The lowest number, from 1 on, that no file is open under. Raises 52 when all are taken.
std::int32_t FreeNumber();

// Opens a file under a number from 1 to kHighestNumber. Raises 52 for another number, 55 when the number is
// taken or the file is open already and either of the two writes, and what TextOutput or TextInput raise.
void Open(std::int32_t number, std::u16string_view path, Mode mode);

// The file open for writing (reading) under the number. Raise 52 when there is none.
TextOutput& Output(std::int32_t number);
TextInput& Input(std::int32_t number);

// Completes the file and frees the number, also when completing raises 57, 61, 70 or 75 (the old file stays
// then). A number that no file is open under is no failure.
void Close(std::int32_t number);

// Frees the number without completing: a new file is dropped and the old one stays.
void Abandon(std::int32_t number) noexcept;

// A file open for as long as a save or a load takes, under a free number. Without Close it is abandoned.
class Opened {
 public:
  // Raises what FreeNumber and Open raise.
  Opened(std::u16string_view path, Mode mode);
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { Abandon(number_); }

  std::int16_t number() const noexcept { return static_cast<std::int16_t>(number_); }
  // Raises what TextFile::Close raises.
  void Close() { TextFile::Close(std::exchange(number_, 0)); }

 private:
  std::int32_t number_;
};

}  // namespace vestrel::TextFile
