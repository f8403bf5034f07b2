#include <gmock/gmock.h>

#include <cstdlib>

#include "core/Convert.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

class modUtilsTest : public test::LogFixture {
 protected:
  modUtilsTest() { unsetenv("VESTREL_MESSAGE_BOX"); }
  ~modUtilsTest() override { unsetenv("VESTREL_MESSAGE_BOX"); }
};

TEST_F(modUtilsTest, AssertRaisesForFalse) {
  modUtils::Assert(true);
  try {
    modUtils::Assert(false);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 7155);
    EXPECT_EQ(error.source(), u"modUtils.Assert()");
    EXPECT_EQ(error.description(), u"assert false");
  }
}

TEST_F(modUtilsTest, BasenameIsThePieceAfterTheLastDelimiter) {
  const struct {
    std::u16string_view name;
    std::u16string_view delimiter;
    std::u16string_view base;
  } rows[] = {{u"C:\\a\\b.txt", u"\\", u"b.txt"},
              {u"C:\\a\\b.txt", u"/", u"C:\\a\\b.txt"},
              {u"C:\\a\\", u"\\", u""},
              {u"", u"\\", u""},
              {u"plain", u"\\", u"plain"},
              {u"axbXc", u"x", u"bXc"},
              {u"a--b---c", u"--", u"-c"},
              {u"abc", u"", u"abc"},
              {u"aaa", u"aa", u"a"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(modUtils::Basename(row.name, row.delimiter)), ToUtf8(row.base)) << ToUtf8(row.name);
  }
  EXPECT_EQ(modUtils::Basename(u"a\\b"), u"b");
}

TEST_F(modUtilsTest, RemoveFileExtDropsThePieceAfterTheLastPoint) {
  const struct {
    std::u16string_view name;
    std::u16string_view stem;
  } rows[] = {{u"show.ini", u"show"}, {u"a.b.c", u"a.b"}, {u"README", u""}, {u"", u""},
              {u"a.", u"a"},          {u".ini", u""},     {u"a..b", u"a."}, {u"C:\\x.y\\name", u"C:\\x"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(modUtils::RemoveFileExt(row.name)), ToUtf8(row.stem)) << ToUtf8(row.name);
  }
}

TEST_F(modUtilsTest, AnErrorGoesToAModalBox) {
  modUtils::ShowErrorBox(u"Page [x] not writable.");
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].text, u"Page [x] not writable.");
  EXPECT_EQ(hostServices.boxes[0].caption, u"Error");
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(modUtilsTest, AnUnattendedHostGetsTheErrorLogged) {
  setenv("VESTREL_MESSAGE_BOX", "log", 1);
  modUtils::ShowErrorBox(u"C:\\new %d.\r\n\r\nreport\nit\rnow\r");
  EXPECT_TRUE(hostServices.boxes.empty());
  EXPECT_THAT(LogLines(), testing::ElementsAre("[Warning] message box [Error]: C:\\new %d.  report it now "));
}

}  // namespace
}  // namespace vestrel
