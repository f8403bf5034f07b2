#include "bench/support/LibraryPath.h"

#include <algorithm>

#include "core/Convert.h"

namespace vestrel::bench {

std::u16string LibraryPath(std::string_view path) {
  std::u16string result = FromUtf8(path);
  std::replace(result.begin(), result.end(), u'/', u'\\');
  return result;
}

}  // namespace vestrel::bench
