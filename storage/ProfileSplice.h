// A change of a text as the stretches that give way to others, so that all the rest keeps its bytes.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vestrel {

// `length` bytes at `offset` give way to `text`, which must outlive it.
struct ProfileSplice {
  std::size_t offset = 0;
  std::size_t length = 0;
  std::string_view text;
};

// The bytes [begin, end) of `text` with the splices, which lie in there in ascending order, made.
std::string Spliced(std::string_view text, std::size_t begin, std::size_t end,
                    std::span<const ProfileSplice> splices);

}  // namespace vestrel
