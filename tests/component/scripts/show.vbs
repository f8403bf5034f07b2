' A whole show driven from VBScript: the script's classes are form, lamps, transport bar and assignment.

Dim calls ' every callback, in order

Function Named(object)
  If object Is Nothing Then
    Named = "none"
  Else
    Named = object.name
  End If
End Function

Sub Called(text)
  calls = calls & text & ";"
End Sub

' What was called since the last look.
Function Taken()
  Taken = calls
  calls = ""
End Function

Class Form
  Public renameAnswer
  Public overwriteAnswer
  Public releasesOthers
  Public failing
  Public Sub SetButtonGroupPageCaption(groupIndex, caption)
    Called "SetButtonGroupPageCaption"
  End Sub
  Public Sub RefreshPage(refreshType, justGroupIndex, justButton)
    Called "RefreshPage(" & refreshType & "," & justGroupIndex & "," & Named(justButton) & ")"
  End Sub
  Public Sub SetFlashing(state)
    Called "SetFlashing(" & state & ")"
  End Sub
  Public Sub ShowEditPopup(button)
    Called "ShowEditPopup(" & Named(button) & ")"
  End Sub
  Public Sub DisableEditMode()
    Called "DisableEditMode()"
  End Sub
  Public Sub CopyButtonFiles(buttonType, srcPageName, srcButtonName, destPageName, destButtonName, deleteSource)
    Called "CopyButtonFiles(" & buttonType & "," & srcPageName & "," & srcButtonName & "," & destPageName & "," & destButtonName & "," & deleteSource & ")"
  End Sub
  Public Sub DeleteButton(button, noPrompt)
    Called "DeleteButton(" & Named(button) & "," & noPrompt & ")"
  End Sub
  Public Function RenameButton(button, controlIndex)
    Called "RenameButton(" & Named(button) & ")"
    RenameButton = renameAnswer
  End Function
  Public Sub ButtonStateChanged(button, mouseButton, shift, x, y)
    Called "ButtonStateChanged(" & Named(button) & "," & mouseButton & "," & shift & "," & x & "," & y & ")"
    If failing = "ButtonStateChanged" Then Err.Raise 777, "the form", "it does not want to"
    If releasesOthers And button.playState = 1 Then controller.releaseButtonsOnPage button.groupIndex, 999, button
  End Sub
  Public Sub LockStateChanged(button)
    Called "LockStateChanged(" & Named(button) & "," & button.Locked & ")"
  End Sub
  Public Sub UpdateFaderUI(faderType, index, value)
    Called "UpdateFaderUI(" & faderType & "," & index & "," & value & ")"
  End Sub
  Public Sub FaderModeChanged(button)
    Called "FaderModeChanged(" & Named(button) & "," & button.FaderMode & ")"
  End Sub
  Public Sub HighlightBump(bumpIndex, state)
    Called "HighlightBump(" & bumpIndex & "," & state & ")"
  End Sub
  Public Sub ReleaseButton(button)
    Called "ReleaseButton"
  End Sub
  Public Sub GoFromSubmaster(button, crossFade, overRideTime, manualCrossfade)
    Called "GoFromSubmaster(" & Named(button) & "," & crossFade & "," & overRideTime & "," & manualCrossfade & ")"
  End Sub
  Public Sub GetUIFaderValues(values)
    Dim i
    Called "GetUIFaderValues(" & values.GroupFaders(1) & ")"
    For i = 1 To 8
      values.GroupFaders(i) = hands(i)
      values.BumpFaders(i) = i
    Next
  End Sub
  Public Sub UpdateFaderModelValue(faderType, index, value, caught, button)
    Called "UpdateFaderModelValue(" & faderType & "," & index & "," & value & "," & caught & "," & Named(button) & ")"
  End Sub
  Public Sub HideSplashScreen()
    Called "HideSplashScreen()"
    If failing = "HideSplashScreen" Then Err.Raise 777, "the form", "it does not want to"
  End Sub
  Public Sub CreateMarkFadeButton(button, originalName, mfType)
    Called "CreateMarkFadeButton(" & Named(button) & "," & originalName & "," & mfType & ")"
  End Sub
  Public Function PromptButtonOverwrite(promptText)
    Called "PromptButtonOverwrite(" & promptText & ")"
    PromptButtonOverwrite = overwriteAnswer
  End Function
