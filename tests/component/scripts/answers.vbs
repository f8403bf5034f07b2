' What a host answers that does not fit, and what a variable holds after a call that gave nothing.

Dim answer

Class Oracle
  Public Function IsTrueFor(obj)
    If answer = "an object" Then
      Set IsTrueFor = Made("clsObjectList")
    Else
      IsTrueFor = answer
    End If
  End Function
  Public Function Compare(a, b)
    Compare = answer
  End Function
  Public Function PromptButtonOverwrite(text)
    PromptButtonOverwrite = answer
  End Function
End Class

Sub AnswersThatDoNotFit()
  Dim list, oracle
  Set list = Made("clsObjectList")
  Set oracle = New Oracle
  list.AddItem BoxLong(2)
  list.AddItem BoxLong(1)
  answer = "no boolean"
  On Error Resume Next
  list.FirstIndexWhere oracle
  Fails "a predicate's text", 13
  answer = "an object"
  list.Filter oracle
  Fails "a predicate's object", 13
  answer = "many"
  list.SortInPlace oracle
  Fails "a comparator's text", 13
  answer = 3000000000
  list.SortInPlace oracle
  Fails "a comparator's number", 6
  On Error GoTo 0
  answer = "True"
  Equal "a text that is a boolean", list.FirstIndexWhere(oracle), 0
  answer = 0
  Equal "a number that is a boolean", list.FirstIndexWhere(oracle), -1
  answer = Null
  Equal "Null is False", list.FirstIndexWhere(oracle), -1
  list.SortInPlace oracle
  Equal "and zero", list.Size(), 2
  answer = Empty
  Equal "Empty is False", list.FirstIndexWhere(oracle), -1
  list.SortInPlace oracle
  Equal "and zero", list.Size(), 2
  answer = 1
  list.SortInPlace oracle
  Equal "the list after all that", list.Size(), 2
End Sub

Sub VariablesAfterTheCall()
  Dim controller, button, number, recorder, list, iterator, thing
  Made("VestrelStatic").Init folder & "\log.txt"
  Set recorder = Made("clsRecordController")
  recorder.Init Made("IRecordEventHandler")
  Set controller = Made("clsButtonGroupController")
  controller.Init Made("IFormSequenceShortcuts"), folder, Made("ILEDSetter"), recorder
  controller.setButtonGroupPageSize 4
  controller.controlClicked 33, 1, 0, 0, 0, 0, True, button
  Check "no button is Nothing", IsObject(button)
  Check "no button is Nothing", button Is Nothing
  button = "as it was"
  controller.controlClicked 33, 1, 0, 0, 0, 0, False, button
  Equal "a variable without returnButton", button, "as it was"
  Check "a time of zero", recorder.timecodeToMS("00:00.000", number)
  Equal "its type", VarType(number), 3
  number = "as it was"
  Check "a time that is none", Not recorder.timecodeToMS("soon", number)
  Equal "its variable", number, "as it was"
  Set list = Made("clsObjectList")
  list.AddItem BoxString("")
  Set iterator = list.BeginIter()
  Check "an empty text", iterator.hasNextString(thing)
  Equal "its type", VarType(thing), 8
End Sub

AnswersThatDoNotFit
VariablesAfterTheCall
Totals "answers", 20
