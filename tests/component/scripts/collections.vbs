' Lists, iterators, dictionaries and the protocol of comparison, from VBScript: with boxes and with classes of the
' script's own.

Class Piece
  Public weight
  ' IComparable
  Public Function CompareTo(other, field)
    asked = asked & field & " "
    If weight < other.weight Then
      CompareTo = -1
    ElseIf weight > other.weight Then
      CompareTo = 1
    Else
      CompareTo = 0
    End If
  End Function
  Public Function FieldCompare(fieldName, fieldValue)
    asked = asked & fieldName & "=" & fieldValue & " "
    If weight = fieldValue Then FieldCompare = 0 Else FieldCompare = 1
  End Function
End Class

Class HeavierThan
  Public limit
  Public Function IsTrueFor(obj)
    IsTrueFor = (obj.value > limit)
  End Function
End Class

Class ByLastDigit
  Public Function Compare(a, b)
    Compare = (a.value Mod 10) - (b.value Mod 10)
  End Function
End Class

Class Observer
  Public seen
  Public lastList
  Public lastItem
  Public lastData
  Public Sub ItemAdded(list, item, atIndex, userData)
    seen = seen & "+" & item.value & "@" & atIndex & " "
    Set lastList = list
    Set lastItem = item
    Set lastData = userData
  End Sub
  Public Sub ItemRemoved(list, item, fromIndex, userData)
    seen = seen & "-" & item.value & "@" & fromIndex & "/" & list.Size() & " "
  End Sub
End Class

Dim asked

Sub ListBasics()
  Dim list, first, i, comparator
  Set list = Made("clsObjectList")
  Equal "a new list is empty", list.Size(), 0
  Check "GetItem(-1) on a list that never held items is none", list.GetItem(-1) Is Nothing
  Set first = BoxLong(3)
  Equal "AddItem answers the index", list.AddItem(first), 0
  Equal "AddItem appends", list.AddItem(BoxLong(1)), 1
  Equal "AddItemBefore answers the index", list.AddItemBefore(BoxLong(2), 0), 0
  Equal "AddItemBefore clamps", list.AddItemBefore(BoxLong(9), 99), 3
  Equal "the order is kept", Values(list), "2 3 1 9 "
  Equal "AddItemBefore -1 goes before the last", list.AddItemBefore(BoxLong(8), -1), 3
  Equal "Remove(3) answers the item", list.Remove(3).value, 8
  Equal "GetItem(-1) is the last", list.GetItem(-1).value, 9
  Equal "an index past the end is the last", list.GetItem(100).value, 9
  Equal "an index far below is the first", list.GetItem(-100).value, 2
  Same "an item comes back as the same object", list.GetItem(1), first
  Equal "FindObject finds by identity", list.FindObject(first), 1
  Equal "FindObject does not find an equal one", list.FindObject(BoxLong(3)), -1
  Equal "FindObjectValue finds an equal one", list.FindObjectValue(BoxLong(3)), 1
  Equal "FindObjectValue with the field", list.FindObjectValue(BoxLong(1), "all"), 2
  list.SortInPlace
  Equal "sorted", Values(list), "1 2 3 9 "
  list.SortInPlace , True
  Equal "sorted in reverse, the comparator left out", Values(list), "9 3 2 1 "
  Set comparator = Nothing
  list.SortInPlace comparator, False
  Equal "sorted with a variable for the comparator", Values(list), "1 2 3 9 "
  Check "the variable received the comparator that was made", Not comparator Is Nothing
  Equal "its field", comparator.field, "all"
  Equal "its direction", comparator.Reverse, False
  comparator.Reverse = True
  list.SortInPlace comparator, False
  Equal "a given comparator decides, Reverse is ignored", Values(list), "9 3 2 1 "
  list.Reverse
  Equal "turned round", Values(list), "1 2 3 9 "
  list.Clear
  Equal "cleared", list.Size(), 0
  Equal "GetItem(-1) after Clear is the old first item", list.GetItem(-1).value, 1
  For i = 1 To 33
    list.AddItem BoxLong(i)
  Next
  Equal "33 items", list.Size(), 33
  Equal "the 33rd", list.GetItem(32).value, 33
  Equal "the 17th", list.GetItem(16).value, 17
End Sub

Sub ListArrays()
  Dim list, items, more
  Set list = Made("clsObjectList")
  list.AddItem BoxString("a")
  list.AddItem BoxString("b")
  list.AddItem BoxString("c")
  Equal "joined", list.JoinStrings(", "), "a, b, c"
  Equal "the first two joined", list.JoinStrings(", ", 2), "a, b"
  items = list.AsArray()
  Equal "AsArray begins at 0", LBound(items), 0
  Equal "AsArray ends at 2", UBound(items), 2
  Same "AsArray holds the items", items(1), list.GetItem(1)
  Set more = Made("clsObjectList")
  more.ExtendWith list
  more.ExtendWith more
  Equal "a list extended with itself doubles", more.JoinStrings(""), "abcabc"
  On Error Resume Next
  Made("clsObjectList").AsArray
  Fails "AsArray of an empty list", 9
  Made("clsObjectList").JoinStrings ","
  Fails "JoinStrings of an empty list", 9
  list.JoinStrings ",", 0
  Fails "JoinStrings of nothing", 9
  list.AddItem BoxLong(4)
  list.JoinStrings ","
  Fails "JoinStrings of a number's box", 13
  list.Remove 0
  Made("clsObjectList").GetItem(0).value = 1
  Check "a member of none fails", Err.Number <> 0
  Err.Clear
  list.FindFieldValue "all", 1
  Fails "FindFieldValue asks a box, which refuses", 7155