End Class

Class Lamps
  Public Sub setLED(ledGroupCode, bits, state)
    Called "setLED(" & ledGroupCode & "," & bits & "," & state & ")"
  End Sub
  Public Sub StartLEDTimer()
    Called "StartLEDTimer()"
  End Sub
  Public Sub EndLEDTimer()
    Called "EndLEDTimer()"
  End Sub
End Class

Class Bar
  Public Sub UpdateTimecodeDisplay(value)
    Called "UpdateTimecodeDisplay(" & value & ")"
  End Sub
  Public Sub SetTimerEnabled(value)
    Called "SetTimerEnabled(" & value & ")"
  End Sub
  Public Sub TransportStateChanged(transportState, recording)
    Called "TransportStateChanged(" & transportState & "," & recording & ")"
  End Sub
  Public Sub NewEventRecorded(ev)
    Called "NewEventRecorded(" & Named(ev.button) & "," & ev.eventType & "," & ev.x & ")"
  End Sub
  Public Sub CurrentPlayingEvent(ev, eventIndex)
    Called "CurrentPlayingEvent(" & Named(ev.button) & "," & eventIndex & ")"
  End Sub
  Public Sub RefreshList()
    Called "RefreshList()"
  End Sub
End Class

Class Assignment
  Public Sub CompleteAssignment(forceOverwrite)
    Called "CompleteAssignment(" & forceOverwrite & ")"
  End Sub
End Class

Dim ownGroups(8), ownBumps(8)

' The script's own stand-in for the record of fader positions.
Class OwnFaders
  Public Property Get GroupFaders(i)
    GroupFaders = ownGroups(i)
  End Property
  Public Property Let GroupFaders(i, value)
    ownGroups(i) = value
  End Property
  Public Property Get BumpFaders(i)
    BumpFaders = ownBumps(i)
  End Property
  Public Property Let BumpFaders(i, value)
    ownBumps(i) = value
  End Property
End Class

Dim form_, controller, recorder, hands(8), lampsOut, files
lampsOut = "EndLEDTimer();setLED(245,-1,False);setLED(246,-1,False);setLED(247,-1,False);"
Set files = CreateObject("Scripting.FileSystemObject")

Sub SetUp()
  Dim g, expected
  Made("VestrelStatic").Init folder & "\log.txt"
  Set form_ = New Form
  Set recorder = Made("clsRecordController")
  recorder.Init New Bar
  Set controller = Made("clsButtonGroupController")
  controller.Init form_, folder, New Lamps, recorder
  Equal "Init puts the lamps out", Taken(), lampsOut
  Same "the record controller is handed back", controller.recordController, recorder
  Equal "persist", controller.persist, True
  controller.setButtonGroupPageSize 4
  controller.CreateNewShow "Gala"
  Equal "a new show puts the lamps out, twice", Taken(), lampsOut & lampsOut
  Equal "no pages", controller.GetPageNames().Size(), 0
  For g = 1 To 8
    hands(g) = g * 10
  Next
  hands(3) = 0
  controller.SetPage "One"
  expected = "GetUIFaderValues(0);"
  For g = 1 To 8
    expected = expected & "UpdateFaderModelValue(0," & g & ",0," & (g = 3) & ",none);"
  Next
  Equal "a page reports its faders", Taken(), expected & lampsOut
  Equal "its name", controller.GetPageNames().GetItem(0).value, "One"
  Equal "the show's name", controller.PageManager.showName, "Gala"
  Check "the show file", files.FileExists(folder & "\Sequences\Gala\pageSetting.ini")
  Check "the page file", files.FileExists(folder & "\Sequences\Gala\One\pageSetting.ini")
