// What a target holds the library to: a fault ends the program, which the fuzzer reports with the input.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::fuzz {

// Prints `what` and ends the program.
[[noreturn]] void Fault(std::string_view what);

inline void Expect(bool holds, std::string_view what) {
  if (!holds) Fault(what);
}

// Prints both where they differ.
void ExpectSame(std::string_view is, std::string_view wanted, std::string_view what);
void ExpectSame(std::u16string_view is, std::u16string_view wanted, std::string_view what);

}  // namespace vestrel::fuzz
