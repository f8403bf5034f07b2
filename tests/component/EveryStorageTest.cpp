#include "tests/component/EveryOperation.h"

namespace vestrel::test {
namespace {

using component::ByRef;
using component::Named;

EVERY_OPERATION_OF(clsIniFile) {
  const Subject ini(u"clsIniFile");
  EXPECT_FALSE(ini.Truth(u"IsSet"));
  ini.Call(u"UseFile", u"C:\\data\\a.ini");
  EXPECT_TRUE(ini.Truth(u"IsSet"));
  EXPECT_EQ(ini.Get(u"filename").AsString(), u"C:\\data\\a.ini");
  ini.Call(u"UseSection", u"S");
  ini.Call(u"UseKeyPrefix", u"P");
  ini.Call(u"WriteLong", u"n", -7);
  Variant text = u"some text";
  ini.Call(u"WriteString", u"t", ByRef(text));
  ini.Call(u"WriteBool", u"b", true);
  EXPECT_EQ(files.Get(u"C:\\data\\a.ini"), "[S]\r\nP_n=-7\r\nP_t=some text\r\nP_b=True\r\n");
  EXPECT_EQ(ini.Number(u"ReadLong", u"n", 1), -7);
  EXPECT_EQ(ini.Text(u"ReadString", u"t", u""), u"some text");
  EXPECT_TRUE(ini.Truth(u"ReadBool", u"b", false));
  // The argument is named "default", whatever the interface text has to call it.
  EXPECT_EQ(ini.Number(u"ReadLong", Named(u"default", 5), Named(u"key", u"absent")), 5);
  EXPECT_EQ(ini.Text(u"ReadString", u"absent", Named(u"Default", u"d")), u"d");
  EXPECT_TRUE(ini.Truth(u"ReadBool", u"absent", Named(u"DEFAULT", true)));
  ini.Call(u"DeleteKey", u"n");
  EXPECT_EQ(ini.Number(u"ReadLong", u"n", 1), 1);
  EXPECT_TRUE(ini.Truth(u"TestWritable"));
}

Subject Sequence() {
  Subject sequence(u"clsSequence");
  sequence.Put(u"theName", u"Intro, slow");
  sequence.Put(u"myMulti", u"M");
  sequence.Put(u"myPlayback", -3);
  sequence.Put(u"myButtonGroup", u"G");
  sequence.Put(u"releaseActive", true);
  sequence.Put(u"isRunning", false);
  sequence.Put(u"timeBool", true);
  sequence.Put(u"beatBool", false);
  sequence.Put(u"theBeat", 0.5);
  sequence.Put(u"theTime", 12.25);
  sequence.Put(u"mySequenceType", 4);
  sequence.Put(u"currentX", -1.5);
  sequence.Put(u"currentY", 100);
  sequence.Put(u"tag", u"t");
  sequence.Put(u"seqType", 5);
  sequence.Put(u"myPage", u"One");
  return sequence;
}

constexpr const char* kLine =
    "\"Intro, slow\",\"M\",-3,\"G\",#TRUE#,#FALSE#,#TRUE#,#FALSE#,0.5,12.25,4,-1.5,100,\"t\",5\r\n";

EVERY_OPERATION_OF(clsSequence) {
  const Subject helper(u"VestrelStatic");
  const Subject sequence = Sequence();
  const std::int32_t out = helper.Number(u"OpenTextFileForOutput", u"C:\\data\\line.txt");
  sequence.Call(u"SaveToFile", out);
  helper.Call(u"CloseTextFile", out);
  EXPECT_EQ(files.Get(u"C:\\data\\line.txt"), kLine);
  const Subject read(u"clsSequence");
  const std::int32_t in = helper.Number(u"OpenTextFileForInput", u"C:\\data\\line.txt");
  read.Call(u"LoadFromFile", in, 1, 1);
  EXPECT_EQ(read.Error(u"LoadFromFile", in, 1, 1), 62);
  helper.Call(u"CloseTextFile", in);
  EXPECT_EQ(read.Error(u"LoadFromFile", in, 1, 1), 52);
  EXPECT_EQ(sequence.Error(u"SaveToFile", out), 52);
  EXPECT_EQ(read.Get(u"theName").AsString(), u"Intro, slow");
  EXPECT_EQ(read.Get(u"myMulti").AsString(), u"M");
  EXPECT_EQ(read.Get(u"myPlayback").AsLong(), -3);
  EXPECT_EQ(read.Get(u"myButtonGroup").AsString(), u"G");
  EXPECT_TRUE(read.Get(u"releaseActive").AsBoolean());
  EXPECT_FALSE(read.Get(u"isRunning").AsBoolean());
  EXPECT_TRUE(read.Get(u"timeBool").AsBoolean());
  EXPECT_FALSE(read.Get(u"beatBool").AsBoolean());
  EXPECT_EQ(read.Get(u"theBeat").AsDouble(), 0.5);
  EXPECT_EQ(read.Get(u"theTime").AsDouble(), 12.25);
  EXPECT_EQ(read.Get(u"mySequenceType").AsLong(), 4);
  EXPECT_EQ(read.Get(u"currentX").AsDouble(), -1.5);
  EXPECT_EQ(read.Get(u"currentY").AsDouble(), 100);
  EXPECT_EQ(read.Get(u"tag").AsString(), u"t");
  EXPECT_EQ(read.Get(u"seqType").AsLong(), 5);
  EXPECT_EQ(read.Get(u"myPage").AsString(), u"");
  read.Put(u"myPage", u"Two");
  EXPECT_EQ(read.Get(u"myPage").AsString(), u"Two");
}

EVERY_OPERATION_OF(clsMultiFile) {
  constexpr const char16_t* kFile = u"C:\\data\\Sequences\\Gala\\One\\Multi.MUL";
  files.PutFolder(u"C:\\data\\Sequences\\Gala\\One");
  const Subject multi(u"clsMultiFile");
  multi.Call(u"Init", u"C:\\data", u"Gala", u"One", u"Multi");
  multi.Call(u"AddSequence", Sequence());
  EXPECT_EQ(Subject(multi.Get(u"SequenceList").AsObject()).Number(u"Size"), 1);
  multi.Call(u"Save");
  EXPECT_EQ(files.Get(kFile), std::string("1,1\r\n1\r\n") + kLine);
  const Subject again(u"clsMultiFile");
  again.Call(u"Init", Named(u"buttonName", u"Multi"), Named(u"pageName", u"One"), Named(u"showName", u"Gala"),
             Named(u"appPath", u"C:\\data"));
  again.Call(u"Load");
  const Subject read = again.Item(u"SequenceList").Item(u"GetItem", 0);
  EXPECT_EQ(read.Text(u"theName"), u"Intro, slow");
  EXPECT_EQ(read.Text(u"myPage"), u"One");
  files.Put(u"C:\\data\\Sequences\\Gala\\One\\Intro, slow.ASQ", "");
  again.Call(u"Delete");
  EXPECT_FALSE(files.Has(kFile));
  EXPECT_TRUE(files.Has(u"C:\\data\\Sequences\\Gala\\One\\Intro, slow.ASQ"));
  again.Call(u"Delete", true);
  EXPECT_FALSE(files.Has(u"C:\\data\\Sequences\\Gala\\One\\Intro, slow.ASQ"));
  EXPECT_EQ(again.Error(u"Load"), 53);
}

}  // namespace
}  // namespace vestrel::test
