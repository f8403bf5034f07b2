// Writes the interface description (IDL) of the whole library from the tables.
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vestrel::component {

enum class IdlDialect {
  Published,  // for any IDL compiler
  // For widl, which cannot give a by-reference text a default: such defaults are written as numbers from
  // kTextDefaultMarker on, and the texts themselves are kept as custom data of the library, where
  // FinishTypeLibrary finds them.
  Widl,
  // For the C and C++ header that widl writes: without defaults, which it would put down as default arguments
  // of pointers. A null pointer leaves an optional argument out.
  Header,
};

// The number that stands for DefaultTexts()[0], the next one for the next text, and so on.
inline constexpr int kTextDefaultMarker = 0x155AA00;

// Every text that is the default of some argument, once, in order of appearance.
std::vector<std::u16string_view> DefaultTexts();

// The arguments' names that are words of the description language, once each. There an underscore follows
// them, which FinishTypeLibrary takes off again.
std::vector<std::string_view> ReservedNames();

void WriteIdl(std::ostream& out, IdlDialect dialect);

}  // namespace vestrel::component
