#include <gtest/gtest.h>

#include "component/Argument.h"
#include "component/ByName.h"
#include "component/UIFaderValues.h"
#include "component/ValueArray.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "core/Cast.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "model/clsButton.h"
#include "model/clsPage.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"

namespace vestrel::component {
namespace {

class ByNameTest : public test::LogFixture {
 protected:
  static Ref<Object> BoxOf(std::int32_t number) {
    Ref<Object> box = CreateByName(u"clsLong");
    PutByName(box.get(), u"value", {In(number)});
    return box;
  }
  static Ref<Object> ListOf(std::initializer_list<std::int32_t> numbers) {
    Ref<Object> list = CreateByName(u"clsObjectList");
    for (const std::int32_t number : numbers) CallByName(list.get(), u"AddItem", {In(BoxOf(number))});
    return list;
  }
  static std::int32_t NumberAt(const Ref<Object>& list, std::int32_t index) {
    const Variant item = CallByName(list.get(), u"GetItem", {In(index)});
    return GetByName(item.AsObject().get(), u"value").AsLong();
  }
};

TEST_F(ByNameTest, CreatesReadsAndWritesInAnyLetterCase) {
  const Ref<Object> box = CreateByName(u"CLSLong");
  PutByName(box.get(), u"Value", {In(7)});
  EXPECT_EQ(GetByName(box.get(), u"VALUE").AsLong(), 7);
}

TEST_F(ByNameTest, ConvertsArgumentsAsAutomationDoes) {
  const Ref<Object> box = CreateByName(u"clsLong");
  PutByName(box.get(), u"value", {In(u" 12 ")});
  EXPECT_EQ(GetByName(box.get(), u"value").AsLong(), 12);
  PutByName(box.get(), u"value", {In(true)});
  EXPECT_EQ(GetByName(box.get(), u"value").AsLong(), -1);
  PutByName(box.get(), u"value", {In(2.5)});
  EXPECT_EQ(GetByName(box.get(), u"value").AsLong(), 2);
  PutByName(box.get(), u"value", {In(BoxOf(5))});
  EXPECT_EQ(GetByName(box.get(), u"value").AsLong(), 5);
}

TEST_F(ByNameTest, ArgumentsMayBeLeftOutAtTheEnd) {
  const Ref<Object> list = ListOf({3, 1, 2});
  CallByName(list.get(), u"SortInPlace");
  EXPECT_EQ(NumberAt(list, 0), 1);
  EXPECT_EQ(NumberAt(list, 2), 3);
}

TEST_F(ByNameTest, ArgumentsMayBeLeftOutInTheMiddle) {
  const Ref<Object> list = ListOf({3, 1, 2});
  CallByName(list.get(), u"SortInPlace", {Omitted(), In(true)});
  EXPECT_EQ(NumberAt(list, 0), 3);
}

TEST_F(ByNameTest, ArgumentsMayBeGivenByName) {
  const Ref<Object> list = ListOf({3, 1, 2});
  CallByName(list.get(), u"SortInPlace", {Named(u"reverse", true)});
  EXPECT_EQ(NumberAt(list, 0), 3);
  EXPECT_EQ(NumberAt(list, 2), 1);
}

TEST_F(ByNameTest, AByReferenceArgumentReceivesWhatTheOperationMade) {
  const Ref<Object> list = ListOf({2, 1});
  Variant comparator;
  CallByName(list.get(), u"SortInPlace", {ByRef(comparator), In(true)});
  ASSERT_EQ(comparator.kind(), Variant::Kind::Object);
  EXPECT_TRUE(GetByName(comparator.AsObject().get(), u"Reverse").AsBoolean());
}

TEST_F(ByNameTest, AnOutArgumentTakesAnyValueAndIsLeftAloneWhenNothingIsWritten) {
  const Ref<Object> list = ListOf({4});
  const Variant iterator = CallByName(list.get(), u"BeginIter");
  Variant number = u"no number";
  EXPECT_TRUE(CallByName(iterator.AsObject().get(), u"hasNextLong", {ByRef(number)}).AsBoolean());
  EXPECT_EQ(number.AsLong(), 4);
  Variant object = 17;
  EXPECT_FALSE(CallByName(iterator.AsObject().get(), u"hasNextWithIndex", {ByRef(object)}).AsBoolean());
  EXPECT_EQ(object.AsLong(), 1);
  Variant kept = u"no number";
  EXPECT_FALSE(CallByName(iterator.AsObject().get(), u"hasNextLong", {ByRef(kept)}).AsBoolean());
  EXPECT_EQ(kept.AsString(), u"no number");
}

// Whatever stands in a variable until something is written to it, a value that is the same arrives.
TEST_F(ByNameTest, AnOutArgumentReceivesEveryValueThereIs) {
  for (const Variant& value : {Variant(Unwritten<std::int32_t>::Make()), Variant(0), Variant(-1)}) {
    const Ref<Object> list = ListOf({value.AsLong()});
    const Variant iterator = CallByName(list.get(), u"BeginIter");
    Variant number = u"no number";
    EXPECT_TRUE(CallByName(iterator.AsObject().get(), u"hasNextLong", {ByRef(number)}).AsBoolean());
    ASSERT_EQ(number.kind(), Variant::Kind::Long);
    EXPECT_EQ(number.AsLong(), value.AsLong());
  }
  for (const std::u16string& value : {Unwritten<std::u16string>::Make(), std::u16string()}) {
    const Ref<Object> list = CreateByName(u"clsObjectList");
    const Ref<Object> box = CreateByName(u"clsString");
    PutByName(box.get(), u"value", {In(value)});
    CallByName(list.get(), u"AddItem", {In(box)});
    const Variant iterator = CallByName(list.get(), u"BeginIter");
    Variant text = 17;
    EXPECT_TRUE(CallByName(iterator.AsObject().get(), u"hasNextString", {ByRef(text)}).AsBoolean());
    ASSERT_EQ(text.kind(), Variant::Kind::String);
    EXPECT_EQ(text.AsString(), value);
  }
}

TEST_F(ByNameTest, WhatAFailingOperationHadWrittenIsTheCallers) {
  const Ref<Object> list = ListOf({2});
  CallByName(list.get(), u"AddItem", {In(CreateByName(u"clsObjectList"))});
  Variant comparator;
  EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"SortInPlace", {ByRef(comparator), In(true)}));
  ASSERT_EQ(comparator.kind(), Variant::Kind::Object);
  EXPECT_TRUE(GetByName(comparator.AsObject().get(), u"Reverse").AsBoolean());
  Variant faders = u"no faders";
  const Ref<Object> controller = CreateByName(u"clsButtonGroupController");
  EXPECT_RAISES(Error_TypeMismatch, CallByName(controller.get(), u"GetUIFaderValues", {ByRef(faders)}));
  EXPECT_EQ(faders.AsString(), u"no faders");
}

