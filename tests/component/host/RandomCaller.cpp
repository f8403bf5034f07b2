#include "tests/component/host/RandomCaller.h"

namespace host {
namespace {

constexpr std::size_t kMostObjects = 200;

VARIANT ByReference(Value& value) {
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = value.raw();
  return reference;
}

bool Implements(const Value& object, const GUID& id) {
  Pointer<IUnknown> face;
  return object.object() != nullptr &&
         SUCCEEDED(object.object()->QueryInterface(id, reinterpret_cast<void**>(face.out())));
}

// The operations named Init have several places.
bool SetsUp(const Value& object, const Member& member) {
  DISPID id = DISPID_UNKNOWN;
  auto* name = const_cast<LPOLESTR>(L"Init");
  return member.places.size() > 1 &&
         SUCCEEDED(object.object()->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)) &&
         id == member.id;
}

}  // namespace

RandomCaller::RandomCaller(const std::vector<Class>& classes, unsigned seed)
    : classes_(classes), random_(seed) {
  for (const Class& made : classes) objects_.emplace_back(&made, Make(made));
}

void RandomCaller::Call() {
  const auto [known, object] = objects_[Below(objects_.size())];
  const Member& member = known->members[Below(known->members.size())];
  std::vector<Value> values;
  for (const Place& place : member.places) values.push_back(For(place));
  std::vector<VARIANT> arguments;
  for (std::size_t i = values.size(); i-- > 0;)
    arguments.push_back(Below(3) == 0 ? ByReference(values[i]) : values[i].variant());
  Value result;
  const HRESULT code = Invoke(object, member, arguments, result.raw());
  if (SUCCEEDED(code) && SetsUp(object, member)) ++initialised_;
  Keep(result);
}

Value RandomCaller::For(const Place& place) {
  if (Below(12) == 0) return odd_[Below(odd_.size())];
  switch (place.fits) {
    case Fits::Boolean:
      return Value(Below(2) == 0);
    case Fits::Text:
      return Value(Below(4) == 0 ? folder.substr(0, folder.size() - 1).c_str()
                                 : (folder + L"file" + std::to_wstring(Below(3))).c_str());
    case Fits::Object:
      return ObjectWith(place.interfaceId);
    case Fits::Array:
      return SomeArray();
    case Fits::Record:
      return Create(L"UIFaderValues");
    default:
      return Value(static_cast<int>(Below(14)) - 2);
  }
}

Value RandomCaller::ObjectWith(const GUID& interfaceId) {
  for (int attempt = 0; attempt < 60; ++attempt) {
    const Value& candidate = objects_[Below(objects_.size())].second;
    if (Implements(candidate, interfaceId)) return candidate;
  }
  return None();
}

Value RandomCaller::SomeArray() {
  Value array;
  const auto size = static_cast<ULONG>(Below(5));
  V_VT(array.raw()) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(array.raw()) = SafeArrayCreateVector(VT_VARIANT, 0, size);
  for (LONG i = 0; i < static_cast<LONG>(size); ++i)
    SafeArrayPutElement(V_ARRAY(array.raw()), &i, odd_[Below(odd_.size())].raw());
  return array;
}

// Objects come and go, so that parts outlive what owned them.
void RandomCaller::Keep(const Value& result) {
  if (Below(16) == 0) {
    const Class& made = classes_[Below(classes_.size())];
    objects_[Below(objects_.size())] = {&made, Make(made)};
  }
  if (result.object() == nullptr || objects_.size() > kMostObjects) return;
  const Class* known = ClassOf(classes_, result.object());
  if (known != nullptr) objects_.emplace_back(known, result);
}

}  // namespace host
