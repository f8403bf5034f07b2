// How a format divides into text, escapes and directives, written plainly from the rules in
// util/modSprintf.h, and what the most used directives give. All others are taken from the formatter itself,
// each alone.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "util/FormatArg.h"

namespace vestrel::fuzz {

class FormatModel {
 public:
  FormatModel(std::u16string_view format, std::span<const modSprintf::FormatArg> args)
      : format_(format), args_(args) {}

  // Raises what the formatter raises for a directive that is left to it.
  std::u16string Run();

 private:
  struct Directive {
    bool zero = false;
    bool left = false;
    bool plus = false;
    bool alternate = false;
    bool star = false;
    int width = 0;
    std::optional<int> precision;
    char conversion = 's';
  };

  void Escape();
  void Percent();
  static std::optional<Directive> Parse(std::u16string_view inner, char16_t conversion);
  void Convert(const Directive& directive, std::u16string_view text);
  static std::optional<std::u16string> Known(const Directive& directive, const modSprintf::FormatArg& arg);
  static std::u16string KnownText(const Directive& directive, std::u16string_view text);

  std::u16string_view format_;
  std::span<const modSprintf::FormatArg> args_;
  std::u16string out_;
  std::size_t at_ = 0;
  bool stopped_ = false;
};

}  // namespace vestrel::fuzz
