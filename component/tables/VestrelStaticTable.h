// The table of VestrelStatic.
#pragma once

#include "component/Table.h"
#include "util/VestrelStatic.h"

namespace vestrel::component {

template <>
struct TableOf<VestrelStatic> {
  using T = VestrelStatic;
  static constexpr auto kTable = MakeTable<T>(
      "The door to the library's free functions: log, assertion, names, index arithmetic, boxes and lists of "
      "texts. Its Init comes before anything else.",
      Field<&T::NUM_TOP_BUTTONS>("NUM_TOP_BUTTONS", "32, the number of top buttons."),
      Method<&T::Init>("Init", "Opens the log that the library shares.", "logFilename"),
      Method<&T::SetLogLevel>("SetLogLevel", "The most detailed level that is logged. Error 91 before Init.",
                              "level"),
      Method<&T::Log>("Log", "Writes a line to the log when its level passes. Error 91 before Init.", "text",
                      Optional("level", LogLevel_3_INFO)),
      Method<&T::GetLogger>("GetLogger", "The shared logger, none before Init."),
      Method<&T::IsSomething>("IsSomething", "Whether there is an object.", "value"),
      Method<&T::OneBasedMod>("OneBasedMod", "((value - 1) mod modValue) + 1.", "value", "modValue"),
      Method<&T::ZeroToOneBased>("ZeroToOneBased", "index + 1.", "index"),
      Method<&T::OneToZeroBased>("OneToZeroBased", "index - 1.", "index"),
      Method<&T::Assert>("Assert", "Error 7155 when isTrue is false.", "isTrue"),
      Method<&T::AreEqual>("AreEqual", "Whether a compares equal to b in that field.", "a", "b",
                           Optional("field", u"all")),
      Method<&T::NotEqual>("NotEqual", "Whether a does not compare equal to b in that field.", "a", "b",
                           Optional("field", u"all")),
      Method<&T::Basename>("Basename", "The piece after the last delimiter.", "filename",
                           Optional("delim", u"\\")),
      Method<&T::RemoveFileExt>(
          "RemoveFileExt", "Everything before the last point; empty for a name without one.", "filename"),
      Method<&T::deleteINI>("deleteINI", "Deletes a page's file when it is there.", "appPath", "showName",
                            "pageName"),
      Method<&T::globalToLocalControlIndex>(
          "globalToLocalControlIndex",
          "The slot within its group that a control index stands for; a top button's index as it is.",
          "buttonsPerGroup", "controlIndex"),
      Method<&T::controlIndexFromButtonIndex>(
          "controlIndexFromButtonIndex", "The control that shows a button index, whatever page is shown.",
          "buttonsPerGroup", "groupIndex", "buttonIndex"),
      Method<&T::returnGroupFromPosition>("returnGroupFromPosition",
                                          "The group of a control index, 0 for top buttons.",
                                          "buttonsPerGroup", "thePosition"),
      Method<&T::returnFirstPositionFromGroup>("returnFirstPositionFromGroup",
                                               "The control index of a group's first slot.",
                                               "buttonsPerGroup", "theGroup"),
      Method<&T::AsButton>("AsButton", "The same object as a button. Error 13 for another object.", "obj"),
      Method<&T::BoxLong>("BoxLong", "A new box that holds the number.", "longValue"),
      Method<&T::UnboxLong>("UnboxLong", "The number in the box.", "boxed"),
      Method<&T::BoxString>("BoxString", "A new box that holds the text.", "stringValue"),
      Method<&T::UnboxString>("UnboxString", "The text in the box.", "boxed"),
      Method<&T::StringListFrom>("StringListFrom",
                                 "A new list of boxed texts, one for each element of the array.", "values"),
      Method<&T::ListFromSplitString>("ListFromSplitString",
                                      "A new list of boxed texts, one for each piece between the delimiters.",
                                      "source", "delim"),
      Get<&T::Version>("Version", "The library's version, major.minor.patch."),
      Method<&T::OpenTextFileForOutput>(
          "OpenTextFileForOutput",
          "Opens a new text file of delimited fields and answers its number, which SaveToFile, WriteToFile "
          "and "
          "CloseTextFile take. It takes the old file's place when it is closed.",
          "filename"),
      Method<&T::OpenTextFileForInput>("OpenTextFileForInput",
                                       "Opens a text file of delimited fields and answers its number, which "
                                       "LoadFromFile, ReadFromFile and "
                                       "CloseTextFile take.",
                                       "filename"),
      Method<&T::OpenTextFileForAppend>(
          "OpenTextFileForAppend", "As OpenTextFileForOutput, but writing goes on at the end of the file.",
          "filename"),
      Method<&T::CloseTextFile>(
          "CloseTextFile",
          "Completes the file open under the number. A number that nothing is open under is no failure.",
          "number"));
};

}  // namespace vestrel::component
