#include <gtest/gtest.h>

#include "platform/Platform.h"

namespace vestrel::platform {
namespace {

std::string Narrow(std::u16string_view text) {
  bool lossy = false;
  std::string bytes = encoding().Narrow(text, lossy);
  return lossy ? "lossy " + bytes : bytes;
}

#ifndef _WIN32

TEST(EncodingTest, NarrowIsUtf8) {
  EXPECT_EQ(Narrow(u"a"), "a");
  EXPECT_EQ(Narrow(u"\u00E9"), "\xC3\xA9");
  EXPECT_EQ(Narrow(u"\u20AC"), "\xE2\x82\xAC");
  EXPECT_EQ(Narrow(u"\U0001F4A1"), "\xF0\x9F\x92\xA1");
}

TEST(EncodingTest, WidenUndoesNarrow) {
  const std::u16string text = u"A\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFD\uFFFF\U00010000\U0010FFFF";
  EXPECT_EQ(encoding().Widen(Narrow(text)), text);
}

TEST(EncodingTest, AHalfCharacterBecomesAQuestionMarkAndIsReported) {
  const std::u16string high(1, char16_t{0xD83D});
  const std::u16string low(1, char16_t{0xDCA1});
  EXPECT_EQ(Narrow(u"a" + high), "lossy a?");
  EXPECT_EQ(Narrow(high + u"b"), "lossy ?b");
  EXPECT_EQ(Narrow(low + high), "lossy ??");
}

TEST(EncodingTest, BytesThatAreNoCharacterBecomeReplacements) {
  EXPECT_EQ(encoding().Widen("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(encoding().Widen("\xC3"), u"\uFFFD");
  EXPECT_EQ(encoding().Widen("\xE2\x82"), u"\uFFFD\uFFFD");
  EXPECT_EQ(encoding().Widen("\xE2\x82z"), u"\uFFFD\uFFFDz");
  EXPECT_EQ(encoding().Widen("\xC0\x80"), u"\uFFFD\uFFFD");
  EXPECT_EQ(encoding().Widen("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(encoding().Widen("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(encoding().Widen("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(EncodingTest, ACutNeverLeavesHalfACharacter) {
  EXPECT_EQ(encoding().CutLength("abc", 5), 3U);
  EXPECT_EQ(encoding().CutLength("abc", 2), 2U);
  EXPECT_EQ(encoding().CutLength("a\xC3\xA9", 2), 1U);
  EXPECT_EQ(encoding().CutLength("a\xC3\xA9", 3), 3U);
  EXPECT_EQ(encoding().CutLength("\xF0\x9F\x92\xA1z", 3), 0U);
  EXPECT_EQ(encoding().CutLength("\xF0\x9F\x92\xA1z", 4), 4U);
  EXPECT_EQ(encoding().CutLength("\xA9\xA9\xA9\xA9\xA9\xA9", 4), 4U);
}

#endif

}  // namespace
}  // namespace vestrel::platform
