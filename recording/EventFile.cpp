#include "recording/EventFile.h"

#include <algorithm>

#include "core/Error.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSource = u"vxEvent";
// Lines up to this length are read whole.
constexpr std::size_t kLongestLine = 1024;

bool IsAscii(std::u16string_view text) noexcept {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

void WriteFields(TextOutput& out, const vxEvent& event) {
  out.WriteLong(event.time());
  out.WriteText(event.button->name);
  out.WriteLong(event.eventType);
  out.WriteLong(event.mouseButton);
  out.WriteLong(event.shift);
  out.WriteSingle(event.x);
  out.WriteSingle(event.y);
  out.EndLine();
}

}  // namespace

void WriteEvent(TextOutput& out, const vxEvent& event) {
  if (!event.button) RaiseError(Error_ObjectNotSet, kSource);
  const std::u16string_view name = event.button->name;
  if (!IsAscii(name)) {
    WriteFields(out, event);
    return;
  }
  const EventLine line{event.time(), {}, event.eventType, event.mouseButton, event.shift, event.x, event.y};
  out.Written(WriteEventLine(out.Room(name.size() + kEventLineRoom), line, name));
}

bool EventReader::Read(vxEvent& event) {
  EventLine line;
  const std::size_t size = NextLine(line);
  if (size == 0) return ReadFields(event);
  event.Init(line.time, nullptr, static_cast<vxEventTypeEnum>(line.eventType));
  event.SetExtras(line.mouseButton, line.shift, line.x, line.y);
  // Before the name is looked up: what the map raises leaves the file at the next line.
  in_.TakeLine(size);
  const ButtonNames::Binding& binding = names_.Of(line.name);
  event.button = binding.button;
  return binding.known;
}

// 0 where the general reading must take over. The bytes at hand may end within the line; how far to look is
// bounded, because many events may lie on one line.
std::size_t EventReader::NextLine(EventLine& line) {
  const std::string_view atHand = in_.Buffered();
  const std::size_t size = ReadEventLine(atHand.substr(0, kLongestLine), line);
  if (size != 0 || atHand.size() >= kLongestLine) return size;
  return ReadEventLine(in_.AheadToLineEnd().substr(0, kLongestLine), line);
}

bool EventReader::ReadFields(vxEvent& event) {
  event.button = nullptr;
  event.SetTime(in_.ReadLong());
  const std::u16string name = in_.ReadText();
  event.eventType = static_cast<vxEventTypeEnum>(in_.ReadLong());
  event.mouseButton = in_.ReadShort();
  event.shift = in_.ReadShort();
  event.x = in_.ReadSingle();
  event.y = in_.ReadSingle();
  const ButtonNames::Binding binding = names_.LookUp(name);
  event.button = binding.button;
  return binding.known;
}

}  // namespace vestrel