TEST_F(ByNameTest, AnOptionalTextByReferenceReceivesTheNameTaken) {
  const Ref<Object> button = CreateByName(u"clsButton");
  CallByName(button.get(), u"Init", {In(Ref<Object>()), In(Ref<Object>())});
  PutByName(button.get(), u"name", {In(u"Intro")});
  Variant name = u"";
  const Variant copy = CallByName(button.get(), u"Copy", {ByRef(name)});
  EXPECT_EQ(name.AsString(), u"Intro");
  EXPECT_EQ(GetByName(copy.AsObject().get(), u"name").AsString(), u"Intro");
  EXPECT_EQ(CallByName(button.get(), u"Copy").kind(), Variant::Kind::Object);
}

TEST_F(ByNameTest, TooManyArgumentsAreRefused) {
  const Ref<Object> list = ListOf({});
  EXPECT_RAISES(Error_WrongArgumentCount, CallByName(list.get(), u"Size", {In(1)}));
  EXPECT_RAISES(Error_WrongArgumentCount, CallByName(list.get(), u"GetItem", {In(1), Named(u"index", 2)}));
}

TEST_F(ByNameTest, AMissingArgumentIsRefused) {
  const Ref<Object> list = ListOf({});
  EXPECT_RAISES(Error_ArgumentNotOptional, CallByName(list.get(), u"GetItem"));
  EXPECT_RAISES(Error_ArgumentNotOptional, CallByName(list.get(), u"GetItem", {Omitted()}));
}

