#include "recording/EventFile.h"

#include <utility>

#include "core/Error.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSource = u"vxEvent";
// With so many bytes at hand, the general reading may take over where they hold no line to be read whole.
constexpr std::size_t kLongestLine = 1024;

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
  const EventLine line{event.time(), {}, event.eventType, event.mouseButton, event.shift, event.x, event.y};
  const char* const end = WriteEventLine(out.Room(name.size() + kEventLineRoom), line, name);
  if (end == nullptr) return WriteFields(out, event);
  out.Written(end);
}

bool EventReader::Read(vxEvent& event) {
  // With it a host's handler may go, and close the file.
  const Ref<clsButton> before = std::exchange(event.button, nullptr);
  EventLine line;
  const std::size_t size = NextLine(line);
  if (size == 0) return ReadFields(event);
  event.SetTime(line.time);
  event.eventType = static_cast<vxEventTypeEnum>(line.eventType);
  event.mouseButton = line.mouseButton;
  event.shift = line.shift;
  event.x = line.x;
  event.y = line.y;
  // Before the name is looked up: what the map raises leaves the file at the next line.
  in_.TakeLine(size);
  const ButtonNames::Binding& binding = names_.Of(line.name);
  event.button = binding.button;
  return binding.known;
}

// 0 where the general reading must take over. The bytes at hand may end within the line; how far to look is
// bounded, because many events may lie on one line.
std::size_t EventReader::NextLine(EventLine& line) {
  const std::size_t size = ReadEventLine(in_.WholeLines(), line);
  return size != 0 ? size : ReadBehindBuffer(line);
}

std::size_t EventReader::ReadBehindBuffer(EventLine& line) {
  if (in_.Buffered().size() >= kLongestLine) return 0;
  in_.AheadToLineEnd();
  return ReadEventLine(in_.WholeLines(), line);
}

bool EventReader::ReadFields(vxEvent& event) {
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
