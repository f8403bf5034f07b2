#include "util/clsFormatCapture.h"

#include <cstddef>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/Error.h"

namespace vestrel {
namespace {

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

}  // namespace

bool clsFormatCapture::DoMatch(std::u16string_view format_, std::u16string_view against) {
  items_ = MakeRef<clsObjectList>();
  if (format_.size() != against.size()) return false;
  capturing_ = false;
  for (std::size_t i = 0; i < format_.size(); ++i) {
    if (!MatchChar(format_[i], against[i])) return false;
  }
  CloseGroup();
  return true;
}

bool clsFormatCapture::ParseItems(std::span<std::int32_t> targets) {
  if (!items_) RaiseError(Error_ObjectNotSet, u"clsFormatCapture.ParseItems()");
  const ItemSnapshot items = items_->Snapshot();
  if (targets.size() != static_cast<std::size_t>(items.size())) return false;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const auto& item = Cast<clsFormatCaptureItem>(items[static_cast<std::int32_t>(i)]);
    if (item.itemType != CaptureType_Long) continue;
    if (!IsNumericText(item.strValue)) return false;
    targets[i] = TextToLong(item.strValue);
  }
  return true;
}

bool clsFormatCapture::MatchChar(char16_t p, char16_t c) {
  if (p != u'#') {
    if (c == p) CloseGroup();
    return c == p;
  }
  if (!IsDigit(c)) return false;
  if (!capturing_) current_ = MakeRef<clsFormatCaptureItem>();
  capturing_ = true;
  current_->strValue.push_back(c);
  return true;
}

void clsFormatCapture::CloseGroup() {
  if (capturing_) items_->AddItem(current_.get());
  capturing_ = false;
}

}  // namespace vestrel