TEST_F(ByNameTest, UnknownNamesAreRefused) {
  const Ref<Object> list = ListOf({});
  EXPECT_RAISES(Error_NoSuchMember, CallByName(list.get(), u"GetItems"));
  EXPECT_RAISES(Error_NoSuchMember, PutByName(list.get(), u"Size", {In(1)}));
  EXPECT_RAISES(Error_NoSuchNamedArgument, CallByName(list.get(), u"GetItem", {Named(u"position", 0)}));
  EXPECT_RAISES(Error_CannotCreateObject, CreateByName(u"clsNothing"));
  EXPECT_RAISES(Error_ObjectNotSet, CallByName(nullptr, u"Size"));
}

TEST_F(ByNameTest, ValuesThatDoNotConvertAreRefused) {
  const Ref<Object> list = ListOf({1});
  EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"GetItem", {In(u"first")}));
  EXPECT_RAISES(Error_Overflow, CallByName(list.get(), u"GetItem", {In(3e9)}));
  EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"AddItem", {In(5)}));
  EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"ExtendWith", {In(BoxOf(1))}));
  EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"Filter", {In(BoxOf(1))}));
}

TEST_F(ByNameTest, AnOperationsOwnErrorArrivesWhole) {
  const Ref<Object> helper = CreateByName(u"VestrelStatic");
  try {
    CallByName(helper.get(), u"Assert", {In(false)});
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 7155);
    EXPECT_EQ(error.source(), u"modUtils.Assert()");
    EXPECT_EQ(error.description(), u"assert false");
  }
}

TEST_F(ByNameTest, AnArrayIsAnswered) {
  const Variant array = CallByName(ListOf({5, 6}).get(), u"AsArray");
  const auto& items = Cast<ValueArray>(array.AsObject().get()).items;
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(Cast<clsLong>(items[1].AsObject().get()).value(), 6);
}

TEST_F(ByNameTest, NumbersAreStoredInTheCallersArray) {
  const Ref<Object> capture = CreateByName(u"clsFormatCapture");
  EXPECT_TRUE(CallByName(capture.get(), u"DoMatch", {In(u"##:##"), In(u"07:00")}).AsBoolean());
  auto targets = MakeRef<ValueArray>();
  targets->items = {Variant(), Variant(u"old")};
  EXPECT_TRUE(CallByName(capture.get(), u"ParseItems", {In(targets)}).AsBoolean());
  EXPECT_EQ(targets->items[0].AsLong(), 7);
  EXPECT_EQ(targets->items[1].AsLong(), 0);
  targets->items = {Variant(u"kept")};
  EXPECT_FALSE(CallByName(capture.get(), u"ParseItems", {In(targets)}).AsBoolean());
  EXPECT_EQ(targets->items[0].AsString(), u"kept");
}

TEST_F(ByNameTest, ObjectsInAnArrayAreTakenAsSuch) {
  auto array = MakeRef<ValueArray>();
  array->items = {Variant(BoxOf(1)), Variant()};
  const Ref<Object> iterator = CreateByName(u"clsIterator");
  CallByName(iterator.get(), u"Init", {In(array), In(2)});
  EXPECT_EQ(GetByName(iterator.get(), u"Size").AsLong(), 2);
  array->items = {Variant(5)};
  EXPECT_RAISES(Error_TypeMismatch, CallByName(iterator.get(), u"Init", {In(array), In(1)}));
}

TEST_F(ByNameTest, TheFaderRecordTravelsAsAnObject) {
  class Form : public IFormSequenceShortcuts {
   public:
    void GetUIFaderValues(TUIFaderValues& values) override {
      values.BumpFaders[8] = values.GroupFaders[1] + 1;
    }
  };
  const Ref<Form> form = MakeRef<Form>();
  const Ref<Object> record = CreateByName(u"UIFaderValues");
  PutByName(record.get(), u"GroupFaders", {In(1), In(40)});
  CallByName(form.get(), u"GetUIFaderValues", {In(record)});
  EXPECT_EQ(GetByName(record.get(), u"BumpFaders", {In(8)}).AsLong(), 41);
  EXPECT_RAISES(Error_SubscriptOutOfRange, GetByName(record.get(), u"GroupFaders", {In(9)}));
  EXPECT_RAISES(Error_TypeMismatch, CallByName(form.get(), u"GetUIFaderValues", {In(BoxOf(1))}));
}

