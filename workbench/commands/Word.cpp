#include "workbench/commands/Word.h"

namespace vestrel::workbench {

namespace {

constexpr std::string_view kBlanks = " \t\r";

class LineReader {
 public:
  explicit LineReader(std::string_view line) : rest_(line) {}

  bool AtEnd() {
    const std::size_t start = rest_.find_first_not_of(kBlanks);
    rest_.remove_prefix(start == std::string_view::npos ? rest_.size() : start);
    return rest_.empty() || rest_.front() == '#';
  }
  Word Next() { return rest_.front() == '"' ? Quoted() : Plain(); }

 private:
  Word Plain() {
    const std::size_t length = rest_.find_first_of(" \t\r#\"");
    Word word{std::string(rest_.substr(0, length)), false};
    rest_.remove_prefix(word.text.size());
    if (!rest_.empty() && rest_.front() == '"') {
      throw BadCommand("a blank is missing before the text after " + word.text);
    }
    return word;
  }

  Word Quoted() {
    Word word{{}, true};
    rest_.remove_prefix(1);
    while (!TakeClosingQuote()) {
      if (rest_.empty()) throw BadCommand("the text \"" + word.text + " has no closing quote");
      if (rest_.front() == '"') rest_.remove_prefix(1);
      word.text += rest_.front();
      rest_.remove_prefix(1);
    }
    if (!rest_.empty() && kBlanks.find(rest_.front()) == std::string_view::npos && rest_.front() != '#') {
      throw BadCommand("a blank is missing after the text \"" + word.text + "\"");
    }
    return word;
  }

  bool TakeClosingQuote() {
    if (rest_.empty() || rest_.front() != '"' || rest_.substr(0, 2) == "\"\"") return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view rest_;
};

// Where the comment begins, or the line's length.
std::size_t CommentStart(std::string_view line) {
  bool inText = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') inText = !inText;
    if (line[i] == '#' && !inText) return i;
  }
  return line.size();
}

}  // namespace

std::vector<Word> SplitLine(std::string_view line) {
  std::vector<Word> words;
  LineReader reader(line);
  while (!reader.AtEnd()) words.push_back(reader.Next());
  return words;
}

std::string_view CommandPart(std::string_view line) {
  line = line.substr(0, CommentStart(line));
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace vestrel::workbench
