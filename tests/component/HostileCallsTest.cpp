// Every operation of every class with wrong arguments: it may fail, with an error, and may not crash.
#include <gtest/gtest.h>

#include "tests/component/CallerPool.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"

namespace vestrel::component {
namespace {

class HostileCallsTest : public test::LogFixture {
 protected:
  test::CirclesAllowed circles;

  void TearDown() override { test::CloseTextFiles(); }

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

// What a host still holds when it has let go of everything that owned it.
TEST_F(HostileCallsTest, EveryOperationOfWhatOutlivesItsOwners) {
  std::vector<Ref<Object>> left;
  const auto keep = [&](const Ref<Object>& owner, std::u16string_view name,
                        std::vector<Actual> arguments = {}) {
    left.push_back(InvokeByName(owner.get(), name, Kind::Method, arguments).AsObject());
    return left.back();
  };
  files.PutFolder(u"C:\\data\\Sequences");
  for (int round = 0; round < 2; ++round) {
    const Ref<Object> recorder = CreateByName(u"clsRecordController");
    CallByName(recorder.get(), u"Init", {In(CreateByName(u"IRecordEventHandler"))});
    keep(recorder, u"EventList");
    const Ref<Object> controller = CreateByName(u"clsButtonGroupController");
    CallByName(controller.get(), u"Init",
               {In(CreateByName(u"IFormSequenceShortcuts")), In(u"C:\\data"), In(CreateByName(u"ILEDSetter")),
                In(recorder)});
    CallByName(controller.get(), u"setButtonGroupPageSize", {In(4)});
    CallByName(controller.get(), u"CreateNewShow", {In(u"Gala")});
    CallByName(controller.get(), u"AddPage", {In(u"One")});
    CallByName(controller.get(), u"assignButton", {In(2), In(1), In(u"Intro"), In(1)});
    keep(controller, u"mLEDManager");
    const Ref<Object> page = keep(keep(controller, u"PageManager"), u"CurrentPage");
    const Ref<Object> group = keep(page, u"ButtonGroups", {In(2)});
    keep(group, u"Fader");
    const Ref<Object> buttons = keep(group, u"buttons");
    keep(buttons, u"BeginIter");
    keep(keep(buttons, u"GetItem", {In(0)}), u"Fader");
    // In the second round the show is replaced before the controller goes.
    if (round == 1) CallByName(controller.get(), u"CreateNewShow", {In(u"Other")});
  }
  const std::vector<Variant> values = test::OddValues();
  for (const Ref<Object>& object : left) {
    for (const Slot& slot : ClassOf(*object)->description->slots()) {
      SCOPED_TRACE(slot.name);
      for (const Variant& value : values) {
        Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(value)));
      }
      for (const Ref<Object>& other : left) {
        Call(object, slot, std::vector<Actual>(slot.operation.parameterCount, In(other)));
      }
    }
  }
}

TEST_F(HostileCallsTest, UnknownNames) {
  const std::u16string_view names[] = {
      u"",  u"Size ",          u"GetItem(0)", u"IComparable_",
      u"_", u"QueryInterface", u"Siz\u00E9",  std::u16string_view(u"value\0x", 7)};
  for (const ClassInfo* info : AllClasses()) {
    const Ref<Object> object = info->create();
    for (const std::u16string_view name : names) {
      for (const Kind kind : {Kind::Method, Kind::Get, Kind::Put, Kind::PutRef}) {
        EXPECT_EQ(test::RaisedNumber([&] { InvokeByName(object.get(), name, kind, {}); }),
                  Error_NoSuchMember);
      }
    }
    EXPECT_EQ(test::RaisedNumber(
                  [&] { InvokeByName(object.get(), std::u16string(100000, u'x'), Kind::Method, {}); }),
              Error_NoSuchMember);
  }
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
