#include "core/DefaultObjectComparator.h"

#include "core/Cast.h"
#include "core/Checked.h"
#include "core/IComparable.h"

namespace vestrel {

std::int32_t DefaultObjectComparator::Compare(Object* a, Object* b) {
  auto& first = Cast<IComparable>(a);
  auto& second = Cast<IComparable>(b);
  const std::int32_t order = first.CompareTo(&second, field_);
  return reverse_ ? SubtractChecked(0, order) : order;
}

Ref<IObjectComparator> MakeDefaultComparator(bool reverse, std::u16string_view field) {
  Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  comparator->SetReverse(reverse);
  comparator->SetField(field);
  return comparator;
}

}  // namespace vestrel
