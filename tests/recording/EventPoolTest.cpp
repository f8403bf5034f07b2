#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "recording/EventPool.h"

namespace vestrel {
namespace {

// The sanitizer keeps blocks that came back.
#if defined(VESTREL_SANITIZED)
constexpr bool kWatched = true;
#else
constexpr bool kWatched = false;
#endif

// Takes blocks and fills each with a byte of its own; a block that overlaps another shows as a wrong byte.
class Blocks {
 public:
  ~Blocks() {
    while (!blocks_.empty()) Give(0);
  }

  std::size_t size() const { return blocks_.size(); }
  void Take() {
    void* const block = EventPool::Take();
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(void*), 0U);
    std::memset(block, ++last_, EventPool::kBlockSize);
    blocks_.emplace_back(static_cast<unsigned char*>(block), last_);
  }
  void Give(std::size_t index) {
    const auto [block, byte] = blocks_[index];
    EXPECT_TRUE(std::all_of(block, block + EventPool::kBlockSize,
                            [byte = byte](unsigned char b) { return b == byte; }));
    EventPool::Give(block);
    blocks_[index] = blocks_.back();
    blocks_.pop_back();
  }
  std::set<void*> Addresses() const {
    std::set<void*> addresses;
    for (const auto& [block, byte] : blocks_) addresses.insert(block);
    return addresses;
  }

 private:
  std::vector<std::pair<unsigned char*, unsigned char>> blocks_;
  unsigned char last_ = 0;
};

TEST(EventPoolTest, BlocksNeverOverlap) {
  std::mt19937 random(9);
  Blocks blocks;
  for (int step = 0; step < 60000; ++step) {
    const bool grow = random() % 1000 < (step / 10000 % 2 == 0 ? 700 : 300);
    if (grow || blocks.size() == 0) {
      blocks.Take();
    } else {
      blocks.Give(random() % blocks.size());
    }
  }
}

// A piece starts at a multiple of 64 KB and leaves the last 64 bytes before the next one to the system.
TEST(EventPoolTest, BlocksLieWithinTheirPiece) {
  if (kWatched) return;
  Blocks blocks;
  for (int i = 0; i < 5000; ++i) blocks.Take();
  for (void* const block : blocks.Addresses()) {
    const std::uintptr_t offset = reinterpret_cast<std::uintptr_t>(block) % 65536;
    EXPECT_LE(offset + EventPool::kBlockSize, 65536U - 64U);
  }
}

TEST(EventPoolTest, BlocksThatCameBackAreTakenAgain) {
  Blocks blocks;
  for (int i = 0; i < 5000; ++i) blocks.Take();
  const std::set<void*> before = blocks.Addresses();
  for (int i = 0; i < 100; ++i) blocks.Give(static_cast<std::size_t>(i));
  for (int i = 0; i < 100; ++i) blocks.Take();
  if (kWatched) return;
  EXPECT_EQ(blocks.Addresses(), before);
}

// On a thread of its own, whose pool is new and ends with it.
TEST(EventPoolTest, WhatOneRecordingGaveBackServesTheNextThoughOthersTakeMemory) {
  if (kWatched) return;
  std::thread([] {
    std::set<void*> first;
    {
      Blocks blocks;
      for (int i = 0; i < 5000; ++i) blocks.Take();
      first = blocks.Addresses();
    }
    constexpr std::align_val_t kAlignment{65536};
    std::vector<void*> others;
    for (int i = 0; i < 8; ++i) others.push_back(::operator new(65536 - 64, kAlignment));
    Blocks blocks;
    for (int i = 0; i < 5000; ++i) blocks.Take();
    EXPECT_EQ(blocks.Addresses(), first);
    for (void* const other : others) ::operator delete(other, 65536 - 64, kAlignment);
  }).join();
}

}  // namespace
}  // namespace vestrel
