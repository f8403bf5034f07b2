#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "core/Error.h"
#include "storage/TextFile.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TempFolder.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

using platform::FileStatus;

constexpr std::u16string_view kFile = u"C:\\app\\take.txt";

class TextFileTest : public test::TestPlatform {
 protected:
  void SetUp() override { files.PutFolder(u"C:\\app"); }
  void TearDown() override {
    for (int number = 1; number <= 4; ++number) TextFile::Abandon(number);
    EXPECT_EQ(files.OpenFiles(), 0);
  }
  TextInput& Reading(std::string_view bytes) {
    TextFile::Close(1);
    files.Put(kFile, bytes);
    TextFile::Open(1, kFile, TextFile::Mode::Input);
    return TextFile::Input(1);
  }
  static std::u16string Description(const std::function<void()>& operation) {
    try {
      operation();
    } catch (const Error& error) {
      return error.description();
    }
    return u"no error";
  }
};

TEST_F(TextFileTest, WritesFieldsAndLines) {
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  TextOutput& out = TextFile::Output(1);
  out.WriteText(u"a, b");
  out.WriteLong(-12);
  out.WriteBoolean(true);
  out.WriteBoolean(false);
  out.EndLine();
  out.WriteSingle(0.1F);
  out.WriteSingle(100.0F);
  out.WriteSingle(-2.5F);
  out.EndLine();
  out.WriteLine(u"as it is, \"plain\"");
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "\"a, b\",-12,#TRUE#,#FALSE#\r\n0.1,100,-2.5\r\nas it is, \"plain\"\r\n");
}

TEST_F(TextFileTest, ReadsBackWhatItWrote) {
  const float floats[] = {
      0.0F, 1.0F / 3, 1e-20F, 3.4028235e38F, 16777217.0F, -1e10F, std::numeric_limits<float>::denorm_min()};
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  for (const float value : floats) TextFile::Output(1).WriteSingle(value);
  TextFile::Output(1).EndLine();
  TextFile::Output(1).WriteText(u"\u00E4\r\n, \U0001F4A1");
  TextFile::Output(1).WriteLong(std::numeric_limits<std::int32_t>::min());
  TextFile::Output(1).EndLine();
  TextFile::Close(1);
  TextFile::Open(1, kFile, TextFile::Mode::Input);
  for (const float value : floats) EXPECT_EQ(TextFile::Input(1).ReadSingle(), value);
  EXPECT_EQ(TextFile::Input(1).ReadText(), u"\u00E4\r\n, \U0001F4A1");
  EXPECT_EQ(TextFile::Input(1).ReadLong(), std::numeric_limits<std::int32_t>::min());
}

TEST_F(TextFileTest, WritesNumbersAsTheShortestTextThatReadsBack) {
  const struct {
    float value;
    std::string_view text;
  } rows[] = {{0.00001F, "0.00001"},
              {0.000001F, "1E-06"},
              {16777216.0F, "16777216"},
              {1e14F, "100000000000000"},
              {1e20F, "1E+20"},
              {-1.5e-20F, "-1.5E-20"},
              {-0.0F, "0"}};
  for (const auto& row : rows) {
    TextFile::Open(1, kFile, TextFile::Mode::Output);
    TextFile::Output(1).WriteSingle(row.value);
    TextFile::Close(1);
    EXPECT_EQ(files.Get(kFile), row.text);
  }
}

