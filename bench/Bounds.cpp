// What has to stay within bounds whatever files hold: each byte of a file that nobody should write, loaded
// with all that hangs on it; one value read and one written; a show loaded and let go.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/Bench.h"
#include "bench/support/ButtonPages.h"
#include "bench/support/Folder.h"
#include "controller/clsPageManager.h"
#include "core/Error.h"
#include "core/clsDictionary.h"
#include "recording/clsRecordController.h"
#include "storage/clsMultiFile.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

namespace fs = std::filesystem;

constexpr std::int64_t kShort = 100'000;
constexpr std::int64_t kLong = 1'000'000;
// Ten milliseconds for a hundred kilobytes.
constexpr double kNanosecondsAByte = 100;

struct Shape {
  std::string name;
  std::string front;
  std::string again;  // until the file is long enough
};

std::string Filled(const Shape& shape, std::int64_t size) {
  std::string bytes = shape.front;
  while (bytes.size() < static_cast<std::size_t>(size)) bytes += shape.again;
  return bytes;
}

// What is refused counts as well.
template <class Work>
void Try(Work work) {
  try {
    work();
  } catch (const Error& error) {
    bench::Keep(error.number());
  }
}

using Load = void (*)(const std::string& app, const std::string& file);

void AddShapes(const std::string& what, const std::string& file, Load load,
               const std::vector<Shape>& shapes) {
  int number = 0;
  for (const Shape& shape : shapes) {
    const std::string who = "Vestrel (" + shape.name + ")";
    for (const std::int64_t size : {kShort, kLong}) {
      const fs::path app = fs::path(bench::Folder()) / (file + std::to_string(number)) / std::to_string(size);
      const fs::path folder = app / "Sequences" / "Show" / "Page";
      const fs::path path = folder / file;
      fs::create_directories(folder);
      std::ofstream(path, std::ios::binary) << Filled(shape, size);
      bench::Add(bench::Case{what, who, size, 1, [=] { Try([&] { load(app.string(), path.string()); }); }});
    }
    bench::Growth growth{
        "each byte of " + what + ": " + shape.name, what, kShort, kLong, kNanosecondsAByte, who};
    bench::Add(growth);
    ++number;
  }
}

void LoadPage(const std::string& app, const std::string& /*file*/) {
  const auto page = MakeRef<clsPage>();
  page->Init(bench::LibraryPath(app), nullptr, u"Show", u"Page");
  page->loadFromINI();
}

void LoadMulti(const std::string& app, const std::string& /*file*/) {
  const auto multi = MakeRef<clsMultiFile>();
  multi->Init(bench::LibraryPath(app), u"Show", u"Page", u"Calm");
  multi->Load();
}

void LoadTake(const std::string& /*app*/, const std::string& file) {
  const auto record = MakeRef<clsRecordController>();
  record->Init(nullptr);
  const auto noButtons = MakeRef<clsDictionary>();
  record->LoadEventsFrom(bench::LibraryPath(file), noButtons.get());
}

void AddHostile() {
  AddShapes("a damaged page file", "pageSetting.ini", LoadPage,
            {{"one line", "[ButtonGroup1]\r\nusedIndices=", "1|"},
             {"line ends alone", "", "\n"},
             {"sections alone", "", "[ButtonGroup1]\r\n"},
             {"one key", "[ButtonGroup1]\r\n", "usedIndices=1|2\r\n"},
             {"no values", "[ButtonGroup1]\r\nusedIndices=1\r\n", "Button1_fields\r\n"},
             {"comments", "[ButtonGroup1]\r\n", "; = [ButtonGroup1]\r\n"},
             {"bytes of no text", "", std::string("\x00\xFF\x80", 3)}});
  AddShapes("a damaged multi file", "Calm.MUL", LoadMulti,
            {{"commas alone", "1,1\r\n", ","},
             {"a quote that stays open", "1,1\r\n1000000\r\n\"", "a,"},
             {"short records", "1,1\r\n1000000\r\n", "\"\"\r\n"},
             {"line ends alone", "1,1\r\n1000000\r\n", "\r\n"}});
  AddShapes("a damaged event file", "take.txt", LoadTake,
            {{"commas alone", "1000000\r\n", ","},
             {"a quote that stays open", "1000000\r\n0,\"", "a"},
             {"long numbers", "1000000\r\n", "000000000000000"},
             {"nobody's buttons", "1000000\r\n", "0,\"x\",0,1,0,0,0\r\n"}});
}

struct Settings {
  explicit Settings(std::int64_t lines)
      : folder(bench::Folder() + "/settings" + std::to_string(lines)), page(bench::NewPage(folder, u"Page")) {
    bench::Fill(*page, lines);
    page->saveToINI();
    path = bench::LibraryPath(bench::FileOf(folder, "Page"));
  }

  std::string folder;
  Ref<clsPage> page;
  std::u16string path;
  std::int32_t turn = 0;
};

void AddSingleValues() {
  const auto settings = std::make_shared<Settings>(832);
  bench::Add(bench::Case{
      "one value read, 832 lines", "Vestrel", 832, 1,
      [=] { bench::Keep(modIniFile::ReadIniString(settings->path, u"ButtonGroup5", u"pageOffset", u"0")); }});
  bench::Add(bench::Case{"one value written, 832 lines", "Vestrel", 832, 1, [=] {
                           settings->turn = 1 - settings->turn;
                           std::u16string value = settings->turn == 0 ? u"0" : u"1";
                           modIniFile::WriteIniString(settings->path, u"ButtonGroup5", u"pageOffset", &value);
                         }});
  for (const char* what : {"one value read, 832 lines", "one value written, 832 lines"}) {
    bench::Add(bench::Claim{what, what, 832, ""});
  }
}

}  // namespace

void AddCases() {
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_1_SEVERE);
  AddHostile();
  AddSingleValues();
}
