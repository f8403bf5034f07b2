#include <gtest/gtest.h>

#include "core/Error.h"
#include "core/clsString.h"
#include "storage/TextFile.h"
#include "storage/clsMultiFile.h"
#include "tests/support/AtNextItem.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kFolder = u"C:\\app\\Sequences\\Gala\\Page 1\\";
constexpr std::u16string_view kFile = u"C:\\app\\Sequences\\Gala\\Page 1\\Wash.MUL";
constexpr std::string_view kTwo =
    "1,1\r\n2\r\n"
    "\"A\",\"\",1,\"\",#FALSE#,#FALSE#,#FALSE#,#FALSE#,0,0,0,0,0,\"\",0\r\n"
    "\"B\",\"\",2,\"\",#FALSE#,#TRUE#,#FALSE#,#FALSE#,1.5,0,0,0,0,\"\",0\r\n";

class clsMultiFileTest : public test::TestPlatform {
 protected:
  void SetUp() override {
    files.PutFolder(kFolder);
    modLog::Init(u"C:\\app\\log.txt");
    multi->Init(u"C:\\app", u"Gala", u"Page 1", u"Wash");
  }
  void Add(std::u16string_view name) {
    const Ref<clsSequence> sequence = MakeRef<clsSequence>();
    sequence->theName = name;
    multi->AddSequence(sequence.get());
  }
  clsSequence& At(std::int32_t index) {
    return *static_cast<clsSequence*>(multi->SequenceList()->GetItem(index).get());
  }
  static std::u16string In(std::u16string_view name) { return std::u16string(kFolder).append(name); }
  bool Logged(std::string_view line) {
    return files.Get(u"C:\\app\\log.txt").find(line) != std::string::npos;
  }

  Ref<clsMultiFile> multi = MakeRef<clsMultiFile>();
};

TEST_F(clsMultiFileTest, NeedsInit) {
  const Ref<clsMultiFile> fresh = MakeRef<clsMultiFile>();
  EXPECT_FALSE(fresh->SequenceList());
  EXPECT_RAISES(Error_ObjectNotSet, fresh->Save());
  EXPECT_RAISES(Error_ObjectNotSet, fresh->Load());
  EXPECT_RAISES(Error_ObjectNotSet, fresh->AddSequence(nullptr));
  EXPECT_RAISES(Error_ObjectNotSet, fresh->Delete(true));
  EXPECT_RAISES(0, fresh->Delete());
}

