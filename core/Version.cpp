#include "core/Version.h"

namespace vestrel {

std::u16string_view Version() noexcept {
  return u"" VESTREL_VERSION;
}

}  // namespace vestrel
