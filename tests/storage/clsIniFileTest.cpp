#include <gtest/gtest.h>

#include "core/Error.h"
#include "storage/clsIniFile.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kFile = u"C:\\app\\page.ini";
constexpr std::u16string_view kLog = u"C:\\app\\log.txt";

class clsIniFileTest : public test::TestPlatform {
 protected:
  void SetUp() override {
    files.PutFolder(u"C:\\app");
    modLog::Init(kLog);
    ini->UseFile(kFile);
    ini->UseSection(u"S");
  }
  std::int32_t ErrorOfReadLong(std::u16string_view key) {
    try {
      ini->ReadLong(key, 0);
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  }

  Ref<clsIniFile> ini = MakeRef<clsIniFile>();
};

TEST_F(clsIniFileTest, IsUnboundUntilUseFile) {
  const Ref<clsIniFile> fresh = MakeRef<clsIniFile>();
  EXPECT_FALSE(fresh->IsSet());
  EXPECT_EQ(fresh->filename(), u"");
  fresh->WriteLong(u"k", 1);
  EXPECT_EQ(fresh->ReadString(u"k", u"d"), u"d");
  EXPECT_EQ(files.Paths(), std::vector<std::u16string>{std::u16string(kLog)});
  fresh->UseFile(u"C:\\app\\x.ini");
  EXPECT_TRUE(fresh->IsSet());
  EXPECT_EQ(fresh->filename(), u"C:\\app\\x.ini");
}

TEST_F(clsIniFileTest, PutsPrefixAndUnderscoreBeforeKeysUntilTheSectionChanges) {
  ini->UseSection(u"R");
  ini->UseKeyPrefix(u"Grp");
  ini->WriteLong(u"x", 5);
  ini->UseSection(u"S");
  ini->WriteLong(u"x", 5);
  EXPECT_EQ(files.Get(kFile), "[R]\r\nGrp_x=5\r\n[S]\r\nx=5\r\n");
}

TEST_F(clsIniFileTest, UseFileResetsSectionAndPrefix) {
  ini->UseKeyPrefix(u"Grp");
  ini->UseFile(kFile);
  ini->WriteLong(u"x", 1);
  EXPECT_EQ(files.Get(kFile), "[Default Section]\r\nx=1\r\n");
}

TEST_F(clsIniFileTest, AnEmptyPrefixStillGivesAnUnderscore) {
  ini->UseKeyPrefix(u"");
  ini->WriteLong(u"x", 1);
  EXPECT_EQ(files.Get(kFile), "[S]\r\n_x=1\r\n");
}

TEST_F(clsIniFileTest, AbsentKeysGiveTheDefault) {
  EXPECT_EQ(ini->ReadLong(u"missing", 7), 7);
  EXPECT_TRUE(ini->ReadBool(u"missing", true));
  EXPECT_FALSE(ini->ReadBool(u"missing", false));
  EXPECT_EQ(ini->ReadString(u"missing", u"d"), u"d");
}

TEST_F(clsIniFileTest, WritesValuesAsText) {
  ini->WriteLong(u"n", -12);
  ini->WriteBool(u"b", true);
  ini->WriteBool(u"c", false);
  EXPECT_EQ(files.Get(kFile), "[S]\r\nn=-12\r\nb=True\r\nc=False\r\n");
  EXPECT_EQ(ini->ReadLong(u"n", 0), -12);
  EXPECT_TRUE(ini->ReadBool(u"b", false));
}

TEST_F(clsIniFileTest, ReadsNumbersAndTruthByTheLibrarysRule) {
  files.Put(kFile,
            "[S]\r\na= 12 \r\nb=2.5\r\nc=3.5\r\nd=abc\r\ne=tRUE\r\nf=2\r\ng=0\r\nh=99999999999\r\ni=\r\n");
  EXPECT_EQ(ini->ReadLong(u"a", 0), 12);
  EXPECT_EQ(ini->ReadLong(u"b", 0), 2);
  EXPECT_EQ(ini->ReadLong(u"c", 0), 4);
  EXPECT_TRUE(ini->ReadBool(u"e", false));
  EXPECT_TRUE(ini->ReadBool(u"f", false));
  EXPECT_FALSE(ini->ReadBool(u"g", true));
  EXPECT_EQ(ErrorOfReadLong(u"d"), Error_TypeMismatch);
  EXPECT_EQ(ErrorOfReadLong(u"i"), Error_TypeMismatch);
  EXPECT_EQ(ErrorOfReadLong(u"h"), Error_Overflow);
  EXPECT_THROW(ini->ReadBool(u"d", false), Error);
}

TEST_F(clsIniFileTest, ALongValueIsCutWhenRead) {
  files.Put(kFile, "[S]\r\nlong=" + std::string(300, 'x') + "\r\nfits=" + std::string(254, 'y') + "\r\n");
  EXPECT_EQ(ini->ReadString(u"long", u""), std::u16string(254, u'x'));
  EXPECT_EQ(ini->ReadString(u"fits", u""), std::u16string(254, u'y'));
}

TEST_F(clsIniFileTest, LineBreaksReachTheFileAndBecomeBlanksInTheCallersValue) {
  std::u16string value = u"a\r\nb";
  ini->WriteString(u"k", value);
  EXPECT_EQ(value, u"a  b");
  EXPECT_EQ(files.Get(kFile), "[S]\r\nk=a\r\nb\r\n");
}

TEST_F(clsIniFileTest, DeletingAnAbsentKeyChangesNothing) {
  ini->DeleteKey(u"k");
  EXPECT_FALSE(files.Has(kFile));
  files.Put(kFile, "[S]\r\nPre_k=1\r\nj=2");
  ini->DeleteKey(u"k");
  EXPECT_EQ(files.Get(kFile), "[S]\r\nPre_k=1\r\nj=2");
  ini->UseKeyPrefix(u"Pre");
  ini->DeleteKey(u"k");
  EXPECT_EQ(files.Get(kFile), "[S]\r\nj=2");
}

TEST_F(clsIniFileTest, TestWritableLeavesTheDateInItsOwnSection) {
  ini->UseKeyPrefix(u"Pre");
  EXPECT_TRUE(ini->TestWritable());
  EXPECT_EQ(files.Get(kFile), "[Test Section]\r\nWriteTest=15/11/2026 07:31:41\r\n");
}

TEST_F(clsIniFileTest, TestWritableSaysYesWhateverTheDateLooksLike) {
  clock.dateTime = u" 15/11/2026\u202F07:31:41 " + std::u16string(1, char16_t{0xD800}) + u"M ";
  EXPECT_TRUE(ini->TestWritable());
  EXPECT_EQ(files.Get(kFile),
            "[Test Section]\r\nWriteTest=15/11/2026\xE2\x80\xAF"
            "07:31:41 ?M\r\n");
}

TEST_F(clsIniFileTest, TestWritableSaysNoForAReadOnlyFileAndAMissingFolder) {
  files.Put(kFile, "[S]\r\n");
  files.SetReadOnly(kFile, true);
  EXPECT_FALSE(ini->TestWritable());
  EXPECT_EQ(files.Get(kFile), "[S]\r\n");
  ini->UseFile(u"C:\\none\\x.ini");
  EXPECT_FALSE(ini->TestWritable());
}

TEST_F(clsIniFileTest, TestWritableIsNotDeceivedByAnOldTest) {
  files.Put(kFile, "[Test Section]\r\nWriteTest=14/11/2026 07:31:41\r\n");
  files.SetReadOnly(kFile, true);
  EXPECT_FALSE(ini->TestWritable());
}

TEST_F(clsIniFileTest, TestWritableAsksTheFileEvenInsideABatch) {
  files.Put(kFile, "[S]\r\n");
  files.SetReadOnly(kFile, true);
  const IniBatch batch(*ini, Sync::No);
  EXPECT_FALSE(ini->TestWritable());
}

TEST_F(clsIniFileTest, TestWritableLogsBeforeItWrites) {
  modLog::SetLogLevel(LogLevel_4_SPEW);
  files.FailCall(1, platform::FileStatus::AccessDenied);
  EXPECT_RAISES(Error_PathFileAccess, ini->TestWritable());
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(clsIniFileTest, TestWritableLogsWhatItWritesWhere) {
  modLog::SetLogLevel(LogLevel_4_SPEW);
  ini->TestWritable();
  EXPECT_NE(files.Get(kLog).find(
                "[Spew] writing test value [15/11/2026 07:31:41] to INI filename [C:\\app\\page.ini]\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace vestrel
