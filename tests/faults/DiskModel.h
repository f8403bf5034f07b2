// What a disk may hold after the power went. File calls are written down as they are made; at any moment the
// model tells every content that a file may come back with, given what had been forced to the disk until
// then: writes that were not, sector by sector, in any choice, and names that still stand for what they stood
// for before.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/SeamFiles.h"

namespace vestrel::test {

enum class DiskRule {
  // A new name reaches the disk not before what was written to the file until it got that name, and folders
  // not after what lies in them: how the journals of today's file systems treat a file put in another's
  // place.
  Ordered,
  // Nothing but what was forced.
  Strict,
};

class DiskModel {
 public:
  explicit DiskModel(DiskRule rule) : rule_(rule) {}

  // A file that is on the disk from the beginning, with all folders on its way.
  void Put(const std::u16string& path, std::string_view bytes);
  // A call that succeeded, in the order in which they come.
  void Note(const FileCall& call);

  // All that is pending reaches the disk, as it does after a while.
  void WriteBack();

  // Calls `visit` with every content that the file may have now; "<none>" where it may be absent. Contents
  // that only a save which did not force them may leave are left out under the Strict rule: such a save
  // promises nothing there.
  void ForEachContent(const std::u16string& path, const std::function<void(const std::string&)>& visit) const;

 private:
  struct Inode {
    std::string durable;
    std::vector<std::pair<std::uint64_t, std::string>> pending;  // writes by offset
    bool isOpenToLoss = false;  // named while something was pending, so that a save did not force it
  };
  using Node = std::shared_ptr<Inode>;
  struct Name {
    Node durable;               // none: absent
    std::vector<Node> pending;  // what it came to stand for since then, in order
  };

  static std::u16string FolderOf(const std::u16string& path);
  static void Settle(Inode& inode);
  Node Current(const std::u16string& path) const;
  void Rename(const std::u16string& from, const std::u16string& to);
  bool FolderMayBeAbsent(std::u16string path) const;
  void VisitInode(const Inode& inode, const std::function<void(const std::string&)>& visit) const;

  DiskRule rule_;
  std::map<std::u16string, Name> names_;
  std::map<std::u16string, bool> newFolders_;  // made and not yet forced: true
  std::map<std::uint64_t, Node> handles_;
};

}  // namespace vestrel::test
