#include "component/Codec.h"

namespace vestrel::component {

std::vector<Ref<Object>> Codec<std::vector<Ref<Object>>>::Read(Call& call, int index) {
  std::vector<Ref<Object>> result;
  for (const Variant& value : call.ReadArray(index)) {
    switch (value.kind()) {
      case Variant::Kind::Empty:
        result.emplace_back();
        break;
      case Variant::Kind::Object:
        result.push_back(value.AsObject());
        break;
      default:
        throw CallFailure{CallStatus::TypeMismatch, index};
    }
  }
  return result;
}

void Codec<std::vector<Ref<Object>>>::Store(Call& call, int index, const std::vector<Ref<Object>>& value) {
  std::vector<Variant> values;
  values.reserve(value.size());
  for (const Ref<Object>& item : value) values.emplace_back(item);
  call.StoreArray(index, values);
}

}  // namespace vestrel::component