TEST_F(TextFileTest, WhatIsNoNumberCannotBeReadBack) {
  for (const float value :
       {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    TextFile::Open(1, kFile, TextFile::Mode::Output);
    TextFile::Output(1).WriteSingle(value);
    TextFile::Close(1);
    EXPECT_EQ(files.Get(kFile), value == value ? "inf" : "nan");
    EXPECT_RAISES(Error_TypeMismatch, Reading(files.Get(kFile)).ReadSingle());
    TextFile::Close(1);
  }
}

struct TextRow {
  const char* rule;
  std::string_view bytes;
  std::vector<std::u16string> fields;
};

const TextRow kTextRows[] = {
    {"quoted texts hold commas", "\"a,b\",\"c\"\r\n", {u"a,b", u"c"}},
    {"blanks before a field are passed over", "  \"a\" , \t\"b\"", {u"a", u"b"}},
    {"fields go on in the next line", "\"a\"\r\n\"b\"\r\n", {u"a", u"b"}},
    {"LF and CR end lines as well", "\"a\"\n\"b\"\r\"c\"", {u"a", u"b", u"c"}},
    {"empty lines are passed over", "\r\n\r\n\"a\"\r\n\r\n\"b\"", {u"a", u"b"}},
    {"plain texts end at a comma or line end", "one two,three\r\nfour", {u"one two", u"three", u"four"}},
    {"plain texts keep their trailing blanks", "one \t,two ", {u"one \t", u"two "}},
    {"nulls and end-of-file marks are text", std::string_view("a\0b,\"c\x1A\"", 8), {{u"a\0b", 3}, u"c\x1A"}},
    {"quotes inside a plain text are text", "a\"b\",c", {u"a\"b\"", u"c"}},
    {"empty quotes are an empty text", "\"\",\"a\"", {u"", u"a"}},
    {"so is nothing between commas", ",,a", {u"", u"", u"a"}},
    {"line ends inside quotes belong to the text", "\"a\r\nb\"", {u"a\r\nb"}},
    {"what follows a closing quote is the next field", "\"a\"b,c", {u"a", u"b", u"c"}},
};

TEST_F(TextFileTest, ReadsTextsByTheRules) {
  for (const TextRow& row : kTextRows) {
    TextInput& in = Reading(row.bytes);
    for (const std::u16string& field : row.fields) EXPECT_EQ(in.ReadText(), field) << row.rule;
    EXPECT_RAISES(Error_InputPastEnd, in.ReadText()) << row.rule;
  }
}

struct NumberRow {
  std::string_view bytes;
  std::int32_t value;
  std::int32_t error;
};

const NumberRow kNumberRows[] = {
    {"12", 12, 0},
    {" -12\r\n", -12, 0},
    {"+7,8", 7, 0},
    {"1 2", 1, 0},
    {"2.5", 2, 0},
    {"3.5", 4, 0},
    {"1e3", 1000, 0},
    {"\"12\"", 12, 0},
    {",5", 0, 0},
    {"#TRUE#", -1, 0},
    {"#False#", 0, 0},
    {"2147483647", 2147483647, 0},
    {"2147483648", 0, Error_Overflow},
    {"x", 0, Error_TypeMismatch},
    {"1x", 0, Error_TypeMismatch},
    {"#NULL#", 0, Error_TypeMismatch},
    {"", 0, Error_InputPastEnd},
    {" \r\n ", 0, Error_InputPastEnd},
};

TEST_F(TextFileTest, ReadsNumbersByTheRules) {
  for (const NumberRow& row : kNumberRows) {
    TextInput& in = Reading(row.bytes);
    std::int32_t value = 0;
    EXPECT_RAISES(row.error, value = in.ReadLong()) << row.bytes;
    EXPECT_EQ(value, row.value) << row.bytes;
  }
  EXPECT_EQ(Reading("-32768").ReadShort(), -32768);
  EXPECT_RAISES(Error_Overflow, Reading("32768").ReadShort());
  EXPECT_EQ(Reading("1.5").ReadSingle(), 1.5F);
}

TEST_F(TextFileTest, ReadsBooleansByTheRules) {
  EXPECT_TRUE(Reading("#TRUE#").ReadBoolean());
  EXPECT_FALSE(Reading("#FALSE#").ReadBoolean());
  EXPECT_TRUE(Reading("true").ReadBoolean());
  EXPECT_TRUE(Reading("2").ReadBoolean());
  EXPECT_FALSE(Reading("0").ReadBoolean());
  EXPECT_FALSE(Reading(",").ReadBoolean());
  EXPECT_RAISES(Error_TypeMismatch, Reading("yes").ReadBoolean());
}

TEST_F(TextFileTest, ABlankDividesNumbers) {
  TextInput& in = Reading("1 2 , 3\r\n");
  EXPECT_EQ(in.ReadLong(), 1);
  EXPECT_EQ(in.ReadLong(), 2);
  EXPECT_EQ(in.ReadLong(), 3);
}

TEST_F(TextFileTest, AFailureNamesFileAndLine) {
  TextInput& in = Reading("1\r\n\n2\rx,\r\n");
  in.ReadLong();
  in.ReadLong();
  EXPECT_EQ(Description([&] { in.ReadLong(); }), u"Type mismatch: C:\\app\\take.txt, line 4");
  EXPECT_EQ(Description([&] { Reading("\"a").ReadText(); }),
            u"Input past end of file: C:\\app\\take.txt, line 1");
}

TEST_F(TextFileTest, FieldsMayCrossTheChunksItReads) {
  std::string bytes;
  for (int i = 0; i < 30000; ++i)
    bytes += "\"name " + std::to_string(i) + "\",-" + std::to_string(i) + "\r\n";
  TextInput& in = Reading(bytes);
  for (int i = 0; i < 30000; ++i) {
    const std::u16string text = in.ReadText();
    ASSERT_EQ(text.size(), 5 + std::to_string(i).size());
    ASSERT_EQ(in.ReadLong(), -i);
  }
  EXPECT_RAISES(Error_InputPastEnd, in.ReadLong());
}

TEST_F(TextFileTest, WholeLinesCanBeTakenFromTheBytes) {
  const std::string first(200000, 'x');
  TextInput& in = Reading(first + "\r\n" + "1,2\r\n3");
  ASSERT_GE(in.AheadToLineEnd().size(), first.size() + 2);
  EXPECT_EQ(in.AheadToLineEnd().substr(0, first.size()), first);
  in.TakeLine(first.size() + 2);
  EXPECT_EQ(in.AheadToLineEnd().substr(0, 5), "1,2\r\n");
  EXPECT_EQ(in.ReadLong(), 1);
  EXPECT_EQ(in.ReadLong(), 2);
  EXPECT_EQ(in.AheadToLineEnd(), "3");
  in.TakeLine(1);
  EXPECT_EQ(in.AheadToLineEnd(), "");
  EXPECT_EQ(Description([&] { in.Fail(Error_TypeMismatch); }), u"Type mismatch: C:\\app\\take.txt, line 4");
}

TEST_F(TextFileTest, WholeLinesAreThoseOfTheBytesAtHand) {
  TextInput& in = Reading("1\r\n2\n3");
  EXPECT_EQ(in.WholeLines(), "");
  in.AheadToLineEnd();
  EXPECT_EQ(in.WholeLines(), "1\r\n2\n");
  in.TakeLine(3);
  EXPECT_EQ(in.WholeLines(), "2\n");
  in.TakeLine(2);
  EXPECT_EQ(in.WholeLines(), "");
  EXPECT_EQ(in.ReadLong(), 3);
  EXPECT_EQ(in.WholeLines(), "");
}

TEST_F(TextFileTest, LinesMayEndInEitherByteAlone) {
  for (const std::string_view bytes : {"1\n2\n", "1\r2\r3"}) {
    TextInput& in = Reading(bytes);
    EXPECT_EQ(in.AheadToLineEnd(), bytes);
    in.TakeLine(2);
    EXPECT_EQ(in.ReadLong(), 2);
  }
}

TEST_F(TextFileTest, TheLastLineNeedsNoEnd) {
  TextInput& in = Reading("12");
  EXPECT_EQ(in.AheadToLineEnd(), "12");
  EXPECT_EQ(in.ReadLong(), 12);
}

TEST_F(TextFileTest, ADiskThatFailsWhileReadingIsAnError) {
  TextInput& in = Reading("1\r\n");
  files.FailEvery("ReadAt", FileStatus::IoError);
  EXPECT_RAISES(Error_DeviceIO, in.ReadLong());
}

TEST_F(TextFileTest, AFileThatIsReadTakesNothing) {
  Reading("1\r\n");
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Output(1));
}

