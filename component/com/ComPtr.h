// Counted pointer to a component interface.
#pragma once

#include <utility>

#include "component/com/Windows.h"

namespace vestrel::component {

template <class I>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  explicit ComPtr(I* borrowed) noexcept : pointer_(borrowed) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  static ComPtr Adopt(I* owned) noexcept {
    ComPtr result;
    result.pointer_ = owned;
    return result;
  }
  I* Detach() noexcept { return std::exchange(pointer_, nullptr); }
  I* get() const noexcept { return pointer_; }
  I* operator->() const noexcept { return pointer_; }
  explicit operator bool() const noexcept { return pointer_ != nullptr; }
  // For calls that deliver a pointer; what was held must be none.
  I** Receive() noexcept { return &pointer_; }

 private:
  I* pointer_ = nullptr;
};

// The object's interface, or none.
template <class I>
ComPtr<I> Ask(IUnknown* object, const IID& id) {
  ComPtr<I> result;
  if (object == nullptr || FAILED(object->QueryInterface(id, reinterpret_cast<void**>(result.Receive())))) {
    return {};
  }
  return result;
}

}  // namespace vestrel::component