End Sub

Sub Assigning()
  Dim page
  controller.assignButton 1, 1, "Intro", 1
  Equal "the lamp of group 1 comes on", Taken(), "setLED(245,1,True);"
  controller.assignButton 1, 2, "Chase", 2
  controller.assignButton 9, 1, "Bump", 1
  Equal "no lamp changes", Taken(), ""
  controller.assignButton 0, 16, "Top", 4
  Equal "the lamp of top button 16", Taken(), "setLED(246,-32768,True);"
  Set page = controller.PageManager.CurrentPage
  Equal "an indexed property", page.ButtonGroups(3).groupIndex, 3
  Equal "the group's buttons", page.ButtonGroups(1).buttons.Size(), 2
  Same "the same group each time", page.ButtonGroups(1), page.ButtonGroups(1)
  Same "the same button by index", controller.buttonWithIndex(1, 2), page.ButtonGroups(1).buttons.GetItem(1)
  Same "and by control", controller.buttonAtControlIndex(34), page.ButtonGroups(1).buttons.GetItem(1)
  Check "no button there", controller.buttonWithIndex(5, 1) Is Nothing
  Equal "its text", controller.buttonWithIndex(1, 2).toString(), "group: 1, buttonIndex: 2, name: Chase, type: 2"
  Equal "all buttons", controller.getButtons().Size(), 4
  Equal "of one type", controller.getButtons(-1, 2).Size(), 1
  Equal "of one type, the group left out", controller.getButtons(, 1).Size(), 2
  Equal "of one group", controller.getButtons(0).Size(), 1
  Check "the map ignores case", controller.GetButtonMap().HasKey("CHASE")
  On Error Resume Next
  page.ButtonGroups 10
  Fails "group 10", 9
End Sub

Sub Clicking()
  Dim intro, got, chase, before
  Set intro = controller.buttonWithIndex(1, 1)
  Set chase = controller.buttonWithIndex(1, 2)
  controller.controlClicked 33, 1, 0, 2.5, 3.5
  Equal "a click", Taken(), "ButtonStateChanged(Intro,1,0,2.5,3.5);StartLEDTimer();setLED(245,1,False);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);"
  Equal "is on", intro.playState, 1
  Set got = Nothing
  controller.controlClicked 33, 2, 1, 0, 0, 0, True, got
  Equal "another click", Taken(), "ButtonStateChanged(Intro,2,1,0,0);RefreshPage(2,0,Intro);EndLEDTimer();setLED(245,1,True);RefreshPage(2,0,Chase);RefreshPage(2,0,Chase);"
  Equal "is off", intro.playState, 0
  Same "the button clicked came back", got, intro
  controller.controlClicked 40, 1, 0, 0, 0, , True, got
  Check "an empty slot gives none", got Is Nothing
  Equal "and calls nothing", Taken(), ""
  controller.mLEDManager.TimerTick
  Equal "nothing blinks", Taken(), ""
  form_.releasesOthers = True
  controller.controlClicked 34, 1, 0, 0, 0
  calls = ""
  controller.controlClicked 33, 1, 0, 0, 0
  Equal "a form that releases others from inside", Taken(), "ButtonStateChanged(Intro,1,0,0,0);ButtonStateChanged(Chase,1,0,0,0);RefreshPage(2,0,Chase);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);"
  form_.releasesOthers = False
  Equal "the other is off", chase.playState, 0
  Equal "the playing list", controller.PageManager.CurrentPage.ButtonGroups(1).nowPlayingList.Size(), 1
  controller.releaseButtonsOnPage 1, 999, intro
  Equal "the excluded button stays", intro.playState, 1
  Set got = Nothing
  controller.releaseButtonsOnPage -1, , got
  Equal "released", intro.playState, 0
  Equal "a placeholder came back", got.name & got.groupIndex, "x-999"
  before = -3
  Same "getPrevButton wraps", controller.getPrevButton(1, before), chase
  Equal "and leaves 999999", before, 999999
  Same "getNextButton", controller.getNextButton(1, 1), chase
  Check "ToggleButtonAt", controller.ToggleButtonAt(1, 1)
  Check "of no button", Not controller.ToggleButtonAt(1, 9)
  controller.clearAll
  Equal "cleared", intro.playState, 0
  calls = ""
  controller.setModeEditing True
  controller.controlClicked 33, 1, 0, 0, 0
  Equal "the pop-up", Taken(), "ShowEditPopup(Intro);"
  controller.ToggleLockState
  Equal "locked", Taken(), "LockStateChanged(Intro,True);DisableEditMode();"
  intro.click 1, 0, 0, 0
  Equal "a locked button ignores clicks", Taken(), ""
  intro.Locked = False
  Equal "unlocked", Taken(), "LockStateChanged(Intro,False);"
  intro.Locked = False
  Equal "no change, no call", Taken(), ""
