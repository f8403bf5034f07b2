// A line of the log: opened, written and closed for each line, as by the peers and the floor.
#include <fcntl.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bench/support/Bench.h"
#include "bench/support/Folder.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

constexpr std::int64_t kTogether = 100;
constexpr char16_t kText[] = u"button 12 of group 3 on page Act 1 was switched on by the user";
constexpr char kBytes[] = "[Info] button 12 of group 3 on page Act 1 was switched on by the user\r\n";
constexpr std::string_view kLine(kBytes);

void Require(bool condition) {
  if (!condition) throw std::runtime_error("a line could not be logged");
}

void LogWithStdio(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "ab");
  Require(file != nullptr && std::fputs(kBytes, file) >= 0);
  std::fclose(file);
}

void LogBare(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  Require(write(file, kLine.data(), kLine.size()) == static_cast<ssize_t>(kLine.size()));
  close(file);
}

std::shared_ptr<spdlog::logger> SpdLogger(const std::string& path) {
  auto logger =
      std::make_shared<spdlog::logger>("bench", std::make_shared<spdlog::sinks::basic_file_sink_st>(path));
  logger->set_pattern("[%l] %v");
  logger->flush_on(spdlog::level::trace);
  return logger;
}

template <class Work>
void AddLines(const char* who, const std::string& path, Work work) {
  bench::Add(bench::Case{"log line", who, 1, kTogether,
                         [=] {
                           for (std::int64_t i = 0; i < kTogether; ++i) work(path);
                         },
                         [=] { Require(truncate(path.c_str(), 0) == 0); }});
}

}  // namespace

void AddCases() {
  using bench::Kind;
  const auto file = [](const char* name) {
    std::string path = bench::Folder() + "/" + name;
    LogBare(path);
    return path;
  };
  const std::string ours = file("log.txt");
  modLog::Init(bench::LibraryPath(ours));
  AddLines("Vestrel", ours, [](const std::string&) { modLog::Log(kText); });
  AddLines("fopen, fputs, fclose", file("stdio"), LogWithStdio);
  const std::string held = file("spdlog");
  AddLines("spdlog, kept open and flushed", held, [logger = SpdLogger(held)](const std::string&) {
    logger->info("button 12 of group 3 on page Act 1 was switched on by the user");
  });
  AddLines("spdlog, opened for each line", file("spdlog each"), [](const std::string& path) {
    SpdLogger(path)->info("button 12 of group 3 on page Act 1 was switched on by the user");
  });
  AddLines("floor (open, write, close)", file("floor"), LogBare);
  const auto claim = [](const char* other, Kind kind, double factor) {
    bench::Add(bench::Claim{"a line of the log", "log line", 1, other, kind, factor});
  };
  claim("fopen, fputs, fclose", Kind::Shown, 0);
  claim("spdlog, opened for each line", Kind::Shown, 0);
  claim("spdlog, kept open and flushed", Kind::Shown, 0);
  claim("floor (open, write, close)", Kind::AtMostTimes, 1.1);
}
