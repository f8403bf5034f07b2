#include <gtest/gtest.h>

#include "workbench/commands/Word.h"

namespace vestrel::workbench {
namespace {

// The words with "|" between them, texts in <>.
std::string Split(std::string_view line) {
  std::string joined;
  for (const Word& word : SplitLine(line)) {
    if (!joined.empty()) joined += "|";
    joined += word.quoted ? "<" + word.text + ">" : word.text;
  }
  return joined;
}

std::string ProblemOf(std::string_view line) {
  try {
    SplitLine(line);
  } catch (const BadCommand& bad) {
    return bad.what();
  }
  return "none";
}

TEST(WordTest, SplitsAtBlanksTextsAndComments) {
  const struct {
    std::string_view line;
    std::string_view words;
  } cases[] = {
      {"", ""},
      {"  \t ", ""},
      {"# a comment", ""},
      {"controlClicked 33 1 0 0 0", "controlClicked|33|1|0|0|0"},
      {"\t wait   1500\t", "wait|1500"},
      {"wait 5 # and a comment", "wait|5"},
      {"wait 5# and a comment", "wait|5"},
      {"CreateNewShow \"Gala Night\"", "CreateNewShow|<Gala Night>"},
      {"AddPage \"# 1\" # two", "AddPage|<# 1>"},
      {"AddPage \"say \"\"go\"\" twice\"", "AddPage|<say \"go\" twice>"},
      {"AddPage \"\"", "AddPage|<>"},
      {"AddPage \"\"\"\"", "AddPage|<\">"},
      {"AddPage \"a\"#comment", "AddPage|<a>"},
      {"releaseButtonsOnPage -1 - @1/2", "releaseButtonsOnPage|-1|-|@1/2"},
      {"wait 5\r", "wait|5"},
  };
  for (const auto& test : cases) EXPECT_EQ(Split(test.line), test.words) << test.line;
}

TEST(WordTest, TellsWhatIsWrongWithATextOrItsSurroundings) {
  EXPECT_EQ(ProblemOf("AddPage \"Main"), "the text \"Main has no closing quote");
  EXPECT_EQ(ProblemOf("AddPage \"Main\"\""), "the text \"Main\" has no closing quote");
  EXPECT_EQ(ProblemOf("AddPage \"Main\"Page"), "a blank is missing after the text \"Main\"");
  EXPECT_EQ(ProblemOf("AddPage Main\"Page\""), "a blank is missing before the text after Main");
}

TEST(WordTest, ADashIsAPlaceholderUnlessItIsQuoted) {
  EXPECT_TRUE(SplitLine("-").front().IsPlaceholder());
  EXPECT_FALSE(SplitLine("\"-\"").front().IsPlaceholder());
  EXPECT_FALSE(SplitLine("-1").front().IsPlaceholder());
}

TEST(WordTest, TheCommandPartHasNoCommentAndNoBlanksAroundIt) {
  EXPECT_EQ(CommandPart("  wait 5  # later"), "wait 5");
  EXPECT_EQ(CommandPart("AddPage \"# 1\"  "), "AddPage \"# 1\"");
  EXPECT_EQ(CommandPart("# only a comment"), "");
  EXPECT_EQ(CommandPart("   "), "");
}

}  // namespace
}  // namespace vestrel::workbench
