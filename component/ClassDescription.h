// A class as published, read off its table: operations in slot order with their dispatch ids, and the lookups
// that late binding needs. Pure data; knows no object. Lives as long as the program.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "component/Table.h"

namespace vestrel::component {

struct Slot {
  Operation operation;
  std::string name;  // the full published name
  // Operations of one name (the accessors of a property) share an id. Ids count the names in slot order from
  // 1, so an operation added at the end moves none.
  std::int32_t id = 0;
};

class ClassDescription {
 public:
  ClassDescription(std::string_view name, std::string_view help, const std::vector<Operation>& operations,
                   std::vector<std::string_view> interfaces);

  std::string_view name() const noexcept { return name_; }
  std::string_view help() const noexcept { return help_; }
  std::span<const Slot> slots() const noexcept { return slots_; }
  // The interfaces it implements, by name.
  std::span<const std::string_view> interfaces() const noexcept { return interfaces_; }
  // Whether it is one of the interfaces that hosts may implement.
  bool isInterface() const noexcept;

  // The id of a name in any letter case, 0 when there is none.
  std::int32_t FindId(std::u16string_view name) const noexcept;
  // The slot to use for an id: of the kind asked for, or the one that stands in for it (a get for a method
  // and the other way round, a put for a put by reference and the other way round). -1 when there is none.
  int FindSlot(std::int32_t id, Kind kind) const noexcept;
  // The position of a parameter by its name in any letter case, -1 when there is none.
  static int FindParameter(const Operation& operation, std::u16string_view name) noexcept;

 private:
  using SlotOfKind = std::array<std::int16_t, 4>;

  void AddSlot(const Operation& operation);
  void IndexNames();

  std::string_view name_;
  std::string_view help_;
  std::vector<Slot> slots_;
  std::vector<std::string_view> interfaces_;
  std::vector<SlotOfKind> slotsOfId_;
  std::vector<std::string> nameOfId_;
  // Open addressing: ids by the hash of their folded names, 0 for a free cell.
  std::vector<std::uint16_t> cells_;
};

namespace detail {

template <class E>
void CollectInterface(std::vector<std::string_view>& interfaces) {
  using Interface = typename E::ImplementedInterface;
  if constexpr (!std::is_void_v<Interface>) {
    constexpr std::string_view kName = PublishedName<Interface>::value;
    if (interfaces.empty() || interfaces.back() != kName) interfaces.push_back(kName);
  }
}

}  // namespace detail

// Reads the table of T.
template <class T>
ClassDescription Describe() {
  constexpr const auto& table = TableOf<T>::kTable;
  std::vector<Operation> operations;
  std::vector<std::string_view> interfaces;
  std::apply(
      [&](const auto&... entries) {
        (operations.push_back(entries.operation), ...);
        (detail::CollectInterface<std::remove_cvref_t<decltype(entries)>>(interfaces), ...);
      },
      table.entries);
  return {PublishedName<T>::value, table.help, operations, std::move(interfaces)};
}

// All published classes, in the order of component/Classes.h.
std::span<const ClassDescription> AllDescriptions();
// The class of that exact name, or null.
const ClassDescription* FindDescription(std::string_view name);

}  // namespace vestrel::component
