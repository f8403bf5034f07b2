#include "recording/EventFile.h"

#include <algorithm>

#include "core/Cast.h"
#include "core/Error.h"
#include "core/clsDictionary.h"
#include "platform/Platform.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSource = u"vxEvent";

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
  const Binding& binding = BindingOf(line.name);
  event.Init(line.time, binding.button.get(), static_cast<vxEventTypeEnum>(line.eventType));
  event.SetExtras(line.mouseButton, line.shift, line.x, line.y);
  in_.TakeLine(size);
  return binding.known;
}

std::size_t EventReader::NextLine(EventLine& line) {
  const std::size_t size = ReadEventLine(in_.Buffered(), line);
  return size != 0 ? size : ReadEventLine(in_.AheadToLineEnd(), line);
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
  const Binding binding = LookUp(name);
  event.button = binding.button;
  return binding.known;
}

const EventReader::Binding& EventReader::BindingOf(std::string_view name) {
  const auto found = bindings_.find(name);
  if (found != bindings_.end()) return found->second;
  return bindings_.emplace(name, LookUp(platform::encoding().Widen(name))).first->second;
}

EventReader::Binding EventReader::LookUp(std::u16string_view name) const {
  if (buttonMap_ == nullptr) RaiseError(Error_ObjectNotSet, kSource);
  if (!buttonMap_->HasKey(name)) return {};
  const Ref<Object> value = buttonMap_->ValueOf(name);
  return {true, CastOrNone<clsButton>(value.get())};
}

}  // namespace vestrel
