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
    const ProfileIndex index(text);
    for (const std::string_view section : {"s", "T", "", "none"}) {
      for (const std::string_view key : {"k", " K ", "", "j"}) {
        ASSERT_EQ(index.Find(section, key), ProfileText(text).Find(section, key)) << text;
      }
    }
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
  const ProfileIndex index(text);
  for (int section = 0; section < 20; ++section) {
    for (int key = 0; key < 100; ++key) {
      ASSERT_EQ(index.Find("section" + std::to_string(section), "KEY" + std::to_string(key)),
                std::to_string(section * 1000 + key));
    }
  }
}

}  // namespace
}  // namespace vestrel
