// The event file: loading and saving a recording. Peers read and write the same lines on the same disk; the
// floors parse and format them in memory, and write ready bytes.
#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// The peer's second thread would only cost on the one core that is measured.
#define CSV_IO_NO_THREAD
#include <libfccp/csv.h>

#include "bench/support/Bench.h"
#include "bench/support/Folder.h"
#include "core/Convert.h"
#include "core/clsDictionary.h"
#include "recording/clsRecordController.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

struct Line {
  int time = 0;
  char name[64] = {};
  int type = 0;
  int mouseButton = 0;
  int shift = 0;
  float x = 0;
  float y = 0;
};

// A recording of `size` events of 60 buttons, as an event list, as plain lines and as a file.
struct Recording {
  explicit Recording(std::int64_t size)
      : path(bench::Folder() + "/take" + std::to_string(size) + ".txt"), out(path + ".peer") {
    for (int i = 0; i < 60; ++i) {
      const Ref<clsButton> button = MakeRef<clsButton>();
      button->InitWithValues(nullptr, 1, i + 1, FromUtf8("Button " + std::to_string(i)), ButtonType_Sequence,
                             nullptr);
      map->Add(button->name, button.get());
      buttons.push_back(button);
    }
    recorder->Init(MakeRef<IRecordEventHandler>().get());
    for (std::int64_t i = 0; i < size; ++i) Append(static_cast<int>(i));
    recorder->SaveEventsTo(bench::LibraryPath(path));
    std::ifstream file(path, std::ios::binary);
    bytes.resize(std::filesystem::file_size(path));
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ready.resize(bytes.size() + 256);
  }

  void Append(int i) {
    clsButton& button = *buttons[static_cast<std::size_t>(i) % buttons.size()];
    const Ref<vxEvent> event = MakeRef<vxEvent>();
    event->Init(i * 7, &button, i % 2 == 0 ? vxEvent_ButtonOn : vxEvent_ButtonOff);
    event->SetExtras(1, 0, static_cast<float>(i % 1024), static_cast<float>(i % 768));
    recorder->EventList()->AddItem(event.get());
    Line line{i * 7, {}, i % 2, 1, 0, static_cast<float>(i % 1024), static_cast<float>(i % 768)};
    std::snprintf(line.name, sizeof line.name, "Button %d", i % 60);
    lines.push_back(line);
  }

  std::string path;
  std::string out;
  Ref<clsRecordController> recorder = MakeRef<clsRecordController>();
  Ref<clsRecordController> loader = MakeRef<clsRecordController>();
  Ref<clsDictionary> map = MakeRef<clsDictionary>();
  std::vector<Ref<clsButton>> buttons;
  std::vector<Line> lines;
  std::string bytes;
  std::string ready;
};

void Require(bool condition) {
  if (!condition) throw std::runtime_error("a peer failed");
}

void LoadWithStdio(const Recording& recording) {
  std::FILE* file = std::fopen(recording.path.c_str(), "r");
  int count = 0;
  Require(std::fscanf(file, "%d", &count) == 1);
  std::vector<Line> lines(static_cast<std::size_t>(count));
  for (Line& line : lines) {
    Require(std::fscanf(file, " %d,\"%63[^\"]\",%d,%d,%d,%f,%f", &line.time, line.name, &line.type,
                        &line.mouseButton, &line.shift, &line.x, &line.y) == 7);
  }
  std::fclose(file);
  bench::Keep(lines.data());
}

void LoadWithStreams(const Recording& recording) {
  std::ifstream file(recording.path);
  int count = 0;
  char comma = 0;
  file >> count;
  std::vector<Line> lines(static_cast<std::size_t>(count));
  for (Line& line : lines) {
    file >> line.time >> comma >> comma;
    file.getline(line.name, sizeof line.name, '"');
    file >> comma >> line.type >> comma >> line.mouseButton >> comma >> line.shift >> comma >> line.x >>
        comma >> line.y;
  }
  Require(static_cast<bool>(file));
  bench::Keep(lines.data());
}

void LoadWithCsv(const Recording& recording) {
  io::CSVReader<7, io::trim_chars<>, io::double_quote_escape<',', '"'>> reader(recording.path);
  std::vector<Line> lines;
  reader.next_line();
  Line line;
  char* name = nullptr;
  while (reader.read_row(line.time, name, line.type, line.mouseButton, line.shift, line.x, line.y)) {
    std::snprintf(line.name, sizeof line.name, "%s", name);
    lines.push_back(line);
  }
  bench::Keep(lines.data());
}

template <class Number>
const char* Take(const char* at, const char* end, Number& value) {
  return std::from_chars(at, end, value).ptr + 1;
}

// What any reader has to do: the numbers and the name's end of every line, nothing kept.
void ParseAlone(const Recording& recording) {
  const char* at = recording.bytes.data();
  const char* const end = at + recording.bytes.size();
  int count = 0;
  at = Take(at, end, count) + 1;
  for (; count > 0; --count) {
    Line line;
    at = Take(at, end, line.time) + 1;
    while (*at != '"') ++at;
    at = Take(at + 2, end, line.type);
    at = Take(at, end, line.mouseButton);
    at = Take(at, end, line.shift);
    at = Take(at, end, line.x);
    at = Take(at, end, line.y) + 1;
    bench::Keep(line.time);
  }
}

