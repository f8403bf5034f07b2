#include <gtest/gtest.h>

#include <string>

#include "util/TextBuffer.h"

namespace vestrel {
namespace {

TEST(TextBufferTest, AppendsPieces) {
  TextBuffer buffer;
  buffer.Append(u'a');
  buffer.Append(u"bc");
  buffer.AppendAscii("12");
  buffer.AppendRepeated(3, u'-');
  buffer.Append(std::u16string_view());
  EXPECT_EQ(buffer.view(), u"abc12---");
  EXPECT_EQ(buffer.From(3), u"12---");
  EXPECT_EQ(buffer.size(), 8U);
}

TEST(TextBufferTest, KeepsItsTextWhenItGrows) {
  TextBuffer buffer;
  std::u16string expected;
  for (int i = 0; i < 5000; ++i) {
    const auto unit = static_cast<char16_t>(u'a' + i % 26);
    buffer.Append(unit);
    expected += unit;
  }
  buffer.Append(std::u16string(20000, u'x'));
  EXPECT_EQ(buffer.view(), expected + std::u16string(20000, u'x'));
}

TEST(TextBufferTest, IsChangedInPlace) {
  TextBuffer buffer;
  buffer.Append(u"abc");
  buffer.MutableFrom(1)[0] = u'X';
  EXPECT_EQ(buffer.view(), u"aXc");
}

}  // namespace
}  // namespace vestrel
