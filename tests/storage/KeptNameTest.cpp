#include <gtest/gtest.h>

#include "storage/KeptName.h"

namespace vestrel {
namespace {

TEST(KeptNameTest, IsWhatWasSetLast) {
  KeptName name;
  EXPECT_TRUE(name.isAscii());
  EXPECT_EQ(name.ascii(), "");
  name.Set(u"Button12");
  name.Append('_');
  EXPECT_EQ(name.ascii(), "Button12_");
  EXPECT_EQ(name.text(), u"Button12_");
  name.Set(u"a longer name than the one before");
  EXPECT_EQ(name.ascii(), "a longer name than the one before");
  name.Set(std::u16string(100, u'a'));
  EXPECT_EQ(name.ascii(), std::string(100, 'a'));
  name.Set(u"b");
  EXPECT_EQ(name.ascii(), "b");
  name.Set(u"b");
  EXPECT_EQ(name.ascii(), "b");
  name.Set(u"\u0162");
  EXPECT_EQ(name.text(), u"\u0162");
  name.Clear();
  EXPECT_EQ(name.text(), u"");
}

TEST(KeptNameTest, KeepsOtherLettersAsTheyAre) {
  KeptName name(u"Gr\u00FC\u00DFe, lang");
  EXPECT_FALSE(name.isAscii());
  EXPECT_EQ(name.text(), u"Gr\u00FC\u00DFe, lang");
  name.Set(u"\u20AC");
  name.Append('_');
  EXPECT_FALSE(name.isAscii());
  EXPECT_EQ(name.text(), u"\u20AC_");
  const std::u16string longOne(100, u'\u20AC');
  name.Set(longOne);
  EXPECT_EQ(name.text(), longOne);
  name.Set(u"plain");
  EXPECT_TRUE(name.isAscii());
  EXPECT_EQ(name.text(), u"plain");
}

}  // namespace
}  // namespace vestrel
