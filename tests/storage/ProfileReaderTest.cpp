#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "storage/ProfileReader.h"
#include "storage/ProfileText.h"

namespace vestrel {
namespace {

struct Question {
  std::string section;
  std::string key;
};

void ExpectAnswers(const std::string& text, const std::vector<Question>& questions) {
  ProfileReader reader(text);
  for (const Question& asked : questions) {
    ASSERT_EQ(reader.Find(asked.section, asked.key), ProfileText(text).Find(asked.section, asked.key))
        << "[" << asked.section << "] " << asked.key << " in\n"
        << text;
  }
}

// Pages of two groups as they are written, but for a few lines that are doubled, spelled otherwise, left out,
// put elsewhere or no key lines; read as a page is read, but for a few questions too many.
TEST(ProfileReaderTest, FindsWhatReadingThroughTheTextFinds) {
  std::mt19937 random(23);
  const std::vector<std::string> odd = {"; Button3_fields=c",
                                        "",
                                        "junk",
                                        "[Group1]",
                                        "BUTTON4_FIELDS=d",
                                        " Button5_fields = 'e' ",
                                        "[Group0] x=1",
                                        "Button2_fields=f",
                                        "pageOffset=9",
                                        "Button1_fields\t=g"};
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    std::vector<Question> questions;
    for (const std::string section : {"Group0", "Group1"}) {
      std::vector<std::string> keys = {"pageOffset", "faderValue", "usedIndices"};
      for (int i = 1; i <= 12; ++i) keys.push_back("Button" + std::to_string(i) + "_fields");
      if (random() % 4 == 0) std::swap(keys[random() % keys.size()], keys[random() % keys.size()]);
      text += "[" + section + "]\r\n";
      for (const std::string& key : keys) {
        if (random() % 40 == 0) text += odd[random() % odd.size()] + "\r\n";
        if (random() % 40 != 0) text += key + "=" + std::to_string(text.size()) + "\r\n";
        questions.push_back({section, key});
        if (random() % 40 == 0)
          questions.push_back({"Group" + std::to_string(random() % 3), keys[random() % 15]});
        if (random() % 40 == 0) questions.push_back(questions.front());
      }
    }
    ExpectAnswers(text, questions);
  }
}

// None of these is a key line of that name, though it begins so.
TEST(ProfileReaderTest, NamesThatCannotBeFoundAreNot) {
  for (const std::string key : {"a=b", ";a", "[a", "a\t", "\ta", "a\r\nb", "a\nb", "", " a ", "A", "1"}) {
    for (const std::string line :
         {"a=b=c", ";a=1", "[a=1", "a\t=1", "\ta=1", "a\r\nb=1", "a\nb=1", "=1", "1=2"}) {
      ExpectAnswers("[s]\r\n" + line + "\r\n", {{"s", key}, {" S ", key}, {"", key}});
      ExpectAnswers(line + "\r\n[]\r\n" + line, {{"", key}, {"s", key}});
    }
  }
}

TEST(ProfileReaderTest, TheFirstOfAsManyNamesAsAnyCounts) {
  std::string text = "[s]\n";
  std::vector<Question> questions;
  for (int i = 0; i < 40; ++i) {
    const std::string key = "a key " + std::to_string(i * 7 % 40);
    text += key + "=" + std::to_string(i) + "\n";
    questions.push_back({"s", key});
  }
  for (int i = 0; i < 40; ++i) text += "A KEY " + std::to_string(i) + "=other\n";
  for (int i = 0; i < 40; ++i) questions.push_back({"S", "a Key " + std::to_string(i)});
  ExpectAnswers(text, questions);
}

TEST(ProfileReaderTest, ManySectionsAndNone) {
  std::string text;
  std::vector<Question> questions;
  for (int i = 0; i < 100; ++i) {
    const std::string section = "Section" + std::to_string(i);
    text += "[" + section + "]\r\nkey=" + std::to_string(i) + "\r\nlast=" + std::to_string(-i) + "\r\n";
    questions.push_back({section, "key"});
    questions.push_back({"none" + section, "key"});
    questions.push_back({section, "last"});
  }
  ExpectAnswers(text, questions);
  ExpectAnswers("", {{"", ""}, {"s", "k"}});
}

}  // namespace
}  // namespace vestrel
