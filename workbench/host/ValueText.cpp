#include "workbench/host/ValueText.h"

#include <algorithm>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsDictionary.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "model/clsPage.h"
#include "recording/vxEvent.h"
#include "storage/clsSequence.h"

namespace vestrel::workbench {

namespace {

std::string ButtonText(const clsButton& button) {
  return ToUtf8(button.name) + "@" + ValueText(button.groupIndex) + "/" + ValueText(button.buttonIndex);
}

std::string ListText(clsObjectList& list) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(std::max(list.Size(), 0)));
  for (std::int32_t i = 0; i < list.Size(); ++i) texts.push_back(ObjectText(list.GetItem(i).get()));
  return "[" + JoinTexts(texts) + "]";
}

std::string DictionaryText(clsDictionary& dictionary) {
  std::vector<std::string> texts;
  const Ref<clsObjectList> keys = dictionary.KeyList();
  for (std::int32_t i = 0; i < keys->Size(); ++i) {
    const std::u16string key = Cast<clsString>(keys->GetItem(i).get()).value();
    texts.push_back(ValueText(key) + ": " + ValueText(dictionary.ValueOf(key)));
  }
  return "{" + JoinTexts(texts) + "}";
}

std::string EventText(const vxEvent& event) {
  const std::string what = event.eventType == vxEvent_ButtonOff ? " off at " : " on at ";
  return ValueText(event.button) + what + ValueText(event.time());
}

}  // namespace

std::string ValueText(bool value) {
  return value ? "true" : "false";
}

std::string ValueText(std::int32_t value) {
  return std::to_string(value);
}

std::string ValueText(std::int16_t value) {
  return std::to_string(value);
}

std::string ValueText(float value) {
  return ToUtf8(SingleToText(value));
}

std::string ValueText(std::u16string_view value) {
  std::string text = "\"";
  for (const char byte : ToUtf8(value)) {
    if (byte == '\r') continue;
    text += byte == '\n' ? ' ' : byte;
    if (byte == '"') text += '"';
  }
  return text + "\"";
}

std::string ValueText(const std::u16string& value) {
  return ValueText(std::u16string_view(value));
}

std::string ValueText(const TUIFaderValues& values) {
  std::string groups = "groups";
  std::string bumps = " bumps";
  for (std::int32_t i = 1; i <= 8; ++i) {
    groups += " " + ValueText(values.GroupFaders[i]);
    bumps += " " + ValueText(values.BumpFaders[i]);
  }
  return groups + bumps;
}

std::string ValueText(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Empty:
      return "empty";
    case Variant::Kind::Boolean:
      return ValueText(value.AsBoolean());
    case Variant::Kind::String:
      return ValueText(value.AsString());
    case Variant::Kind::Object:
      return ValueText(value.AsObject());
    default:
      return ToUtf8(ToText(value));
  }
}

std::string ValueText(const PlainText& value) {
  return value.text;
}

std::string ObjectText(Object* object) {
  if (object == nullptr) return "none";
  if (const auto* button = TryCast<clsButton>(object)) return ButtonText(*button);
  if (const auto* text = TryCast<clsString>(object)) return ValueText(text->value());
  if (const auto* number = TryCast<clsLong>(object)) return ValueText(number->value());
  if (auto* list = TryCast<clsObjectList>(object)) return ListText(*list);
  if (auto* dictionary = TryCast<clsDictionary>(object)) return DictionaryText(*dictionary);
  if (const auto* page = TryCast<clsPage>(object)) return "page " + ValueText(page->pageName());
  if (const auto* group = TryCast<clsButtonGroup>(object)) return "group " + ValueText(group->groupIndex());
  if (const auto* event = TryCast<vxEvent>(object)) return EventText(*event);
  if (const auto* sequence = TryCast<clsSequence>(object)) return "sequence " + ValueText(sequence->theName);
  return "object";
}

std::string JoinTexts(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) joined += ", ";
    joined += text;
  }
  return joined;
}

}  // namespace vestrel::workbench
