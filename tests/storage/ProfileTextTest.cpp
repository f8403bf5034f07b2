// The rules of INI text, one row each, read and written.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "storage/ProfileChange.h"
#include "storage/ProfileIndex.h"
#include "storage/ProfileText.h"

namespace vestrel {
namespace {

struct ReadRow {
  const char* rule;
  std::string_view text;
  std::string_view section;
  std::string_view key;
  std::string_view expected;  // "<none>" when there is no such key
};

std::string Found(const ReadRow& row) {
  return std::string(ProfileText(row.text).Find(row.section, row.key).value_or("<none>"));
}

const ReadRow kReadRows[] = {
    {"names match in any case, values keep theirs", "[S]\r\nKey=Value\r\n", "s", "KEY", "Value"},
    {"letters beyond ASCII are not folded", "[S\xC9]\r\nk=v\r\n", "S\xE9", "k", "<none>"},
    {"blanks before a section line", " \t[s]\r\nk=v\r\n", "s", "k", "v"},
    {"blanks round name and value", "[s]\r\n \t\vk \t=\v v \t\r\n", "s", "k", "v"},
    {"form feed and end-of-file mark are blanks", "[s]\r\n\fk=v\x1A\r\n", "s", "k", "v"},
    {"other high bytes are none", "[s]\r\nk=\xA0v\x85\r\n", "s", "k", "\xA0v\x85"},
    {"blanks inside the brackets", "[ s ]\r\nk=v\r\n", "s", "k", "v"},
    {"inner blanks count", "[s\tt]\r\nk=v\r\n", "s t", "k", "<none>"},
    {"LF ends a line", "[s]\nk=v\nl=w\n", "s", "l", "w"},
    {"CR ends a line", "[s]\rk=v\rl=w\r", "s", "l", "w"},
    {"a last line needs no end", "[s]\r\nk=v", "s", "k", "v"},
    {"a section ends at the first bracket", "[d]e]\r\nk=v\r\n", "d", "k", "v"},
    {"and has no longer name", "[d]e]\r\nk=v\r\n", "d]e", "k", "<none>"},
    {"text behind the bracket is ignored", "[a]x=1\r\nk=v\r\n", "a", "x", "<none>"},
    {"so is a note", "[h] ; note\r\nk=v\r\n", "h", "k", "v"},
    {"a missing bracket ends with the line", "[ s \r\nk=v\r\n", "s", "k", "v"},
    {"a bracket alone at the end opens nothing", "s]\r\nk=v\r\n", "s", "k", "<none>"},
    {"a second opening bracket belongs to the name", "[[f]\r\nk=v\r\n", "[f", "k", "v"},
    {"a comment is never found", "[s]\r\n;k=v\r\n", "s", ";k", "<none>"},
    {"nor is an indented one", "[s]\r\n  ;k=v\r\n", "s", ";k", "<none>"},
    {"a semicolon in a value is text", "[s]\r\nk=v;w\r\n", "s", "k", "v;w"},
    {"a semicolon in a name is text", "[s;t]\r\nk;l=v\r\n", "s;t", "k;l", "v"},
    {"a hash is no comment", "[s]\r\n#k=v\r\n", "s", "#k", "v"},
    {"a line without = is no key", "[s]\r\nk\r\n", "s", "k", "<none>"},
    {"the first = divides", "[s]\r\nk==1=2\r\n", "s", "k", "=1=2"},
    {"a key may have no name", "[s]\r\n=v\r\n", "s", "", "v"},
    {"a value may be empty", "[s]\r\nk=\r\n", "s", "k", ""},
    {"the first of two keys counts", "[s]\r\nk=1\r\nk=2\r\n", "s", "k", "1"},
    {"an absent section has no keys", "[s]\r\nk=v\r\n", "t", "k", "<none>"},
    {"only the first of two sections is looked into", "[s]\r\n[t]\r\n[s]\r\nk=v\r\n", "s", "k", "<none>"},
    {"keys before the first section are out of reach", "k=v\r\n[s]\r\n", "", "k", "<none>"},
    {"a section may have no name", "[]\r\nk=v\r\n", "", "k", "v"},
    {"double quotes go", "[s]\r\nk=\" v \"\r\n", "s", "k", " v "},
    {"single quotes go", "[s]\r\nk=' v '\r\n", "s", "k", " v "},
    {"one pair only", "[s]\r\nk=\"\"v\"\"\r\n", "s", "k", "\"v\""},
    {"unlike quotes stay", "[s]\r\nk=\"v'\r\n", "s", "k", "\"v'"},
    {"a lone quote stays", "[s]\r\nk=\"\r\n", "s", "k", "\""},
    {"a closing quote alone stays", "[s]\r\nk=x\"\r\n", "s", "k", "x\""},
    {"an opening quote alone stays", "[s]\r\nk=\"x, x\r\n", "s", "k", "\"x, x"},
    {"an empty pair is empty", "[s]\r\nk=''\r\n", "s", "k", ""},
    {"of either kind", "[s]\r\nk=\"\"\r\n", "s", "k", ""},
    {"two pairs lose their outer quotes", "[s]\r\nk=\"\" \"\"\r\n", "s", "k", "\" \""},
    {"quotes before a note stay", "[s]\r\nk=\"x\" ;c\r\n", "s", "k", "\"x\" ;c"},
    {"quotes in names are text", "['s']\r\n\"k\"=v\r\n", "'s'", "\"k\"", "v"},
    {"spaces round the names asked for are ignored", "[s]\r\nk=v\r\n", " s ", " k ", "v"},
    {"tabs there are not", "[s]\r\nk=v\r\n", "s", "\tk", "<none>"},
    {"tabs round a section asked for are not", "[s]\r\nk=v\r\n", "s\t", "k", "<none>"},
    {"nor are vertical tabs", "[s]\r\nk=v\r\n", "s", "k\v", "<none>"},
    {"nor are line ends", "[s]\r\nk=v\r\n", "s", "k\r\n", "<none>"},
    {"nor are line ends round a section", "[s]\r\nk=v\r\n", "\rs", "k", "<none>"},
    {"a mark of UTF-8 hides a section on line 1", "\xEF\xBB\xBF[s]\r\nk=v\r\n", "s", "k", "<none>"},
    {"later sections are found", "\xEF\xBB\xBF[s]\r\n[t]\r\nk=v\r\n", "t", "k", "v"},
    {"a mark of UTF-16 big endian is text", std::string_view("\xFE\xFF\0[\0s\0]", 8), "s", "k", "<none>"},
    {"an end-of-file mark inside is text",
     "[s]\r\nk=a\x1A"
     "b\r\nl=w\r\n",
     "s", "l", "w"},
    {"a null is text", std::string_view("[s]\r\nk=a\0b\r\n", 12), "s", "k", std::string_view("a\0b", 3)},
    {"a bracket inside a value opens nothing", "[s]\r\nj=[t]\r\nk=v\r\n", "s", "k", "v"},
    {"an empty text holds nothing", "", "", "", "<none>"},
};

TEST(ProfileTextTest, ReadsByTheRules) {
  for (const ReadRow& row : kReadRows) EXPECT_EQ(Found(row), row.expected) << row.rule;
}

TEST(ProfileTextTest, ListsEveryKeyAndSection) {
  const ProfileText text("x=0\r\n[s]\r\nk=1\r\n;c=2\r\njunk\r\nK=3\r\n[t]\r\n[S]\r\nz=4\r\n");
  EXPECT_EQ(text.Keys("S"), (std::vector<std::string_view>{"k", "K"}));
  EXPECT_EQ(text.Sections(), (std::vector<std::string_view>{"s", "t", "S"}));
  EXPECT_TRUE(text.Keys("none").empty());
}

struct WriteRow {
  const char* rule;
  std::string_view text;
  std::vector<ProfileEdit> edits;
  std::string_view expected;
};

const WriteRow kWriteRows[] = {
    {"all other lines keep their bytes",
     "; head \r\n\r\n [ s ]x \n  j = 1 \r k=2\r\n\r\nend",
     {{"s", "k", "3"}},
     "; head \r\n\r\n [ s ]x \n  j = 1 \rk=3\r\n\r\nend"},
    {"a new file gets section and key", "", {{"s", "k", "v"}}, "[s]\r\nk=v\r\n"},
    {"a changed key keeps its place and spelling",
     "[S]\r\nKey=1\r\nj=2\r\n",
     {{"s", "KEY", "x"}},
     "[S]\r\nKey=x\r\nj=2\r\n"},
    {"blanks round the = go when the line is written",
     "[s]\r\n k =  1\r\n",
     {{"s", "k", "2"}},
     "[s]\r\nk=2\r\n"},
    {"a value held already is not written", "[s]\nk=1", {{"s", "k", "1"}}, "[s]\nk=1"},
    {"and its line keeps its blanks", "[s]\r\n k =1\n", {{"s", "k", "1"}}, "[s]\r\n k =1\n"},
    {"a changed last line gets its end", "[s]\r\nk=1", {{"s", "k", "2"}}, "[s]\r\nk=2\r\n"},
    {"a written line ends with CR LF", "[s]\nk=1\nj=1\n", {{"s", "k", "2"}}, "[s]\nk=2\r\nj=1\n"},
    {"a new key goes behind the last key",
     "[s]\r\nk=1\r\n\r\n;c\r\n[t]\r\n",
     {{"s", "j", "2"}},
     "[s]\r\nk=1\r\nj=2\r\n\r\n;c\r\n[t]\r\n"},
    {"a line that is no key holds the place as well",
     "[s]\r\nk=1\r\njunk\r\n\r\n",
     {{"s", "j", "2"}},
     "[s]\r\nk=1\r\njunk\r\nj=2\r\n\r\n"},
    {"an empty line that ends with LF alone counts",
     "[s]\nk=1\n\n[t]\n",
     {{"s", "j", "2"}},
     "[s]\nk=1\nj=2\r\n\n[t]\n"},
    {"in a section without keys it goes behind the header",
     "[s]\r\n;c\r\n",
     {{"s", "k", "1"}},
     "[s]\r\nk=1\r\n;c\r\n"},
    {"new keys keep the order of writing",
     "[s]\r\n",
     {{"s", "b", "1"}, {"s", "a", "2"}},
     "[s]\r\nb=1\r\na=2\r\n"},
    {"a new section goes to the end",
     "[s]\r\nk=1\r\n\r\n",
     {{"t", "j", "2"}},
     "[s]\r\nk=1\r\n\r\n[t]\r\nj=2\r\n"},
    {"behind a last line without end", "[s]\r\nk=1", {{"t", "j", "2"}}, "[s]\r\nk=1\r\n[t]\r\nj=2\r\n"},
    {"a key there as well", "[s]\r\nk=1", {{"s", "j", "2"}}, "[s]\r\nk=1\r\nj=2\r\n"},
    {"a last line is ended once",
     "[s]\r\nk=1",
     {{"s", "k", "2"}, {"s", "j", "3"}, {"t", "i", "4"}},
     "[s]\r\nk=2\r\nj=3\r\n[t]\r\ni=4\r\n"},
    {"also where a new key ends it",
     "[s]\r\nk=1",
     {{"s", "j", "3"}, {"t", "i", "4"}},
     "[s]\r\nk=1\r\nj=3\r\n[t]\r\ni=4\r\n"},
    {"a header without end", "[s]", {{"s", "k", "1"}}, "[s]\r\nk=1\r\n"},
    {"a mark of UTF-8 counts as a line", "\xEF\xBB\xBF", {{"s", "k", "1"}}, "\xEF\xBB\xBF\r\n[s]\r\nk=1\r\n"},
    {"a section behind a mark of UTF-8 is not found by writes either",
     "\xEF\xBB\xBF[s]\r\nk=1\r\n",
     {{"s", "k", "2"}},
     "\xEF\xBB\xBF[s]\r\nk=1\r\n[s]\r\nk=2\r\n"},
    {"a mark of UTF-16 big endian is text of the first line",
     std::string_view("\xFE\xFF\0[\0s\0]", 8),
     {{"s", "k", "2"}},
     std::string_view("\xFE\xFF\0[\0s\0]\r\n[s]\r\nk=2\r\n", 20)},
    {"spaces round names go", "", {{" s ", " k ", "v"}}, "[s]\r\nk=v\r\n"},
    {"tabs stay", "", {{"\ts", "k\t", "v"}}, "[\ts]\r\nk\t=v\r\n"},
    {"vertical tabs stay", "", {{"s\v", "\vk", "v"}}, "[s\v]\r\n\vk=v\r\n"},
    {"line ends in names are written", "", {{"s\r\nt", "k\r\nl", "v"}}, "[s\r\nt]\r\nk\r\nl=v\r\n"},
    {"blanks round a value stay", "[s]\r\nk=1\r\n", {{"s", "k", " v "}}, "[s]\r\nk= v \r\n"},
    {"quotes are not added", "", {{"s", "k", "\"v\""}}, "[s]\r\nk=\"v\"\r\n"},
    {"a line break is written as it is",
     "[s]\r\nk=1\r\nj=2\r\n",
     {{"s", "k", "a\r\nj=b"}},
     "[s]\r\nk=a\r\nj=b\r\nj=2\r\n"},
    {"and later writes see its lines",
     "[s]\r\n",
     {{"s", "k", "a\r\nj=b"}, {"s", "j", "c"}},
     "[s]\r\nk=a\r\nj=c\r\n"},
    {"an empty value", "", {{"s", "k", ""}}, "[s]\r\nk=\r\n"},
    {"an empty key", "", {{"s", "", "v"}}, "[s]\r\n=v\r\n"},
    {"an empty section", "", {{"", "k", "v"}}, "[]\r\nk=v\r\n"},
    {"a bracket in a section is written and not found again",
     "[a]b]\r\nk=1\r\n",
     {{"a]b", "k", "2"}},
     "[a]b]\r\nk=1\r\n[a]b]\r\nk=2\r\n"},
    {"an = in a key as well", "[s]\r\na=b=1\r\n", {{"s", "a=b", "2"}}, "[s]\r\na=b=1\r\na=b=2\r\n"},
    {"a key like a section",
     "[s]\r\nk=1\r\n",
     {{"s", "[t", "2"}, {"s", "[t", "3"}},
     "[s]\r\nk=1\r\n[t=3\r\n[t=2\r\n"},
    {"a key like a comment goes in front of earlier ones",
     "[s]\r\nk=1\r\n;x=1\r\n",
     {{"s", ";x", "2"}},
     "[s]\r\nk=1\r\n;x=2\r\n;x=1\r\n"},
    {"two such keys",
     "[s]\r\nk=1\r\n",
     {{"s", ";x", "1"}, {"s", ";x", "2"}},
     "[s]\r\nk=1\r\n;x=2\r\n;x=1\r\n"},
    {"only the first of two keys is changed",
     "[s]\r\nk=1\r\nk=2\r\n",
     {{"s", "k", "3"}},
     "[s]\r\nk=3\r\nk=2\r\n"},
    {"only the first of two sections is changed",
     "[s]\r\n[t]\r\n[s]\r\nk=1\r\n",
     {{"s", "k", "2"}},
     "[s]\r\nk=2\r\n[t]\r\n[s]\r\nk=1\r\n"},
    {"deleting takes the first key of the name",
     "[s]\r\nK=1\r\nk=2\r\n",
     {{"s", "k", std::nullopt}},
     "[s]\r\nk=2\r\n"},
    {"and leaves an empty section", "[s]\r\nk=1\r\n[t]\r\n", {{"s", "k", std::nullopt}}, "[s]\r\n[t]\r\n"},
    {"and no end for the line before", "[s]\nk=1", {{"s", "k", std::nullopt}}, "[s]\n"},
    {"deleting with spaces round the names", "[s]\r\nk=1\r\n", {{" s ", " k ", std::nullopt}}, "[s]\r\n"},
    {"a comment is not deleted", "[s]\r\n;k=1\r\n", {{"s", ";k", std::nullopt}}, "[s]\r\n;k=1\r\n"},
    {"nothing from a second section",
     "[s]\r\n[s]\r\nk=1\r\n",
     {{"s", "k", std::nullopt}},
     "[s]\r\n[s]\r\nk=1\r\n"},
    {"deleting what is absent changes nothing",
     "[s]\r\nk=1",
     {{"s", "j", std::nullopt}, {"t", "k", std::nullopt}},
     "[s]\r\nk=1"},
    {"a key deleted and written again moves to the end",
     "[s]\r\nk=1\r\nj=2\r\n",
     {{"s", "k", std::nullopt}, {"s", "K", "3"}},
     "[s]\r\nj=2\r\nK=3\r\n"},
    {"a key added and deleted leaves its section",
     "",
     {{"s", "k", "1"}, {"s", "k", std::nullopt}},
     "[s]\r\n"},
    {"the last value of a new key counts, under its first spelling",
     "",
     {{"s", "k", "1"}, {"S", "K", "2"}},
     "[s]\r\nk=2\r\n"},
    {"a line that is no key is not taken for one", "[s]\r\nk\r\n", {{"s", "k", "1"}}, "[s]\r\nk\r\nk=1\r\n"},
    {"sections in any order",
     "[s]\r\nk=1\r\n[t]\r\nk=1\r\n",
     {{"t", "k", "22"}, {"u", "k", "3"}, {"s", "k", "44"}},
     "[s]\r\nk=44\r\n[t]\r\nk=22\r\n[u]\r\nk=3\r\n"},
    {"nulls keep their place",
     std::string_view("a\0b\r\n[s]\r\nk=\0\r\n", 15),
     {{"s", "j", "1"}},
     std::string_view("a\0b\r\n[s]\r\nk=\0\r\nj=1\r\n", 20)},
};

TEST(ProfileTextTest, WritesByTheRules) {
  for (const WriteRow& row : kWriteRows) EXPECT_EQ(EditedFile(row.text, row.edits), row.expected) << row.rule;
}

TEST(ProfileTextTest, BytesBeyondAsciiPassUnchanged) {
  std::string high;
  for (int byte = 0x80; byte <= 0xFF; ++byte) high += static_cast<char>(byte);
  const std::string written = EditedFile("", std::vector<ProfileEdit>{{high, high, high}});
  EXPECT_EQ(written, "[" + high + "]\r\n" + high + "=" + high + "\r\n");
  EXPECT_EQ(ProfileText(written).Find(high, high), high);
}

TEST(ProfileTextTest, NamesMayHaveAnyLength) {
  const std::string name(70000, 'n');
  const std::string written = EditedFile("", std::vector<ProfileEdit>{{name, name, "1"}, {"s", name, "2"}});
  EXPECT_EQ(ProfileText(written).Find(name, name), "1");
  EXPECT_EQ(ProfileText(written).Find("s", name), "2");
  EXPECT_EQ(ProfileText(written).Keys(name), std::vector<std::string_view>{name});
}

// Whatever a line's length, its end is where it stands.
TEST(ProfileTextTest, LinesMayHaveAnyLengthAndEnd) {
  for (const std::string_view end : {"\r\n", "\n", "\r"}) {
    for (std::size_t length = 0; length < 70; ++length) {
      const std::string value(length, 'v');
      const std::string text = std::string("[s]").append(end) + "before=" + value + std::string(end) +
                               "key and more=" + value + std::string(end) + "after=" + value;
      EXPECT_EQ(Found({"", text, "s", "before", ""}), value) << length;
      EXPECT_EQ(Found({"", text, "s", "key and more", ""}), value) << length;
      EXPECT_EQ(Found({"", text, "s", "after", ""}), value) << length;
      const ProfileEdit edit{"s", "key and more", "new"};
      const std::string now = EditedFile(text, std::span(&edit, 1));
      EXPECT_EQ(Found({"", now, "s", "key and more", ""}), "new") << length;
      EXPECT_EQ(Found({"", now, "s", "after", ""}), value) << length;
    }
  }
}

// "@" and "`", "[" and "{" differ by what divides large from small letters, and are none.
TEST(ProfileTextTest, LongNamesMatchInAnyCaseOfLettersAlone) {
  const std::string_view text = "[A long @ section]\r\nA long @ key=1\r\nA LONG KEY WITH {=2\r\n";
  EXPECT_EQ(Found({"", text, "a LONG @ SECTION", "a LONG @ KEY", ""}), "1");
  EXPECT_EQ(Found({"", text, "A long @ section", "A long ` key", ""}), "<none>");
  EXPECT_EQ(Found({"", text, "A long ` section", "A long @ key", ""}), "<none>");
  EXPECT_EQ(Found({"", text, "A long @ section", "a long key with [", ""}), "<none>");
  const std::vector<ProfileEdit> edits{{"A long @ section", "A long ` key", "3"},
                                       {"A long @ section", "a LONG @ key", "4"},
                                       {"A long @ section", "A long key without", "5"}};
  EXPECT_EQ(EditedFile(text, edits),
            "[A long @ section]\r\nA long @ key=4\r\nA LONG KEY WITH {=2\r\nA long ` key=3\r\n"
            "A long key without=5\r\n");
}

TEST(ProfileTextTest, LongNamesThatDifferAnywhereAreOthers) {
  const std::string name = "Button12_fields of a group";
  const std::string text = "[s]\r\n" + name + "=1\r\n";
  for (std::size_t at = 0; at < name.size(); ++at) {
    std::string other = name;
    other[at] = '#';
    EXPECT_EQ(Found({"", text, "s", other, ""}), "<none>") << other;
    EXPECT_EQ(ProfileIndex(text).Find("s", other), std::nullopt) << other;
  }
}

// From "@" to "[": what stands at either end of the large letters is none.
TEST(ProfileTextTest, EveryLetterMatchesInAnyCaseAndItsNeighboursDoNot) {
  std::vector<std::string> others;
  for (int i = 0; i < 10; ++i) others.push_back("other" + std::to_string(i));
  for (char c = '@'; c <= '['; ++c) {
    const std::string large{'k', c};
    const std::string small{'k', static_cast<char>(c + ('a' - 'A'))};
    const std::string text = "[s]\r\n" + large + "=1\r\n";
    const bool letter = c >= 'A' && c <= 'Z';
    EXPECT_EQ(Found({"", text, "s", small, ""}), letter ? "1" : "<none>") << c;
    EXPECT_EQ(ProfileIndex(text).Find("s", small).has_value(), letter) << c;
    std::vector<ProfileEdit> edits{{"s", small, "2"}};
    for (const std::string& other : others) edits.push_back({"s", other, "0"});
    edits.push_back({"s", large, "3"});
    const std::string now = EditedFile(text, edits);
    EXPECT_EQ(Found({"", now, "s", small, ""}), letter ? "3" : "2") << now;
    EXPECT_EQ(Found({"", now, "s", large, ""}), "3") << now;
  }
}

// Names that read back as others are written one at a time, whatever stands before and after them.
TEST(ProfileTextTest, OddNamesAmongOthersComeOutAsOneByOne) {
  const std::vector<std::string> odd{"\tk", "k\t", "a\nb", "a\rb", "a=b", ";k", "[k", "a]b", " k ", "k"};
  for (const std::string& name : odd) {
    for (const bool asSection : {false, true}) {
      const ProfileEdit strange = asSection ? ProfileEdit{name, "x", "1"} : ProfileEdit{"s", name, "1"};
      const std::vector<ProfileEdit> edits{
          {"s", "before", "0"}, strange, strange, {"s", "after", "2"}, strange};
      std::string oneByOne;
      for (const ProfileEdit& edit : edits) oneByOne = EditedFile(oneByOne, std::span(&edit, 1));
      EXPECT_EQ(EditedFile("", edits), oneByOne) << name;
    }
  }
}

// The names may be cut from one text.
TEST(ProfileTextTest, ASectionWhoseNameBeginsAsThatBeforeIsAnother) {
  const std::string_view name = "a]b";
  const std::vector<ProfileEdit> edits{{name.substr(0, 1), "k", "1"}, {name, "k", "2"}};
  EXPECT_EQ(ProfileText::RunLength(edits), 1U);
  EXPECT_EQ(EditedFile("", edits), "[a]\r\nk=1\r\n[a]b]\r\nk=2\r\n");
}

// Wherever in it a line end stands; what is no line end divides no value, however low its byte.
TEST(ProfileTextTest, OnlyALineEndTakesAnEditOutOfARun) {
  for (std::size_t length = 1; length < 30; ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      std::string value(length, 'v');
      for (char c = '\0'; c <= ' '; ++c) {
        value[at] = c;
        const std::vector<ProfileEdit> edits{{"s", "k", value}, {"s", "j", "1"}};
        EXPECT_EQ(ProfileText::RunLength(edits), c == '\r' || c == '\n' ? 1U : 2U) << int{c} << " at " << at;
      }
    }
  }
}

TEST(ProfileTextTest, ManyKeysAtOnceComeOutAsOneByOne) {
  std::string text = "[a]\r\nKEY3=old\r\nkey3=other\r\n[b]\r\nkey1=old";
  ProfileEdits edits;
  for (int i = 0; i < 40; ++i) {
    edits.Add({i % 3 == 0 ? "b" : "A", "Key" + std::to_string(i % 17), std::to_string(i)});
  }
  std::string oneByOne = text;
  for (const ProfileEdit& edit : edits.view()) oneByOne = EditedFile(oneByOne, std::span(&edit, 1));
  EXPECT_EQ(EditedFile(text, edits.view()), oneByOne);
}

// More than are searched for one by one, in the order of their numbers but for a few, or in none.
TEST(ProfileTextTest, ManyKeysInAnyOrderComeOutAsOneByOne) {
  std::mt19937 random(17);
  const auto name = [](std::uint64_t number) { return "Button" + std::to_string(number) + "_fields"; };
  for (int round = 0; round < 60; ++round) {
    const bool inOrder = round % 2 == 0;
    std::string text = "[s]\r\npageOffset=0\r\n";
    ProfileEdits edits;
    for (std::uint64_t i = 1; i <= 100; ++i) {
      const std::uint64_t line = inOrder && random() % 20 != 0 ? i : random() % 100;
      const std::uint64_t edit = inOrder && random() % 20 != 0 ? i : random() % 100;
      if (random() % 10 != 0)
        text += (random() % 10 == 0 ? "BUTTON" : "Button") + name(line).substr(6) + "=old\r\n";
      edits.Add({"S", name(edit), std::to_string(i)});
    }
    text += "[t]\r\nButton1_fields=other\r\n";
    std::string oneByOne = text;
    for (const ProfileEdit& edit : edits.view()) oneByOne = EditedFile(oneByOne, std::span(&edit, 1));
    ASSERT_EQ(EditedFile(text, edits.view()), oneByOne) << text;
  }
}

// Whatever the file holds and in whatever order the keys are written; but a value that goes and comes back in
// one run leaves its line as it was, so what is written here is not there before.
TEST(ProfileTextTest, AnyRunOfEditsComesOutAsOneByOne) {
  std::mt19937 random(13);
  const std::string_view pieces[] = {"[s]",  "[S] x",  "[t", "[]", "k1=11", "K2 =22", " k3= \"3\"", "=4",
                                     "junk", "; k1=5", "k1", "",   "k4=44", "k5=5",   "[u]",        "k6=66"};
  const std::string_view ends[] = {"\r\n", "\n", "\r"};
  const std::string_view sections[] = {"s", "T", "u", "new", " s ", ""};
  const std::string_view values[] = {"1", "2", "14", "", "longer than before", " 3 ", "two\r\nlines"};
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto i = random() % 20; i > 0; --i)
      text.append(pieces[random() % std::size(pieces)]).append(ends[random() % 8 < 6 ? 0 : random() % 3]);
    if (random() % 4 == 0) text += "k7=open end";
    ProfileEdits edits;
    for (auto i = random() % 30; i > 0; --i) {
      const std::string key = (random() % 2 == 0 ? "k" : " K") + std::to_string(random() % 9);
      const std::string_view section = sections[random() % 3 == 0 ? random() % std::size(sections) : 0];
      const std::string_view value = values[random() % (random() % 8 == 0 ? std::size(values) : 6)];
      edits.Add({section, key, random() % 16 == 0 ? std::nullopt : std::optional(value)});
    }
    std::string oneByOne = text;
    for (const ProfileEdit& edit : edits.view()) oneByOne = EditedFile(oneByOne, std::span(&edit, 1));
    ASSERT_EQ(EditedFile(text, edits.view()), oneByOne) << text;
  }
}

}  // namespace
}  // namespace vestrel
