#include <gtest/gtest.h>

#include "storage/KeptName.h"

namespace vestrel {
namespace {

TEST(KeptNameTest, IsWhatWasSetLast) {
  KeptName name;
  EXPECT_TRUE(name.isNarrow());
  EXPECT_EQ(name.narrow(), "");
  name.Set(u"Button12");
  name.Append('_');
  EXPECT_EQ(name.narrow(), "Button12_");
  EXPECT_EQ(name.text(), u"Button12_");
  name.Set(u"a longer name than the one before");
  EXPECT_EQ(name.narrow(), "a longer name than the one before");
  name.SetAscii("Button13");
  EXPECT_EQ(name.narrow(), "Button13");
  name.Set(u"b");
  EXPECT_EQ(name.narrow(), "b");
  name.Set(u"b");
  EXPECT_EQ(name.narrow(), "b");
  name.Set(u"\u0162");
  EXPECT_EQ(name.text(), u"\u0162");
  name.Clear();
  EXPECT_EQ(name.text(), u"");
}

TEST(KeptNameTest, KeepsOtherLettersAsTheyAre) {
  KeptName name(u"Gr\u00FC\u00DFe, lang");
  EXPECT_FALSE(name.isNarrow());
  EXPECT_EQ(name.text(), u"Gr\u00FC\u00DFe, lang");
  name.Set(u"\u20AC");
  name.Append('_');
  EXPECT_FALSE(name.isNarrow());
  EXPECT_EQ(name.text(), u"\u20AC_");
  const std::u16string longOne(100, u'\u20AC');
  name.Set(longOne);
  EXPECT_EQ(name.text(), longOne);
  name.Set(u"plain");
  EXPECT_TRUE(name.isNarrow());
  EXPECT_EQ(name.text(), u"plain");
}

TEST(KeptNameTest, IsNarrowUpToItsLength) {
  for (const std::size_t length : {KeptName::kShort - 1, KeptName::kShort, KeptName::kShort + 1}) {
    KeptName name(std::u16string(length, u'n'));
    EXPECT_EQ(name.isNarrow(), length <= KeptName::kShort) << length;
    name.SetAscii(std::string(length, 'm'));
    EXPECT_EQ(name.isNarrow(), length <= KeptName::kShort) << length;
    EXPECT_EQ(name.text(), std::u16string(length, u'm'));
  }
}

TEST(KeptNameTest, MayBeOfAnyLength) {
  for (const std::size_t size : {0U, 1U, 8U, 63U, 64U, 65U, 200U}) {
    const std::u16string wide(size, u'a');
    KeptName name(u"before");
    name.Set(wide);
    EXPECT_EQ(name.text(), wide);
    name.Set(u"before");
    name.SetAscii(std::string(size, 'a'));
    EXPECT_EQ(name.text(), wide);
    name.Append('_');
    EXPECT_EQ(name.text(), wide + u"_");
    name.Set(u"\u20AC");
    name.SetAscii("plain");
    EXPECT_EQ(name.text(), u"plain");
  }
}

}  // namespace
}  // namespace vestrel
