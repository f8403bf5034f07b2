// What a click saves: the button's line and its group's list, in page files of different lengths. Nobody
// forces anything to the disk here, neither the library for a click nor the peers. Peers load the file into
// their own form, set the two keys and write it whole; the floors know beforehand what to write where.
// Bytes in, bytes out, compiled here.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/Bench.h"
#include "bench/support/Folder.h"
#include "core/Cast.h"
#include "model/clsPage.h"
#include "storage/Folders.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

constexpr std::int64_t kGroups = 10;
// As many as a list of the format reads back, less a few.
constexpr std::int64_t kListed = 80;
// The clicked button stands in the middle of the file.
constexpr std::int32_t kGroup = 5;

void Require(bool condition) {
  if (!condition) throw std::runtime_error("a click's file could not be handled");
}

std::string ButtonKey(std::int64_t index) {
  return "Button" + std::to_string(index) + "_fields";
}

std::string ButtonText(std::int64_t index, int playState) {
  return "Intro and more " + std::to_string(index) + "|1|" + std::to_string(playState) + "|0|0|0|False";
}

// `lines` lines in ten sections: offset, fader and list of each group, then its buttons. Buttons beyond those
// in the list were removed at some time; their lines stay.
class PageText {
 public:
  explicit PageText(std::int64_t lines) {
    for (std::int64_t group = 0; group < kGroups; ++group) {
      AddGroup(group, std::max<std::int64_t>(1, (lines + group) / kGroups - 3));
    }
  }

  std::string text;
  std::string list;  // of the clicked button's group
  std::int64_t clicked = 1;
  std::size_t stateAt = 0;  // where the clicked button's play state stands

 private:
  void AddGroup(std::int64_t group, std::int64_t buttons) {
    text += "[ButtonGroup" + std::to_string(group) + "]\r\npageOffset=0\r\nfaderValue=0\r\n";
    std::string indices = "1";
    for (std::int64_t i = 2; i <= std::min(buttons, kListed); ++i) indices += "|" + std::to_string(i);
    text += "usedIndices=" + indices + "\r\n";
    if (group == kGroup) {
      list = indices;
      clicked = std::max<std::int64_t>(1, std::min(buttons, kListed) / 2);
    }
    for (std::int64_t i = 1; i <= buttons; ++i) {
      text += ButtonKey(i) + "=" + ButtonText(i, 0) + "\r\n";
      if (group == kGroup && i == clicked) stateAt = text.size() - std::string("0|0|0|0|False\r\n").size();
    }
  }
};

struct Click {
  explicit Click(std::int64_t lines) : page(lines), name("Page " + std::to_string(lines)) {
    folder = bench::Folder() + "/Sequences/Show/" + name;
    std::filesystem::create_directories(folder);
    for (const char* who : {"pageSetting.ini", "glib", "simple", "boost", "floor"}) {
      std::ofstream(Path(who), std::ios::binary) << page.text;
    }
    ours->Init(bench::LibraryPath(bench::Folder()), nullptr, u"Show", bench::LibraryPath(name), true);
    ours->loadFromINI();
    const Ref<clsObjectList> buttons = ours->ButtonGroups(kGroup)->buttons;
    button =
        Ref<clsButton>(&Cast<clsButton>(buttons->GetItem(static_cast<std::int32_t>(page.clicked - 1)).get()));
    section = "ButtonGroup" + std::to_string(kGroup);
    key = ButtonKey(page.clicked);
    values = {ButtonText(page.clicked, 0), ButtonText(page.clicked, 1)};
    bytes.resize(page.text.size());
  }

  std::string Path(const std::string& file) const { return folder + "/" + file; }
  // The other of the two values, in turn.
  const std::string& Next() {
    state = !state;
    return values[state ? 1 : 0];
  }

  PageText page;
  std::string name;
  std::string folder;
  Ref<clsPage> ours = MakeRef<clsPage>();
  Ref<clsButton> button;
  std::string section;
  std::string key;
  std::array<std::string, 2> values;
  bool state = false;
  std::vector<char> bytes;
};

