#include "component/ValueArray.h"
#include "core/Cast.h"
#include "core/IObjListEventHandler.h"
#include "tests/component/EveryOperation.h"

namespace vestrel::test {
namespace {

using component::ByRef;
using component::Named;
using component::Omitted;
using component::ValueArray;

Subject Buttons() {
  Subject list(u"clsObjectList");
  for (std::int32_t i = 1; i <= 4; ++i) {
    const Subject button(u"clsButton");
    button.Put(u"buttonIndex", i);
    button.Put(u"name", Variant(u"B" + std::u16string(1, static_cast<char16_t>(u'0' + i))));
    button.Put(u"buttonType", i % 2 == 0 ? ButtonType_Multi : ButtonType_Sequence);
    list.Call(u"AddItem", button);
  }
  return list;
}

Subject Predicate(const char16_t* setter, std::int32_t bound, bool inclusive) {
  Subject predicate(u"clsButtonPredicate");
  predicate.Call(setter, bound, inclusive);
  return predicate;
}

EVERY_OPERATION_OF(clsObjectList) {
  const Subject list(u"clsObjectList");
  EXPECT_EQ(list.Number(u"AddItem", Box(3)), 0);
  EXPECT_EQ(list.Number(u"AddItem", Box(1)), 1);
  EXPECT_EQ(list.Number(u"AddItemBefore", Box(2), -1), 1);
  EXPECT_EQ(Boxes(list), "3 2 1");
  EXPECT_EQ(list.Number(u"Size"), 3);
  EXPECT_EQ(Unboxed(list.Item(u"GetItem", -1)), 1);
  list.Call(u"SortInPlace");
  EXPECT_EQ(Boxes(list), "1 2 3");
  Variant comparator;
  list.Call(u"SortInPlace", ByRef(comparator), true);
  EXPECT_EQ(Boxes(list), "3 2 1");
  EXPECT_TRUE(Subject(comparator.AsObject()).Truth(u"Reverse"));
  list.Call(u"Reverse");
  EXPECT_EQ(Boxes(list), "1 2 3");
  list.Call(u"SortInPlace", Omitted(), Omitted(), u"all");
  EXPECT_EQ(Boxes(list), "1 2 3");
  list.Call(u"SortInPlace", Named(u"REVERSE", true));
  EXPECT_EQ(Boxes(list), "3 2 1");
  const Subject two = list.Item(u"GetItem", 1);
  EXPECT_EQ(list.Number(u"FindObject", two), 1);
  EXPECT_EQ(list.Number(u"FindObject", Box(2)), -1);
  EXPECT_EQ(list.Number(u"FindObjectValue", Box(2)), 1);
  EXPECT_EQ(list.Number(u"FindObjectValue", Box(9), u"all"), -1);
  const auto array = list.Call(u"AsArray").AsObject();
  EXPECT_EQ(Cast<ValueArray>(array.get()).items.size(), 3U);
  EXPECT_EQ(Unboxed(list.Item(u"Remove", 0)), 3);
  EXPECT_EQ(Boxes(list), "2 1");
  const Subject more(u"clsObjectList");
  more.Call(u"AddItem", Box(7));
  list.Call(u"ExtendWith", more);
  EXPECT_EQ(Boxes(list), "2 1 7");
  EXPECT_EQ(list.Item(u"BeginIter").Number(u"Size"), 3);
  list.Call(u"Clear");
  EXPECT_EQ(list.Number(u"Size"), 0);
  list.Call(u"AddItem", Box(u"a"));
  list.Call(u"AddItem", Box(u"b"));
  list.Call(u"AddItem", Box(u"c"));
  EXPECT_EQ(list.Text(u"JoinStrings", u"-"), u"a-b-c");
  EXPECT_EQ(list.Text(u"JoinStrings", u"-", 2), u"a-b");
  const Subject buttons = Buttons();
  EXPECT_EQ(buttons.Number(u"FindFieldValue", u"name", u"B3"), 2);
  EXPECT_EQ(buttons.Number(u"FirstIndexWhere", Predicate(u"SetButtonIndexGreaterThan", 2, false)), 2);
  EXPECT_EQ(buttons.Number(u"LastIndexWhere", Predicate(u"SetButtonIndexLessThan", 2, true)), 1);
  EXPECT_EQ(buttons.Item(u"Filter", Predicate(u"SetButtonIndexLessThan", 3, false)).Number(u"Size"), 2);

  class Observer : public IObjListEventHandler {
   public:
    std::string heard;
    Object* userData = nullptr;
    void ItemAdded(clsObjectList*, Object*, std::int32_t at, Object* data) override {
      heard += "+" + std::to_string(at);
      userData = data;
    }
    void ItemRemoved(clsObjectList*, Object*, std::int32_t from, Object*) override {
      heard += "-" + std::to_string(from);
    }
  };
  const Ref<Observer> observer = MakeRef<Observer>();
  const Subject data = Box(5);
  more.Call(u"SetEventHandler", Ref<Object>(observer), data);
  more.Call(u"AddItem", Box(8));
  more.Call(u"Remove", 0);
  EXPECT_EQ(observer->heard, "+1-0");
  EXPECT_EQ(observer->userData, data.get());
}

EVERY_OPERATION_OF(clsIterator) {
  const Subject iterator(u"clsIterator");
  auto array = MakeRef<ValueArray>();
  array->items = {Variant(Box(4).object()), Variant(Box(5).object()), Variant(Box(6).object())};
  iterator.Call(u"Init", Ref<Object>(array), 3);
  EXPECT_EQ(iterator.Get(u"Size").AsLong(), 3);
  EXPECT_EQ(iterator.Get(u"IterIndex").AsLong(), -1);
  EXPECT_TRUE(iterator.Truth(u"hasNext"));
  EXPECT_EQ(Unboxed(iterator.Item(u"iterValue")), 4);
  Variant out;
  EXPECT_TRUE(iterator.Truth(u"hasNextLong", ByRef(out)));
  EXPECT_EQ(out.AsLong(), 5);
  EXPECT_TRUE(iterator.Truth(u"hasNextObject", ByRef(out)));
  EXPECT_EQ(Unboxed(out.AsObject()), 6);
  EXPECT_FALSE(iterator.Truth(u"hasNext"));
  iterator.Call(u"resetIter");
  EXPECT_EQ(iterator.Number(u"IterIndex"), -1);
  EXPECT_TRUE(iterator.Truth(u"hasNextWithIndex", ByRef(out)));
  EXPECT_EQ(out.AsLong(), 0);
  const Subject texts = Subject(u"VestrelStatic").Item(u"ListFromSplitString", u"x,y", u",");
  const Subject overTexts = texts.Item(u"BeginIter");
  EXPECT_TRUE(overTexts.Truth(u"hasNextString", ByRef(out)));
  EXPECT_EQ(out.AsString(), u"x");
  EXPECT_EQ(overTexts.Number(u"IterIndex"), 0);
}

EVERY_OPERATION_OF(clsDictionary) {
  const Subject dictionary(u"clsDictionary");
  const Subject one = Box(1);
  dictionary.Call(u"Add", u"B", one);
  dictionary.Call(u"Add", u"A", Box(2));
  EXPECT_EQ(Boxes(dictionary.Get(u"KeyList").AsObject()), "B A");
  EXPECT_TRUE(dictionary.Truth(u"HasKey", u"b"));
  EXPECT_FALSE(dictionary.Truth(u"HasKey", u"C"));
  EXPECT_EQ(dictionary.Item(u"ValueOf", u"b"), one);
  EXPECT_FALSE(dictionary.Item(u"ValueOf", u"C"));
  const Subject missing = Box(0);
  EXPECT_EQ(dictionary.Item(u"ValueOf", u"C", missing), missing);
  EXPECT_EQ(dictionary.Item(u"Remove", u"B"), one);
  EXPECT_EQ(dictionary.Item(u"Remove", u"B", missing), missing);
  EXPECT_EQ(Boxes(dictionary.Item(u"KeyList")), "A");
  dictionary.Call(u"Clear");
  EXPECT_FALSE(dictionary.Truth(u"HasKey", u"A"));
}

EVERY_OPERATION_OF(clsLong) {
  const Subject box(u"clsLong");
  EXPECT_EQ(box.Get(u"value").AsLong(), 0);
  box.Put(u"value", -5);
  EXPECT_EQ(box.Get(u"value").AsLong(), -5);
  EXPECT_EQ(box.Number(u"IComparable_CompareTo", Box(1)), -1);
  EXPECT_EQ(box.Number(u"IComparable_CompareTo", Box(-5), u"whatever"), 0);
  EXPECT_EQ(box.Error(u"IComparable_CompareTo", Box(u"-5")), 13);
  EXPECT_EQ(box.Error(u"IComparable_FieldCompare", u"value", -5), 7155);
}

EVERY_OPERATION_OF(clsString) {
  const Subject box(u"clsString");
  EXPECT_EQ(box.Get(u"value").AsString(), u"");
  box.Put(u"value", u"b");
  EXPECT_EQ(box.Get(u"value").AsString(), u"b");
  EXPECT_EQ(box.Number(u"IComparable_CompareTo", Box(u"B")), 1);
  EXPECT_EQ(box.Number(u"IComparable_CompareTo", Box(u"b")), 0);
  EXPECT_EQ(box.Error(u"IComparable_FieldCompare", u"value", u"b"), 7155);
}

EVERY_OPERATION_OF(DefaultObjectComparator) {
  const Subject comparator(u"DefaultObjectComparator");
  EXPECT_FALSE(comparator.Get(u"Reverse").AsBoolean());
  EXPECT_EQ(comparator.Get(u"field").AsString(), u"all");
  EXPECT_EQ(comparator.Number(u"IObjectComparator_Compare", Box(1), Box(2)), -1);
  comparator.Put(u"Reverse", true);
  EXPECT_TRUE(comparator.Get(u"Reverse").AsBoolean());
  EXPECT_EQ(comparator.Number(u"IObjectComparator_Compare", Box(1), Box(2)), 1);
  comparator.Put(u"field", u"buttonIndex");
  EXPECT_EQ(comparator.Get(u"field").AsString(), u"buttonIndex");
  const Subject buttons = Buttons();
  EXPECT_EQ(comparator.Number(u"IObjectComparator_Compare", buttons.Item(u"GetItem", 0),
                              buttons.Item(u"GetItem", 3)),
            1);
  EXPECT_EQ(comparator.Error(u"IObjectComparator_Compare", buttons, Box(1)), 13);
}

EVERY_OPERATION_OF(clsButtonPredicate) {
  const Subject predicate(u"clsButtonPredicate");
  const Subject buttons = Buttons();
  const auto fitting = [&] { return buttons.Item(u"Filter", predicate).Number(u"Size"); };
  EXPECT_EQ(fitting(), 4);
  predicate.Call(u"SetButtonIndexBetween", 2, 3);
  EXPECT_EQ(fitting(), 2);
  predicate.Call(u"SetButtonIndexGreaterThan", 4, true);
  EXPECT_EQ(fitting(), 1);
  predicate.Call(u"SetButtonIndexLessThan", 4, false);
  EXPECT_EQ(fitting(), 3);
  predicate.Call(u"SetButtonType", ButtonType_Multi);
  EXPECT_EQ(fitting(), 2);
  EXPECT_FALSE(predicate.Truth(u"IObjectPredicate_IsTrueFor", buttons.Item(u"GetItem", 0)));
  EXPECT_TRUE(predicate.Truth(u"IObjectPredicate_IsTrueFor", buttons.Item(u"GetItem", 1)));
  EXPECT_EQ(predicate.Error(u"IObjectPredicate_IsTrueFor", Box(1)), 13);
}

}  // namespace
}  // namespace vestrel::test
