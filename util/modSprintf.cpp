// One pass over the format: runs of ordinary characters are copied, a backslash or a percent sign is looked
// at, everything goes into one growing buffer.
#include "util/modSprintf.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/Cast.h"
#include "core/Checked.h"
#include "core/Convert.h"
#include "core/HasValue.h"
#include "core/Ref.h"
#include "util/FormatDirective.h"
#include "util/FormatNumber.h"

namespace vestrel::modSprintf {

FormatArg::FormatArg(const Variant& value) noexcept {
  switch (value.kind()) {
    case Variant::Kind::Empty:
      return;
    case Variant::Kind::Boolean:
      *this = FormatArg(value.AsBoolean());
      return;
    case Variant::Kind::Long:
      *this = FormatArg(value.AsLong());
      return;
    case Variant::Kind::Double:
      *this = FormatArg(value.AsDouble());
      return;
    case Variant::Kind::String:
      *this = FormatArg(value.AsString());
      return;
    case Variant::Kind::Object:
      kind_ = Kind::Object;
      object_ = value.AsObject().get();
      return;
  }
}

namespace {

constexpr std::u16string_view kConversionCharacters = u"gGxXeEpnfcdiosu%";

bool IsMark(char16_t unit) noexcept {
  return unit == u'\\' || unit == u'%';
}

// The highest bit of each of four units that is 0: right up to the first such unit from the low end.
std::uint64_t ZeroUnits(std::uint64_t block) noexcept {
  constexpr std::uint64_t kEachUnit = 0x0001000100010001U;
  return (block - kEachUnit) & ~block & (kEachUnit << 15U);
}

// Copies up to `left` units, to the first that means something; the result is how many are before that. Those
// behind it may have been copied as well.
std::size_t CopyUntilMark(char16_t* to, const char16_t* from, std::size_t left) noexcept {
  std::size_t count = 0;
  if constexpr (std::endian::native == std::endian::little) {
    constexpr std::uint64_t kBackslashes = 0x005C005C005C005CU;
    constexpr std::uint64_t kPercentSigns = 0x0025002500250025U;
    constexpr std::size_t kBlock = sizeof(std::uint64_t) / sizeof(char16_t);
    for (; count + kBlock <= left; count += kBlock) {
      std::uint64_t units = 0;
      std::memcpy(&units, from + count, sizeof units);
      std::memcpy(to + count, &units, sizeof units);
      const std::uint64_t marks = ZeroUnits(units ^ kBackslashes) | ZeroUnits(units ^ kPercentSigns);
      if (marks != 0) return count + static_cast<unsigned>(std::countr_zero(marks)) / 16;
    }
  }
  for (; count < left && !IsMark(from[count]); ++count) to[count] = from[count];
  return count;
}

class Formatter {
 public:
  Formatter(TextBuffer& out, std::u16string_view format, std::span<const FormatArg> args) noexcept
      : out_(out), start_(out.size()), format_(format), args_(args) {}

  void Run() {
    while (!stopped_ && CopyOrdinary()) {
      if (format_[at_] == u'\\') {
        Escape();
      } else {
        OpenDirective();
      }
    }
  }

 private:
  // Copies up to the next character that means something; false at the end of the format.
  bool CopyOrdinary() {
    const std::size_t left = format_.size() - at_;
    const std::size_t count = CopyUntilMark(out_.Room(left), format_.data() + at_, left);
    out_.Advance(count);
    at_ += count;
    return count < left;
  }

  void CopyTo(std::size_t end) {
    out_.Append(format_.substr(at_, end - at_));
    at_ = end;
  }

  void Escape() {
    if (at_ + 1 == format_.size()) return CopyTo(at_ + 1);
    switch (format_[at_ + 1]) {
      case u'n':
        out_.Append(u"\r\n");
        break;
      case u't':
        out_.Append(u'\t');
        break;
      case u'f':
      case u'r':
      case u'b':
        break;
      case u'\\':
        out_.Append(u'\\');
        break;
      default:
        return CopyTo(at_ + 1);
    }
    at_ += 2;
  }

  void OpenDirective() {
    if (at_ + 1 < format_.size() && ConvertPlain(format_[at_ + 1])) return;
    const std::size_t last = format_.find_first_of(kConversionCharacters, at_ + 1);
    if (last == std::u16string_view::npos) return CopyTo(format_.size());
    const auto directive = ParseDirective(format_.substr(at_ + 1, last - at_ - 1), format_[last]);
    // What cannot be read is copied, and the conversion character is looked at anew: it may be a "%".
    if (!directive) return CopyTo(last);
    at_ = last + 1;
    Convert(*directive);
  }

  // "%s" and "%d" of the usual arguments, which need no parsing.
  bool ConvertPlain(char16_t conversion) {
    if (used_ == args_.size()) return false;
    const FormatArg& arg = args_[used_];
    if (conversion == u's' && arg.kind() == FormatArg::Kind::Text) {
      out_.Append(arg.AsText());
    } else if (conversion == u'd' && arg.kind() == FormatArg::Kind::Long) {
      out_.AppendDecimal(arg.AsLong());
    } else {
      return false;
    }
    ++used_;
    at_ += 2;
    return true;
  }

  const FormatArg* NextArgument() noexcept {
    if (used_ < args_.size()) return &args_[used_++];
    stopped_ = true;
    return nullptr;
  }

