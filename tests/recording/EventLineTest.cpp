#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "core/Convert.h"
#include "recording/EventLine.h"

namespace vestrel {
namespace {

std::string Written(const EventLine& line) {
  std::string bytes(line.name.size() + kEventLineRoom, '#');
  bytes.resize(
      static_cast<std::size_t>(WriteEventLine(bytes.data(), line, FromUtf8(line.name)) - bytes.data()));
  return bytes;
}

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

TEST(EventLineTest, WritesSevenFields) {
  const std::pair<EventLine, const char*> table[] = {
      {{0, "", 0, 0, 0, 0, 0}, "0,\"\",0,0,0,0,0\r\n"},
      {{1200, "Intro", 1, 1, 4, 12, 340}, "1200,\"Intro\",1,1,4,12,340\r\n"},
      {{-7, "a, b", 0, -1, -32768, -0.5F, 1.25F}, "-7,\"a, b\",0,-1,-32768,-0.5,1.25\r\n"},
      {{kMin, "x", kMax, 32767, 0, 1e6F, 16777216},
       "-2147483648,\"x\",2147483647,32767,0,1000000,16777216\r\n"},
      {{5, "x", 0, 0, 0, 1e20F, 1e-7F}, "5,\"x\",0,0,0,1E+20,1E-07\r\n"},
      {{5, "x", 0, 0, 0, 0.1F, -0.0F}, "5,\"x\",0,0,0,0.1,0\r\n"},
  };
  for (const auto& [line, bytes] : table) EXPECT_EQ(Written(line), bytes);
}

TEST(EventLineTest, WritesNamesOfEveryLengthIfTheyAreAscii) {
  for (std::size_t length = 0; length < 20; ++length) {
    std::u16string name(length, u'a');
    std::string bytes(length + kEventLineRoom, '#');
    for (std::size_t at = 0; at < length; ++at) name[at] = static_cast<char16_t>(u'a' + at);
    EXPECT_NE(WriteEventLine(bytes.data(), EventLine(), name), nullptr);
    EXPECT_EQ(bytes.substr(0, length + 5), "0,\"" + ToUtf8(name) + "\",");
    for (std::size_t at = 0; at < length; ++at) {
      for (const char16_t other : {u'\x80', u'\x100', u'\x8000'}) {
        std::u16string foreign = name;
        foreign[at] = other;
        EXPECT_EQ(WriteEventLine(bytes.data(), EventLine(), foreign), nullptr) << length << " " << at;
      }
    }
  }
}

TEST(EventLineTest, ReadsNamesOfEveryLengthUpToTheirQuote) {
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string name(length, '\xA2');  // a quote but for its highest bit
    EventLine line;
    const std::string bytes = "5,\"" + name + "\",1,0,0,12,-3\r\n";
    EXPECT_EQ(ReadEventLine(bytes, line), bytes.size());
    EXPECT_EQ(line.name, name);
    EXPECT_EQ(ReadEventLine("5,\"" + name + "\n\",1,0,0,12,-3\r\n", line), 0U) << length;
  }
}

TEST(EventLineTest, WritesFloatsAsTheCommonRuleDoes) {
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {
    auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (i % 2 == 0) value = static_cast<float>(static_cast<std::int32_t>(random())) / 65536.0F;
    if (!std::isfinite(value)) continue;
    EventLine line;
    line.x = value;
    ASSERT_EQ(Written(line), "0,\"\",0,0,0," + ToUtf8(SingleToText(value)) + ",0\r\n");
  }
}

TEST(EventLineTest, ReadsBackWhatItWrites) {
  std::mt19937 random(5);
  for (int i = 0; i < 10000; ++i) {
    const auto word = [&] { return static_cast<std::int32_t>(random()); };
    const auto real = [&] {
      const auto value = std::bit_cast<float>(word());
      return std::isfinite(value) ? value : 7.0F;
    };
    const EventLine line{
        word(), "Name", word(), static_cast<std::int16_t>(word()), static_cast<std::int16_t>(word()),
        real(), real()};
    const std::string bytes = Written(line) + "next";
    EventLine read;
    ASSERT_EQ(ReadEventLine(bytes, read), bytes.size() - 4) << bytes;
    ASSERT_EQ(Written(read), Written(line));
    ASSERT_EQ(read.x, line.x);
  }
}

TEST(EventLineTest, TakesABareLineFeed) {
  EventLine line;
  EXPECT_EQ(ReadEventLine("7,\"a\",1,2,3,4,5\n8", line), 16U);
  EXPECT_EQ(line.time, 7);
  EXPECT_EQ(line.name, "a");
  EXPECT_EQ(line.eventType, 1);
  EXPECT_EQ(line.mouseButton, 2);
  EXPECT_EQ(line.shift, 3);
  EXPECT_EQ(line.x, 4);
  EXPECT_EQ(line.y, 5);
}

// What the general reading must decide: other forms that are allowed, and malformed ones.
TEST(EventLineTest, LeavesEveryOtherFormAlone) {
  for (const char* bytes : {
           "",
           "1",
           "1,",
           "1,\"a\",0,0,0,0",
           "1,\"a\",0,0,0,0,0",
           "1,\"a\",0,0,0,0,0\r",

           "1,\"a\",0,0,0,0,0,\r\n",
           " 1,\"a\",0,0,0,0,0\r\n",
           "1, \"a\",0,0,0,0,0\r\n",
           "1 ,\"a\",0,0,0,0,0\r\n",
           "1,\"a\" ,0,0,0,0,0\r\n",
           "1,a,0,0,0,0,0\r\n",
           "1,\"a,0,0,0,0,0\r\n",
           "1,\"a\r\n\",0,0,0,0,0\r\n",
           "2147483648,\"a\",0,0,0,0,0\r\n",
           "-2147483649,\"a\",0,0,0,0,0\r\n",
           "99999999999,\"a\",0,0,0,0,0\r\n",
           "1,\"a\",0,32768,0,0,0\r\n",
           "1,\"a\",0,0,-32769,0,0\r\n",
           "1.5,\"a\",0,0,0,0,0\r\n",
           "+1,\"a\",0,0,0,0,0\r\n",
           "-,\"a\",0,0,0,0,0\r\n",
           "1,\"a\",#TRUE#,0,0,0,0\r\n",
           "1,\"a\",0,0,0,x,0\r\n",
           "1,\"a\",0,0,0,nan,0\r\n",
           "1,\"a\",0,0,0,-inf,0\r\n",
           "1,\"a\",0,0,0,1e99,0\r\n",
           "1,\"a\",0,0,0,1 ,0\r\n",
           "1,\"a\",0,0,0,0,0 \r\n",
           "1,\"a\",0,0,0,0,0\rx\n",
           "1,\"a\",0,0,0,.5,0\r\n",
           "1,\"a\",0,0,0,,0\r\n",
       }) {
    EventLine line;
    EXPECT_EQ(ReadEventLine(bytes, line), 0U) << bytes;
  }
}

TEST(EventLineTest, NeedsTheWholeLine) {
  const std::string bytes = "1200,\"Intro\",1,1,4,12,340.5\r\n";
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EventLine line;
    EXPECT_EQ(ReadEventLine(std::string_view(bytes).substr(0, size), line), 0U) << size;
  }
}

}  // namespace
}  // namespace vestrel