TEST_F(TextFileTest, ALineEndMayLieAcrossTheChunksItReads) {
  for (const std::size_t chunk : {65536U, 131072U}) {
    for (std::size_t length = chunk - 3; length <= chunk + 1; ++length) {
      TextInput& in = Reading(std::string(length, 'x') + "\r\n1\r\n");
      EXPECT_GE(in.AheadToLineEnd().size(), length + 2) << length;
      in.TakeLine(length + 2);
      EXPECT_EQ(in.AheadToLineEnd(), "1\r\n") << length;
    }
  }
}

TEST_F(TextFileTest, WholeLinesCanBeWrittenAsBytes) {
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const std::string line = std::to_string(i) + "\r\n";
    expected += line;
    char* const room = TextFile::Output(1).Room(64);
    TextFile::Output(1).Written(std::copy(line.begin(), line.end(), room));
  }
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), expected);
  EXPECT_LT(files.Calls("WriteAt"), 4);
}

TEST_F(TextFileTest, NumbersAreGivenOutFromOneOn) {
  EXPECT_EQ(TextFile::FreeNumber(), 1);
  TextFile::Open(1, u"C:\\app\\1", TextFile::Mode::Output);
  TextFile::Open(3, u"C:\\app\\3", TextFile::Mode::Output);
  EXPECT_EQ(TextFile::FreeNumber(), 2);
  TextFile::Close(1);
  EXPECT_EQ(TextFile::FreeNumber(), 1);
}

