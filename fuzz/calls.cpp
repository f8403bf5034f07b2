// Calls by name: any operation of any object, with values that fit, that do not, and that earlier calls
// answered. The library answers with the type that its tables say, or raises its own errors.
#include <iterator>

#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/MemoryWorld.h"
#include "tests/component/CallerPool.h"

namespace vestrel::fuzz {
namespace {

using namespace component;

constexpr std::size_t kMostObjects = 200;

bool Fits(ValueType type, Variant::Kind kind) {
  switch (type) {
    case ValueType::None:
      return kind == Variant::Kind::Empty;
    case ValueType::Boolean:
      return kind == Variant::Kind::Boolean;
    case ValueType::Byte:
    case ValueType::Short:
    case ValueType::Long:
    case ValueType::Enumeration:
      return kind == Variant::Kind::Long;
    case ValueType::Single:
      return kind == Variant::Kind::Double;
    case ValueType::Text:
      return kind == Variant::Kind::String;
    case ValueType::Object:
    case ValueType::FaderValues:
    case ValueType::Array:
      return kind == Variant::Kind::Object;
    case ValueType::Dynamic:
      break;
  }
  return true;
}

class Caller {
 public:
  explicit Caller(std::string_view bytes) : choices_(bytes) {}

  void Run() {
    while (!choices_.AtEnd()) Call();
    CutCircles();
  }

 private:
  template <class T>
  const T& Pick(const std::vector<T>& from) {
    return from[choices_.Below(from.size())];
  }

  void Call() {
    const Ref<Object> object = Pick(objects_);
    const ClassInfo* info = ClassOf(*object);
    if (info == nullptr) return;
    const Slot& slot = info->description->slots()[choices_.Below(info->description->slots().size())];
    std::vector<Actual> arguments;
    for (std::size_t i = 0; i < slot.operation.parameterCount; ++i) {
      arguments.push_back(For(slot.operation.parameters[i]));
    }
    Invoke(object, slot, arguments);
  }

  // What is no error of the library ends the program.
  void Invoke(const Ref<Object>& object, const Slot& slot, const std::vector<Actual>& arguments) {
    test::RaisedNumber([&] {
      const std::u16string name(slot.name.begin(), slot.name.end());
      const Variant result = InvokeByName(object.get(), name, slot.operation.kind, arguments);
      Expect(Fits(slot.operation.result.type, result.kind()), "a result of another type: " + slot.name);
      Keep(result);
    });
  }

  Actual For(const Parameter& parameter) {
    const std::uint8_t how = choices_.Byte();
    if (how < 16) return Omitted();
    if (how < 48) return In(Pick(values_));
    if (how < 64) return In(Variant(Pick(objects_)));
    if (how < 96 && parameter.direction != Direction::In) return ByRef(variable_);
    switch (parameter.type.type) {
      case ValueType::Object:
        return In(ObjectOf(parameter.type.name));
      case ValueType::Text:
        return In(Text());
      case ValueType::Boolean:
        return In(choices_.Below(2) == 0);
      default:
        return In(choices_.Small());
    }
  }
  Variant Text() {
    static constexpr std::u16string_view kTexts[] = {u"C:\\data\\a", u"C:\\data\\b", u"Show", u"One",
                                                     u"all",         u"value",       u"%s%d", u"1|2"};
    return kTexts[choices_.Below(std::size(kTexts))];
  }
  // The first of the class from some place on, or none.
  Variant ObjectOf(std::string_view className) {
    const std::size_t start = choices_.Below(objects_.size());
    for (std::size_t i = 0; i < objects_.size(); ++i) {
      const Ref<Object>& candidate = objects_[(start + i) % objects_.size()];
      const ClassInfo* info = ClassOf(*candidate);
      if (className.empty() || (info != nullptr && info->description->name() == className)) return candidate;
    }
    return Ref<Object>();
  }
  void Keep(const Variant& result) {
    if (result.kind() != Variant::Kind::Object || !result.AsObject() || objects_.size() > kMostObjects)
      return;
    objects_.push_back(result.AsObject());
  }

  // Objects that hold each other never go; here most of what such callers tie is taken apart again, so that
  // long runs keep within the memory they have.
  void CutCircles() {
    for (const Ref<Object>& object : objects_) {
      const ClassInfo* info = ClassOf(*object);
      if (info == nullptr) continue;
      for (const Slot& slot : info->description->slots()) {
        const bool empties = slot.name == "Clear" && slot.operation.parameterCount == 0;
        const bool puts = (slot.operation.kind == Kind::Put || slot.operation.kind == Kind::PutRef) &&
                          slot.operation.parameterCount == 1 &&
                          slot.operation.parameters[0].type.type == ValueType::Object;
        const std::vector<Actual> none(puts ? 1 : 0, In(Ref<Object>()));
        const std::u16string name(slot.name.begin(), slot.name.end());
        if (empties || puts) {
          test::RaisedNumber([&] { InvokeByName(object.get(), name, slot.operation.kind, none); });
        }
      }
    }
  }

  Choices choices_;
  std::vector<Variant> values_ = test::OddValues();
  std::vector<Ref<Object>> objects_ = test::OneOfEach();
  Variant variable_;
};

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  const vestrel::test::CirclesAllowed circles;
  const MemoryWorld world;
  Caller(AsText(data, size)).Run();
  vestrel::test::CloseTextFiles();
  return 0;
}
