// The order of objects that know their own: asks the first for its CompareTo. Made by a list's sort where no
// other comparator is given, or by a host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/IObjectComparator.h"
#include "core/Ref.h"

namespace vestrel {

class DefaultObjectComparator final : public IObjectComparator {
 public:
  VESTREL_OBJECT(DefaultObjectComparator, IObjectComparator)

  // Whether every result is negated; false in a new one.
  bool Reverse() const noexcept { return reverse_; }
  void SetReverse(bool value) noexcept { reverse_ = value; }
  // The field that is handed to CompareTo; "all" in a new one.
  const std::u16string& field() const noexcept { return field_; }
  void SetField(std::u16string_view value) { field_ = value; }

  // Both must be IComparable: raises 13 for another object, 91 for none, and what CompareTo raises.
  std::int32_t Compare(Object* a, Object* b) override;

 private:
  bool reverse_ = false;
  std::u16string field_ = u"all";
};

// A new one with these settings.
Ref<IObjectComparator> MakeDefaultComparator(bool reverse, std::u16string_view field);

}  // namespace vestrel