End Sub

Sub Fading()
  Dim values, g, faders, bump
  calls = ""
  controller.groupFaderChanged 1, 0
  Equal "the value that is there", Taken(), ""
  controller.groupFaderChanged 1, 60
  Equal "raised from zero", Taken(), "UpdateFaderModelValue(0,1,60,True,none);GoFromSubmaster(Chase,0,0,False);RefreshPage(2,0,Chase);RefreshPage(2,0,Intro);"
  controller.buttonGroupGo 1, 2, 1.5, True
  Equal "go", Taken(), "GoFromSubmaster(Intro,2,1.5,True);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);"
  controller.buttonGroupGo 1, , , True
  Equal "go with arguments left out", Taken(), "GoFromSubmaster(Chase,0,0,True);RefreshPage(2,0,Chase);RefreshPage(2,0,Intro);"
  controller.PushCurrentGroupFaderValues
  values = "UpdateFaderUI(0,1,60);"
  For g = 2 To 8
    values = values & "UpdateFaderUI(0," & g & ",0);"
  Next
  Equal "eight faders", Taken(), values
  Set faders = New OwnFaders
  controller.GetUIFaderValues faders
  Equal "the script's own stand-in is filled", faders.GroupFaders(2) & "," & faders.GroupFaders(8) & "," & faders.BumpFaders(8), "20,80,8"
  Set faders = Made("UIFaderValues")
  faders.GroupFaders(1) = 33
  calls = ""
  controller.GetUIFaderValues faders
  Equal "the library's is handed on", Taken(), "GetUIFaderValues(33);"
  Equal "and filled", faders.GroupFaders(4), 40
  faders = Empty
  controller.GetUIFaderValues faders
  Equal "an empty variable receives one", faders.BumpFaders(5), 5
  calls = ""
  controller.UpdateFaderModelValue 1, 2, 3, False
  Equal "passed on", Taken(), "UpdateFaderModelValue(1,2,3,False,none);"
  Set bump = controller.buttonWithIndex(9, 1)
  bump.BumpMode = 1
  controller.BumpFaderChanged 1, 30, True
  Equal "a bump fader", Taken(), "ButtonStateChanged(Bump,1,0,0,0);HighlightBump(1,True);UpdateFaderUI(1,1,30);UpdateFaderModelValue(1,1,30,True,Bump);UpdateFaderModelValue(1,1,30,True,Bump);"
  controller.BumpFaderChanged 3, 30, True
  Equal "one without a button", Taken(), ""
  bump.press
  Equal "a bump", Taken(), "UpdateFaderUI(1,1,100);UpdateFaderModelValue(1,1,100,True,Bump);"
  bump.release
  Equal "its release", Taken(), "UpdateFaderUI(1,1,30);UpdateFaderModelValue(1,1,30,True,Bump);"
