// Keeps many short texts in a few pieces of memory. What was put in stays in place as long as the arena
// lives, also when the arena is moved.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vestrel {

class TextArena {
 public:
  // `size` bytes for the caller to fill.
  char* Room(std::size_t size) {
    if (size > left_) Grow(size);
    left_ -= size;
    return std::exchange(at_, at_ + size);
  }
  // A copy of the text.
  std::string_view Keep(std::string_view text) {
    return {std::char_traits<char>::copy(Room(text.size()), text.data(), text.size()), text.size()};
  }

 private:
  void Grow(std::size_t size);

  static constexpr std::size_t kFirstPiece = 512;
  static constexpr std::size_t kLargestPiece = std::size_t{64} * 1024;

  std::vector<std::unique_ptr<char[]>> pieces_;
  std::size_t nextPiece_ = kFirstPiece;
  char* at_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace vestrel
