// Every operation of every class with wrong arguments: it may fail, with an error, and may not crash.
#include <gtest/gtest.h>

#include "tests/component/CallerPool.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"

namespace vestrel::component {
namespace {

class HostileCallsTest : public test::LogFixture {
 protected:
  // Calls `act` with each slot of each class and a fresh object of it.
  template <class Act>
  static void ForEachSlot(Act act) {
    for (const ClassInfo* info : AllClasses()) {
      for (const Slot& slot : info->description->slots()) {
        SCOPED_TRACE(std::string(info->description->name()) + "." + slot.name);
        act(info->create(), slot);
      }
    }
  }
  static std::int32_t Call(const Ref<Object>& object, const Slot& slot,
                           const std::vector<Actual>& arguments) {
    return test::RaisedNumber([&] {
      InvokeByName(object.get(), std::u16string(slot.name.begin(), slot.name.end()), slot.operation.kind,
                   arguments);
    });
  }
};

TEST_F(HostileCallsTest, OneArgumentTooMany) {
  ForEachSlot([](const Ref<Object>& object, const Slot& slot) {
    const std::vector<Actual> arguments(slot.operation.parameterCount + 1U, In(0));
    EXPECT_EQ(Call(object, slot, arguments), Error_WrongArgumentCount);
  });
}

TEST_F(HostileCallsTest, AHundredArguments) {
  ForEachSlot([](const Ref<Object>& object, const Slot& slot) {
    EXPECT_EQ(Call(object, slot, std::vector<Actual>(100, In(0))), Error_WrongArgumentCount);
  });
}

TEST_F(HostileCallsTest, OneArgumentTooFew) {
  ForEachSlot([](const Ref<Object>& object, const Slot& slot) {
    std::size_t required = 0;
    while (required < slot.operation.parameterCount && !slot.operation.parameters[required].optional())
      ++required;
    if (required == 0) return;
    const std::vector<Actual> arguments(required - 1, Omitted());
    EXPECT_EQ(Call(object, slot, arguments), Error_ArgumentNotOptional);
  });
}

TEST_F(HostileCallsTest, EachOddValueInEveryPlace) {
  const std::vector<Variant> values = test::OddValues();
  ForEachSlot([&](const Ref<Object>& object, const Slot& slot) {
    for (const Variant& value : values) {
      Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(value)));
      Variant variable = value;
      Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, ByRef(variable)));
    }
  });
}

TEST_F(HostileCallsTest, AnObjectOfEachClassInEveryPlace) {
  ForEachSlot([](const Ref<Object>& object, const Slot& slot) {
    for (const Ref<Object>& argument : test::OneOfEach()) {
      Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(argument)));
    }
  });
}

TEST_F(HostileCallsTest, AnObjectAsItsOwnArgument) {
  ForEachSlot([](const Ref<Object>& object, const Slot& slot) {
    Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(object)));
    Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(object)));
  });
}

TEST_F(HostileCallsTest, EveryOperationUnderTheWrongKind) {
  for (const ClassInfo* info : AllClasses()) {
    for (const Slot& slot : info->description->slots()) {
      const Ref<Object> object = info->create();
      for (const Kind kind : {Kind::Method, Kind::Get, Kind::Put, Kind::PutRef}) {
        test::RaisedNumber([&] {
          const std::vector<Actual> arguments(slot.operation.parameterCount, In(1));
          InvokeByName(object.get(), std::u16string(slot.name.begin(), slot.name.end()), kind, arguments);
        });
      }
    }
  }
}

}  // namespace
}  // namespace vestrel::component
