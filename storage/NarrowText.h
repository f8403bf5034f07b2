// Turns the library's texts into the narrow page for a file. What the page lacks becomes "?"; a WARNING line
// in the log, where there is a log, says so once for each text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "storage/KeptName.h"

namespace vestrel {

class NarrowText {
 public:
  std::string operator()(std::u16string_view text);
  // Logs the texts that lost something since the last call, each once a thread. A log that cannot be written
  // is no failure of what was read or written.
  void WarnOfLosses() {
    if (!lossy_.empty()) Warn();
  }

 private:
  void Warn();

  std::vector<std::u16string> lossy_;
};

// One text in the narrow page. Takes no memory where it is short and all ASCII, as names and values nearly
// always are. Lives for the length of one call, and no longer than what it was made of.
class NarrowCopy {
 public:
  // What the page lacks is noted in `narrow`.
  NarrowCopy(NarrowText& narrow, std::u16string_view text);
  NarrowCopy(NarrowText& narrow, const KeptName& front, std::u16string_view back);
  // Here `back` is all ASCII.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
  NarrowCopy(NarrowText& narrow, const KeptName& front, std::string_view back = {}) {
    if (front.isNarrow() && back.empty()) {
      view_ = front.narrow();
    } else if (PutFront(front, back.size())) {
      back.copy(short_ + front.narrow().size(), back.size());
      view_ = {short_, front.narrow().size() + back.size()};
    } else {
      TakeLong(narrow, front, back);
    }
  }
  NarrowCopy(const NarrowCopy&) = delete;
  NarrowCopy& operator=(const NarrowCopy&) = delete;
  ~NarrowCopy() = default;

  std::string_view view() const noexcept { return view_; }

 private:
  static constexpr std::size_t kShort = 256;

  // Puts `front` before `size` bytes that are to come; false when it is not narrow or these are too many.
  bool PutFront(const KeptName& front, std::size_t size) noexcept {
    if (!front.isNarrow() || size > kShort - KeptName::kShort) return false;
    front.CopyTo(short_);
    return true;
  }
  void TakeLong(NarrowText& narrow, const KeptName& front, std::string_view back);

  std::string_view view_;
  std::string long_;
  char short_[kShort];  // not cleared
};

}  // namespace vestrel
