// vestrel_bench_profile FOLDER [ROUNDS]: times settings files of 832 button lines beside the system's own
// profile functions, key by key, in the empty folder FOLDER, and prints rows for bench/report.py. Nobody
// forces anything to the disk here.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/support/ButtonPages.h"
#include "bench/support/LibraryPath.h"
#include "bench/timing/Timing.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "util/modLog.h"

namespace {

using namespace vestrel;

constexpr std::int64_t kLines = 832;
constexpr std::int32_t kGroup = 5;

std::wstring Wide(std::u16string_view text) {
  return {text.begin(), text.end()};
}

// The page by way of the library and a copy of its file for the profile functions.
struct Files {
  explicit Files(const std::string& folder) : page(bench::NewPage(folder, u"Page")) {
    bench::Fill(*page, kLines);
    page->saveToINI(-1, true);
    const std::string file = bench::FileOf(folder, "Page");
    std::filesystem::copy_file(file, file + ".peer", std::filesystem::copy_options::overwrite_existing);
    path->UseFile(bench::LibraryPath(file));
    peer = Wide(bench::LibraryPath(file + ".peer"));
    for (const bench::ButtonKey& key : bench::ButtonKeys(kLines)) {
      sections.push_back(Wide(FromUtf8(key.section)));
      keys.push_back(Wide(FromUtf8(key.key)));
    }
    loaded = bench::NewPage(folder, u"Page");
    wchar_t text[300];
    GetPrivateProfileStringW(L"ButtonGroup5", L"usedIndices", L"", text, 300, peer.c_str());
    list = text;
  }

  const wchar_t* NextValue() {
    return ++turn % 2 == 0 ? L"Sequence 405|1|0|0|0|0|False" : L"Sequence 405|2|0|0|0|0|False";
  }
  bool Put(const std::wstring& section, const std::wstring& key, const wchar_t* value) const {
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), value, peer.c_str()) != FALSE;
  }

  Ref<clsPage> page;
  Ref<clsPage> loaded;
  Ref<clsIniFile> path = MakeRef<clsIniFile>();
  std::wstring peer;
  std::vector<std::wstring> sections;
  std::vector<std::wstring> keys;
  std::wstring list;  // of the clicked group's indices
  int turn = 0;
};

void Require(bool holds, const char* what) {
  if (holds) return;
  std::printf("failed: %s\n", what);
  std::exit(2);
}

void Click(Files& files) {
  const Ref<clsObjectList> buttons = files.page->ButtonGroups(kGroup)->buttons;
  const Ref<Object> middle = buttons->GetItem(40);
  auto& button = Cast<clsButton>(middle.get());
  button.buttonType = button.buttonType == ButtonType_Sequence ? ButtonType_Multi : ButtonType_Sequence;
  files.page->saveSingleButton(&button);
}

void ClickByProfile(Files& files) {
  static const std::wstring section = L"ButtonGroup5";
  Require(files.Put(section, L"usedIndices", files.list.c_str()), "writing a key");
  Require(files.Put(section, L"Button41_fields", files.NextValue()), "writing a key");
}

void SavePage(Files& files) {
  bench::ChangeEveryLine(*files.page);
  IniBatch batch(*files.path, Sync::No);
  for (std::int32_t g = 0; g < 10; ++g) {
    files.path->UseSection(u"ButtonGroup" + LongToText(g));
    for (Object* item : files.page->ButtonGroups(g)->buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      files.path->UseKeyPrefix(u"Button" + LongToText(button.buttonIndex));
      button.saveToINI(files.path.get());
    }
  }
  Require(batch.Commit(), "saving the page");
}

void SavePageByProfile(Files& files) {
  const wchar_t* value = files.NextValue();
  for (std::size_t i = 0; i < files.keys.size(); ++i) {
    Require(files.Put(files.sections[i], files.keys[i], value), "writing a key");
  }
}

void LoadPage(Files& files) {
  files.loaded->loadFromINI();
}

void LoadPageByProfile(Files& files) {
  wchar_t value[256];
  for (std::size_t i = 0; i < files.keys.size(); ++i) {
    GetPrivateProfileStringW(files.sections[i].c_str(), files.keys[i].c_str(), L"", value, 256,
                             files.peer.c_str());
    Require(value[0] != 0, "reading a key");
  }
}

bench::Pair Against(const char* figure, const char* peer, Files& files, void (*ours)(Files&),
                    void (*theirs)(Files&), double timesFaster) {
  return {figure, peer, bench::Repeated([&files, ours] { ours(files); }),
          bench::Repeated([&files, theirs] { theirs(files); }), timesFaster};
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count < 2) {
    std::printf("vestrel_bench_profile FOLDER [ROUNDS]\n");
    return 2;
  }
  const std::string folder = std::filesystem::path(arguments[1]).string();
  modLog::Init(bench::LibraryPath(folder + "/log.txt"));
  modLog::SetLogLevel(LogLevel_2_WARNING);
  Files files(folder);
  const auto against = [&](const char* figure, const char* peer, void (*ours)(Files&), void (*theirs)(Files&),
                           double timesFaster) {
    const std::vector<bench::Pair> pair{Against(figure, peer, files, ours, theirs, timesFaster)};
    bench::Print(pair, bench::Measure(pair, count > 2 ? _wtoi(arguments[2]) : 9));
  };
  against("Wine: a click saved, 832 lines", "two profile calls", Click, ClickByProfile, 10);
  against("Wine: save 832 lines as one commit", "832 profile calls", SavePage, SavePageByProfile, 500);
  against("Wine: load a page of 832 buttons", "832 profile calls", LoadPage, LoadPageByProfile, 0);
  std::fflush(stdout);
  return 0;
}
