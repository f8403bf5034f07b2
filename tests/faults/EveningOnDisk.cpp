#include "tests/faults/EveningOnDisk.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "core/Convert.h"

namespace vestrel::test {

namespace fs = std::filesystem;

EveningOnDisk::EveningOnDisk(fs::path folder, std::u16string path)
    : folder_(std::move(folder)), path_(std::move(path)) {}

fs::path EveningOnDisk::RealOf(const std::u16string& name) const {
  std::u16string path = name;
  for (char16_t& unit : path) unit = unit == u'\\' ? u'/' : unit;
  return folder_ / path;
}

void EveningOnDisk::PutFiles(int step) const {
  fs::remove_all(RealOf(u"Sequences\\Gala\\Guest"));
  for (const std::u16string& name : record_.Names()) {
    fs::remove(RealOf(name));
    const std::string bytes = BytesBefore(name, step);
    if (bytes == "<none>") continue;
    fs::create_directories(RealOf(name).parent_path());
    std::ofstream(RealOf(name), std::ios::binary) << bytes;
  }
}

void EveningOnDisk::PutFirstFilesInto(MemoryFiles& memory) const {
  for (const auto& [name, bytes] : Evening::FirstFiles()) memory.Put(path_ + u"\\" + name, bytes);
}

std::string EveningOnDisk::BytesBefore(const std::u16string& name, int step) const {
  const std::vector<EveningRecord::Version>& versions = record_.Versions(name);
  const auto next =
      std::find_if(versions.begin(), versions.end(),
                   [step](const EveningRecord::Version& version) { return version.step >= step; });
  return Here(std::prev(next)->bytes);
}

std::string EveningOnDisk::Read(const std::u16string& name) const {
  std::ifstream file(RealOf(name), std::ios::binary);
  if (!file) return "<none>";
  std::string bytes(static_cast<std::size_t>(fs::file_size(RealOf(name))), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

std::vector<fs::path> EveningOnDisk::Leftovers() const {
  std::vector<fs::path> result;
  for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
    if (entry.path().u16string().ends_with(u'~')) result.push_back(entry.path());
  }
  return result;
}

// What an undisturbed evening leaves.
std::string EveningOnDisk::Whole(const std::u16string& name) const {
  return Here(record_.Versions(name).back().bytes);
}

// The log names the folder.
std::string EveningOnDisk::Here(std::string bytes) const {
  static constexpr std::string_view kModel = "C:\\app";
  const std::string here = ToUtf8(path_);
  for (std::size_t at = 0; (at = bytes.find(kModel, at)) != std::string::npos; at += here.size()) {
    bytes.replace(at, kModel.size(), here);
  }
  return bytes;
}

// A killed writer may leave the front of a line of the log; nothing else is ever out of step.
std::string EveningOnDisk::FaultOf(const std::u16string& name, int step) const {
  const std::string bytes = Read(name);
  if (name != u"log.txt") return record_.Fault(name, bytes, step);
  const std::string whole = Whole(name);
  const bool isFront = bytes == "<none>" || whole.starts_with(bytes);
  return isFront ? "" : "the log is no front of the whole log";
}

std::string EveningOnDisk::FaultsAfter(int step) {
  std::string faults;
  if (Leftovers().size() > kept_ + 1) faults += "a crash left more than one file beside its target\n";
  for (const std::u16string& name : record_.Names()) {
    const std::string fault = FaultOf(name, step);
    if (!fault.empty()) faults += fault + "\n";
  }
  for (const fs::path& leftover : Leftovers()) {
    if (turn_++ % 8 != 0) fs::remove(leftover);
  }
  kept_ = Leftovers().size();
  return faults;
}

std::string EveningOnDisk::FaultsOfAWholeEvening() {
  std::string faults;
  if (!Leftovers().empty()) faults += "a file beside its target stays\n";
  kept_ = 0;
  for (const std::u16string& name : record_.Names()) {
    if (Read(name) != Whole(name)) faults += ToUtf8(name) + " is not as an undisturbed evening leaves it\n";
  }
  return faults;
}

}  // namespace vestrel::test
