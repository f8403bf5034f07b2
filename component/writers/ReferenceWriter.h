// Writes the reference documentation (Markdown) from the tables: a page a class, one for the enumerations,
// and an index.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vestrel::component {

// Hands each page to `page` with its file name.
void WriteReference(const std::function<void(std::string_view fileName, const std::string& text)>& page);

}  // namespace vestrel::component
