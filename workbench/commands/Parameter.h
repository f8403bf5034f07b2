// One parameter of an operation as the tables of operations declare it. Its type comes from the operation.
#pragma once

#include <string_view>

namespace vestrel::workbench {

struct Parameter {
  std::string_view name;
  bool optional = false;
  // The word that stands for it when it is left out; empty: zero, false, the empty text or no object.
  std::string_view otherwise;
  // A file or folder name; a relative one is taken from the data folder.
  bool path = false;
};

constexpr Parameter In(std::string_view name) {
  return {name, false, {}, false};
}
constexpr Parameter Optional(std::string_view name, std::string_view otherwise = {}) {
  return {name, true, otherwise, false};
}
constexpr Parameter Path(std::string_view name) {
  return {name, false, {}, true};
}

}  // namespace vestrel::workbench
