// The operations of the static helpers and of the shared button state. Where a property would be read and
// written under one name, writing has the prefix Set.
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

namespace {

using Static = VestrelStatic;
using Globals = GlobalButtons;

std::int32_t TopButtons(CommandSession& session) {
  return session.statics().NUM_TOP_BUTTONS;
}

void SetTopButtons(CommandSession& session, std::int32_t value) {
  session.statics().NUM_TOP_BUTTONS = value;
}

}  // namespace

std::vector<Operation> StaticOperations() {
  return {
      Function<&TopButtons>("static.NUM_TOP_BUTTONS"),
      Function<&SetTopButtons>("static.SetNUM_TOP_BUTTONS", {In("value")}),
      Method<&Static::Init>("static.Init", {Path("logFilename")}),
      Method<&Static::SetLogLevel>("static.SetLogLevel", {In("level")}),
      Method<&Static::Log>("static.Log", {In("text"), Optional("level", "LogLevel_3_INFO")}),
      Method<&Static::GetLogger>("static.GetLogger"),
      Method<&Static::IsSomething>("static.IsSomething", {In("value")}),
      Method<&Static::OneBasedMod>("static.OneBasedMod", {In("value"), In("modValue")}),
      Method<&Static::ZeroToOneBased>("static.ZeroToOneBased", {In("index")}),
      Method<&Static::OneToZeroBased>("static.OneToZeroBased", {In("index")}),
      Method<&Static::Assert>("static.Assert", {In("isTrue")}),
      Method<&Static::AreEqual>("static.AreEqual", {In("a"), In("b"), Optional("field", "all")}),
      Method<&Static::NotEqual>("static.NotEqual", {In("a"), In("b"), Optional("field", "all")}),
      Method<&Static::Basename>("static.Basename", {In("filename"), Optional("delim", "\\")}),
      Method<&Static::RemoveFileExt>("static.RemoveFileExt", {In("filename")}),
      Method<&Static::deleteINI>("static.deleteINI", {Path("appPath"), In("showName"), In("pageName")}),
      Method<&Static::globalToLocalControlIndex>("static.globalToLocalControlIndex",
                                                 {In("buttonsPerGroup"), In("controlIndex")}),
      Method<&Static::controlIndexFromButtonIndex>(
          "static.controlIndexFromButtonIndex", {In("buttonsPerGroup"), In("groupIndex"), In("buttonIndex")}),
      Method<&Static::returnGroupFromPosition>("static.returnGroupFromPosition",
                                               {In("buttonsPerGroup"), In("thePosition")}),
      Method<&Static::returnFirstPositionFromGroup>("static.returnFirstPositionFromGroup",
                                                    {In("buttonsPerGroup"), In("theGroup")}),
      Method<&Static::AsButton>("static.AsButton", {In("obj")}),
      Method<&Static::BoxLong>("static.BoxLong", {In("longValue")}),
      Method<&Static::UnboxLong>("static.UnboxLong", {In("boxed")}),
      Method<&Static::BoxString>("static.BoxString", {In("stringValue")}),
      Method<&Static::UnboxString>("static.UnboxString", {In("boxed")}),
      Method<&Static::StringListFrom>("static.StringListFrom", {In("values")}),
      Method<&Static::ListFromSplitString>("static.ListFromSplitString", {In("source"), In("delim")}),
      Method<&Static::Version>("static.Version"),
      Method<&Static::OpenTextFileForOutput>("static.OpenTextFileForOutput", {Path("filename")}),
      Method<&Static::OpenTextFileForInput>("static.OpenTextFileForInput", {Path("filename")}),
      Method<&Static::OpenTextFileForAppend>("static.OpenTextFileForAppend", {Path("filename")}),
      Method<&Static::CloseTextFile>("static.CloseTextFile", {In("number")}),
  };
}

std::vector<Operation> GlobalOperations() {
  return {
      Method<&Globals::LoggingEnabled>("global.LoggingEnabled"),
      Method<&Globals::SetLoggingEnabled>("global.SetLoggingEnabled", {In("value")}),
      Method<&Globals::CountButton>("global.CountButton"),
      Method<&Globals::SetCountButton>("global.SetCountButton", {In("value")}),
      Method<&Globals::NewButton>("global.NewButton"),
      Method<&Globals::SetNewButton>("global.SetNewButton", {In("value")}),
      Method<&Globals::setCaller>("global.setCaller", {In("name")}),
      Method<&Globals::getButtonEditing>("global.getButtonEditing"),
      Method<&Globals::setButtonEditing>("global.setButtonEditing", {In("value")}),
      Method<&Globals::getButtonIndex>("global.getButtonIndex"),
      Method<&Globals::setButtonIndex>("global.setButtonIndex", {In("value")}),
      Method<&Globals::getButtonMoving>("global.getButtonMoving"),
      Method<&Globals::setButtonMoving>("global.setButtonMoving", {In("value")}),
      Method<&Globals::getButtonX>("global.getButtonX"),
      Method<&Globals::setButtonX>("global.setButtonX", {In("value")}),
      Method<&Globals::getButtonY>("global.getButtonY"),
      Method<&Globals::setButtonY>("global.setButtonY", {In("value")}),
      Method<&Globals::getButtonDown>("global.getButtonDown"),
      Method<&Globals::setButtonDown>("global.setButtonDown", {In("value")}),
  };
}

}  // namespace vestrel::workbench
