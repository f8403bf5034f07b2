// The table of clsObjectList.
#pragma once

#include "component/Table.h"
#include "core/clsObjectList.h"

namespace vestrel::component {

template <>
struct TableOf<clsObjectList> {
  using T = clsObjectList;
  static constexpr auto kTable = MakeTable<T>(
      "A growable list of objects with search, sort, filter, a snapshot iterator and change events. "
      "Positions are 0-based; a negative one counts from the end and one past the end means the last item.",
      Method<&T::GetItem>("GetItem", "The item at the position.", "index"),
      Method<&T::SetEventHandler>(
          "SetEventHandler",
          "Sets the observer of insertions and removals, and what it is handed with each event.", "handler",
          "userData"),
      Method<&T::AddItemBefore>("AddItemBefore",
                                "Inserts before a position, which counts from the end when negative; past "
                                "the end it appends. Answers the new item's position.",
                                "item", "before"),
      Method<&T::AddItem>("AddItem", "Appends. Answers the new item's position.", "item"),
      Method<&T::Remove>("Remove", "Takes out and answers the item at the position.", "atIndex"),
      Method<&T::Size>("Size", "The number of items."), Method<&T::Clear>("Clear", "Removes all items."),
      Method<&T::AsArray>("AsArray", "The items in order as an array. Error 9 for an empty list."),
      Method<&T::FindObject>("FindObject", "The first position of the very object, -1 when it is absent.",
                             "obj"),
      Method<&T::FindObjectValue>(
          "FindObjectValue",
          "The first position of an item that valueObj compares equal to, -1 when there is none.", "valueObj",
          Optional("field", u"all")),
      Method<&T::FindFieldValue>(
          "FindFieldValue",
          "The first position of an item whose field of that name equals the value, -1 when there is none.",
          "fieldName", "value"),
      Method<&T::FirstIndexWhere>(
          "FirstIndexWhere",
          "The first position of an item that the predicate is true for, -1 when there is none.",
          "predicate"),
      Method<&T::LastIndexWhere>("LastIndexWhere", "The last such position, -1 when there is none.",
                                 "predicate"),
      Method<&T::SortInPlace>("SortInPlace",
                              "Sorts by the comparator. Without one a DefaultObjectComparator is made from "
                              "Reverse and field and handed back; otherwise the two are ignored.",
                              InOut(Optional("comparator")), Optional("Reverse", false),
                              Optional("field", u"all")),
      Method<&T::Filter>("Filter", "A new list of the items that the predicate is true for.", "predicate"),
      Method<&T::BeginIter>("BeginIter", "A new iterator over the items as they are now."),
      Method<&T::ExtendWith>("ExtendWith", "Appends each item of another list.", "another"),
      Method<&T::JoinStrings>(
          "JoinStrings",
          "Joins the texts of the first upToIndex items, of all when it is negative. Items are clsString.",
          "delimiter", Optional("upToIndex", -1)),
      Method<&T::Reverse>("Reverse", "Reverses the order of the items."));
};

}  // namespace vestrel::component
