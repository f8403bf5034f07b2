' The helper classes and the files, from VBScript: values written back into variables and array elements, arguments left
' out, and errors with their numbers and texts.

Dim files
Set files = CreateObject("Scripting.FileSystemObject")

Function Contents(path)
  Dim stream
  Set stream = files.OpenTextFile(path, 1)
  Contents = stream.ReadAll
  stream.Close
End Function

Sub Write(path, text)
  Dim stream
  Set stream = files.CreateTextFile(path, True)
  stream.Write text
  stream.Close
End Sub

Function Line(text, number)
  Dim parts
  parts = Split(text, vbCrLf)
  Line = parts(number)
End Function

Function CountOf(text, part)
  Dim parts
  parts = Split(text, part)
  CountOf = UBound(parts)
End Function

Sub Logging(helper)
  Dim log, logger
  On Error Resume Next
  helper.Log "too early"
  Fails "a line before Init", 91
  On Error Goto 0
  helper.Init folder & "\log.txt"
  helper.Log "an info line"
  helper.Log "a spew line", 4
  helper.Log "a severe line", 1
  helper.Log "a negative level", -1
  log = Contents(folder & "\log.txt")
  Equal "the header", Line(log, 0), "[LogSystem] ========================================"
  Equal "the date", Left(Line(log, 1), 31), "[LogSystem] logging started at "
  Equal "the default level is Info", Line(log, 2), "[Info] an info line"
  Equal "severe", Line(log, 3), "[Severe] a severe line"
  Equal "and no more", CountOf(log, vbCrLf), 4
  helper.SetLogLevel 4
  helper.GetLogger().Log "through the logger", 4
  Check "spew after SetLogLevel", InStr(Contents(folder & "\log.txt"), "[Spew] through the logger" & vbCrLf) > 0
  helper.SetLogLevel 3
  Set logger = Made("clsLogger")
  logger.Init folder & "\other.txt"
  logger.SetLevel 0
  logger.Log "not written", 1
  logger.Log "written", 0
  Equal "a logger of the script's own", CountOf(Contents(folder & "\other.txt"), "written"), 1
  On Error Resume Next
  logger.Init folder & "\no folder\log.txt"
  Fails "a log in a folder that is not there", 76
End Sub

Sub Helpers(helper)
  Dim list, button, texts(2)
  Equal "NUM_TOP_BUTTONS", helper.NUM_TOP_BUTTONS, 32
  Check "IsSomething", helper.IsSomething(helper)
  Check "of none", Not helper.IsSomething(Nothing)
  Equal "OneBasedMod(5, 4)", helper.OneBasedMod(5, 4), 1
  Equal "OneBasedMod(0, 4)", helper.OneBasedMod(0, 4), 0
  Equal "ZeroToOneBased", helper.ZeroToOneBased(7), 8
  Equal "OneToZeroBased", helper.OneToZeroBased(7), 6
  Equal "control 37 is slot 1", helper.globalToLocalControlIndex(4, 37), 1
  Equal "control 20 is itself", helper.globalToLocalControlIndex(4, 20), 20
  Equal "button 7 of group 2 is control 39", helper.controlIndexFromButtonIndex(4, 2, 7), 39
  Equal "control 64 is group 8", helper.returnGroupFromPosition(4, 64), 8
  Equal "group 3 begins at 41", helper.returnFirstPositionFromGroup(4, 3), 41
  Equal "group 0 begins at 1", helper.returnFirstPositionFromGroup(4, 0), 1
  Equal "group -1 nowhere", helper.returnFirstPositionFromGroup(4, -1), 0
  Equal "Basename", helper.Basename("C:\a\b.txt"), "b.txt"
  Equal "Basename with a delimiter", helper.Basename("a/b/c", "/"), "c"
  Equal "Basename without one", helper.Basename("C:\a\b.txt", "/"), "C:\a\b.txt"
  Equal "RemoveFileExt", helper.RemoveFileExt("a.b.c"), "a.b"
  Equal "RemoveFileExt without a point", helper.RemoveFileExt("README"), ""
  Equal "BoxLong", helper.BoxLong(5).value, 5
  Equal "UnboxLong", helper.UnboxLong(BoxLong(6)), 6
  Equal "BoxString", helper.BoxString("x").value, "x"
  Equal "UnboxString", helper.UnboxString(BoxString("y")), "y"
  Check "AreEqual", helper.AreEqual(BoxLong(1), BoxLong(1))
  Check "NotEqual with the field", helper.NotEqual(BoxLong(1), BoxLong(2), "all")
  Equal "split with empty parts", helper.ListFromSplitString("a,,b", ",").Size(), 3
  texts(0) = "a"
  texts(1) = 2
  texts(2) = True
  Set list = helper.StringListFrom(texts)
  Equal "a list of texts from an array", list.JoinStrings("/"), "a/2/True"
  Equal "from the language's own", helper.StringListFrom(Array("p", "q")).JoinStrings("+"), "p+q"
  Set button = Made("clsButton")
  Same "AsButton", helper.AsButton(button), button
  Check "AsButton of none", helper.AsButton(Nothing) Is Nothing
  helper.deleteINI folder, "no show", "no page"
  Check "a number may be a text", helper.ZeroToOneBased("7") = 8
  Check "and a double", helper.ZeroToOneBased(6.6) = 8
  Check "the version has three parts", CountOf(helper.Version, ".") = 2
  On Error Resume Next
  helper.Assert True
  Equal "Assert of true", Err.Number, 0
  helper.Assert False
  FailsWith "Assert of false", 7155, "modUtils.Assert()", "assert false"
  helper.OneBasedMod 1, 0
  Fails "division by zero", 11
  helper.ZeroToOneBased 2147483647
  Fails "overflow", 6
  helper.AsButton helper
  Fails "no button", 13
  helper.ZeroToOneBased "seven"
  Fails "text that is no number", 13
  helper.ZeroToOneBased 3000000000
  Fails "a number beyond 32 bits", 6
  helper.ZeroToOneBased
  Fails "an argument missing", 450
  helper.ZeroToOneBased 1, 2
  Fails "one too many", 450
  helper.NoSuchOperation
  Fails "no such operation", 438
