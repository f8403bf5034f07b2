#include <gtest/gtest.h>

#include <random>
#include <string>

#include "storage/ProfileIndex.h"
#include "storage/ProfileText.h"

namespace vestrel {
namespace {

TEST(ProfileIndexTest, FindsWhatReadingThroughTheTextFinds) {
  std::mt19937 random(7);
  const std::string_view pieces[] = {"[s]",       "[S]x", "[t", "[]",   "k=1", "K =2",
                                     " k= \"3\"", "=4",   "j",  ";k=5", "k=",  ""};
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (auto i = random() % 12; i > 0; --i) {
      text.append(pieces[random() % std::size(pieces)]).append(random() % 4 == 0 ? "\n" : "\r\n");
    }
    ProfileIndex index(text);
    for (const std::string_view section : {"s", "T", "", "none"}) {
      for (const std::string_view key : {"k", " K ", "", "j"}) {
        ASSERT_EQ(index.Find(section, key), ProfileText(text).Find(section, key)) << text;
      }
    }
  }
}

// In the order in which they stand, against it, the same one again, in turn from several sections, and those
// that are not there in between.
TEST(ProfileIndexTest, TheOrderOfTheQuestionsDoesNotMatter) {
  const std::string text =
      "[one]\r\na long key 1=1\r\nb=2\r\nA LONG KEY 1=other\r\n;c\r\nc=3\r\n[two]\nb=4\n a long key 1 = '5'\n"
      "[ONE]\r\nd=6\r\n[three]\r\n[]\r\nb=7\r\n[\xC3\xA9]\r\nb=8\r\n\xC3\xA9=9";
  const std::string_view sections[] = {"one", "Two", "three", "", "\xC3\xA9", "four", " one "};
  const std::string_view keys[] = {"a long key 1", "b", "A long KEY 1", "c", "d", "\xC3\xA9", "none", " b "};
  std::mt19937 random(11);
  ProfileIndex index(text);
  std::string_view section = sections[0];
  for (int question = 0; question < 20000; ++question) {
    if (random() % 3 == 0) section = sections[random() % std::size(sections)];
    const std::string_view key = keys[random() % std::size(keys)];
    ASSERT_EQ(index.Find(section, key), ProfileText(text).Find(section, key)) << section << " " << key;
  }
}

TEST(ProfileIndexTest, HoldsManyKeys) {
  std::string text;
  for (int section = 0; section < 20; ++section) {
    text += "[Section" + std::to_string(section) + "]\r\n";
    for (int key = 0; key < 100; ++key) {
      text += "Key" + std::to_string(key) + "=" + std::to_string(section * 1000 + key) + "\r\n";
    }
  }
  ProfileIndex index(text);
  for (int section = 0; section < 20; ++section) {
    for (int key = 0; key < 100; ++key) {
      ASSERT_EQ(index.Find("section" + std::to_string(section), "KEY" + std::to_string(key)),
                std::to_string(section * 1000 + key));
    }
  }
}

}  // namespace
}  // namespace vestrel
