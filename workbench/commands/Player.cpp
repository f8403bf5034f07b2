#include "workbench/commands/Player.h"

#include <exception>
#include <istream>
#include <string>
#include <vector>

#include "workbench/commands/Word.h"

namespace vestrel::workbench {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

void Player::Play(std::istream& commands) {
  std::string line;
  while (std::getline(commands, line)) {
    if (lineNumber_ == 0 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    PlayLine(line);
  }
}

void Player::PlayLine(std::string_view line) {
  ++lineNumber_;
  if (line.ends_with('\r')) line.remove_suffix(1);
  const std::string_view command = CommandPart(line);
  if (!command.empty()) {
    Perform(command);
  } else if (tellsStory_) {
    printer_.Plain(line);
  }
}

void Player::Perform(std::string_view command) {
  printer_.Command(command);
  try {
    printer_.Result(Invoke(command));
    return;
  } catch (const BadCommand& bad) {
    printer_.Rejected(lineNumber_, bad.what());
  } catch (const Error& error) {
    printer_.Failed(error);
  } catch (const std::exception& failure) {
    printer_.Failed(failure.what());
  }
  ++failures_;
}

Outcome Player::Invoke(std::string_view command) {
  const std::vector<Word> words = SplitLine(command);
  return table_.Get(words.front().text).invoke(session_, std::span(words).subspan(1));
}

}  // namespace vestrel::workbench
