#include "storage/TextOutput.h"

#include <algorithm>
#include <charconv>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/FileError.h"
#include "platform/Platform.h"
#include "storage/FileIo.h"

namespace vestrel {

using platform::FileInfo;
using platform::files;
using platform::FileStatus;

namespace {

constexpr std::u16string_view kSource = u"TextFile";
constexpr std::size_t kChunk = 65536;
constexpr std::size_t kLongestNumber = 32;

// What may not be replaced is refused before anything is written.
FileStatus CheckTarget(std::u16string_view path) {
  FileInfo info;
  const FileStatus status = Uninterrupted([&] { return files().Info(path, info); });
  if (status == FileStatus::NotFound) return FileStatus::Ok;
  const bool refused = status == FileStatus::Ok && (info.directory || info.readOnly);
  return refused ? FileStatus::AccessDenied : status;
}

}  // namespace

TextOutput::TextOutput(std::u16string_view path, Kind kind) : path_(path), kind_(kind) {
  FileStatus status = FileStatus::Ok;
  if (kind == Kind::Append) {
    status = Uninterrupted([&] { return files().Open(path_, platform::OpenMode::Append, appended_); });
  } else {
    status = CheckTarget(path_);
    if (status == FileStatus::Ok) status = scratch_.Open(path_, platform::LockMode::TryExclusive);
  }
  CheckFileStatus(status, kSource, path_);
}

void TextOutput::WriteText(std::u16string_view value) {
  BeginField();
  Append("\"");
  Append(narrow_(value));
  Append("\"");
}

void TextOutput::WriteLong(std::int32_t value) {
  BeginField();
  char* const room = Room(kLongestNumber);
  Written(std::to_chars(room, room + kLongestNumber, value).ptr);
}

void TextOutput::WriteSingle(float value) {
  BeginField();
  Append(ToUtf8(SingleToText(value)));
}

void TextOutput::WriteBoolean(bool value) {
  BeginField();
  Append(value ? "#TRUE#" : "#FALSE#");
}

void TextOutput::EndLine() {
  Append("\r\n");
  lineHasFields_ = false;
}

void TextOutput::WriteLine(std::u16string_view text) {
  Append(narrow_(text));
  EndLine();
}

void TextOutput::MakeRoom(std::size_t size) {
  Flush();
  if (capacity_ >= size) return;
  capacity_ = std::max(size, kChunk);
  buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

void TextOutput::Close() {
  if (failed_) {
    scratch_.Discard();
    return;
  }
  Flush();
  if (kind_ == Kind::New) {
    PutInPlace();
  } else {
    Check(Uninterrupted([&] { return appended_->Close(); }));
  }
  narrow_.WarnOfLosses();
}

void TextOutput::BeginField() {
  if (lineHasFields_) Append(",");
  lineHasFields_ = true;
}

void TextOutput::Append(std::string_view bytes) {
  Written(std::copy(bytes.begin(), bytes.end(), Room(bytes.size())));
}

void TextOutput::Flush() {
  const std::string_view bytes(buffer_.get(), used_);
  used_ = 0;
  if (failed_) RaiseError(Error_DeviceIO, kSource, path_);
  if (!bytes.empty()) WriteOut(bytes);
}

void TextOutput::WriteOut(std::string_view bytes) {
  if (kind_ == Kind::New) {
    Check(scratch_.Append(bytes));
  } else {
    std::size_t done = 0;
    Check(WriteAll(*appended_, 0, bytes, done));
  }
}

void TextOutput::Check(FileStatus status) {
  if (status == FileStatus::Ok) return;
  failed_ = true;
  scratch_.Discard();
  CheckFileStatus(status, kSource, path_);
}

void TextOutput::PutInPlace() {
  std::unique_ptr<platform::File> old;
  const FileStatus status = Uninterrupted([&] { return files().Open(path_, platform::OpenMode::Read, old); });
  if (status != FileStatus::NotFound) {
    Check(status);
    Check(scratch_.CopyAccess(*old));
    old.reset();
  }
  Check(scratch_.PutInPlace(true));
}

}  // namespace vestrel