End Sub

Sub Iterators()
  Dim list, iter, item, text, number, position, slots(2), spare
  Set list = Made("clsObjectList")
  list.AddItem BoxString("one")
  list.AddItem BoxString("two")
  Set iter = list.BeginIter()
  Equal "Size", iter.Size, 2
  Equal "IterIndex before the first", iter.IterIndex, -1
  list.Clear
  Check "hasNextString", iter.hasNextString(text)
  Equal "the text came back", text, "one"
  Check "hasNextString into an array element", iter.hasNextString(slots(1))
  Equal "the element was written", slots(1), "two"
  text = "kept"
  Check "at the end", Not iter.hasNextString(text)
  Equal "the variable is left alone", text, "kept"
  iter.resetIter
  Equal "IterIndex after resetIter", iter.IterIndex, -1
  position = 77
  Check "hasNextWithIndex", iter.hasNextWithIndex(position)
  Equal "position 0", position, 0
  Check "hasNextWithIndex again", iter.hasNextWithIndex(slots(0))
  Equal "position 1", slots(0), 1
  Check "hasNextWithIndex at the end", Not iter.hasNextWithIndex(position)
  Equal "position 2", position, 2
  iter.resetIter
  Set item = Nothing
  Check "hasNextObject", iter.hasNextObject(item)
  Equal "the object came back", item.value, "one"
  Check "hasNext", iter.hasNext()
  Equal "iterValue", iter.iterValue().value, "two"
  list.AddItem BoxLong(-5)
  Set iter = list.BeginIter()
  Check "hasNextLong", iter.hasNextLong(number)
  Equal "the number came back", number, -5
  Check "hasNextObject leaves the object alone at the end", Not iter.hasNextObject(item)
  Equal "still the same", item.value, "one"
  Set iter = Made("clsIterator")
  iter.Init Array(BoxLong(1), BoxLong(2), BoxLong(3)), 2
  Equal "Init takes an array", iter.Size, 2
  spare = iter.hasNext()
  Equal "its first", iter.iterValue().value, 1
  On Error Resume Next
  iter.resetIter
  iter.iterValue
  Fails "iterValue before the first", 9
  iter.hasNextString text
  Fails "a number's box is no text", 13
End Sub

Sub Observers()
  Dim list, observer_, data
  Set list = Made("clsObjectList")
  Set observer_ = New Observer
  Set data = New Piece
  list.AddItem BoxLong(1)
  list.SetEventHandler observer_, data
  list.AddItem BoxLong(2)
  list.AddItemBefore BoxLong(3), 0
  Equal "additions are told", observer_.seen, "+2@1 +3@0 "
  Same "the list is handed over", observer_.lastList, list
  Same "the item is handed over", observer_.lastItem, list.GetItem(0)
  Same "the user data is the script's own object", observer_.lastData, data
  list.Remove 1
  list.Clear
  Equal "removals are told while the items are in place", observer_.seen, "+2@1 +3@0 -1@1/2 -3@0/2 -2@1/2 "
  list.SetEventHandler Nothing, Nothing
  list.AddItem BoxLong(4)
  Equal "no handler, no event", observer_.seen, "+2@1 +3@0 -1@1/2 -3@0/2 -2@1/2 "
End Sub

Sub OwnObjects()
  Dim list, a, b, c, filter, i
  Set list = Made("clsObjectList")
  Set a = New Piece
  Set b = New Piece
  Set c = New Piece
  a.weight = 3
  b.weight = 1
  c.weight = 2
  list.AddItem a
  list.AddItem b
  list.AddItem c
  Same "the script's object comes back as itself", list.GetItem(1), b
  Equal "and is found by identity", list.FindObject(c), 2
  Equal "an object that is not in the list", list.FindObject(New Piece), -1
  asked = ""
  list.SortInPlace
  Equal "sorted through its own CompareTo", list.GetItem(0).weight & list.GetItem(1).weight & list.GetItem(2).weight, "123"
  Check "the optional field was passed", InStr(asked, "all ") > 0
  list.SortInPlace , , "weight"
  Check "the field given was passed", InStr(asked, "weight ") > 0
  asked = ""
  Equal "found through its own FieldCompare", list.FindFieldValue("weight", 2), 1
  Equal "which was asked item by item", asked, "weight=2 weight=2 "
  Equal "the probe compares itself", list.FindObjectValue(a), 2
  Set list = Made("clsObjectList")
  For i = 1 To 5
    list.AddItem BoxLong(i * 7)
  Next
  Set filter = New HeavierThan
  filter.limit = 15
  Equal "Filter with the script's predicate", Values(list.Filter(filter)), "21 28 35 "
  Equal "FirstIndexWhere", list.FirstIndexWhere(filter), 2
  filter.limit = 30
  Equal "LastIndexWhere", list.LastIndexWhere(filter), 4
  filter.limit = 99
  Equal "nowhere", list.FirstIndexWhere(filter), -1
  list.SortInPlace New ByLastDigit
  Equal "sorted by the script's comparator", Values(list), "21 14 35 7 28 "
