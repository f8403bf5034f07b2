#include "storage/KeptName.h"

#include <utility>

#include "platform/Ascii.h"

namespace vestrel {

void KeptName::Set(std::u16string_view text) {
  if (Is(text)) return;
  constexpr std::size_t kShort = 64;
  char bytes[kShort];  // not cleared
  if (text.size() > kShort || !platform::CopyAscii(text, bytes)) return SetAny(text);
  ascii_.assign(bytes, text.size());
  wide_.clear();
}

// Should memory run out the name stays what it was.
void KeptName::SetAny(std::u16string_view text) {
  std::u16string wide;
  if (platform::IsAscii(text)) {
    ascii_ = platform::NarrowAscii(text);
  } else {
    wide = text;
  }
  wide_ = std::move(wide);
}

// Names are mostly set to what they are, or end otherwise.
bool KeptName::Is(std::u16string_view text) const noexcept {
  if (!isAscii() || text.size() != ascii_.size()) return false;
  for (std::size_t i = text.size(); i > 0; --i) {
    if (text[i - 1] != static_cast<unsigned char>(ascii_[i - 1])) return false;
  }
  return true;
}

void KeptName::Append(char c) {
  isAscii() ? ascii_.push_back(c) : wide_.push_back(static_cast<unsigned char>(c));
}

std::u16string KeptName::text() const {
  return isAscii() ? platform::WidenAscii(ascii_) : wide_;
}

}  // namespace vestrel
