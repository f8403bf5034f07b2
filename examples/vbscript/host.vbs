' A small host in VBScript: makes a show, puts buttons on its page, clicks and presses them, and prints every
' callback. Prints examples/transcript.txt.
'
'   cscript //nologo host.vbs FOLDER    an empty folder for the show and the log
Option Explicit

Const ButtonType_Sequence = 1
Const ButtonType_Multi = 2
Const ButtonType_Auto = 4
Const ButtonType_None = 999
Const PlayState_On = 1

Dim controller, folder

Sub Step_(text)
  WScript.Echo "> " & text
End Sub

' How arguments are printed: numbers in decimal, True or False, a button by its name.
Function Shown(value)
  If IsObject(value) Then
    If value Is Nothing Then Shown = "none" Else Shown = value.name
  Else
    Shown = CStr(value)
  End If
End Function

Sub Called(name, arguments)
  Dim i, text
  For i = 0 To UBound(arguments)
    If i > 0 Then text = text & ", "
    text = text & Shown(arguments(i))
  Next
  WScript.Echo "  " & name & "(" & text & ")"
End Sub

' The lamps that a call concerns, four hexadecimal digits, lamp 1 the last bit.
Function Mask(bits)
  Mask = Right("000" & Hex(bits), 4)
End Function

' The form has every operation: a callback to one that is missing fails.
Class Form
  Public Sub RefreshPage(refreshType, justGroupIndex, justButton)
    Called "RefreshPage", Array(refreshType, justGroupIndex, justButton)
  End Sub
  Public Sub SetFlashing(state)
    Called "SetFlashing", Array(state)
  End Sub
  Public Sub ShowEditPopup(button)
    Called "ShowEditPopup", Array(button)
  End Sub
  Public Sub DisableEditMode()
    WScript.Echo "  DisableEditMode()"
    controller.setModeEditing False
  End Sub
  Public Sub ButtonStateChanged(button, mouseButton, shift, x, y)
    Called "ButtonStateChanged", Array(button, button.playState = PlayState_On, mouseButton, shift, x, y)
    ' This host's policy: a button of groups 1 to 8 that goes on releases the others of its group.
    If button.playState = PlayState_On Then
      controller.releaseButtonsOnPage button.groupIndex, ButtonType_None, button
    End If
  End Sub
  Public Sub UpdateFaderUI(faderType, index, value)
    Called "UpdateFaderUI", Array(faderType, index, value)
  End Sub
  Public Sub HighlightBump(bumpIndex, state)
    Called "HighlightBump", Array(bumpIndex, state)
  End Sub
  Public Sub GetUIFaderValues(values)
    WScript.Echo "  GetUIFaderValues()"
    values.GroupFaders(2) = 75 ' the others stand at 0
  End Sub
  Public Sub UpdateFaderModelValue(faderType, index, value, caught, button)
    Called "UpdateFaderModelValue", Array(faderType, index, value, caught, button)
  End Sub
  Public Sub HideSplashScreen()
  End Sub
  Public Sub LockStateChanged(button)
  End Sub
  Public Sub FaderModeChanged(button)
  End Sub
  Public Sub GoFromSubmaster(button, crossFade, overRideTime, manualCrossfade)
  End Sub
  Public Sub CopyButtonFiles(buttonType, srcPageName, srcButtonName, destPageName, destButtonName, deleteSource)
  End Sub
  Public Sub DeleteButton(button, noPrompt)
  End Sub
  Public Function RenameButton(button, controlIndex)
    RenameButton = ""
  End Function
  Public Sub CreateMarkFadeButton(button, originalName, mfType)
  End Sub
  Public Function PromptButtonOverwrite(promptText)
    PromptButtonOverwrite = False
  End Function
End Class

Class Lamps
  Public Sub setLED(ledGroupCode, bits, state)
    Called "setLED", Array(ledGroupCode, Mask(bits), state)
  End Sub
  Public Sub StartLEDTimer()
    WScript.Echo "  StartLEDTimer()"
  End Sub
  Public Sub EndLEDTimer()
    WScript.Echo "  EndLEDTimer()"
  End Sub
End Class

Class Assignment
  Public Sub CompleteAssignment(forceOverwrite)
    Called "CompleteAssignment", Array(forceOverwrite)
  End Sub
End Class

Sub SetUp()
  Dim recorder
  Step_ "Init"
  CreateObject("Vestrel.VestrelStatic").Init folder & "\host.log"
  ' This host has no transport bar: the empty one that the library offers does.
  Set recorder = CreateObject("Vestrel.clsRecordController")
  recorder.Init CreateObject("Vestrel.IRecordEventHandler")
  Set controller = CreateObject("Vestrel.clsButtonGroupController")
  controller.Init New Form, folder, New Lamps, recorder
  controller.setButtonGroupPageSize 4
  Step_ "CreateNewShow"
  controller.CreateNewShow "Gala"
  Step_ "SetPage"
  controller.SetPage "Overture"
End Sub

Sub PutButtons()
  Step_ "setModeAssign: the operator picks the place of Harbour"
  controller.setModeAssign "Harbour", ButtonType_Sequence, New Assignment
  Step_ "controlClicked 33"
  controller.controlClicked 33, 1, 0, 120, 40
  controller.setModeEditing False ' the mode outlives the placement
  Step_ "assignButton: Lighthouse, Blackout and Strobe are put in place"
  controller.assignButton 1, 2, "Lighthouse", ButtonType_Multi
  controller.assignButton 0, 17, "Blackout", ButtonType_Auto
  controller.assignButton 9, 1, "Strobe", ButtonType_Sequence
End Sub

Sub Play()
  Step_ "controlClicked 33"
  controller.controlClicked 33, 1, 0, 120, 40
  Step_ "controlClicked 34"
  controller.controlClicked 34, 1, 0, 130, 40
  Step_ "TimerTick: one blink"
  controller.mLEDManager.TimerTick
  Step_ "ToggleBumpMode of the button at control 17"
  controller.setModeEditing True
  controller.controlClicked 17, 1, 0, 0, 0
  controller.ToggleBumpMode
  Step_ "controlPressed 17"
  controller.controlPressed 17
  Step_ "controlReleased 17"
  controller.controlReleased 17
  Step_ "controlPressed 65, the button of bump fader 1"
  controller.controlPressed 65
  Step_ "controlReleased 65"
  controller.controlReleased 65
  Step_ "groupFaderChanged 1 50"
  controller.groupFaderChanged 1, 50
End Sub

Sub Refuse()
  Step_ "assignButton at slot 41 of four times ten"
  On Error Resume Next
  controller.assignButton 2, 41, "Nowhere", ButtonType_Sequence
  If Err.Description <> "" Then WScript.Echo "  error " & Err.Number & ": " & Err.Description
End Sub

folder = WScript.Arguments(0)
SetUp
PutButtons
Play
Refuse
Step_ "formShutdown"
controller.formShutdown
Step_ "done"
