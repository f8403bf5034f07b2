// The frame of the tests that call every operation, and those of the interfaces, whose classes do nothing.
#include "core/Convert.h"
#include "tests/component/CallerPool.h"
#include "tests/component/EveryOperation.h"

namespace vestrel::test {

using component::Actual;
using component::AllDescriptions;
using component::ClassDescription;
using component::In;
using component::Kind;
using component::Slot;
using component::ValueType;

std::set<std::string>& TestedClasses() {
  static std::set<std::string> tested;
  return tested;
}

EveryOperation::EveryOperation() {
  CalledSlots().clear();
}

void EveryOperation::TearDown() {
  CloseTextFiles();
  const ClassDescription* description =
      component::FindDescription(testing::UnitTest::GetInstance()->current_test_info()->name());
  ASSERT_NE(description, nullptr);
  for (const Slot& slot : description->slots()) {
    const std::string note = NoteOf(description->name(), slot.id, slot.operation.kind, slot.name);
    EXPECT_TRUE(CalledSlots().contains(note)) << note;
  }
}

Subject EveryOperation::Box(std::int32_t number) {
  Subject box(u"clsLong");
  box.Put(u"value", number);
  return box;
}

Subject EveryOperation::Box(std::u16string_view text) {
  Subject box(u"clsString");
  box.Put(u"value", Variant(text));
  return box;
}

std::string EveryOperation::Boxes(const Subject& list) {
  std::string result;
  for (std::int32_t i = 0; i < list.Number(u"Size"); ++i) {
    result += (i == 0 ? "" : " ") + ToUtf8(ToText(list.Item(u"GetItem", i).Call(u"value")));
  }
  return result;
}

namespace {

TEST(EveryOperationTest, EveryClassHasItsTest) {
  for (const ClassDescription& description : AllDescriptions()) {
    if (!description.isInterface()) {
      EXPECT_TRUE(TestedClasses().contains(std::string(description.name()))) << description.name();
    }
  }
}

Variant NothingOf(ValueType type) {
  switch (type) {
    case ValueType::None:
      return {};
    case ValueType::Boolean:
      return false;
    case ValueType::Text:
      return u"";
    case ValueType::Object:
      return Ref<Object>();
    default:
      return 0;
  }
}

TEST(EveryOperationTest, OperationsOfInterfaceClassesAnswerNothing) {
  for (const ClassDescription& description : AllDescriptions()) {
    if (!description.isInterface()) continue;
    const Subject object(FromUtf8(description.name()).c_str());
    for (const Slot& slot : description.slots()) {
      std::vector<Actual> arguments;
      for (std::size_t i = 0; i < slot.operation.parameterCount; ++i) {
        const ValueType type = slot.operation.parameters[i].type.type;
        arguments.push_back(In(type == ValueType::FaderValues ? Variant() : NothingOf(type)));
      }
      const Variant result =
          component::InvokeByName(object.get(), FromUtf8(slot.name), Kind::Method, arguments);
      const Variant nothing = NothingOf(slot.operation.result.type);
      EXPECT_EQ(result.kind(), nothing.kind()) << slot.name;
      EXPECT_EQ(ToText(result), ToText(nothing)) << slot.name;
    }
  }
}

}  // namespace
}  // namespace vestrel::test
