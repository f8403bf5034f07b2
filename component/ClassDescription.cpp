// Names are found through a small hash table of their case-folded forms; late-bound hosts ask for them at
// every call.
#include "component/ClassDescription.h"

#include <algorithm>

namespace vestrel::component {
namespace {

constexpr char16_t Folded(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

template <class Text>
std::uint32_t HashOf(Text text) noexcept {
  std::uint32_t hash = 2166136261U;
  for (const auto unit : text) hash = (hash ^ Folded(static_cast<char16_t>(unit))) * 16777619U;
  return hash ^ (hash >> 15U);
}

bool EqualFolded(std::string_view a, std::u16string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char16_t y) { return Folded(static_cast<char16_t>(x)) == Folded(y); });
}

constexpr std::array<Kind, 4> kStandIn{Kind::Get, Kind::Method, Kind::PutRef, Kind::Put};

}  // namespace

ClassDescription::ClassDescription(std::string_view name, std::string_view help,
                                   const std::vector<Operation>& operations,
                                   std::vector<std::string_view> interfaces)
    : name_(name), help_(help), interfaces_(std::move(interfaces)) {
  for (const Operation& operation : operations) AddSlot(operation);
  IndexNames();
}

void ClassDescription::AddSlot(const Operation& operation) {
  std::string name = operation.FullName();
  auto known = std::find(nameOfId_.begin(), nameOfId_.end(), name);
  if (known == nameOfId_.end()) {
    nameOfId_.push_back(name);
    slotsOfId_.push_back({-1, -1, -1, -1});
    known = nameOfId_.end() - 1;
  }
  const auto position = static_cast<std::size_t>(known - nameOfId_.begin());
  slotsOfId_[position][static_cast<std::size_t>(operation.kind)] = static_cast<std::int16_t>(slots_.size());
  slots_.push_back({operation, std::move(name), static_cast<std::int32_t>(position + 1)});
}

void ClassDescription::IndexNames() {
  std::size_t size = 4;
  while (size < nameOfId_.size() * 3) size *= 2;
  cells_.assign(size, 0);
  for (std::size_t i = 0; i < nameOfId_.size(); ++i) {
    std::size_t cell = HashOf(std::string_view(nameOfId_[i])) & (size - 1);
    while (cells_[cell] != 0) cell = (cell + 1) & (size - 1);
    cells_[cell] = static_cast<std::uint16_t>(i + 1);
  }
}

bool ClassDescription::isInterface() const noexcept {
  return name_.size() > 1 && name_[0] == 'I' && name_[1] >= 'A' && name_[1] <= 'Z';
}

std::int32_t ClassDescription::FindId(std::u16string_view name) const noexcept {
  const std::size_t mask = cells_.size() - 1;
  for (std::size_t cell = HashOf(name) & mask; cells_[cell] != 0; cell = (cell + 1) & mask) {
    if (EqualFolded(nameOfId_[cells_[cell] - 1U], name)) return cells_[cell];
  }
  return 0;
}

int ClassDescription::FindSlot(std::int32_t id, Kind kind) const noexcept {
  if (id < 1 || static_cast<std::size_t>(id) > slotsOfId_.size()) return -1;
  const SlotOfKind& slots = slotsOfId_[static_cast<std::size_t>(id - 1)];
  const auto asked = static_cast<std::size_t>(kind);
  return slots[asked] >= 0 ? slots[asked] : slots[static_cast<std::size_t>(kStandIn[asked])];
}

int ClassDescription::FindParameter(const Operation& operation, std::u16string_view name) noexcept {
  for (std::size_t i = 0; i < operation.parameterCount; ++i) {
    if (EqualFolded(operation.parameters[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace vestrel::component
