// The program's allocating functions, counted and made to fail as Allocations says. The linker leads calls of
// malloc and realloc in the program's own objects to the wrappers here.
#include <malloc.h>

#include <cstdlib>
#include <new>

#include "tests/support/Allocations.h"

using vestrel::test::Allocations;

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
  if (Allocations::Fails()) return nullptr;
  void* const block = __real_malloc(size);
  if (block != nullptr) Allocations::Came(malloc_usable_size(block));
  return block;
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (Allocations::Fails()) return nullptr;
  const std::size_t old = block == nullptr ? 0 : malloc_usable_size(block);
  void* const moved = __real_realloc(block, size);
  if (moved == nullptr) return nullptr;
  if (block != nullptr) Allocations::Went(old);
  Allocations::Came(malloc_usable_size(moved));
  return moved;
}

void __wrap_free(void* block) {
  if (block != nullptr) Allocations::Went(malloc_usable_size(block));
  __real_free(block);
}
}

namespace {

void* Allocate(std::size_t size) {
  void* const block = __wrap_malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  void* const block =
      Allocations::Fails() ? nullptr : std::aligned_alloc(step, (size + step - 1) / step * step);
  if (block == nullptr) throw std::bad_alloc();
  Allocations::Came(malloc_usable_size(block));
  return block;
}

}  // namespace

// The others of the standard library end in these.
void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateAligned(size, alignment);
}
void operator delete(void* block) noexcept {
  __wrap_free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  __wrap_free(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
  __wrap_free(block);
}
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  __wrap_free(block);
}
