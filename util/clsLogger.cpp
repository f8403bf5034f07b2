#include "util/clsLogger.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "core/Error.h"
#include "core/FileError.h"
#include "platform/Platform.h"
#include "platform/Uninterrupted.h"
#include "util/TextBuffer.h"

namespace vestrel {

using platform::FileStatus;
using platform::Uninterrupted;

namespace {

constexpr std::u16string_view kSource = u"clsLogger.Log()";

constexpr std::array<std::u16string_view, 5> kLevelNames = {u"LogSystem", u"Severe", u"Warning", u"Info",
                                                            u"Spew"};

}  // namespace

void clsLogger::Init(std::u16string_view filename) {
  filename_ = filename;
  endIsUncertain_ = true;
  level_ = LogLevel_3_INFO;
  Log(u"========================================", LogLevel_0_SYSTEM);
  Log(u"logging started at " + platform::clock().LocalDateTimeText(), LogLevel_0_SYSTEM);
}

void clsLogger::Log(std::u16string_view text, LogLevel_Enum level) {
  if (!Passes(level)) return;
  const auto index = static_cast<std::size_t>(level);
  if (index >= kLevelNames.size()) RaiseError(Error_SubscriptOutOfRange, kSource);
  TextBuffer line;
  line.Append(u'[');
  line.Append(kLevelNames[index]);
  line.Append(u"] ");
  line.Append(text);
  line.Append(u"\r\n");
  AppendLine(line);
}

void clsLogger::AppendLine(const TextBuffer& line) {
  bool lossy = false;
  std::string bytes = platform::encoding().Narrow(line.view(), lossy);
  if (endIsUncertain_ && EndsInsideLine()) bytes.insert(0, "\r\n");
  Write(bytes);
}

void clsLogger::Write(std::string_view bytes) {
  std::unique_ptr<platform::File> file;
  const auto mode = endIsUncertain_ ? platform::OpenMode::Append : platform::OpenMode::AppendOn;
  const FileStatus opened = Uninterrupted([&] { return platform::files().Open(filename_, mode, file); });
  CheckFileStatus(opened, kSource, filename_);
  endIsUncertain_ = true;
  while (!bytes.empty()) {
    std::size_t done = 0;
    const FileStatus status =
        Uninterrupted([&] { return file->WriteAt(0, std::span(bytes.data(), bytes.size()), done); });
    bytes.remove_prefix(done);
    CheckFileStatus(status, kSource, filename_);
    if (done == 0) RaiseError(Error_DiskFull, kSource, filename_);
  }
  CheckFileStatus(Uninterrupted([&] { return file->Close(); }), kSource, filename_);
  endIsUncertain_ = false;
}

bool clsLogger::EndsInsideLine() const {
  std::unique_ptr<platform::File> file;
  platform::FileInfo info;
  const FileStatus opened =
      Uninterrupted([&] { return platform::files().Open(filename_, platform::OpenMode::Read, file); });
  if (opened != FileStatus::Ok) return false;
  if (Uninterrupted([&] { return file->Info(info); }) != FileStatus::Ok || info.size == 0) return false;
  char last = '\n';
  std::size_t done = 0;
  Uninterrupted([&] { return file->ReadAt(info.size - 1, std::span(&last, 1), done); });
  return done == 1 && last != '\n';
}

}  // namespace vestrel
