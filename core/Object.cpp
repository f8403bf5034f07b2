#include "core/Object.h"

#include "core/BackRef.h"

namespace vestrel {
namespace {

// While an object is being destroyed its count stands here, so that references taken and dropped by its own
// destructor cannot reach zero a second time.
constexpr std::uint32_t kDying = 1U << 30U;

}  // namespace

constinit thread_local long Object::liveObjects_ = 0;

Object::~Object() {
  --liveObjects_;
}

void* Object::Query(TypeKey /*key*/) noexcept {
  return nullptr;
}

WeakAnchor* Object::BackReferenceAnchor(bool /*create*/) {
  return nullptr;
}

void Object::Destroy() const noexcept {
  auto* self = const_cast<Object*>(this);  // NOLINT(cppcoreguidelines-pro-type-const-cast): last owner
  if (auto* anchor = self->BackReferenceAnchor(false)) anchor->Clear();
  references_ = kDying;
  delete this;
}

}  // namespace vestrel