void SaveWithStdio(const Recording& recording) {
  std::FILE* file = std::fopen(recording.out.c_str(), "w");
  std::fprintf(file, "%zu\r\n", recording.lines.size());
  for (const Line& line : recording.lines) {
    std::fprintf(file, "%d,\"%s\",%d,%d,%d,%g,%g\r\n", line.time, line.name, line.type, line.mouseButton,
                 line.shift, static_cast<double>(line.x), static_cast<double>(line.y));
  }
  std::fflush(file);
  fdatasync(fileno(file));
  std::fclose(file);
}

void SaveWithStreams(const Recording& recording) {
  std::ofstream file(recording.out, std::ios::binary);
  file << recording.lines.size() << "\r\n";
  for (const Line& line : recording.lines) {
    file << line.time << ",\"" << line.name << "\"," << line.type << ',' << line.mouseButton << ','
         << line.shift << ',' << line.x << ',' << line.y << "\r\n";
  }
  file.close();
  const int handle = open(recording.out.c_str(), O_WRONLY);
  fdatasync(handle);
  close(handle);
}

template <class Number>
char* Put(char* at, Number value) {
  at = std::to_chars(at, at + 32, value).ptr;
  *at++ = ',';
  return at;
}

// The floor of writing is two: forming the lines in memory, and writing ready bytes.
void FormatAlone(Recording& recording) {
  char* at = recording.ready.data();
  for (const Line& line : recording.lines) {
    at = Put(at, line.time);
    *at++ = '"';
    for (const char* name = line.name; *name != 0; ++name) *at++ = *name;
    *at++ = '"';
    *at++ = ',';
    at = Put(at, line.type);
    at = Put(at, line.mouseButton);
    at = Put(at, line.shift);
    at = Put(at, static_cast<int>(line.x));
    at = Put(at, static_cast<int>(line.y));
    at[-1] = '\r';
    *at++ = '\n';
  }
  bench::Keep(at);
}

void WriteAlone(const Recording& recording) {
  const int handle = open(recording.out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  Require(write(handle, recording.bytes.data(), recording.bytes.size()) ==
          static_cast<ssize_t>(recording.bytes.size()));
  fdatasync(handle);
  close(handle);
}

void FormatAndWrite(Recording& recording) {
  FormatAlone(recording);
  WriteAlone(recording);
}

void AddSize(std::int64_t size) {
  const auto recording = std::make_shared<Recording>(size);
  recording->loader->Init(MakeRef<IRecordEventHandler>().get());
  const auto load = [=](const char* who, auto work) {
    bench::Add(bench::Case{"event file load", who, size, size, [=] { work(*recording); },
                           [=] { recording->loader->Init(MakeRef<IRecordEventHandler>().get()); }});
  };
  load("Vestrel", [](Recording& r) { r.loader->LoadEventsFrom(bench::LibraryPath(r.path), r.map.get()); });
  load("fscanf", LoadWithStdio);
  load("iostreams", LoadWithStreams);
  load("fast-cpp-csv-parser", LoadWithCsv);
  load("floor (parse alone)", ParseAlone);
  const auto save = [=](const char* who, auto work) {
    bench::Add(bench::Case{"event file save", who, size, size, [=] { work(*recording); }});
  };
  save("Vestrel", [](Recording& r) { r.recorder->SaveEventsTo(bench::LibraryPath(r.path + ".ours")); });
  save("fprintf", SaveWithStdio);
  save("iostreams", SaveWithStreams);
  save("floor (format, then write)", FormatAndWrite);
  save("format alone", FormatAlone);
  save("write alone", WriteAlone);
}

}  // namespace

void AddCases() {
  using bench::Kind;
  constexpr std::int64_t kMillion = 1000000;
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  const std::vector<std::int64_t> sizes =
      bench::Quick() ? std::vector<std::int64_t>{kMillion}
                     : std::vector<std::int64_t>{1000, 10000, 100000, kMillion, 10 * kMillion};
  for (const std::int64_t size : sizes) AddSize(size);
  const auto claim = [](const char* figure, const char* what, const char* other, Kind kind, double factor) {
    bench::Add(bench::Claim{figure, what, kMillion, other, kind, factor});
  };
  claim("load an event file, 1M, a line", "event file load", "fscanf", Kind::TimesFaster, 6);
  claim("load an event file, 1M, a line", "event file load", "fast-cpp-csv-parser", Kind::TimesFaster, 2.5);
  claim("load an event file, 1M, a line", "event file load", "iostreams", Kind::Shown, 0);
  claim("load an event file, 1M, a line", "event file load", "floor (parse alone)", Kind::AtMostTimes, 1.5);
  claim("save an event file, 1M, a line", "event file save", "fprintf", Kind::TimesFaster, 5);
  claim("save an event file, 1M, a line", "event file save", "iostreams", Kind::Shown, 0);
  claim("save an event file, 1M, a line", "event file save", "floor (format, then write)", Kind::AtMostTimes,
        1.4);
}