End Sub

Sub Editing()
  Dim intro
  controller.setModeAssign "Harbour", 1, New Assignment
  Equal "flashing", Taken(), "SetFlashing(True);"
  controller.autoAssignNextAvailable 2
  Equal "placed", Taken(), "CompleteAssignment(False);setLED(245,2,True);SetFlashing(False);RefreshPage(1,2,none);"
  Equal "there it is", controller.buttonWithIndex(2, 1).name, "Harbour"
  form_.overwriteAnswer = False
  controller.setModeAssign "Harbour", 3, New Assignment
  Equal "asked", Taken(), "PromptButtonOverwrite(Do you want to overwrite the existing [Harbour] button?);"
  Equal "no", controller.buttonWithIndex(2, 1).buttonType, 1
  form_.overwriteAnswer = True
  controller.setModeAssign "Harbour", 3, New Assignment
  Check "overwritten, which the assignment is told", InStr(Taken(), "CompleteAssignment(True);") > 0
  Equal "yes", controller.buttonWithIndex(2, 1).buttonType, 3
  form_.renameAnswer = "Opening"
  controller.setModeEditing True
  controller.controlClicked 33, 1, 0, 0, 0
  calls = ""
  form_.renameAnswer = Null
  controller.RenameButton
  Equal "a dialogue that was cancelled", controller.buttonWithIndex(1, 1).name, "Intro"
  form_.renameAnswer = "Opening"
  controller.setModeEditing True
  controller.controlClicked 33, 1, 0, 0, 0
  calls = ""
  controller.RenameButton
  Check "asked for the name", InStr(calls, "RenameButton(Intro);") = 1
  Check "and left", Right(calls, 18) = "DisableEditMode();"
  Equal "renamed", controller.buttonWithIndex(1, 1).name, "Opening"
  controller.setModeEditing True
  controller.controlClicked 33, 1, 0, 0, 0
  controller.setModeCopy
  calls = ""
  controller.controlClicked 36, 1, 0, 0, 0
  Check "copied", InStr(Taken(), "CopyButtonFiles(1,One,Opening,One,Opening copy,False);") = 1
  Equal "the copy", controller.buttonWithIndex(1, 4).name, "Opening copy"
  controller.setModeEditing True
  controller.controlClicked 36, 1, 0, 0, 0
  controller.DeleteButton True
  Check "deleted", InStr(Taken(), "DeleteButton(Opening copy,True);") > 0
  Check "gone", controller.buttonWithIndex(1, 4) Is Nothing
End Sub

Sub Recording()
  Dim ms, button, list
  calls = ""
  recorder.Record
  Equal "a take", Taken(), "SetTimerEnabled(True);TransportStateChanged(1,True);"
  Set button = controller.buttonWithIndex(2, 1)
  button.click 1, 0, 7.5, 0
  Check "is recorded", Right(calls, 32) = "NewEventRecorded(Harbour,0,7.5);"
  calls = ""
  recorder.Stop_
  Equal "stopped", Taken(), "UpdateTimecodeDisplay(0);SetTimerEnabled(False);TransportStateChanged(0,False);"
  Equal "one event", recorder.EventList.Size(), 1
  Same "with the button", recorder.EventList.GetItem(0).button, button
  recorder.updateEventTime 0, 3000
  Equal "moved", Taken(), "RefreshList();"
  recorder.SeekToEventIndex 0
  Equal "sought", Taken(), "UpdateTimecodeDisplay(3000);"
  recorder.SaveEventsTo folder & "\events.txt"
  recorder.ClearEvents
  recorder.LoadEventsFrom folder & "\events.txt", controller.GetButtonMap()
  Equal "read back", recorder.EventList.GetItem(0).x, 7.5
  Check "a timecode", recorder.timecodeToMS("00:59.999", ms)
  Equal "in milliseconds", ms, 59999
  ms = "kept"
  Check "no timecode", Not recorder.timecodeToMS("1:00.000", ms)
  Equal "the variable stays", ms, "kept"
  Equal "msToTimecode", recorder.msToTimecode(3723004), "01:02:03.004"
  Equal "a hundred hours", recorder.msToTimecode(360000000), "100:00:00.000"
  button.setPlayState 0, 0, 1, 0, 0, 0
  calls = ""
  recorder.IVXEventListHandler_EventFired recorder.EventList.GetItem(0), 5
  Equal "a prefixed operation", Taken(), "CurrentPlayingEvent(Harbour,5);"
  On Error Resume Next
  recorder.LoadEventsFrom folder & "\no such file", controller.GetButtonMap()
  Fails "no event file", 53