TEST_F(ByNameTest, AnEmptyVariableReceivesANewFaderRecord) {
  const Ref<Object> form = CreateByName(u"IFormSequenceShortcuts");
  Variant values;
  CallByName(form.get(), u"GetUIFaderValues", {ByRef(values)});
  ASSERT_EQ(values.kind(), Variant::Kind::Object);
  EXPECT_EQ(GetByName(values.AsObject().get(), u"GroupFaders", {In(1)}).AsLong(), 0);
}

TEST_F(ByNameTest, IndexedPropertiesTakeTheirIndex) {
  const Ref<Object> page = CreateByName(u"clsPage");
  CallByName(page.get(), u"Init", {In(u"C:\\data"), In(Ref<Object>()), In(u"show"), In(u"page"), In(false)});
  const Variant group = GetByName(page.get(), u"ButtonGroups", {In(3)});
  EXPECT_EQ(GetByName(group.AsObject().get(), u"groupIndex").AsLong(), 3);
  EXPECT_RAISES(Error_SubscriptOutOfRange, GetByName(page.get(), u"ButtonGroups", {In(10)}));
}

TEST_F(ByNameTest, ObjectFieldsAreSetByReference) {
  const Ref<Object> group = CreateByName(u"clsButtonGroup");
  const Ref<Object> button = CreateByName(u"clsButton");
  PutByName(group.get(), u"highlightedButton", {In(button)});
  EXPECT_EQ(GetByName(group.get(), u"highlightedButton").AsObject().get(), button.get());
  PutByName(group.get(), u"highlightedButton", {In(Ref<Object>())});
  EXPECT_EQ(GetByName(group.get(), u"highlightedButton").AsObject().get(), nullptr);
  EXPECT_RAISES(Error_TypeMismatch, PutByName(group.get(), u"highlightedButton", {In(group)}));
}

TEST_F(ByNameTest, InterfaceOperationsAreCalledUnderTheirPrefixedName) {
  const Ref<Object> one = BoxOf(1);
  EXPECT_EQ(CallByName(one.get(), u"IComparable_CompareTo", {In(BoxOf(2))}).AsLong(), -1);
  EXPECT_RAISES(Error_TypeMismatch,
                CallByName(one.get(), u"IComparable_CompareTo", {In(CreateByName(u"clsString"))}));
}

TEST_F(ByNameTest, InterfaceClassesDoNothingAndSucceed) {
  EXPECT_EQ(
      CallByName(CreateByName(u"IFormSequenceShortcuts").get(), u"RenameButton", {In(Ref<Object>()), In(1)})
          .AsString(),
      u"");
  EXPECT_FALSE(
      CallByName(CreateByName(u"IObjectPredicate").get(), u"IsTrueFor", {In(Ref<Object>())}).AsBoolean());
  EXPECT_EQ(
      CallByName(CreateByName(u"IObjectComparator").get(), u"Compare", {In(Ref<Object>()), In(Ref<Object>())})
          .AsLong(),
      0);
}

TEST_F(ByNameTest, AnObjectThatACallbackLetsGoStaysForTheCall) {
  class Dropper : public IButtonEventHandler {
   public:
    Ref<clsButton> button;
    void LockStateChanged(clsButton* /*button*/) override { button = nullptr; }
  };
  const Ref<Dropper> dropper = MakeRef<Dropper>();
  dropper->button = MakeRef<clsButton>();
  dropper->button->Init(dropper.get(), nullptr);
  clsButton* borrowed = dropper->button.get();
  PutByName(borrowed, u"Locked", {In(true)});
  EXPECT_FALSE(dropper->button);
}

TEST_F(ByNameTest, NoObjectIsLeftBehind) {
  const long before = Object::LiveCount();
  {
    const Ref<Object> list = ListOf({3, 1, 2});
    Variant comparator;
    CallByName(list.get(), u"SortInPlace", {ByRef(comparator)});
    EXPECT_RAISES(Error_TypeMismatch, CallByName(list.get(), u"GetItem", {In(u"x")}));
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

}  // namespace
}  // namespace vestrel::component
