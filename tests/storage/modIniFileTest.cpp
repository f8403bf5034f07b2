#include <gtest/gtest.h>

#include <thread>

#include "core/Error.h"
#include "storage/modIniFile.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kFile = u"C:\\app\\x.ini";
constexpr std::u16string_view kLog = u"C:\\app\\log.txt";

class modIniFileTest : public test::TestPlatform {
 protected:
  void SetUp() override {
    files.PutFolder(u"C:\\app");
    modLog::Init(kLog);
  }
  static std::u16string Read(std::u16string_view key, std::u16string_view defaultValue = u"d") {
    return modIniFile::ReadIniString(kFile, u"s", key, defaultValue);
  }
  static void Write(std::u16string_view key, std::u16string value) {
    modIniFile::WriteIniString(kFile, u"s", key, &value);
  }
  int LogLines(std::string_view text) const {
    const std::string log = files.Get(kLog);
    int count = 0;
    for (std::size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++count;
    return count;
  }
};

struct DefaultRow {
  std::u16string_view given;
  std::u16string_view result;
};

TEST_F(modIniFileTest, DefaultsLoseTheirTrailingSpacesOnly) {
  const DefaultRow rows[] = {{u"d", u"d"}, {u"d  ", u"d"},       {u"  d", u"  d"}, {u"d\t", u"d\t"},
                             {u"  ", u""}, {u"\"d\"", u"\"d\""}, {u"", u""},       {u"d\r\n", u"d\r\n"}};
  for (const DefaultRow& row : rows) EXPECT_EQ(Read(u"k", row.given), row.result);
  for (const std::string_view text : {"[s]\r\n", "[t]\r\nk=1\r\n"}) {
    files.Put(kFile, text);
    for (const DefaultRow& row : rows) EXPECT_EQ(Read(u"k", row.given), row.result);
  }
}

TEST_F(modIniFileTest, AnEmptyValueIsNotTheDefault) {
  files.Put(kFile, "[s]\r\nk=\r\n");
  EXPECT_EQ(Read(u"k"), u"");
}

TEST_F(modIniFileTest, ValuesAndDefaultsAreCutAtTheBuffer) {
  for (const std::size_t length : {253U, 254U, 255U, 300U, 65535U, 65536U, 70000U}) {
    files.Put(kFile, "[s]\r\nk=" + std::string(length, 'x') + "\r\n");
    EXPECT_EQ(Read(u"k").size(), std::min<std::size_t>(length, 254)) << length;
    EXPECT_EQ(Read(u"none", std::u16string(length, u'x')).size(), std::min<std::size_t>(length, 254))
        << length;
  }
}

TEST_F(modIniFileTest, QuotesGoBeforeTheCut) {
  files.Put(kFile,
            "[s]\r\nfits=\"" + std::string(254, 'x') + "\"\r\nlong=\"" + std::string(300, 'y') + "\"\r\n");
  EXPECT_EQ(Read(u"fits"), std::u16string(254, u'x'));
  EXPECT_EQ(Read(u"long"), std::u16string(254, u'y'));
}

TEST_F(modIniFileTest, ACutNeverSplitsACharacter) {
  files.Put(kFile, "[s]\r\nk=" + std::string(253, 'x') + "\xC3\xA9\r\n");
  EXPECT_EQ(Read(u"k"), std::u16string(253, u'x'));
}

TEST_F(modIniFileTest, TextsPassThroughTheNarrowPage) {
  Write(u"k\u00E9", u"\u20AC");
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk\xC3\xA9=\xE2\x82\xAC\r\n");
  EXPECT_EQ(Read(u"k\u00E9"), u"\u20AC");
}

// Short names and values take a way of their own.
TEST_F(modIniFileTest, NamesAndValuesOfAnyLengthAndLetterComeBack) {
  for (const std::size_t length : {0U, 1U, 3U, 7U, 8U, 9U, 100U, 250U, 254U, 255U, 256U, 257U, 300U}) {
    for (const char16_t unit : {u'x', u'\u007F', u'\u0080', u'\u00E9', u'\u20AC'}) {
      const std::u16string text(length, unit);
      std::u16string value = text.substr(0, 80);
      modIniFile::WriteIniString(kFile, u"s" + text, u"k" + text, &value);
      EXPECT_EQ(modIniFile::ReadIniString(kFile, u"s" + text, u"k" + text, u"none"), value) << length;
      const std::u16string half = text.substr(0, length / 2);
      TextBuffer buffer;
      buffer.Append(u"before ");
      const KeptName section(u"s" + text);
      const KeptName prefix(u"k" + half);
      modIniFile::ReadIniText(kFile, {section, prefix, text.substr(half.size())}, u"none", buffer);
      EXPECT_EQ(buffer.view(), u"before " + value) << length;
    }
  }
}

TEST_F(modIniFileTest, APairOfUnitsIsOneCharacterWhereverANameIsDivided) {
  modIniFile::WriteIniText(kFile, {KeptName(u"s"), KeptName(u"k\xD83D"), u"\xDE00"}, u"1");
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk\xF0\x9F\x98\x80=1\r\n");
}

TEST_F(modIniFileTest, LostCharactersAreLoggedOnceForEachName) {
  const std::u16string odd = u"once " + std::u16string(1, char16_t{0xD800});
  Write(u"k", odd);
  Write(u"k", odd);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=once ?\r\n");
  EXPECT_EQ(LogLines("[Warning] the system's code page lacks characters of [once ?]"), 1);
}

TEST_F(modIniFileTest, AWarningOfLostCharactersThatCannotBeLoggedIsNoFailureAndComesLater) {
  const std::u16string odd = u"unlogged " + std::u16string(1, char16_t{0xD800});
  files.SetReadOnly(kLog, true);
  Write(u"k", odd);
  EXPECT_EQ(modIniFile::ReadIniString(kFile, u"s", odd, u"default"), u"default");
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=unlogged ?\r\n");
  files.SetReadOnly(kLog, false);
  Write(u"k", odd);
  EXPECT_EQ(LogLines("[Warning] the system's code page lacks characters of [unlogged ?]"), 1);
}

TEST_F(modIniFileTest, CharactersThatAReadLosesAreLoggedToo) {
  Read(u"read " + std::u16string(1, char16_t{0xD800}));
  EXPECT_EQ(LogLines("[Warning] the system's code page lacks characters of [read ?]"), 1);
}

TEST_F(modIniFileTest, NothingDeletesAndEmptyWritesEmpty) {
  Write(u"a", u"");
  Write(u"b", u"1");
  modIniFile::WriteIniString(kFile, u"s", u"b", nullptr);
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=\r\n");
}

TEST_F(modIniFileTest, BreaksBecomeBlanksInTheCallersTextAlone) {
  std::u16string value = u"\ra\n\r\nb";
  modIniFile::WriteIniString(kFile, u"s", u"k", &value);
  EXPECT_EQ(value, u" a   b");
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=\ra\n\r\nb\r\n");
}

TEST_F(modIniFileTest, AValueTooLongToCountIsRefusedWhole) {
  std::u16string value(32768, u'\n');
  EXPECT_RAISES(Error_Overflow, modIniFile::WriteIniString(kFile, u"s", u"k", &value));
  EXPECT_FALSE(files.Has(kFile));
  EXPECT_EQ(value[0], u'\n');
  value.pop_back();
  modIniFile::WriteIniString(kFile, u"s", u"k", &value);
  EXPECT_TRUE(files.Has(kFile));
}

TEST_F(modIniFileTest, EachReadSeesWhatOthersWrote) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  EXPECT_EQ(Read(u"k"), u"1");
  files.Put(kFile, "[s]\r\nk=2\r\n");
  EXPECT_EQ(Read(u"k"), u"2");
}

