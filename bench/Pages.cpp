// Page files whole: loading a page and a show, saving a group, a page and a show. A save that is forced to
// the disk stands beside a floor that forces ready text there; one that is not stands beside those that do
// not.
#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/Bench.h"
#include "bench/support/ButtonPages.h"
#include "bench/support/Folder.h"
#include "controller/clsPageManager.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "model/ButtonLine.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;
using bench::ButtonKey;
using bench::Kind;

constexpr std::int64_t kWhole = 832;
constexpr std::int32_t kGroups = 10;
constexpr std::int32_t kGroup = 5;

void Require(bool condition) {
  if (!condition) throw std::runtime_error("a peer failed");
}

std::string BareRead(const std::string& path) {
  const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat info {};
  Require(handle >= 0 && fstat(handle, &info) == 0);
  std::string bytes;
  bytes.resize(static_cast<std::size_t>(info.st_size));
  Require(read(handle, bytes.data(), bytes.size()) == info.st_size);
  close(handle);
  return bytes;
}

enum class Forced : bool { No, Yes };

void SyncFolderOf(const std::string& path) {
  const int folder = open(std::filesystem::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  fsync(folder);
  close(folder);
}

// Written beside and renamed over, as every safe save of text that is ready.
void WriteReady(const std::string& path, const std::string& bytes, Forced forced) {
  const std::string scratch = path + ".new";
  const int handle = open(scratch.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  Require(write(handle, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
  if (forced == Forced::Yes) fsync(handle);
  close(handle);
  std::filesystem::rename(scratch, path);
  if (forced == Forced::Yes) SyncFolderOf(path);
}

// A page of `size` buttons and its file, with copies of the file for those who write.
struct PageFile {
  explicit PageFile(std::int64_t size)
      : folder(bench::Folder() + "/app" + std::to_string(size)),
        page(bench::NewPage(folder, u"Page")),
        path(bench::FileOf(folder, "Page")),
        peers(path + ".peer"),
        keys(bench::ButtonKeys(size)) {
    bench::Fill(*page, size);
    page->saveToINI();
    bytes = BareRead(path);
    WriteReady(peers, bytes, Forced::No);
    file->UseFile(bench::LibraryPath(path));
  }

  std::string folder;
  Ref<clsPage> page;
  Ref<clsPage> loaded;
  std::string path;
  std::string peers;
  std::vector<ButtonKey> keys;
  std::string bytes;
  Ref<clsIniFile> file = MakeRef<clsIniFile>();
  int turn = 0;
};

// The part of a load that no way of reading avoids: a button each, with its name, in the list of its group.
void MakeButtons(PageFile& file) {
  for (std::int32_t g = 0; g < kGroups; ++g) {
    const Ref<clsObjectList> made = file.loaded->ButtonGroups(g)->buttons;
    for (Object* item : file.page->ButtonGroups(g)->buttons->Snapshot()) {
      const auto& like = Cast<clsButton>(item);
      const auto button = MakeRef<clsButton>();
      button->InitWithValues(file.loaded.get(), g, like.buttonIndex, like.name, like.buttonType, nullptr);
      made->AddItem(button.get());
    }
  }
}

void LoadValues(PageFile& file) {
  IniBatch batch(*file.file, Sync::No);
  for (const ButtonKey& key : file.keys) {
    file.file->UseSection(FromUtf8(key.section));
    bench::Keep(file.file->ReadString(FromUtf8(key.key), u"").size());
  }
}

GKeyFile* OpenWithGLib(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  Require(g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr) != FALSE);
  return file;
}

void LoadWithGLib(PageFile& page) {
  GKeyFile* file = OpenWithGLib(page.path);
  for (const ButtonKey& key : page.keys) {
    gchar* value = g_key_file_get_string(file, key.section.c_str(), key.key.c_str(), nullptr);
    Require(value != nullptr);
    bench::Keep(value);
    g_free(value);
  }
  g_key_file_free(file);
}

void SaveWithGLib(PageFile& page) {
  GKeyFile* file = OpenWithGLib(page.peers);
  const std::string value = "Sequence|1|0|0|0|" + std::to_string(++page.turn % 100) + "|False";
  for (const ButtonKey& key : page.keys) {
    g_key_file_set_string(file, key.section.c_str(), key.key.c_str(), value.c_str());
  }
  gsize size = 0;
  gchar* text = g_key_file_to_data(file, &size, nullptr);
  std::ofstream(page.peers, std::ios::binary).write(text, static_cast<std::streamsize>(size));
  g_free(text);
  g_key_file_free(file);
}

// What a page's save does for every group, in one commit and not forced to the disk.
void SaveInOneCommit(PageFile& page) {
  IniBatch batch(*page.file, Sync::No);
  for (std::int32_t g = 0; g < kGroups; ++g) {
    page.file->UseSection(u"ButtonGroup" + LongToText(g));
    for (Object* item : page.page->ButtonGroups(g)->buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      page.file->UseNarrowKeyPrefix(vestrel::ButtonKey(button.buttonIndex).prefix());
      button.saveToINI(page.file.get());
    }
  }
}

void AddLoads(const std::shared_ptr<PageFile>& page, std::int64_t size) {
  const auto add = [=](const char* who, auto work, std::function<void()> before = nullptr) {
    bench::Add(bench::Case{"page load", who, size, 1, [=] { work(*page); }, std::move(before)});
  };
  const auto anew = [=] { page->loaded = bench::NewPage(page->folder, u"Page"); };
  add(
      "Vestrel", [](PageFile& p) { p.loaded->loadFromINI(); }, anew);
  add("floor (buttons made)", MakeButtons, anew);
  add("Vestrel, values alone", LoadValues);
  add("GLib", LoadWithGLib);
  add("floor (bare read)", [](PageFile& p) { bench::Keep(BareRead(p.path).size()); });
}

void AddSaves(const std::shared_ptr<PageFile>& page, std::int64_t size) {
  const auto change = [=] { bench::ChangeEveryLine(*page->page); };
  const auto plain = [=](const char* who, auto work, std::function<void()> before = nullptr) {
    bench::Add(bench::Case{"page save, one commit", who, size, 1, [=] { work(*page); }, std::move(before)});
  };
  plain("Vestrel", SaveInOneCommit, change);
  plain("GLib", SaveWithGLib);
  plain("floor (ready text)", [](PageFile& p) { WriteReady(p.peers, p.bytes, Forced::No); });
  const auto forced = [=](const char* what, const char* who, auto work,
                          std::function<void()> before = nullptr) {
    bench::Add(bench::Case{what, who, size, 1, [=] { work(*page); }, std::move(before), true});
  };
  forced(
      "group save, forced to the disk", "Vestrel", [](PageFile& p) { p.page->saveButtonGroupToINI(kGroup); },
      change);
  forced("group save, forced to the disk", "floor (ready text)",
         [](PageFile& p) { WriteReady(p.peers, p.bytes, Forced::Yes); });
}

// A show of ten full pages.
struct Show {
  static constexpr int kPages = 10;

  Show() : folder(bench::Folder() + "/show") {
    std::u16string names;
    for (int i = 1; i <= kPages; ++i) {
      const std::string name = "Page " + std::to_string(i);
      const Ref<clsPage> page = bench::NewPage(folder, FromUtf8(name));
      bench::Fill(*page, kWhole);
      page->saveToINI();
      paths.push_back(bench::FileOf(folder, name));
      bytes.push_back(BareRead(paths.back()));
      names += (names.empty() ? u"" : u"|") + FromUtf8(name);
    }
    const auto file = MakeRef<clsIniFile>();
    file->UseFile(bench::LibraryPath(folder) + u"\\Sequences\\Show\\pageSetting.ini");
    file->UseSection(u"PageManager");
    file->WriteString(u"PageList", names);
    Open();
    Load();
    Require(manager->PageList()->Size() == kPages);
  }

  void Open() {
    manager = MakeRef<clsPageManager>();
    manager->Init(bench::LibraryPath(folder), MakeRef<IPageController>().get());
  }
  void Load() { manager->setShow(u"Show"); }

  std::string folder;
  std::vector<std::string> paths;
  std::vector<std::string> bytes;
  Ref<clsPageManager> manager;
};

void AddShow() {
  const auto show = std::make_shared<Show>();
  bench::Add(
      bench::Case{"show load", "Vestrel", Show::kPages, 1, [=] { show->Load(); }, [=] { show->Open(); }});
  bench::Add(bench::Case{"show load", "floor (bare reads)", Show::kPages, 1, [=] {
                           for (const std::string& path : show->paths) bench::Keep(BareRead(path).size());
                         }});
  bench::Add(bench::Case{"show save", "Vestrel", Show::kPages, 1, [=] { show->manager->saveToINI(); },
                         [=] {
                           if (show->manager->PageList()->Size() == 0) show->Load();
                           for (Object* page : show->manager->PageList()->Snapshot())
                             bench::ChangeEveryLine(Cast<clsPage>(page));
                         },
                         true});
  bench::Add(bench::Case{"show save", "floor (ready text, a hundred commits)", Show::kPages, 1,
                         [=] {
                           for (std::size_t i = 0; i < show->paths.size(); ++i) {
                             for (int g = 0; g < 10; ++g)
                               WriteReady(show->paths[i] + ".peer", show->bytes[i], Forced::Yes);
                           }
                         },
                         nullptr, true});
}

}  // namespace

void AddCases() {
  modLog::Init(bench::LibraryPath(bench::Folder() + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  const std::vector<std::int64_t> sizes =
      bench::Quick() ? std::vector<std::int64_t>{kWhole} : std::vector<std::int64_t>{10, 100, kWhole};
  for (const std::int64_t size : sizes) {
    const auto page = std::make_shared<PageFile>(size);
    AddLoads(page, size);
    AddSaves(page, size);
  }
  AddShow();
  const auto claim = [](const char* figure, const char* what, const char* other, Kind kind, double factor,
                        const char* ours = "Vestrel") {
    bench::Add(bench::Claim{figure, what, kWhole, other, kind, factor, ours});
  };
  claim("load a page of 832 buttons", "page load", "GLib", Kind::TimesFaster, 20);
  claim("load a page of 832 buttons", "page load", "floor (bare read)", Kind::AtMostTimes, 3);
  claim("load a page of 832 buttons", "page load", "floor (buttons made)", Kind::Shown, 0);
  claim("read 832 values, no buttons made", "page load", "GLib", Kind::Shown, 0, "Vestrel, values alone");
  claim("save 832 lines as one commit", "page save, one commit", "floor (ready text)", Kind::AtMostTimes,
        1.25);
  claim("save 832 lines as one commit", "page save, one commit", "GLib", Kind::Shown, 0);
  claim("save a group of a page, forced to the disk", "group save, forced to the disk", "floor (ready text)",
        Kind::AtMostTimes, 1.25);
  const auto shown = [](const char* figure, const char* what, const char* other) {
    bench::Add(bench::Claim{figure, what, Show::kPages, other, Kind::Shown, 0});
  };
  shown("load a show of ten full pages", "show load", "floor (bare reads)");
  shown("save a show of ten full pages, forced to the disk", "show save",
        "floor (ready text, a hundred commits)");
}
