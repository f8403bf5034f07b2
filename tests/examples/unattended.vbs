' What the host guide says of hosts that nobody watches, and of a form that lacks an operation. Run with
' VESTREL_MESSAGE_BOX=log in the environment and an empty folder; its last line tells whether all of it held.
Option Explicit

Dim folder, controller, holds
folder = WScript.Arguments(0)
holds = True

Sub Expect(what, truth)
  If truth Then Exit Sub
  WScript.Echo "FAILED " & what
  holds = False
End Sub

Class HalfAForm
  Public Sub HideSplashScreen()
  End Sub
End Class

Function LogText()
  LogText = CreateObject("Scripting.FileSystemObject").OpenTextFile(folder & "\host.log", 1).ReadAll
End Function

Sub Run()
  Dim recorder
  CreateObject("Vestrel.VestrelStatic").Init folder & "\host.log"
  Set recorder = CreateObject("Vestrel.clsRecordController")
  recorder.Init CreateObject("Vestrel.IRecordEventHandler")
  Set controller = CreateObject("Vestrel.clsButtonGroupController")
  controller.Init New HalfAForm, folder, CreateObject("Vestrel.ILEDSetter"), recorder
  On Error Resume Next
  controller.SetPage "Overture"
  Expect "a page with no show: " & Err.Description, Err.Number = 0
  Expect "its message is in the log", InStr(LogText(), "[Warning] message box [Error]: BGC SetPage: attempted to set page [Overture] on null show.") > 0
  Expect "so is that of its file", InStr(LogText(), "[Warning] message box [Error]: Page [Overture] not writable.") > 0
  controller.CreateNewShow "Gala"
  Expect "a show: " & Err.Description, Err.Number = 0
  Err.Clear
  controller.SetPage "Overture" ' asks the form for its faders
  Expect "an operation that the form lacks: number " & Err.Number, Err.Number = 438
End Sub

Run
If holds Then WScript.Echo "all of it held"
