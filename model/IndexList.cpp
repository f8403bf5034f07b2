#include "model/IndexList.h"

#include <algorithm>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsObjectList.h"
#include "model/clsButton.h"
#include "util/TextBuffer.h"

namespace vestrel {
namespace {

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

// Nearly all have one digit or two.
std::int32_t NumberOf(std::u16string_view text) {
  if (text.size() == 1 && IsDigit(text[0])) return text[0] - u'0';
  if (text.size() == 2 && IsDigit(text[0]) && IsDigit(text[1]))
    return (text[0] - u'0') * 10 + (text[1] - u'0');
  return TextToLong(text);
}

}  // namespace

std::u16string IndexListText(const clsObjectList& buttons) {
  TextBuffer text;
  for (Object* item : buttons.Snapshot()) {
    if (text.size() > 0) text.Append(u'|');
    text.AppendDecimal(Cast<clsButton>(item).buttonIndex);
  }
  return std::u16string(text.view());
}

std::vector<std::int32_t> IndexListFromText(std::u16string_view text) {
  std::vector<std::int32_t> indices;
  if (text.empty()) return indices;
  indices.reserve(text.size() / 2 + 1);
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(u'|', start), text.size());
    indices.push_back(NumberOf(text.substr(start, end - start)));
    start = end + 1;
  }
  return indices;
}

}  // namespace vestrel
