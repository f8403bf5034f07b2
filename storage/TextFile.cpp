#include "storage/TextFile.h"

#include <map>
#include <memory>
#include <utility>

#include "core/Error.h"

namespace vestrel::TextFile {
namespace {

constexpr std::u16string_view kSource = u"TextFile";

// Exactly one of the two.
struct Entry {
  std::u16string path;
  std::unique_ptr<TextOutput> output;
  std::unique_ptr<TextInput> input;
};

using Table = std::map<std::int32_t, Entry>;

Table& Files() {
  thread_local Table files;
  return files;
}

// Reading a file that others read is the one case that may share.
bool IsOpenAgainst(std::u16string_view path, Mode mode) {
  for (const auto& [number, entry] : Files()) {
    if (entry.path == path && (mode != Mode::Input || entry.output)) return true;
  }
  return false;
}

const Entry& Find(std::int32_t number) {
  const auto found = Files().find(number);
  if (found == Files().end()) RaiseError(Error_BadFileNameOrNumber, kSource);
  return found->second;
}

}  // namespace

std::int32_t FreeNumber() {
  std::int32_t free = 1;
  for (const auto& [number, entry] : Files()) {
    if (number != free) break;
    ++free;
  }
  if (free > kHighestNumber) RaiseError(Error_BadFileNameOrNumber, kSource, u"too many files are open");
  return free;
}

void Open(std::int32_t number, std::u16string_view path, Mode mode) {
  if (number < 1 || number > kHighestNumber) RaiseError(Error_BadFileNameOrNumber, kSource, path);
  if (Files().contains(number) || IsOpenAgainst(path, mode)) {
    RaiseError(Error_FileAlreadyOpen, kSource, path);
  }
  Entry entry;
  entry.path = path;
  if (mode == Mode::Input) {
    entry.input = std::make_unique<TextInput>(path);
  } else {
    const auto kind = mode == Mode::Append ? TextOutput::Kind::Append : TextOutput::Kind::New;
    entry.output = std::make_unique<TextOutput>(path, kind);
  }
  Files().emplace(number, std::move(entry));
}

TextOutput& Output(std::int32_t number) {
  const Entry& entry = Find(number);
  if (!entry.output) RaiseError(Error_BadFileNameOrNumber, kSource, entry.path);
  return *entry.output;
}

TextInput& Input(std::int32_t number) {
  const Entry& entry = Find(number);
  if (!entry.input) RaiseError(Error_BadFileNameOrNumber, kSource, entry.path);
  return *entry.input;
}

void Close(std::int32_t number) {
  const Table::node_type node = Files().extract(number);
  if (!node.empty() && node.mapped().output) node.mapped().output->Close();
}

void Abandon(std::int32_t number) noexcept {
  Files().erase(number);
}

Opened::Opened(std::u16string_view path, Mode mode) : number_(FreeNumber()) {
  Open(number_, path, mode);
}

}  // namespace vestrel::TextFile
