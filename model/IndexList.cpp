#include "model/IndexList.h"

#include <algorithm>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsObjectList.h"
#include "model/clsButton.h"
#include "util/TextBuffer.h"

namespace vestrel {

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
    indices.push_back(TextToLong(text.substr(start, end - start)));
    start = end + 1;
  }
  return indices;
}

}  // namespace vestrel