TEST_F(modIniFileTest, ReadersTakeTheLock) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.ForgetCalls();
  EXPECT_EQ(Read(u"k"), u"1");
  EXPECT_EQ(files.Calls("Lock"), 1);
}

TEST_F(modIniFileTest, WithoutALogNothingIsToldOfLostCharacters) {
  std::thread([this] {
    const platform::Override here({nullptr, &files, nullptr, nullptr});
    Write(u"k", u"no log " + std::u16string(1, char16_t{0xD800}));
  }).join();
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=no log ?\r\n");
}

TEST_F(modIniFileTest, FailedWritesAreNotReported) {
  files.FailEvery("Replace", platform::FileStatus::DiskFull);
  Write(u"k", u"1");
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(modIniFileTest, AFileThatCannotBeReadGivesDefaults) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  EXPECT_EQ(Read(u"k"), u"d");
  files.FailNothing();
  files.FailEvery("Open", platform::FileStatus::Busy);
  EXPECT_EQ(Read(u"k"), u"d");
  files.FailNothing();
  files.FailEvery("Lock", platform::FileStatus::IoError);
  EXPECT_EQ(Read(u"k"), u"1");
}

TEST_F(modIniFileTest, AReadOnlyFileIsReadAndNotWritten) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.SetReadOnly(kFile, true);
  Write(u"k", u"2");
  EXPECT_EQ(Read(u"k"), u"1");
}

TEST_F(modIniFileTest, AFolderOrAnEmptyNameIsNoFile) {
  for (const std::u16string_view name : {u"C:\\app", u""}) {
    std::u16string value = u"1";
    modIniFile::WriteIniString(name, u"s", u"k", &value);
    EXPECT_EQ(modIniFile::ReadIniString(name, u"s", u"k", u"d"), u"d");
  }
  EXPECT_EQ(files.Paths(), std::vector<std::u16string>{std::u16string(kLog)});
}

TEST_F(modIniFileTest, AValueLongerThanAReadIsWarnedOf) {
  modIniFile::WarnIfCutOnReading(kFile, u"s", u"list", std::u16string(254, u'1'));
  modIniFile::WarnIfCutOnReading(kFile, u"s", u"list", std::u16string(65, u'1') + u"\u00E9");
  EXPECT_EQ(LogLines("[Warning]"), 0);
  modIniFile::WarnIfCutOnReading(kFile, u"s", u"list", std::u16string(255, u'1'));
  modIniFile::WarnIfCutOnReading(kFile, u"s", u"list", std::u16string(130, u'\u00E9'));
  EXPECT_EQ(LogLines("[Warning] [s] list in [C:\\app\\x.ini] is longer than the 254 characters"), 2);
}

}  // namespace
}  // namespace vestrel