TEST_F(clsMultiFileTest, OnlyARealSequenceCanBeSaved) {
  multi->AddSequence(nullptr);
  EXPECT_RAISES(Error_ObjectNotSet, multi->Save());
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(clsMultiFileTest, AnEmptyListSavesVersionAndCountAlone) {
  multi->Save();
  EXPECT_EQ(files.Get(kFile), "1,1\r\n0\r\n");
  multi->Load();
  EXPECT_EQ(multi->SequenceList()->Size(), 0);
}

TEST_F(clsMultiFileTest, LoadsAndSavesItsRecordsInOrder) {
  files.Put(kFile, kTwo);
  multi->Load();
  ASSERT_EQ(multi->SequenceList()->Size(), 2);
  EXPECT_EQ(At(0).theName, u"A");
  EXPECT_EQ(At(1).theBeat, 1.5F);
  EXPECT_TRUE(At(1).isRunning);
  EXPECT_EQ(At(1).myPage, u"Page 1");
  multi->Save();
  EXPECT_EQ(files.Get(kFile), kTwo);
}

TEST_F(clsMultiFileTest, LoadingAppends) {
  files.Put(kFile, kTwo);
  Add(u"first");
  multi->Load();
  EXPECT_EQ(multi->SequenceList()->Size(), 3);
  EXPECT_EQ(At(0).theName, u"first");
}

TEST_F(clsMultiFileTest, AnObserverMaySetTheFileUpAnewOrLetGoOfItWhileItLoads) {
  files.Put(kFile, kTwo);
  const Ref<test::AtNextItem> observer = MakeRef<test::AtNextItem>();
  observer->work = [this] { multi->Init(u"C:\\app", u"Gala", u"Page 2", u"Other"); };
  const Ref<clsObjectList> list = multi->SequenceList();
  list->SetEventHandler(observer.get(), nullptr);
  multi->Load();
  EXPECT_EQ(observer->heard, 2);
  EXPECT_EQ(static_cast<clsSequence*>(list->GetItem(1).get())->myPage, u"Page 1");
  EXPECT_EQ(multi->SequenceList()->Size(), 0);

  observer->heard = 0;
  observer->work = [this] { multi = nullptr; };
  multi->Init(u"C:\\app", u"Gala", u"Page 1", u"Wash");
  multi->SequenceList()->SetEventHandler(observer.get(), nullptr);
  clsMultiFile& borrowed = *multi;
  borrowed.Load();
  EXPECT_EQ(observer->heard, 2);
}

TEST_F(clsMultiFileTest, InitStartsAnEmptyListForTheFileItNames) {
  Add(u"A");
  const Ref<clsObjectList> old = multi->SequenceList();
  multi->Init(u"C:\\app", u"Gala", u"Page 1", u"Chase");
  EXPECT_EQ(multi->SequenceList()->Size(), 0);
  EXPECT_EQ(old->Size(), 1);
  multi->Save();
  EXPECT_EQ(files.Get(In(u"Chase.MUL")), "1,1\r\n0\r\n");
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(clsMultiFileTest, AnotherVersionIsLoggedAndLoadsNothing) {
  files.Put(kFile, "1,2\r\n1\r\n");
  Add(u"kept");
  multi->Load();
  EXPECT_EQ(multi->SequenceList()->Size(), 1);
  EXPECT_TRUE(Logged("[Info] *** unknown multi file format version 1.2 ***\r\n"));
  files.Put(kFile, "2,1\r\n0\r\n");
  multi->Load();
  EXPECT_TRUE(Logged("[Info] *** unknown multi file format version 2.1 ***\r\n"));
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(clsMultiFileTest, FailuresReachTheCallerAndCloseTheFile) {
  EXPECT_RAISES(Error_FileNotFound, multi->Load());
  files.Put(kFile, "1,1\r\n2\r\n\"A\",\"\",x");
  EXPECT_RAISES(Error_TypeMismatch, multi->Load());
  files.Put(kFile, kTwo.substr(0, kTwo.size() - 3));
  EXPECT_RAISES(Error_InputPastEnd, multi->Load());
  EXPECT_EQ(multi->SequenceList()->Size(), 1);
  EXPECT_EQ(TextFile::FreeNumber(), 1);
  EXPECT_EQ(files.OpenFiles(), 0);
  multi->Init(u"C:\\app", u"none", u"none", u"Wash");
  EXPECT_RAISES(Error_PathNotFound, multi->Save());
}

TEST_F(clsMultiFileTest, AFailingSaveLeavesTheOldFile) {
  files.Put(kFile, "old");
  Add(u"A");
  multi->SequenceList()->AddItem(MakeRef<clsString>().get());
  EXPECT_RAISES(Error_TypeMismatch, multi->Save());
  EXPECT_EQ(files.Get(kFile), "old");
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(clsMultiFileTest, DeletesOnlyItsOwnFileUnlessTold) {
  files.Put(kFile, "x");
  files.Put(In(u"A.ASQ"), "x");
  Add(u"A");
  multi->Delete();
  EXPECT_FALSE(files.Has(kFile));
  EXPECT_TRUE(files.Has(In(u"A.ASQ")));
  EXPECT_TRUE(Logged("[Info] deleting multi file: C:\\app\\Sequences\\Gala\\Page 1\\Wash.MUL\r\n"));
}

TEST_F(clsMultiFileTest, DeletesTheSequencesFilesFirst) {
  for (const std::u16string_view name : {u"A.ASQ", u"A.BMP", u"A.UQF", u"B.BMP", u"B.TXT"})
    files.Put(In(name), "x");
  files.Put(kFile, "x");
  Add(u"A");
  Add(u"B");
  multi->Delete(true);
  EXPECT_FALSE(files.Has(In(u"A.ASQ")) || files.Has(In(u"A.BMP")) || files.Has(In(u"A.UQF")));
  EXPECT_FALSE(files.Has(In(u"B.BMP")) || files.Has(kFile));
  EXPECT_TRUE(files.Has(In(u"B.TXT")));
  const std::string start = "[Info] deleting multi seq file: C:\\app\\Sequences\\Gala\\Page 1\\";
  const std::string log = files.Get(u"C:\\app\\log.txt");
  EXPECT_EQ(log.substr(log.find("[Info]")),
            start + "A.ASQ\r\n" + start + "A.BMP\r\n" + start + "A.UQF\r\n" + start + "B.BMP\r\n" +
                "[Info] deleting multi file: C:\\app\\Sequences\\Gala\\Page 1\\Wash.MUL\r\n");
}

TEST_F(clsMultiFileTest, DeletingWhatIsNotThereDoesNothing) {
  Add(u"A");
  multi->Delete(true);
  EXPECT_FALSE(Logged("deleting"));
}

}  // namespace
}  // namespace vestrel
