#include "workbench/DataFolder.h"

#include <random>
#include <system_error>

#include "workbench/Options.h"

namespace vestrel::workbench {

namespace fs = std::filesystem;

namespace {

std::string RandomName() {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device random;
  std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
  std::string name = "vestrel-";
  for (int i = 0; i < 10; ++i) name += kLetters[letter(random)];
  return name;
}

fs::path NewTemporaryFolder() {
  constexpr int kAttempts = 100;
  for (int i = 0; i < kAttempts; ++i) {
    const fs::path folder = fs::temp_directory_path() / RandomName();
    if (fs::create_directory(folder)) return folder;
  }
  throw BadUsage("no temporary data folder could be made; choose one with --data");
}

enum class Existing : char { Refused, Kept };

void CopyShow(const fs::path& show, const fs::path& sequences, Existing existing) {
  const fs::path target = sequences / show.filename();
  if (fs::exists(target)) {
    if (existing == Existing::Kept) return;
    throw BadUsage("the data folder has a show \"" + show.filename().string() +
                   "\" already, which is not overwritten; choose another folder");
  }
  fs::copy(show, target, fs::copy_options::recursive);
}

void CopyAll(const fs::path& shows, const fs::path& dataFolder, Existing existing) {
  try {
    fs::create_directories(dataFolder / "Sequences");
    for (const fs::directory_entry& show : fs::directory_iterator(shows)) {
      if (show.is_directory()) CopyShow(show.path(), dataFolder / "Sequences", existing);
    }
  } catch (const fs::filesystem_error& error) {
    throw BadUsage("the sample show cannot be copied: " + error.code().message() + ": " + shows.string());
  }
}

}  // namespace

fs::path OpenDataFolder(const std::string& wanted) {
  try {
    if (wanted.empty()) return fs::canonical(NewTemporaryFolder());
    fs::create_directories(wanted);
    return fs::canonical(wanted);
  } catch (const fs::filesystem_error& error) {
    throw BadUsage("the data folder cannot be used: " + error.code().message() + ": " + wanted);
  }
}

void CopyShows(const fs::path& shows, const fs::path& dataFolder) {
  CopyAll(shows, dataFolder, Existing::Refused);
}

void AddMissingShows(const fs::path& shows, const fs::path& dataFolder) {
  CopyAll(shows, dataFolder, Existing::Kept);
}

}  // namespace vestrel::workbench
