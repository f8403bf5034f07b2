#include "tests/faults/DiskModel.h"

#include <algorithm>
#include <set>

#include "tests/support/MemoryFiles.h"

namespace vestrel::test {
namespace {

constexpr std::size_t kSector = 512;
// Where there are more ways for sectors to be old or new, so many of them are tried.
constexpr std::size_t kMostChoices = 512;

struct Piece {
  std::size_t offset;
  std::string bytes;
};

// Writes cut where sectors end.
std::vector<Piece> Pieces(const std::vector<std::pair<std::uint64_t, std::string>>& writes) {
  std::vector<Piece> pieces;
  for (const auto& [offset, bytes] : writes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
      const std::size_t begin = static_cast<std::size_t>(offset) + at;
      const std::size_t size = std::min(bytes.size() - at, kSector - begin % kSector);
      pieces.push_back({begin, bytes.substr(at, size)});
      at += size;
    }
  }
  return pieces;
}

void Apply(std::string& bytes, const Piece& piece) {
  if (bytes.size() < piece.offset + piece.bytes.size()) bytes.resize(piece.offset + piece.bytes.size());
  bytes.replace(piece.offset, piece.bytes.size(), piece.bytes);
}

// The pieces by the sector that they lie in, in the order in which they were written. The system keeps one
// copy of a sector, so that what reaches the disk holds all that was written to it until some moment.
using Sectors = std::vector<std::vector<Piece>>;

Sectors BySector(const std::vector<Piece>& pieces) {
  std::map<std::size_t, std::vector<Piece>> sectors;
  for (const Piece& piece : pieces) sectors[piece.offset / kSector].push_back(piece);
  Sectors result;
  for (auto& [number, list] : sectors) result.push_back(std::move(list));
  return result;
}

std::size_t CountOfChoices(const Sectors& sectors) {
  std::size_t count = 1;
  for (const std::vector<Piece>& sector : sectors) {
    if (count <= kMostChoices) count *= sector.size() + 1;
  }
  return count;
}

// How many pieces of each sector reached the disk, in one of the ways that there are; of too many ways, some.
std::string Chosen(std::string bytes, const Sectors& sectors, std::size_t choice, bool some) {
  std::uint32_t random = static_cast<std::uint32_t>(choice) * 2654435761U;
  for (const std::vector<Piece>& sector : sectors) {
    random = random * 1664525U + 1013904223U;
    const std::size_t written = (some ? random >> 16U : choice) % (sector.size() + 1);
    choice /= sector.size() + 1;
    for (std::size_t p = 0; p < written; ++p) Apply(bytes, sector[p]);
  }
  return bytes;
}

}  // namespace

void DiskModel::Put(const std::u16string& path, std::string_view bytes) {
  const Node node = std::make_shared<Inode>();
  node->durable = bytes;
  names_[path].durable = node;
}

std::u16string DiskModel::FolderOf(const std::u16string& path) {
  return path.substr(0, std::min(path.rfind(u'\\'), path.size()));
}

void DiskModel::Settle(Inode& inode) {
  for (const auto& [offset, bytes] : inode.pending) {
    Apply(inode.durable, {static_cast<std::size_t>(offset), bytes});
  }
  inode.pending.clear();
  inode.isOpenToLoss = false;
}

DiskModel::Node DiskModel::Current(const std::u16string& path) const {
  const auto found = names_.find(path);
  if (found == names_.end()) return nullptr;
  return found->second.pending.empty() ? found->second.durable : found->second.pending.back();
}

void DiskModel::Note(const FileCall& call) {
  const std::u16string path = NormalPath(call.path);
  if (call.name == "Open") {
    Node node = Current(path);
    if (node == nullptr) {
      node = std::make_shared<Inode>();
      names_[path].pending.push_back(node);
    }
    handles_[call.handle] = node;
  } else if (call.name == "WriteAt") {
    Inode& inode = *handles_.at(call.handle);
    std::uint64_t offset = call.offset;
    if (call.mode == platform::OpenMode::Append || call.mode == platform::OpenMode::AppendOn) {
      Inode whole = inode;
      Settle(whole);
      offset = whole.durable.size();
    }
    inode.pending.emplace_back(offset, call.bytes);
  } else if (call.name == "Truncate") {
    // Only of scratch files, which are new in the eyes of all that follows.
    handles_.at(call.handle)->durable.clear();
    handles_.at(call.handle)->pending.clear();
  } else if (call.name == "Sync") {
    Settle(*handles_.at(call.handle));
  } else if (call.name == "Replace") {
    Rename(path, NormalPath(call.to));
  } else if (call.name == "Remove") {
    names_[path].pending.push_back(nullptr);
  } else if (call.name == "MakeDirectory") {
    newFolders_[path] = true;
  } else if (call.name == "SyncDirectory") {
    for (auto& [name, entry] : names_) {
      if (FolderOf(name) != path || entry.pending.empty()) continue;
      entry.durable = entry.pending.back();
      entry.pending.clear();
    }
    for (auto& [folder, isNew] : newFolders_) {
      if (FolderOf(folder) == path) isNew = false;
    }
  }
}

void DiskModel::WriteBack() {
  for (auto& [name, entry] : names_) {
    if (!entry.pending.empty()) entry.durable = entry.pending.back();
    entry.pending.clear();
    if (entry.durable != nullptr) Settle(*entry.durable);
  }
  newFolders_.clear();
}

void DiskModel::Rename(const std::u16string& from, const std::u16string& to) {
  const Node node = Current(from);
  if (rule_ == DiskRule::Ordered) {
    Settle(*node);
  } else {
    node->isOpenToLoss = !node->pending.empty();
  }
  names_[from].pending.push_back(nullptr);
  names_[to].pending.push_back(node);
}

bool DiskModel::FolderMayBeAbsent(std::u16string path) const {
  if (rule_ == DiskRule::Ordered) return false;
  while (path.find(u'\\') != std::u16string::npos) {
    path = FolderOf(path);
    const auto found = newFolders_.find(path);
    if (found != newFolders_.end() && found->second) return true;
  }
  return false;
}

void DiskModel::VisitInode(const Inode& inode, const std::function<void(const std::string&)>& visit) const {
  const Sectors sectors = BySector(Pieces(inode.pending));
  const std::size_t count = CountOfChoices(sectors);
  const bool some = count > kMostChoices;
  for (std::size_t choice = 0; choice < std::min(count, kMostChoices); ++choice) {
    visit(Chosen(inode.durable, sectors, choice, some));
  }
}

void DiskModel::ForEachContent(const std::u16string& path,
                               const std::function<void(const std::string&)>& visit) const {
  const auto found = names_.find(path);
  if (found == names_.end()) return visit("<none>");
  if (FolderMayBeAbsent(path)) visit("<none>");
  std::set<const Inode*> seen;
  const auto consider = [&](const Node& node) {
    if (node == nullptr) return visit("<none>");
    if (node->isOpenToLoss || !seen.insert(node.get()).second) return;
    VisitInode(*node, visit);
  };
  consider(found->second.durable);
  for (const Node& node : found->second.pending) consider(node);
}

}  // namespace vestrel::test
