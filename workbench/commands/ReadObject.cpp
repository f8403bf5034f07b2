#include "workbench/commands/ReadObject.h"

#include <limits>
#include <optional>

#include "core/Cast.h"
#include "core/Convert.h"
#include "workbench/commands/ReadWord.h"

namespace vestrel::workbench {

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

// The text after "@", or nothing when the word does not begin with it.
std::optional<std::string_view> Address(std::string_view text) {
  if (!text.starts_with('@')) return std::nullopt;
  return text.substr(1);
}

std::int32_t ReadPart(std::string_view text, const Parameter& parameter) {
  return ReadWhole({std::string(text), false}, parameter, 0, kMost);
}

Ref<clsButton> FindButton(std::string_view text, const Parameter& parameter, CommandSession& session) {
  const std::optional<std::string_view> address = Address(text);
  const std::size_t slash = address ? address->find('/') : std::string_view::npos;
  if (slash == std::string_view::npos) {
    RejectWord(parameter, "\"" + std::string(text) + "\" is no button; one is written @group/index");
  }
  const std::int32_t group = ReadPart(address->substr(0, slash), parameter);
  const std::int32_t index = ReadPart(address->substr(slash + 1), parameter);
  Ref<clsButton> button = session.host().controller().buttonWithIndex(group, index);
  if (!button) RejectWord(parameter, "there is no button " + std::string(text) + " on the current page");
  return button;
}

}  // namespace

Ref<clsButton> ReadButton(const Word& word, const Parameter& parameter, CommandSession& session) {
  return FindButton(word.text, parameter, session);
}

Ref<clsButtonGroup> ReadGroup(const Word& word, const Parameter& parameter, CommandSession& session) {
  const std::optional<std::string_view> address = Address(word.text);
  if (!address) RejectWord(parameter, "\"" + word.text + "\" is no group; one is written @group");
  const std::int32_t group = ReadWhole({std::string(*address), false}, parameter, 0, 9);
  return session.host().controller().PageManager()->CurrentPage()->ButtonGroups(group);
}

Ref<Object> ReadObject(const Word& word, const Parameter& parameter, CommandSession& session) {
  if (word.text.find('/') != std::string::npos) return ReadButton(word, parameter, session);
  return ReadGroup(word, parameter, session);
}

Ref<clsObjectList> ReadList(const Word& word, const Parameter& parameter, CommandSession& session) {
  if (word.text.find('/') == std::string::npos) return ReadGroup(word, parameter, session)->buttons;
  auto list = MakeRef<clsObjectList>();
  std::string_view rest = word.text;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    list->AddItem(FindButton(rest.substr(0, comma), parameter, session).get());
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return list;
}

Ref<IComparable> ReadComparable(const Word& word, const Parameter& parameter, CommandSession& session) {
  if (!word.quoted && word.text.starts_with('@')) return ReadButton(word, parameter, session);
  if (!word.quoted && IsNumericText(FromUtf8(word.text))) return ReadBoxedNumber(word, parameter, session);
  return ReadBoxedText(word, parameter, session);
}

Ref<clsLong> ReadBoxedNumber(const Word& word, const Parameter& parameter, CommandSession& session) {
  return session.statics().BoxLong(ReadWhole(word, parameter, -kMost - 1, kMost));
}

Ref<clsString> ReadBoxedText(const Word& word, const Parameter&, CommandSession& session) {
  return session.statics().BoxString(FromUtf8(word.text));
}

std::vector<Variant> ReadTexts(const Word& word) {
  std::vector<Variant> texts;
  std::string_view rest = word.text;
  while (true) {
    const std::size_t bar = rest.find('|');
    const std::u16string text = FromUtf8(rest.substr(0, bar));
    texts.emplace_back(std::u16string_view(text));
    if (bar == std::string_view::npos) return texts;
    rest.remove_prefix(bar + 1);
  }
}

Ref<clsPage> ReadPage(const Word& word, const Parameter& parameter, CommandSession& session) {
  const Ref<clsObjectList> pages = session.host().controller().PageManager()->PageList();
  const std::int32_t position = pages->FindFieldValue(u"pageName", FromUtf8(word.text));
  if (position < 0) RejectWord(parameter, "there is no page \"" + word.text + "\" in the show");
  return &Cast<clsPage>(pages->GetItem(position).get());
}

Ref<vxEvent> ReadEvent(const Word& word, const Parameter& parameter, CommandSession& session) {
  const Ref<clsObjectList> events = session.host().record().EventList();
  const std::int32_t position = ReadPart(word.text, parameter);
  if (position >= events->Size()) RejectWord(parameter, "the recording has no event " + word.text);
  return &Cast<vxEvent>(events->GetItem(position).get());
}

Ref<clsDictionary> ReadButtonMap(const Word& word, const Parameter& parameter, CommandSession& session) {
  if (word.text != "buttons") {
    RejectWord(parameter, "\"" + word.text + "\" is no map; the current page's is written buttons");
  }
  return session.host().controller().GetButtonMap();
}

void ExpectHost(const Word& word, const Parameter& parameter) {
  if (word.text != "host") {
    RejectWord(parameter, "\"" + word.text + "\" is no object of the host; its own is written host");
  }
}

}  // namespace vestrel::workbench