End Sub

Sub Captures()
  Dim capture, groups(3), pair(1), item
  Set capture = Made("clsFormatCapture")
  Check "a timecode fits", capture.DoMatch("##:##:##.###", "01:02:03.004")
  Check "four numbers", capture.ParseItems(groups)
  Equal "hours", groups(0), 1
  Equal "minutes", groups(1), 2
  Equal "seconds", groups(2), 3
  Equal "milliseconds", groups(3), 4
  pair(0) = "kept"
  Check "not into two", Not capture.ParseItems(pair)
  Equal "which stay", pair(0), "kept"
  Check "the length counts", Not capture.DoMatch("##.###", "12.34")
  Check "the place counts", Not capture.DoMatch("##.###", "1.2345")
  Set item = Made("clsFormatCaptureItem")
  item.strValue = "12"
  Equal "a group's text", item.strValue, "12"
  Equal "a group's type", item.itemType, 0
End Sub

Sub GlobalState()
  Dim state, log
  Set state = Made("GlobalButtons")
  state.setButtonIndex 4
  Check "no trace by default", InStr(Contents(folder & "\log.txt"), "global buttons log") = 0
  state.LoggingEnabled = True
  state.setCaller "the grid"
  state.setButtonIndex 5
  Equal "read back", state.getButtonIndex(), 5
  log = Contents(folder & "\log.txt")
  Check "three lines", InStr(log, "[Info] global buttons log: the grid:" & vbCrLf & "[Info] global buttons log:  - WRITE ButtonIndex (5)" & vbCrLf & "[Info] global buttons log:  - READ ButtonIndex (5)" & vbCrLf) > 0
  state.NewButton = "Intro"
  state.CountButton = True
  Equal "NewButton", state.NewButton, "Intro"
  Equal "CountButton", state.CountButton, True
End Sub

