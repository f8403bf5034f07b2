// Memory runs out inside the system's file layer, inside savers that use it, and inside the by-name door.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>

#include "component/ByName.h"
#include "core/Error.h"
#include "core/clsString.h"
#include "core/modObjectList.h"
#include "model/clsPage.h"
#include "platform/System.h"
#include "recording/vxEventList.h"
#include "storage/IniBatch.h"
#include "storage/TextFile.h"
#include "storage/modIniFile.h"
#include "tests/support/Allocations.h"
#include "tests/support/Errors.h"
#include "tests/support/TempFolder.h"

namespace vestrel::test {
namespace {

namespace fs = std::filesystem;
using platform::FileStatus;
using platform::OpenMode;
using platform::SystemFiles;

std::ptrdiff_t OpenDescriptors() {
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

enum class End { Done, Failed, OutOfMemory };

// Runs `action`, which answers whether it succeeded, with every allocation failing in turn, once and from
// then on, until it gets through; `check` looks at what each run left.
void FailInTurn(const std::function<bool()>& action, const std::function<void(End end)>& check) {
  for (const bool always : {false, true}) {
    for (int at = 1;; ++at) {
      ASSERT_LT(at, 10'000);
      const std::ptrdiff_t descriptors = OpenDescriptors();
      End end = End::Done;
      Allocations::Begin(at, always);
      try {
        end = action() ? End::Done : End::Failed;
      } catch (const std::bad_alloc&) {
        end = End::OutOfMemory;
      } catch (const Error& error) {
        Allocations::End();
        EXPECT_EQ(error.number(), Error_OutOfMemory);
        end = End::OutOfMemory;
      }
      const int made = Allocations::Count();
      Allocations::End();
      EXPECT_EQ(OpenDescriptors(), descriptors) << "allocation " << at;
      check(end);
      if (made < at) break;
    }
  }
}

class AllocationDoorsTest : public testing::Test {
 protected:
  void Put(std::string_view name, std::string_view bytes) const {
    const Allocations::Spared spared;
    folder.Put(name, bytes);
  }
  // The new bytes where the save is done, the old or the new ones where it failed.
  void ExpectWhole(End end, std::string_view name, const std::string& old, const std::string& now) const {
    const std::string bytes = folder.Get(name);
    EXPECT_TRUE(bytes == now || (end != End::Done && bytes == old)) << bytes;
  }

  TempFolder folder;
};

TEST_F(AllocationDoorsTest, TheFileLayerOpensNothingForGood) {
  folder.Put("file.txt", "old");
  const std::u16string path = folder.Path("file.txt");
  const auto nothing = [](End /*end*/) {};
  FailInTurn(
      [&] {
        std::unique_ptr<platform::File> file;
        return SystemFiles().Open(path, OpenMode::ReadWrite, file) == FileStatus::Ok;
      },
      nothing);
  FailInTurn(
      [&] {
        std::vector<std::u16string> names;
        return SystemFiles().List(folder.Path(), names) == FileStatus::Ok && names.size() == 1;
      },
      [](End end) { EXPECT_NE(end, End::Failed); });
  FailInTurn(
      [&] {
        std::u16string real;
        return SystemFiles().Resolve(path, real) == FileStatus::Ok && real == path;
      },
      [](End end) { EXPECT_NE(end, End::Failed); });
  EXPECT_EQ(folder.Get("file.txt"), "old");
}

TEST_F(AllocationDoorsTest, AForcedCommitIsWhole) {
  const std::u16string path = folder.Path("settings.ini");
  FailInTurn(
      [&] {
        Put("settings.ini", "[A]\r\nk=1\r\nlist=1|2|3\r\n");
        IniBatch batch(path, Sync::Yes);
        std::u16string first = u"9";
        std::u16string second = u"1|2|3|4";
        modIniFile::WriteIniString(path, u"A", u"k", &first);
        modIniFile::WriteIniString(path, u"A", u"list", &second);
        return batch.Commit();
      },
      [&](End end) {
        ExpectWhole(end, "settings.ini", "[A]\r\nk=1\r\nlist=1|2|3\r\n", "[A]\r\nk=9\r\nlist=1|2|3|4\r\n");
      });
}

TEST_F(AllocationDoorsTest, ATextFileIsTheOldOrTheNewOne) {
  const std::u16string path = folder.Path("text.txt");
  FailInTurn(
      [&] {
        Put("text.txt", "\"old\"\r\n");
        TextFile::Opened file(path, TextFile::Mode::Output);
        TextFile::Output(file.number()).WriteText(u"new");
        TextFile::Output(file.number()).EndLine();
        file.Close();
        return true;
      },
      [&](End end) { ExpectWhole(end, "text.txt", "\"old\"\r\n", "\"new\"\r\n"); });
  // Left by a run that had no memory to remove it; the next save uses it up.
  EXPECT_FALSE(fs::exists(folder.Real("text.txt.txt~")));
}

TEST_F(AllocationDoorsTest, TheByNameDoorRaisesSeven) {
  const Ref<Object> list = component::CreateByName(u"clsObjectList");
  const Variant item(Ref<Object>(BoxString(u"a text that is longer than what a string keeps in itself")));
  FailInTurn(
      [&] {
        component::CallByName(list.get(), u"Clear");
        component::CallByName(list.get(), u"AddItem", {component::In(item)});
        const Variant text =
            component::CallByName(list.get(), u"JoinStrings", {component::In(Variant(u", "))});
        return text.AsString().size() == 56;
      },
      [](End end) { EXPECT_NE(end, End::Failed); });
}

// Up to some point it is a page that is never saved; then it has no file yet, then not all groups.
TEST_F(AllocationDoorsTest, APageWhoseInitDidNotEndIsNeitherReadNorWritten) {
  constexpr std::int32_t kNotBound = 999;
  int unbound = 0;
  Ref<clsPage> page;
  FailInTurn(
      [&] {
        page = nullptr;
        page = MakeRef<clsPage>();
        page->Init(folder.Path(), nullptr, u"Gala", u"Act 1");
        return true;
      },
      [&](End end) {
        if (end == End::Done || !page) return;
        const std::int32_t number = RaisedNumber([&] { page->loadFromINI(); });
        EXPECT_TRUE(number == 0 || number == kNotBound || number == Error_ObjectNotSet) << number;
        EXPECT_EQ(RaisedNumber([&] { page->saveToINI(); }), number);
        unbound += number == kNotBound ? 1 : 0;
      });
  EXPECT_GT(unbound, 0);
  EXPECT_TRUE(fs::is_empty(folder.Real()));
}

}  // namespace
}  // namespace vestrel::test
