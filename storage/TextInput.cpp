#include "storage/TextInput.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/FileError.h"
#include "platform/Platform.h"
#include "storage/FileIo.h"

namespace vestrel {

using platform::FileStatus;

namespace {

constexpr std::u16string_view kSource = u"TextFile";
constexpr std::size_t kChunk = 65536;
constexpr int kEnd = -1;

bool IsBlank(int byte) {
  return byte == ' ' || byte == '\t';
}

bool IsLineEnd(int byte) {
  return byte == '\r' || byte == '\n';
}

// Whether the line that the bytes begin with is whole. A CR at the very end may be half of a CR LF.
bool HoldsLine(std::string_view bytes) {
  const std::size_t end = bytes.find('\n');
  const std::size_t earlier = bytes.substr(0, end).find('\r');
  if (earlier == std::string_view::npos) return end != std::string_view::npos;
  return earlier + 1 < bytes.size();
}

}  // namespace

TextInput::TextInput(std::u16string_view path) : path_(path) {
  const FileStatus status =
      Uninterrupted([&] { return platform::files().Open(path_, platform::OpenMode::Read, file_); });
  CheckFileStatus(status, kSource, path_);
}

// The description of a failed conversion is made anew, with the place in it.
template <class Conversion>
auto TextInput::Converted(Conversion convert) {
  SkipToField();
  const std::int32_t line = line_;
  const std::u16string text = ReadValue();
  SkipDelimiter();
  try {
    return convert(text);
  } catch (const Error& error) {
    FailAt(line, error.number());
  }
}

std::u16string TextInput::ReadText() {
  SkipToField();
  const bool quoted = Peek() == '"';
  const std::string bytes = quoted ? ReadQuoted() : ReadPlain(false);
  SkipDelimiter();
  return platform::encoding().Widen(bytes);
}

std::int32_t TextInput::ReadLong() {
  return Converted([](std::u16string_view text) { return TextToLong(text); });
}

std::int16_t TextInput::ReadShort() {
  return Converted([](std::u16string_view text) { return TextToShort(text); });
}

float TextInput::ReadSingle() {
  return Converted([](std::u16string_view text) { return TextToSingle(text); });
}

bool TextInput::ReadBoolean() {
  return Converted([](std::u16string_view text) { return TextToBoolean(text); });
}

std::u16string TextInput::ReadValue() {
  const std::string bytes = Peek() == '"' ? ReadQuoted() : ReadPlain(true);
  std::u16string text = platform::encoding().Widen(bytes);
  if (text.empty()) return u"0";
  if (EqualIgnoringCase(text, u"#TRUE#")) return u"-1";
  if (EqualIgnoringCase(text, u"#FALSE#")) return u"0";
  return text;
}

std::string_view TextInput::AheadToLineEnd() {
  while (!atEnd_ && !HoldsLine(Buffered())) Fill();
  return Buffered();
}

void TextInput::Fail(std::int32_t number) const {
  FailAt(line_, number);
}

void TextInput::FailAt(std::int32_t line, std::int32_t number) const {
  RaiseError(number, kSource, path_ + u", line " + LongToText(line));
}

// Moves what is left to the front and reads on behind it; false when there is nothing more.
bool TextInput::Fill() {
  if (atEnd_) return false;
  const std::string_view left = Buffered();
  if (capacity_ - left.size() < kChunk) {
    const std::size_t larger = std::max(2 * kChunk, 2 * left.size());
    auto buffer = std::make_unique_for_overwrite<char[]>(larger);
    std::copy(left.begin(), left.end(), buffer.get());
    buffer_ = std::move(buffer);
    capacity_ = larger;
  } else if (begin_ > 0) {
    std::memmove(buffer_.get(), left.data(), left.size());
  }
  begin_ = 0;
  end_ = left.size();
  linesEnd_ = 0;
  std::size_t done = 0;
  const std::span<char> room(buffer_.get() + end_, capacity_ - end_);
  const FileStatus status = Uninterrupted([&] { return file_->ReadAt(offset_, room, done); });
  if (status != FileStatus::Ok) Fail(ErrorNumberOf(status));
  offset_ += done;
  end_ += done;
  linesEnd_ = Buffered().rfind('\n') + 1;
  atEnd_ = done == 0;
  return !atEnd_;
}

int TextInput::Peek() {
  if (begin_ == end_ && !Fill()) return kEnd;
  return static_cast<unsigned char>(buffer_[begin_]);
}

// A CR LF counts as one line, when its LF is taken.
void TextInput::Take() noexcept {
  const char byte = buffer_[begin_++];
  if (byte == '\n') ++line_;
}

void TextInput::SkipToField() {
  while (IsBlank(Peek()) || IsLineEnd(Peek())) Take();
  if (Peek() == kEnd) Fail(Error_InputPastEnd);
}

// The comma or the line end that closes a field, with the blanks before it.
void TextInput::SkipDelimiter() {
  while (IsBlank(Peek())) Take();
  if (Peek() == ',') {
    Take();
    return;
  }
  if (Peek() == '\r') {
    Take();
    if (Peek() != '\n') ++line_;
  }
  if (Peek() == '\n') Take();
}

std::string TextInput::ReadQuoted() {
  std::string bytes;
  Take();
  while (Peek() != '"') {
    if (Peek() == kEnd) Fail(Error_InputPastEnd);
    bytes += static_cast<char>(Peek());
    Take();
  }
  Take();
  return bytes;
}

std::string TextInput::ReadPlain(bool endsAtBlank) {
  std::string bytes;
  for (int byte = Peek(); byte != kEnd && byte != ',' && !IsLineEnd(byte); byte = Peek()) {
    if (endsAtBlank && IsBlank(byte)) break;
    bytes += static_cast<char>(byte);
    Take();
  }
  return bytes;
}

}  // namespace vestrel