  void Convert(Directive directive) {
    if (directive.precisionFromArgument) {
      const FormatArg* precision = NextArgument();
      if (precision == nullptr) return;
      directive.precision = PrecisionFrom(*precision);
    }
    const FormatArg* arg = NextArgument();
    if (arg == nullptr) return;
    if (arg->kind() != FormatArg::Kind::Object) return ConvertValue(directive, *arg);
    const auto* holder = TryCast<HasValue>(arg->AsObject());
    if (holder == nullptr) return ConvertValue(directive, *arg);
    const Variant value = holder->DefaultValue();
    ConvertValue(directive, FormatArg(value));
  }

  void ConvertValue(const Directive& directive, const FormatArg& arg) {
    switch (directive.conversion) {
      case Conversion::Text:
        return ConvertText(directive, arg);
      case Conversion::Hexadecimal:
        return ConvertHexadecimal(directive, arg);
      case Conversion::Character:
        return ConvertCharacter(arg);
      case Conversion::Pointer:
        return ConvertPointer(arg);
      case Conversion::TextSoFar:
        return StoreTextSoFar(arg);
      default:
        return ConvertNumber(directive, arg);
    }
  }

  static std::int32_t PrecisionFrom(const FormatArg& arg) {
    Number number;
    if (!ReadNumber(arg, number)) return -1;
    return number.whole ? NarrowChecked(number.wholeValue) : ToLong(Variant(number.realValue));
  }

  void ConvertText(const Directive& directive, const FormatArg& arg) {
    if (arg.kind() == FormatArg::Kind::Text || arg.kind() == FormatArg::Kind::InOutText) {
      AppendText(directive, arg.AsText());
    } else {
      AppendText(directive, ValueText(arg));
    }
  }

  static std::u16string ValueText(const FormatArg& arg) {
    switch (arg.kind()) {
      case FormatArg::Kind::Boolean:
        return std::u16string(BooleanToText(arg.AsLong() != 0));
      case FormatArg::Kind::Long:
        return LongToText(arg.AsLong());
      case FormatArg::Kind::Double:
        return DoubleToText(arg.AsDouble());
      case FormatArg::Kind::Object:
        return ToText(Variant(Ref<Object>(arg.AsObject())));
      default:
        return {};
    }
  }

  void AppendText(const Directive& directive, std::u16string_view text) {
    if (directive.precision >= 0) text = text.substr(0, static_cast<std::size_t>(directive.precision));
    const auto width = static_cast<std::size_t>(directive.width);
    const std::size_t padding = width > text.size() ? width - text.size() : 0;
    if (!directive.leftAlign) out_.AppendRepeated(padding, directive.PadCharacter());
    out_.Append(text);
    if (directive.leftAlign) out_.AppendRepeated(padding, directive.PadCharacter());
  }

  void ConvertNumber(const Directive& directive, const FormatArg& arg) {
    Number number;
    if (ReadNumber(arg, number)) {
      AppendNumber(out_, directive, number);
    } else {
      out_.Append(u'0');
    }
  }

  static bool IsText(const FormatArg& arg) noexcept {
    return arg.kind() == FormatArg::Kind::Text || arg.kind() == FormatArg::Kind::InOutText;
  }

  void ConvertHexadecimal(const Directive& directive, const FormatArg& arg) {
    if (!IsText(arg)) return ConvertNumber(directive, arg);
    const std::size_t start = out_.size();
    AppendText(directive, arg.AsText());
    char16_t* const units = out_.MutableFrom(start);
    std::transform(units, units + (out_.size() - start), units,
                   [&](char16_t unit) { return directive.upperCase ? UpperCase(unit) : FoldCase(unit); });
  }

  static char16_t UpperCase(char16_t unit) noexcept {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
  }

  void ConvertCharacter(const FormatArg& arg) {
    if (IsText(arg)) return out_.Append(arg.AsText().substr(0, 1));
    Number number;
    if (!ReadNumber(arg, number)) return;
    const double code = number.whole ? static_cast<double>(number.wholeValue) : number.realValue;
    if (code >= 0 && code <= 0xFFFF) out_.Append(static_cast<char16_t>(ToLong(Variant(code))));
  }

  void ConvertPointer(const FormatArg& arg) {
    Number number;
    if (ReadNumber(arg, number)) {
      AppendAddress(out_, number);
    } else {
      out_.Append(u"0000:0000");
    }
  }

  void StoreTextSoFar(const FormatArg& arg) {
    if (arg.kind() == FormatArg::Kind::InOutText) *arg.AsInOutText() = out_.From(start_);
  }

  TextBuffer& out_;
  std::size_t start_;
  std::u16string_view format_;
  std::span<const FormatArg> args_;
  std::size_t at_ = 0;
  std::size_t used_ = 0;
  bool stopped_ = false;
};

}  // namespace

void AppendFormatted(TextBuffer& out, std::u16string_view format, std::span<const FormatArg> args) {
  Formatter(out, format, args).Run();
}

std::u16string FormatText(std::u16string_view format, std::span<const FormatArg> args) {
  TextBuffer buffer;
  AppendFormatted(buffer, format, args);
  return std::u16string(buffer.view());
}

}  // namespace vestrel::modSprintf
