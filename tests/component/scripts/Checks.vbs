' Put in front of every VBScript suite. A suite's last line is a call of Totals: an engine that stops at an error says
' nothing, so a run without that line has failed.
Option Explicit

Dim passedChecks, failedChecks, folder
passedChecks = 0
failedChecks = 0
folder = WScript.Arguments(0)

Function Made(className)
  Set Made = CreateObject("Vestrel." & className)
End Function

Sub Check(what, holds)
  If holds Then
    passedChecks = passedChecks + 1
  Else
    failedChecks = failedChecks + 1
    WScript.Echo "FAILED " & what
  End If
End Sub

Sub Equal(what, actual, expected)
  Check what & ": is " & CStr(actual) & ", not " & CStr(expected), (VarType(actual) <> 8 And actual = expected) Or (VarType(actual) = 8 And CStr(actual) = CStr(expected))
End Sub

Sub Same(what, actual, expected)
  Check what & ": not the same object", actual Is expected
End Sub

' To be called under On Error Resume Next, right after the call that fails.
Sub Fails(what, number)
  Check what & ": number " & Err.Number & " not " & number & ", " & Err.Description, Err.Number = number
  Err.Clear
End Sub

Sub FailsWith(what, number, source, description)
  Check what & ": number " & Err.Number & " not " & number, Err.Number = number
  Check what & ": source " & Err.Source, Err.Source = source
  Check what & ": description " & Err.Description, Err.Description = description
  Err.Clear
End Sub

' Under On Error Resume Next a procedure that fails leaves its caller too, with all checks that were to come: so their
' number is checked as well.
Sub Totals(suite, checks)
  Equal "the number of checks of " & suite, passedChecks + failedChecks, checks
  WScript.Echo suite & ": " & passedChecks & " passed, " & failedChecks & " failed"
  If failedChecks > 0 Then WScript.Quit 1
End Sub

Function BoxLong(number)
  Set BoxLong = Made("clsLong")
  BoxLong.value = number
End Function

Function BoxString(text)
  Set BoxString = Made("clsString")
  BoxString.value = text
End Function

' The values of a list of boxes, each with a blank after it.
Function Values(list)
  Dim i
  Values = ""
  For i = 0 To list.Size() - 1
    Values = Values & list.GetItem(i).value & " "
  Next
End Function