TEST_F(TextFileTest, AllNumbersCanBeTaken) {
  files.Put(kFile, "1");
  for (int number = 1; number <= 511; ++number) TextFile::Open(number, kFile, TextFile::Mode::Input);
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::FreeNumber());
  for (int number = 1; number <= 511; ++number) TextFile::Close(number);
}

TEST_F(TextFileTest, OpeningFailsWithTheClassicNumbers) {
  using TextFile::Mode;
  files.Put(u"C:\\app\\locked.txt", "");
  files.SetReadOnly(u"C:\\app\\locked.txt", true);
  TextFile::Open(1, kFile, Mode::Output);
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(0, u"C:\\app\\x", Mode::Output));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(512, u"C:\\app\\x", Mode::Output));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(2, u"", Mode::Input));
  EXPECT_RAISES(Error_FileAlreadyOpen, TextFile::Open(1, u"C:\\app\\x", Mode::Output));
  EXPECT_RAISES(Error_FileAlreadyOpen, TextFile::Open(2, kFile, Mode::Output));
  EXPECT_RAISES(Error_FileAlreadyOpen, TextFile::Open(2, kFile, Mode::Input));
  EXPECT_RAISES(Error_FileNotFound, TextFile::Open(2, u"C:\\app\\none", Mode::Input));
  EXPECT_RAISES(Error_PathNotFound, TextFile::Open(2, u"C:\\none\\x", Mode::Input));
  EXPECT_RAISES(Error_PathNotFound, TextFile::Open(2, u"C:\\none\\x", Mode::Output));
  EXPECT_RAISES(Error_PathFileAccess, TextFile::Open(2, u"C:\\app", Mode::Output));
  EXPECT_RAISES(Error_PathFileAccess, TextFile::Open(2, u"C:\\app\\locked.txt", Mode::Output));
  EXPECT_RAISES(Error_PathFileAccess, TextFile::Open(2, u"C:\\app\\locked.txt", Mode::Append));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Output(2));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Input(1));
}

TEST(TextFileOnDiskTest, KeepsPermissions) {
  const test::TempFolder folder;
  folder.Put("take.txt", "old");
  chmod(folder.Real("take.txt").c_str(), 0640);
  TextFile::Open(1, folder.Path("take.txt"), TextFile::Mode::Output);
  TextFile::Close(1);
  EXPECT_EQ(folder.Get("take.txt"), "");
  struct stat data {};
  stat(folder.Real("take.txt").c_str(), &data);
  EXPECT_EQ(data.st_mode & 0777U, 0640U);
}

TEST(TextFileOnDiskTest, ANullInAPathIsRefused) {
  const test::TempFolder folder;
  const std::u16string path = folder.Path("take") + std::u16string(1, u'\0') + u".txt";
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(1, path, TextFile::Mode::Output));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(1, path, TextFile::Mode::Append));
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Open(1, path, TextFile::Mode::Input));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Real()));
}

TEST_F(TextFileTest, AnotherWritersFileIsRefusedNotWaitedFor) {
  const TextOutput other(kFile, TextOutput::Kind::New);
  EXPECT_RAISES(Error_PermissionDenied, TextFile::Open(1, kFile, TextFile::Mode::Output));
}

TEST_F(TextFileTest, TheOldFileStaysUntilTheNewOneIsClosed) {
  files.Put(kFile, "old");
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  TextFile::Output(1).WriteLine(u"new");
  EXPECT_EQ(files.Get(kFile), "old");
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "new\r\n");
  EXPECT_EQ(files.Paths().size(), 1U);
  EXPECT_EQ(files.Calls("Sync"), 1);
  EXPECT_EQ(files.Calls("SyncDirectory"), 1);
}

TEST_F(TextFileTest, LetsGoOfTheOldFileBeforeReplacingIt) {
  files.SetReplacesOpenFiles(false);
  files.Put(kFile, "old");
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "");
}

