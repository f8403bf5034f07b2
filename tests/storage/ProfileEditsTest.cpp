#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "storage/ProfileEdits.h"

namespace vestrel {
namespace {

// The edits as text.
std::vector<std::string> Listed(const ProfileEdits& edits) {
  std::vector<std::string> list;
  for (const ProfileEdit& edit : edits.view()) {
    const std::string value(edit.value.value_or("<none>"));
    list.push_back("[" + std::string(edit.section) + "]" + std::string(edit.key) + "=" + value);
  }
  return list;
}

TEST(ProfileEditsTest, KeepsCopiesInOrder) {
  ProfileEdits edits;
  std::vector<std::string> expected;
  for (std::size_t i = 0; i < 300; ++i) {
    const std::string section = "Section" + std::to_string(i / 3 % 5);
    const std::string key = "Key" + std::to_string(i);
    const std::string value(i * i % 1000, 'v');
    edits.Add({section, key, value});
    expected.push_back("[" + section + "]" + key + "=" + value);
  }
  EXPECT_EQ(Listed(edits), expected);
  const ProfileEdits moved = std::move(edits);
  EXPECT_EQ(Listed(moved), expected);
}

TEST(ProfileEditsTest, NoValueIsNotAnEmptyOne) {
  ProfileEdits edits;
  edits.Add({"s", "k", std::nullopt});
  edits.Add({"s", "k", ""});
  edits.Add({"", "", ""});
  EXPECT_EQ(Listed(edits), (std::vector<std::string>{"[s]k=<none>", "[s]k=", "[]="}));
}

TEST(ProfileEditsTest, GoesBackToWhatItHeld) {
  ProfileEdits edits;
  edits.Add({"s", "a", "1"});
  edits.Add({"s", "b", "2"});
  edits.Shorten(1);
  edits.Add({"t", "c", "3"});
  EXPECT_EQ(Listed(edits), (std::vector<std::string>{"[s]a=1", "[t]c=3"}));
  edits.Shorten(0);
  EXPECT_TRUE(edits.empty());
}

}  // namespace
}  // namespace vestrel