End Sub

Sub Failing()
  Dim log
  On Error Resume Next
  controller.assignButton 10, 1, "x", 1
  FailsWith "number 0 is a failure all the same", 0, "clsButtonGroupController", "10 - invalid group: clsButtonGroupController.assignButton()"
  controller.assignButton 2, 41, "x", 1
  FailsWith "number 1", 1, "clsButtonGroupController", "41 - invalid buttonIndex: clsButtonGroupController.assignButton()"
  form_.failing = "HideSplashScreen"
  controller.HideSplashScreen
  Fails "a callback's failure is its call's", 777
  form_.failing = "ButtonStateChanged"
  calls = ""
  controller.buttonWithIndex(1, 1).click 1, 0, 0, 0
  Fails "one that is caught", 0
  form_.failing = ""
  Equal "ends the handling", Taken(), "ButtonStateChanged(Opening,1,0,0,0);"
  log = files.OpenTextFile(folder & "\log.txt", 1).ReadAll
  Check "at step 2, in the log", InStr(log, " Location:2") > 0
  controller.buttonWithIndex(1, 1).IComparable_CompareTo controller.buttonWithIndex(1, 2), "All"
  FailsWith "an unknown field", 1001, "clsButton.IComparable_CompareTo", "unsupported field (yet)"
  controller.mLEDManager.setButtonInTop32 33, True, True
  Fails "no such lamp", 9
End Sub

Sub Everything()
  Dim name, object
  For Each name In Array("clsObjectList", "clsIterator", "clsDictionary", "clsLong", "clsString", "DefaultObjectComparator", "clsButtonPredicate", "clsLogger", "VestrelStatic", "clsFormatCapture", "clsFormatCaptureItem", "GlobalButtons", "clsIniFile", "clsMultiFile", "clsSequence", "clsButton", "clsFaderCatch", "clsButtonGroup", "clsDeferred", "clsPage", "clsPageManager", "clsButtonGroupController", "LEDManager", "vxEvent", "vxEventList", "clsRecordController", "IComparable", "IObjectComparator", "IObjectPredicate", "IFormSequenceShortcuts", "ILEDSetter", "IAssignmentCallback", "IButtonEventHandler", "IObjListEventHandler", "IRecordController", "IRecordEventHandler", "IVXEventListHandler", "UIFaderValues")
    Set object = Nothing
    Set object = CreateObject("Vestrel." & name)
    Check name, Not object Is Nothing
    Set object = Nothing
    Set object = CreateObject("Vestrel." & name & ".1")
    Check name & ".1", Not object Is Nothing
  Next
  Equal "an empty form answers nothing", Made("IFormSequenceShortcuts").RenameButton(Nothing, 1), ""
  Equal "and false", Made("IFormSequenceShortcuts").PromptButtonOverwrite("?"), False
  Equal "an empty comparator", Made("IObjectComparator").Compare(Nothing, Nothing), 0
  Made("ILEDSetter").setLED 245, -1, True
End Sub

SetUp
Assigning
Clicking
Fading
Editing
Recording
Failing
Everything
controller.formShutdown
Totals "show.vbs", 189
