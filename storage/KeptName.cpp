#include "storage/KeptName.h"

#include "platform/Ascii.h"

namespace vestrel {

// Should memory run out the name stays what it was.
void KeptName::Set(std::u16string_view text) {
  char narrow[kShort] = {};
  if (text.size() > kShort || !platform::CopyAscii(text, narrow)) {
    wide_ = text;
    return;
  }
  std::memcpy(narrow_, narrow, kShort);
  size_ = text.size();
  wide_.clear();
}

void KeptName::SetAscii(std::string_view text) {
  if (text.size() > kShort) {
    wide_ = platform::WidenAscii(text);
    return;
  }
  size_ = text.copy(narrow_, kShort);
  wide_.clear();
}

void KeptName::Append(char c) {
  if (isNarrow() && size_ < kShort) {
    narrow_[size_++] = c;
  } else {
    wide_ = text() + static_cast<char16_t>(c);
  }
}

std::u16string KeptName::text() const {
  return isNarrow() ? platform::WidenAscii(narrow()) : wide_;
}

}  // namespace vestrel
