// Pages full of buttons, as benchmarks need them: every group has its share, in an index list that reads
// back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/clsPage.h"

namespace vestrel::bench {

// A page without a controller, bound to its file, which is made together with its folder.
Ref<clsPage> NewPage(const std::string& appPath, const std::u16string& page);

// Puts `size` buttons into the page's ten groups.
void Fill(clsPage& page, std::int64_t size);

// Gives every button another type, so that a save has every line to change.
void ChangeEveryLine(clsPage& page);

// Where the page's file is.
std::string FileOf(const std::string& appPath, const std::string& page);

// What a reader of such a file asks for.
struct ButtonKey {
  std::string section;
  std::string key;
};
std::vector<ButtonKey> ButtonKeys(std::int64_t size);

}  // namespace vestrel::bench
