#include "storage/ProfileSplice.h"

namespace vestrel {

std::string Spliced(std::string_view text, std::size_t begin, std::size_t end,
                    std::span<const ProfileSplice> splices) {
  std::size_t size = end - begin;
  for (const ProfileSplice& splice : splices) size = size - splice.length + splice.text.size();
  std::string result;
  result.reserve(size);
  std::size_t at = begin;
  for (const ProfileSplice& splice : splices) {
    result.append(text.substr(at, splice.offset - at)).append(splice.text);
    at = splice.offset + splice.length;
  }
  result.append(text.substr(at, end - at));
  return result;
}

}  // namespace vestrel
