#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "core/Error.h"
#include "core/clsObjectList.h"
#include "model/clsButton.h"
#include "model/clsButtonPredicate.h"
#include "model/clsPage.h"

namespace vestrel {
namespace {

Ref<clsButton> ButtonAt(std::int32_t index, ButtonTypeEnum type = ButtonType_Sequence) {
  auto button = MakeRef<clsButton>();
  button->InitWithValues(nullptr, 1, index, u"Intro", type, nullptr);
  return button;
}

struct Case {
  const char* name;
  std::function<void(clsButtonPredicate&)> set;
  std::vector<std::int32_t> passes;
  std::vector<std::int32_t> fails;
};

TEST(clsButtonPredicateTest, EachModeTestsTheIndexAsItsTableSays) {
  const std::vector<Case> table = {
      {"fresh", [](clsButtonPredicate&) {}, {0, 50, 100}, {-1, 101}},
      {"between", [](auto& p) { p.SetButtonIndexBetween(3, 5); }, {3, 4, 5}, {2, 6}},
      {"between, reversed", [](auto& p) { p.SetButtonIndexBetween(5, 3); }, {}, {3, 4, 5}},
      {"less than", [](auto& p) { p.SetButtonIndexLessThan(5, false); }, {-9, 4}, {5, 6}},
      {"at most", [](auto& p) { p.SetButtonIndexLessThan(5, true); }, {4, 5}, {6}},
      {"greater than", [](auto& p) { p.SetButtonIndexGreaterThan(5, false); }, {6, 900}, {5, 4}},
      {"at least", [](auto& p) { p.SetButtonIndexGreaterThan(5, true); }, {5, 6}, {4}},
  };
  for (const Case& row : table) {
    const auto predicate = MakeRef<clsButtonPredicate>();
    row.set(*predicate);
    for (const auto index : row.passes) {
      EXPECT_TRUE(predicate->IsTrueFor(ButtonAt(index).get())) << row.name << " " << index;
    }
    for (const auto index : row.fails) {
      EXPECT_FALSE(predicate->IsTrueFor(ButtonAt(index).get())) << row.name << " " << index;
    }
  }
}

TEST(clsButtonPredicateTest, TypeSelectsOnlyThatTypeUntilTheModeIsSetBack) {
  const auto predicate = MakeRef<clsButtonPredicate>();
  predicate->SetButtonType(ButtonType_Multi);
  EXPECT_TRUE(predicate->IsTrueFor(ButtonAt(900, ButtonType_Multi).get()));
  EXPECT_FALSE(predicate->IsTrueFor(ButtonAt(1, ButtonType_Sequence).get()));
  predicate->SetButtonIndexBetween(1, 2);
  EXPECT_TRUE(predicate->IsTrueFor(ButtonAt(1, ButtonType_Sequence).get()));
  EXPECT_FALSE(predicate->IsTrueFor(ButtonAt(900, ButtonType_Multi).get()));
}

TEST(clsButtonPredicateTest, ASetterKeepsTheFieldsThatItDoesNotName) {
  const auto predicate = MakeRef<clsButtonPredicate>();
  predicate->SetButtonIndexGreaterThan(7, true);
  predicate->SetButtonIndexLessThan(9, false);
  EXPECT_TRUE(predicate->IsTrueFor(ButtonAt(2).get())) << "the lower bound plays no part";
  predicate->SetButtonIndexGreaterThan(7, false);
  EXPECT_TRUE(predicate->IsTrueFor(ButtonAt(100).get())) << "nor does the upper one";
}

TEST(clsButtonPredicateTest, WhatIsNoButtonIsATypeMismatch) {
  const auto predicate = MakeRef<clsButtonPredicate>();
  for (const auto& [object, number] : {std::pair{Ref<Object>(predicate), Error_TypeMismatch},
                                       std::pair{Ref<Object>(), Error_ObjectNotSet}}) {
    try {
      predicate->IsTrueFor(object.get());
      ADD_FAILURE() << number;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), number);
    }
  }
}

TEST(clsButtonPredicateTest, AListFiltersByIt) {
  const auto list = MakeRef<clsObjectList>();
  for (const std::int32_t index : {1, 4, 9}) list->AddItem(ButtonAt(index).get());
  const auto predicate = MakeRef<clsButtonPredicate>();
  predicate->SetButtonIndexGreaterThan(1, false);
  EXPECT_EQ(list->Filter(predicate.get())->Size(), 2);
  EXPECT_EQ(list->FirstIndexWhere(predicate.get()), 1);
  EXPECT_EQ(list->LastIndexWhere(predicate.get()), 2);
}

}  // namespace
}  // namespace vestrel
