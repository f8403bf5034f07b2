// A text file being read, field by field: what TextOutput writes and what people make of it. Blanks and line
// ends before a field are passed over, so the fields of a record may lie on several lines. A field ends at a
// comma or a line end (CR LF, LF or CR; the last line needs none), a number at a blank as well; a text in
// double quotes ends at the closing quote and may hold commas and line ends. An empty field is 0, false or
// the empty text. Owned by the table of numbered files. Reading raises 62 at the end of the file, 13 for a
// field that is no such value, 6 for a number that does not fit, 57 when the disk fails; the description
// names file and line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace vestrel {

class TextInput {
 public:
  // Raises 52, 53, 57, 70, 75 or 76.
  explicit TextInput(std::u16string_view path);
  TextInput(const TextInput&) = delete;
  TextInput& operator=(const TextInput&) = delete;

  std::u16string ReadText();
  // Fractions are rounded, halves to the even neighbour; #TRUE# is -1 and #FALSE# 0.
  std::int32_t ReadLong();
  std::int16_t ReadShort();
  float ReadSingle();
  // #TRUE# or #FALSE#, "True" or "False", each in any letter case, or a number.
  bool ReadBoolean();

  // For readers of whole lines: the bytes from here on that are at hand, perhaps none; valid until the next
  // call.
  std::string_view Buffered() const noexcept { return {buffer_.get() + begin_, end_ - begin_}; }
  // The same up to and with the last LF among them; empty when there is none.
  std::string_view WholeLines() const noexcept {
    return {buffer_.get() + begin_, linesEnd_ > begin_ ? linesEnd_ - begin_ : 0};
  }
  // The bytes from here on, at least up to and with the next line end or else to
  // the end of the file; valid until the next call. Empty at the end of the file.
  std::string_view AheadToLineEnd();
  // Passes over the front of those bytes, one whole line; they stay valid until the call that follows.
  void TakeLine(std::size_t bytes) noexcept {
    begin_ += bytes;
    ++line_;
  }

  // Raises `number` with the file and the current line in its description.
  [[noreturn]] void Fail(std::int32_t number) const;

 private:
  [[noreturn]] void FailAt(std::int32_t line, std::int32_t number) const;
  bool Fill();
  // The next byte, or kEnd.
  int Peek();
  void Take() noexcept;
  void SkipToField();
  void SkipDelimiter();
  std::string ReadQuoted();
  std::string ReadPlain(bool endsAtBlank);
  // A number or boolean as text, read by the library's rule.
  std::u16string ReadValue();
  template <class Conversion>
  auto Converted(Conversion convert);

  std::u16string path_;
  std::unique_ptr<platform::File> file_;
  std::uint64_t offset_ = 0;  // in the file, of what comes behind the buffer
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t linesEnd_ = 0;  // behind the last LF in the buffer, 0 when there is none
  bool atEnd_ = false;        // the buffer holds all that is left
  std::int32_t line_ = 1;
};

}  // namespace vestrel
