#include "storage/TextArena.h"

#include <algorithm>

namespace vestrel {

void TextArena::Grow(std::size_t size) {
  const std::size_t piece = std::max(size, nextPiece_);
  pieces_.push_back(std::make_unique_for_overwrite<char[]>(piece));
  nextPiece_ = std::min(nextPiece_ * 4, kLargestPiece);
  at_ = pieces_.back().get();
  left_ = piece;
}

}  // namespace vestrel
