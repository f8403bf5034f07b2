// Plans one run of INI edits (ProfileText::RunLength) over one text as splices of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "storage/AscendingNames.h"
#include "storage/NameTable.h"
#include "storage/ProfileEdits.h"
#include "storage/ProfileLines.h"
#include "storage/ProfileSplice.h"
#include "storage/TextArena.h"

namespace vestrel {

class ProfilePlan {
 public:
  // Plans the run. The text and the texts of the edits must outlive the plan.
  ProfilePlan(std::string_view text, std::span<const ProfileEdit> run);

  // What makes the run, in ascending order; what the text holds already gives none. Lives with the plan.
  std::span<const ProfileSplice> splices() const noexcept { return splices_; }

 private:
  // Of an entry or a group.
  using Number = std::uint32_t;
  static constexpr Number kNone = NameTable::kNone;

  // An edit with the spaces round its key gone.
  struct Entry {
    std::string_view key;
    std::optional<std::string_view> value;  // none deletes
    Number group;
    Number next = kNone;  // of the group
    bool done = false;
    bool replaced = false;  // by a later edit with another value
  };
  // The edits of one section, in the order of writing.
  struct Group {
    std::string_view section;
    Number first = kNone;
    Number last = kNone;
    std::size_t count = 0;
    bool isThere = false;
    AscendingNames names;
  };

  void Add(const ProfileEdit& edit);
  static void Replace(Entry& entry, std::optional<std::string_view> value);
  Number AddGroup(std::string_view section);
  Number FindGroup(std::string_view section);
  Number FindEntry(Number group, std::string_view key);

  // Those that are there, from the first to the last.
  void EditSections();
  void EditSection(Number number, const profile::Line& header);
  // The open entry that the line is to be changed by.
  Number EntryFor(Number group, const profile::Line& line);
  // The expected entry, open, where its line begins at `at`.
  Number ExpectedAt(std::size_t at) const;
  // Whether the line that begins at `at` opens a section or may hold one of the group's keys.
  bool MayConcern(const Group& group, std::size_t at) const;
  void EditLine(const profile::Line& line, const Entry& entry);
  // The last line of a section that new keys go behind.
  profile::Line LastOf(const profile::Line& header) const;
  void AddKeys(const Group& group, const profile::Line& behind);
  void AddSection(const Group& group);
  // Those of a group that were not found.
  std::string NewLines(const Group& group) const;
  void Insert(std::size_t offset, bool behindOpenLine, std::string_view text);

  std::string_view text_;
  bool endIsOpen_;  // the last line, as it will be, has no end
  std::vector<Entry> entries_;
  std::vector<Group> groups_;
  NameTable keys_;           // of the first entries, each in the scope that its group's number is
  NameTable sections_;       // of the first groups
  int searches_ = 0;         // through many, for want of a table
  Number expected_ = kNone;  // of the section at hand: what the next line is likely to hold
  TextArena texts_;
  std::vector<ProfileSplice> splices_;
};

}  // namespace vestrel
