#include "storage/AscendingNames.h"

namespace vestrel {
namespace {

constexpr std::size_t kRanked = 8;

std::uint64_t Shifted(char byte, unsigned by) noexcept {
  return std::uint64_t{static_cast<unsigned char>(byte)} << by;
}

// The first byte counts most; what divides large from small letters counts nothing. Written out, compilers
// make one step of it.
std::uint64_t RankOfEight(const char* bytes) noexcept {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020U;
  const std::uint64_t rank = Shifted(bytes[0], 56) | Shifted(bytes[1], 48) | Shifted(bytes[2], 40) |
                             Shifted(bytes[3], 32) | Shifted(bytes[4], 24) | Shifted(bytes[5], 16) |
                             Shifted(bytes[6], 8) | Shifted(bytes[7], 0);
  return rank | kCaseBits;
}

}  // namespace

bool AscendingNames::IsNew(std::string_view name) noexcept {
  Rank rank{name.size()};
  if (name.size() >= kRanked) {
    rank.front = RankOfEight(name.data());
    rank.back = RankOfEight(name.data() + name.size() - kRanked);
  }
  if (rank <= largest_) return false;
  largest_ = rank;
  return true;
}

}  // namespace vestrel