Sub IniFiles()
  Dim ini, text, lines(1), path
  path = folder & "\values.ini"
  Set ini = Made("clsIniFile")
  Check "not set", Not ini.IsSet()
  ini.UseFile path
  Check "set", ini.IsSet()
  Equal "filename", ini.filename, path
  ini.UseKeyPrefix "Grp"
  ini.WriteLong "x", 5
  ini.UseSection "S"
  ini.WriteLong "x", -12
  ini.WriteBool "b", True
  Equal "the file", Contents(path), "[Default Section]" & vbCrLf & "Grp_x=5" & vbCrLf & "[S]" & vbCrLf & "x=-12" & vbCrLf & "b=True" & vbCrLf
  Equal "ReadLong", ini.ReadLong("x", 0), -12
  Equal "ReadLong of nothing", ini.ReadLong("missing", 7), 7
  Equal "ReadBool", ini.ReadBool("b", False), True
  Equal "ReadString of nothing", ini.ReadString("missing", "d"), "d"
  text = "a" & vbCrLf & "b"
  ini.WriteString "k", text
  Equal "the variable has blanks for its line break", text, "a  b"
  lines(1) = "c" & vbLf & "d"
  ini.WriteString "k2", lines(1)
  Equal "and so has an array's element", lines(1), "c d"
  Check "the file has the line break", InStr(Contents(path), "k=a" & vbCrLf & "b" & vbCrLf) > 0
  ini.WriteString "long", String(300, "z")
  Equal "cut to 254", Len(ini.ReadString("long", "")), 254
  ini.DeleteKey "x"
  ini.DeleteKey "never there"
  Equal "deleted", ini.ReadLong("x", 3), 3
  Check "TestWritable", ini.TestWritable()
  Check "leaves its key", InStr(Contents(path), "[Test Section]" & vbCrLf & "WriteTest=") > 0
  ini.WriteString "word", "abc"
  On Error Resume Next
  ini.ReadLong "word", 0
  Fails "no number", 13
  ini.ReadBool "word", False
  Fails "no truth", 13
End Sub

Sub MultiFiles()
  Dim multi, again, seq, path, i
  files.CreateFolder folder & "\Sequences"
  files.CreateFolder folder & "\Sequences\Gala"
  files.CreateFolder folder & "\Sequences\Gala\One"
  path = folder & "\Sequences\Gala\One\Storm.MUL"
  Set multi = Made("clsMultiFile")
  multi.Init folder, "Gala", "One", "Storm"
  multi.Save
  Equal "an empty list", Contents(path), "1,1" & vbCrLf & "0" & vbCrLf
  Set seq = Made("clsSequence")
  seq.theName = "Lightning"
  seq.myMulti = "Storm"
  seq.myPlayback = 4
  seq.releaseActive = True
  seq.theBeat = 1.5
  seq.tag = "sky"
  seq.seqType = -1
  multi.AddSequence seq
  multi.Save
  Equal "a record", Line(Contents(path), 1), "1"
  Equal "its fields in order", Line(Contents(path), 2), """Lightning"",""Storm"",4,"""",#TRUE#,#FALSE#,#FALSE#,#FALSE#,1.5,0,0,0,0,""sky"",-1"
  Set again = Made("clsMultiFile")
  again.Init folder, "Gala", "One", "Storm"
  again.Load
  Equal "one loaded", again.SequenceList.Size(), 1
  Set seq = again.SequenceList.GetItem(0)
  Equal "theName", seq.theName, "Lightning"
  Equal "myPlayback", seq.myPlayback, 4
  Equal "releaseActive", seq.releaseActive, True
  Equal "theBeat", seq.theBeat, 1.5
  Equal "seqType", seq.seqType, -1
  Equal "myPage is the file's page", seq.myPage, "One"
  Write path, "1,2" & vbCrLf & "1" & vbCrLf
  again.Init folder, "Gala", "One", "Storm"
  again.Load
  Equal "another version loads nothing", again.SequenceList.Size(), 0
  Check "and says so", InStr(Contents(folder & "\log.txt"), "[Info] *** unknown multi file format version 1.2 ***") > 0
  again.Delete
  Check "deleted", Not files.FileExists(path)
  On Error Resume Next
  again.Load
  Fails "no file", 53
End Sub

' What becomes of values that the library has no kind for.
Sub OtherKinds(helper)
  Dim texts
  Set texts = helper.StringListFrom(Array(CSng(0.1), CSng(16777216), CSng(-2.5), CDate(45000.5), CCur(12.25), Null, Empty))
  Equal "a single is what it reads as", texts.GetItem(0).value, "0.1"
  Equal "also a large one", texts.GetItem(1).value, "16777216"
  Equal "and a negative one", texts.GetItem(2).value, "-2.5"
  Equal "a date is its number of days", texts.GetItem(3).value, "45000.5"
  Equal "an amount of currency a number", texts.GetItem(4).value, "12.25"
  Equal "Null is Empty", texts.GetItem(5).value, texts.GetItem(6).value
  Equal "which is no text", texts.GetItem(5).value, ""
End Sub

Dim helper_
Set helper_ = Made("VestrelStatic")
Logging helper_
Helpers helper_
Captures
GlobalState
IniFiles
MultiFiles
OtherKinds helper_
Totals "utilities.vbs", 109
