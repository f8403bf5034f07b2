#include "recording/vxEvent.h"

#include "recording/EventFile.h"
#include "recording/EventPool.h"
#include "storage/TextFile.h"

namespace vestrel {

static_assert(sizeof(vxEvent) <= EventPool::kBlockSize);
static_assert(sizeof(void*) != 8 || sizeof(vxEvent) <= 40, "a recording holds a million of these");

constinit thread_local std::uint64_t vxEvent::timeChanges_ = 0;

void* vxEvent::operator new(std::size_t size) {
  return size == sizeof(vxEvent) ? EventPool::Take() : ::operator new(size);
}

void vxEvent::operator delete(void* block, std::size_t size) noexcept {
  if (size == sizeof(vxEvent)) {
    EventPool::Give(block);
  } else {
    ::operator delete(block, size);
  }
}

void vxEvent::Init(std::int32_t pTime, clsButton* pButton, vxEventTypeEnum pEventType) {
  SetTime(pTime);
  eventType = pEventType;
  // Last: with the one before a host's handler may go, and call back.
  button = pButton;
}

void vxEvent::SetExtras(std::int16_t pMouseButton, std::int16_t pShift, float pX, float pY) {
  mouseButton = pMouseButton;
  shift = pShift;
  x = pX;
  y = pY;
}

bool vxEvent::ReadFromFile(std::int16_t f, clsDictionary* buttonMap) {
  return EventReader(TextFile::Input(f), buttonMap).Read(*this);
}

void vxEvent::WriteToFile(std::int16_t f) const {
  WriteEvent(TextFile::Output(f), *this);
}

}  // namespace vestrel