End Sub

Sub Dictionaries()
  Dim map, piece_, kept
  Set map = Made("clsDictionary")
  map.Add "B", BoxLong(1)
  map.Add "a", BoxLong(2)
  map.Add "C", BoxLong(3)
  Equal "keys in order of addition", map.KeyList.JoinStrings(","), "B,a,C"
  Check "HasKey ignores case", map.HasKey("b")
  Equal "ValueOf ignores case", map.ValueOf("A").value, 2
  map.Add "b", BoxLong(11)
  Equal "a repeated key keeps its place and spelling", map.KeyList.JoinStrings(","), "B,a,C"
  Equal "and has the new value", map.ValueOf("B").value, 11
  Check "a missing key gives none", map.ValueOf("x") Is Nothing
  Set piece_ = New Piece
  Same "or the value given", map.ValueOf("x", piece_), piece_
  Same "Remove of a missing key too", map.Remove("x", piece_), piece_
  map.Add "own", piece_
  Same "the script's object is kept", map.ValueOf("OWN"), piece_
  Same "and handed back", map.Remove("own"), piece_
  Check "it is gone", Not map.HasKey("own")
  Set kept = map.KeyList
  map.Clear
  Check "Clear", Not map.HasKey("a")
  Equal "a key list that was kept stays as it was", kept.Size(), 3
  Equal "the new one is empty", map.KeyList.Size(), 0
End Sub

Sub Comparisons()
  Dim predicate, button, comparator
  Equal "1 before 2", BoxLong(1).IComparable_CompareTo(BoxLong(2)), -1
  Equal "2 after 1", BoxLong(2).IComparable_CompareTo(BoxLong(1), "all"), 1
  Equal "equal", BoxLong(2).IComparable_CompareTo(BoxLong(2), "anything"), 0
  Equal "capitals first", BoxString("B").IComparable_CompareTo(BoxString("a")), -1
  Equal "a new number box", Made("clsLong").value, 0
  Equal "a new text box", Made("clsString").value, ""
  Set comparator = Made("DefaultObjectComparator")
  Equal "Reverse is false", comparator.Reverse, False
  Equal "field is all", comparator.field, "all"
  Equal "compares", comparator.IObjectComparator_Compare(BoxLong(1), BoxLong(2)), -1
  comparator.Reverse = True
  Equal "negated", comparator.IObjectComparator_Compare(BoxLong(1), BoxLong(2)), 1
  Set predicate = Made("clsButtonPredicate")
  Set button = Made("clsButton")
  button.buttonIndex = 100
  Check "a new predicate takes index 100", predicate.IObjectPredicate_IsTrueFor(button)
  button.buttonIndex = 101
  Check "but not 101", Not predicate.IObjectPredicate_IsTrueFor(button)
  predicate.SetButtonIndexLessThan 5, False
  button.buttonIndex = 5
  Check "less than 5", Not predicate.IObjectPredicate_IsTrueFor(button)
  predicate.SetButtonIndexLessThan 5, True
  Check "5 included", predicate.IObjectPredicate_IsTrueFor(button)
  predicate.SetButtonIndexGreaterThan 5, False
  Check "greater than 5", Not predicate.IObjectPredicate_IsTrueFor(button)
  predicate.SetButtonType 2
  Check "of type multi", Not predicate.IObjectPredicate_IsTrueFor(button)
  button.buttonType = 2
  Check "is one", predicate.IObjectPredicate_IsTrueFor(button)
  predicate.SetButtonIndexBetween 6, 9
  Check "between again", Not predicate.IObjectPredicate_IsTrueFor(button)
  On Error Resume Next
  predicate.IObjectPredicate_IsTrueFor BoxLong(1)
  Fails "a box is no button", 13
  BoxLong(1).IComparable_CompareTo BoxString("x")
  Fails "a text is no number", 13
  BoxLong(1).IComparable_FieldCompare "all", 1
  FailsWith "boxes are not found by field", 7155, "modUtils.Assert()", "assert false"
End Sub

' The log comes first: a box that refuses says so there.
Made("VestrelStatic").Init folder & "\log.txt"
ListBasics
ListArrays
Iterators
Observers
OwnObjects
Dictionaries
Comparisons
Totals "collections.vbs", 126
