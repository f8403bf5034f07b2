// What a map of buttons has for the names in an event file, looked up once for each name: a file has many
// events of few buttons. Serves one load; the map must not change meanwhile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Ref.h"
#include "model/clsButton.h"

namespace vestrel {

class clsDictionary;

class ButtonNames {
 public:
  struct Binding {
    bool known = false;
    // May be none though the name is known: then the map has none for it.
    Ref<clsButton> button;
  };

  explicit ButtonNames(const clsDictionary* map) : map_(map) {}

  // The binding of a name in the narrow code page; good until the next call. Raises 91 without a map and 13
  // for a value that is no button.
  const Binding& Of(std::string_view narrowName);
  // The same for a name that is asked for once.
  Binding LookUp(std::u16string_view name) const;

 private:
  // A name's length and both its ends, which are all of a name up to kKeyedWhole bytes.
  struct Key {
    explicit Key(std::string_view name) noexcept;
    std::uint64_t Hash() const noexcept;
    bool operator==(const Key& other) const noexcept = default;

    std::uint64_t size;
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint64_t middle = 0;  // a hash of what lies between
  };
  static constexpr std::size_t kKeyedWhole = 16;

  struct Entry {
    Key key;
    std::string name;
    Binding binding;
  };

  std::size_t SlotFor(std::string_view name, const Key& key) const noexcept;
  const Binding& Add(std::string_view name, const Key& key);
  void Enlarge();

  const clsDictionary* map_;
  std::vector<Entry> entries_;
  // Positions in entries_ plus one, 0 for a free slot; a power of two, at most half of them taken.
  std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(256);
};

}  // namespace vestrel
