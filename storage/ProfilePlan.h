// Plans one run of INI edits over one text; the working side of ProfileText::Plan.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "storage/ProfileLines.h"
#include "storage/ProfileText.h"

namespace vestrel {

class ProfilePlan {
 public:
  explicit ProfilePlan(std::string_view text);

  // Adds the edits of a run; call once.
  void Make(std::span<const ProfileEdit> run);
  std::vector<ProfileSplice>& splices() { return splices_; }

 private:
  // An edit with the spaces round its key gone.
  struct Entry {
    std::string_view key;
    const std::string* value = nullptr;  // none deletes
    bool done = false;
  };
  // The edits of one section, in the order of writing.
  struct Group {
    std::string_view section;
    std::vector<Entry> entries;
    std::unordered_map<std::string, std::size_t>
        byKey;  // filled only where a search through all would be slow
  };

  Group& GroupOf(std::string_view section);
  static void Add(Group& group, const ProfileEdit& edit);
  static Entry* Find(Group& group, std::string_view key);
  // Whether the line that begins at `at` opens a section or may hold one of the group's keys.
  bool MayConcern(const Group& group, std::size_t at) const;
  // The last line of a section that new keys go behind.
  profile::Line LastOf(const profile::Line& header) const;
  void EditSection(Group& group, const profile::Line& header);
  void EditLine(const profile::Line& line, const Entry& entry);
  void AddKeys(const Group& group, const profile::Line& behind);
  void AddSection(const Group& group);
  void Insert(std::size_t offset, bool behindOpenLine, std::string text);

  std::string_view text_;
  bool endIsOpen_;  // the last line, as it will be, has no end
  std::vector<Group> groups_;
  std::vector<ProfileSplice> splices_;
};

}  // namespace vestrel