void ClickOurs(Click& click) {
  const bool on = click.button->playState() == PlayState_On;
  click.button->setPlayState(on ? PlayState_Off : PlayState_On, PSEventSource_User, 1, 0, 0, 0, true);
  click.ours->saveSingleButton(click.button.get());
}

void WritePlainly(const std::string& path, const char* data, std::size_t size) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Require(write(file, data, size) == static_cast<ssize_t>(size));
  close(file);
}

void ClickGlib(Click& click) {
  const std::string path = click.Path("glib");
  GKeyFile* file = g_key_file_new();
  Require(g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr) != FALSE);
  g_key_file_set_string(file, click.section.c_str(), "usedIndices", click.page.list.c_str());
  g_key_file_set_string(file, click.section.c_str(), click.key.c_str(), click.Next().c_str());
  gsize size = 0;
  gchar* text = g_key_file_to_data(file, &size, nullptr);
  WritePlainly(path, text, size);
  g_free(text);
  g_key_file_free(file);
}

void ClickSimple(Click& click) {
  const std::string path = click.Path("simple");
  CSimpleIniCaseA file;
  Require(file.LoadFile(path.c_str()) == SI_OK);
  file.SetValue(click.section.c_str(), "usedIndices", click.page.list.c_str());
  file.SetValue(click.section.c_str(), click.key.c_str(), click.Next().c_str());
  Require(file.SaveFile(path.c_str(), false) == SI_OK);
}

void ClickBoost(Click& click) {
  const std::string path = click.Path("boost");
  boost::property_tree::ptree tree;
  boost::property_tree::read_ini(path, tree);
  tree.put(click.section + ".usedIndices", click.page.list);
  tree.put(click.section + "." + click.key, click.Next());
  boost::property_tree::write_ini(path, tree);
}

void Overwrite(Click& click, int file) {
  const char state = click.Next() == click.values[1] ? '1' : '0';
  Require(pwrite(file, &state, 1, static_cast<off_t>(click.page.stateAt)) == 1);
}

void FloorWithRead(Click& click) {
  const int file = open(click.Path("floor").c_str(), O_RDWR | O_CLOEXEC);
  Require(read(file, click.bytes.data(), click.bytes.size()) == static_cast<ssize_t>(click.bytes.size()));
  Overwrite(click, file);
  close(file);
}

void FloorWithStat(Click& click) {
  const std::string path = click.Path("floor");
  struct stat data {};
  Require(stat(path.c_str(), &data) == 0);
  const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
  Overwrite(click, file);
  close(file);
}

constexpr std::int64_t kTogether = 20;
constexpr std::int64_t kPage = 832;
constexpr std::int64_t kLarge = 5000;

void AddSize(std::int64_t lines) {
  const auto click = std::make_shared<Click>(lines);
  // Growth needs the library alone at every size.
  const bool peersToo = !bench::Quick() || lines == kPage;
  const auto add = [=](const char* who, auto work) {
    bench::Add(bench::Case{"click", who, lines, kTogether, [=] {
                             for (std::int64_t i = 0; i < kTogether; ++i) work(*click);
                           }});
  };
  add("Vestrel", ClickOurs);
  add("floor (open, read, pwrite)", FloorWithRead);
  add("floor (stat, open, pwrite)", FloorWithStat);
  if (!peersToo) return;
  add("GLib", ClickGlib);
  add("SimpleIni", ClickSimple);
  add("Boost property tree", ClickBoost);
}

}  // namespace

void AddCases() {
  using bench::Kind;
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  for (const std::int64_t size : {std::int64_t{0}, std::int64_t{100}, kPage, kLarge}) AddSize(size);
  const auto claim = [](const char* other, Kind kind, double factor) {
    bench::Add(bench::Claim{"a click with its save, 832 lines", "click", kPage, other, kind, factor});
  };
  claim("GLib", Kind::TimesFaster, 20);
  claim("SimpleIni", Kind::Shown, 0);
  claim("Boost property tree", Kind::Shown, 0);
  claim("floor (open, read, pwrite)", Kind::AtMostTimes, 2.2);
  claim("floor (stat, open, pwrite)", Kind::Shown, 0);
  bench::Add(bench::Growth{"a click with its save, each more line of the page", "click", 0, kLarge, 10});
}
