#include "storage/ProfileSplice.h"

#include <algorithm>

namespace vestrel {

std::string Spliced(std::string_view text, std::size_t begin, std::size_t end,
                    std::span<const ProfileSplice> splices) {
  std::size_t size = end - begin;
  for (const ProfileSplice& splice : splices) size = size - splice.length + splice.text.size();
  std::string result(size, '\0');
  char* to = result.data();
  const auto put = [&to](std::string_view piece) { to = std::copy(piece.begin(), piece.end(), to); };
  std::size_t at = begin;
  for (const ProfileSplice& splice : splices) {
    put(text.substr(at, splice.offset - at));
    put(splice.text);
    at = splice.offset + splice.length;
  }
  put(text.substr(at, end - at));
  return result;
}

}  // namespace vestrel