TEST_F(TextFileTest, AnAbandonedFileNeverWas) {
  files.Put(kFile, "old");
  {
    const TextFile::Opened opened(kFile, TextFile::Mode::Output);
    TextFile::Output(opened.number()).WriteLine(u"new");
  }
  EXPECT_EQ(files.Get(kFile), "old");
  EXPECT_EQ(files.Paths().size(), 1U);
  EXPECT_EQ(TextFile::FreeNumber(), 1);
}

TEST_F(TextFileTest, AppendingWritesBehindWhatIsThere) {
  files.Put(kFile, "one\r\n");
  TextFile::Open(1, kFile, TextFile::Mode::Append);
  TextFile::Output(1).WriteLine(u"two");
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "one\r\ntwo\r\n");
}

TEST_F(TextFileTest, AFailureAtTheEndOfAppendingIsRaised) {
  TextFile::Open(1, kFile, TextFile::Mode::Append);
  files.FailEvery("Close", FileStatus::DiskFull);
  EXPECT_RAISES(Error_DiskFull, TextFile::Close(1));
  EXPECT_EQ(TextFile::FreeNumber(), 1);
}

TEST_F(TextFileTest, LostCharactersAreLoggedWhenTheFileIsClosed) {
  modLog::Init(u"C:\\app\\log.txt");
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  TextFile::Output(1).WriteText(u"a take " + std::u16string(1, char16_t{0xD800}));
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "\"a take ?\"");
  EXPECT_NE(
      files.Get(u"C:\\app\\log.txt").find("[Warning] the system's code page lacks characters of [a take ?]"),
      std::string::npos);
}

TEST_F(TextFileTest, AFileThatIsReadStaysWholeWhenItIsReplaced) {
  files.Put(kFile, "1,2");
  TextFile::Open(1, kFile, TextFile::Mode::Input);
  EXPECT_EQ(TextFile::Input(1).ReadLong(), 1);
  TextOutput out(kFile, TextOutput::Kind::New);
  out.WriteLong(9);
  out.Close();
  EXPECT_EQ(TextFile::Input(1).ReadLong(), 2);
}

// Every call of a save fails in turn, once and from then on: the error is raised, the number is free again,
// and the file holds the old text - or, where only its name could not be forced to the disk, the new one
// whole.
TEST_F(TextFileTest, AFailingSaveLeavesTheOldFile) {
  for (const bool always : {false, true}) {
    for (int nth = 1; nth < 100; ++nth) {
      files.Put(kFile, "old");
      files.FailCall(nth, FileStatus::DiskFull, always);
      const std::int32_t error = test::RaisedNumber([&] {
        TextFile::Opened opened(kFile, TextFile::Mode::Output);
        TextFile::Output(opened.number()).WriteLine(u"new");
        opened.Close();
      });
      const bool onlyTheNameUnsure = files.Calls("SyncDirectory") > 0;
      const bool failed = files.Calls() >= nth;
      files.FailNothing();
      EXPECT_EQ(files.OpenFiles(), 0) << nth;
      EXPECT_EQ(TextFile::FreeNumber(), 1) << nth;
      if (!failed) {
        EXPECT_EQ(error, 0);
        break;
      }
      EXPECT_EQ(files.Get(kFile), onlyTheNameUnsure ? "new\r\n" : "old") << nth;
      EXPECT_EQ(error, Error_DiskFull) << nth;
    }
  }
}

TEST_F(TextFileTest, ShortAndInterruptedWritesAreContinued) {
  files.LimitWrites(3);
  files.FailCall(6, FileStatus::Interrupted);
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  TextFile::Output(1).WriteLine(u"a long line of text");
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "a long line of text\r\n");
}

TEST_F(TextFileTest, AFailedWriteIsNotPutInPlaceByClosing) {
  files.Put(kFile, "old");
  TextFile::Open(1, kFile, TextFile::Mode::Output);
  files.FailEvery("WriteAt", FileStatus::DiskFull);
  const std::u16string block(100000, u'x');
  EXPECT_RAISES(Error_DiskFull, TextFile::Output(1).WriteLine(block));
  files.FailNothing();
  EXPECT_RAISES(Error_DeviceIO, TextFile::Output(1).WriteLine(block));
  TextFile::Close(1);
  EXPECT_EQ(files.Get(kFile), "old");
}

}  // namespace
}  // namespace vestrel
