#include "component/ValueArray.h"
#include "core/Version.h"
#include "tests/component/EveryOperation.h"

namespace vestrel::test {
namespace {

using component::Named;
using component::ValueArray;

EVERY_OPERATION_OF(clsLogger) {
  const Subject logger(u"clsLogger");
  logger.Call(u"Init", u"C:\\data\\own.txt");
  logger.Call(u"Log", u"plain");
  logger.Call(u"Log", u"hidden", LogLevel_4_SPEW);
  logger.Call(u"SetLevel", LogLevel_4_SPEW);
  logger.Call(u"Log", Named(u"level", 4), Named(u"text", u"shown"));
  const std::string bytes = files.Get(u"C:\\data\\own.txt");
  EXPECT_NE(bytes.find("[Info] plain\r\n[Spew] shown\r\n"), std::string::npos) << bytes;
}

EVERY_OPERATION_OF(VestrelStatic) {
  const Subject helper(u"VestrelStatic");
  EXPECT_EQ(helper.Get(u"NUM_TOP_BUTTONS").AsLong(), 32);
  helper.Put(u"NUM_TOP_BUTTONS", 33);
  EXPECT_EQ(helper.Number(u"NUM_TOP_BUTTONS"), 33);
  helper.Call(u"Init", u"C:\\data\\other.txt");
  helper.Call(u"SetLogLevel", LogLevel_2_WARNING);
  helper.Call(u"Log", u"hidden");
  helper.Call(u"Log", u"seen", LogLevel_1_SEVERE);
  helper.Item(u"GetLogger").Call(u"Log", u"too", 2);
  const std::string log = files.Get(u"C:\\data\\other.txt");
  EXPECT_NE(log.find("[Severe] seen\r\n[Warning] too\r\n"), std::string::npos) << log;
  EXPECT_TRUE(helper.Truth(u"IsSomething", Box(1)));
  EXPECT_FALSE(helper.Truth(u"IsSomething", nullptr));
  EXPECT_EQ(helper.Number(u"OneBasedMod", 5, 4), 1);
  EXPECT_EQ(helper.Error(u"OneBasedMod", 5, 0), 11);
  EXPECT_EQ(helper.Number(u"ZeroToOneBased", 4), 5);
  EXPECT_EQ(helper.Number(u"OneToZeroBased", 4), 3);
  EXPECT_EQ(helper.Error(u"Assert", true), 0);
  EXPECT_EQ(helper.Error(u"Assert", false), 7155);
  EXPECT_TRUE(helper.Truth(u"AreEqual", Box(2), Box(2)));
  EXPECT_TRUE(helper.Truth(u"NotEqual", Box(2), Box(3), u"all"));
  EXPECT_EQ(helper.Text(u"Basename", u"C:\\a\\b.txt"), u"b.txt");
  EXPECT_EQ(helper.Text(u"Basename", u"a/b", u"/"), u"b");
  EXPECT_EQ(helper.Text(u"RemoveFileExt", u"a.b.c"), u"a.b");
  files.Put(u"C:\\data\\Sequences\\Gala\\One\\pageSetting.ini", "");
  helper.Call(u"deleteINI", u"C:\\data", u"Gala", u"One");
  EXPECT_FALSE(files.Has(u"C:\\data\\Sequences\\Gala\\One\\pageSetting.ini"));
  EXPECT_EQ(helper.Number(u"globalToLocalControlIndex", 4, 37), 1);
  EXPECT_EQ(helper.Call(u"controlIndexFromButtonIndex", 4, 2, 7).AsLong(), 39);
  EXPECT_EQ(helper.Number(u"returnGroupFromPosition", 4, 64), 8);
  EXPECT_EQ(helper.Number(u"returnFirstPositionFromGroup", 4, 3), 41);
  const Subject button(u"clsButton");
  EXPECT_EQ(helper.Item(u"AsButton", button), button);
  EXPECT_EQ(helper.Error(u"AsButton", Box(1)), 13);
  EXPECT_EQ(helper.Number(u"UnboxLong", helper.Item(u"BoxLong", 12)), 12);
  EXPECT_EQ(helper.Text(u"UnboxString", helper.Item(u"BoxString", u"x")), u"x");
  auto array = MakeRef<ValueArray>();
  array->items = {Variant(1), Variant(u"two"), Variant(true), Variant(0.5)};
  EXPECT_EQ(Boxes(helper.Item(u"StringListFrom", Ref<Object>(array))), "1 two True 0.5");
  EXPECT_EQ(Boxes(helper.Item(u"ListFromSplitString", u"a||b", u"|")), "a  b");
  EXPECT_EQ(helper.Get(u"Version").AsString(), Version());
  const std::int32_t out = helper.Number(u"OpenTextFileForOutput", u"C:\\data\\text.txt");
  helper.Call(u"CloseTextFile", out);
  EXPECT_EQ(files.Get(u"C:\\data\\text.txt"), "");
  const std::int32_t more = helper.Number(u"OpenTextFileForAppend", u"C:\\data\\text.txt");
  EXPECT_EQ(more, out);
  EXPECT_EQ(helper.Error(u"OpenTextFileForInput", u"C:\\data\\text.txt"), 55);
  helper.Call(u"CloseTextFile", more);
  const std::int32_t in = helper.Number(u"OpenTextFileForInput", u"C:\\data\\text.txt");
  EXPECT_GE(in, 1);
  helper.Call(u"CloseTextFile", in);
  EXPECT_EQ(helper.Error(u"OpenTextFileForInput", u"C:\\data\\none.txt"), 53);
}

EVERY_OPERATION_OF(clsFormatCapture) {
  const Subject capture(u"clsFormatCapture");
  EXPECT_FALSE(capture.Truth(u"DoMatch", u"##.###", u"1.2345"));
  EXPECT_TRUE(capture.Truth(u"DoMatch", u"##.###", u"12.345"));
  auto targets = MakeRef<ValueArray>();
  targets->items = {Variant(), Variant(u"any")};
  EXPECT_TRUE(capture.Truth(u"ParseItems", Ref<Object>(targets)));
  EXPECT_EQ(targets->items[0].AsLong(), 12);
  EXPECT_EQ(targets->items[1].AsLong(), 345);
  targets->items.emplace_back(7);
  EXPECT_FALSE(capture.Truth(u"ParseItems", Ref<Object>(targets)));
  EXPECT_EQ(targets->items[2].AsLong(), 7);
}

EVERY_OPERATION_OF(clsFormatCaptureItem) {
  const Subject item(u"clsFormatCaptureItem");
  item.Put(u"strValue", u"007");
  EXPECT_EQ(item.Get(u"strValue").AsString(), u"007");
  item.Put(u"itemType", 5);
  EXPECT_EQ(item.Get(u"itemType").AsLong(), 5);
}

EVERY_OPERATION_OF(GlobalButtons) {
  const Subject state(u"GlobalButtons");
  EXPECT_FALSE(state.Get(u"LoggingEnabled").AsBoolean());
  state.Put(u"CountButton", true);
  EXPECT_TRUE(state.Get(u"CountButton").AsBoolean());
  state.Put(u"NewButton", u"New");
  EXPECT_EQ(state.Get(u"NewButton").AsString(), u"New");
  state.Put(u"LoggingEnabled", true);
  state.Call(u"setCaller", u"editor");
  state.Call(u"setButtonEditing", u"Intro");
  EXPECT_EQ(state.Text(u"getButtonEditing"), u"Intro");
  std::int32_t value = 10;
  for (const std::u16string name : {u"Index", u"Moving", u"X", u"Y", u"Down"}) {
    state.Call(u"setButton" + name, ++value);
    EXPECT_EQ(state.Number(u"getButton" + name), value);
  }
  const auto lines = LogLines();
  ASSERT_EQ(lines.size(), 13U);
  EXPECT_EQ(lines[0], "[Info] global buttons log: editor:");
  EXPECT_EQ(lines[1], "[Info] global buttons log:  - WRITE ButtonEditing (Intro)");
  EXPECT_EQ(lines[12], "[Info] global buttons log:  - READ ButtonDown (15)");
}

}  // namespace
}  // namespace vestrel::test
