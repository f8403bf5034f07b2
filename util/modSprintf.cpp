// One pass over the format: runs of ordinary characters are copied, a backslash or a percent sign is looked
// at, everything goes into one growing buffer.
#include "util/modSprintf.h"

#include <algorithm>
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

// Whether one of four units is 0, or perhaps from 0x8001 up.
bool MayHaveZeroUnit(std::uint64_t block) noexcept {
  constexpr std::uint64_t kEachUnit = 0x0001000100010001U;
  return ((block - kEachUnit) & (kEachUnit << 15U)) != 0;
}

// Copies up to `left` units, to the first that means something; the result is how many are before that. Those
// behind it may have been copied as well. Where in its block it lies is asked of the units one by one: what
// follows need not wait for a number then.
inline std::size_t CopyUntilMark(char16_t* to, const char16_t* from, std::size_t left) noexcept {
  constexpr std::uint64_t kBackslashes = 0x005C005C005C005CU;
  constexpr std::uint64_t kPercentSigns = 0x0025002500250025U;
  constexpr std::size_t kBlock = sizeof(std::uint64_t) / sizeof(char16_t);
  std::size_t count = 0;
  for (; count + kBlock <= left; count += kBlock) {
    std::uint64_t units = 0;
    std::memcpy(&units, from + count, sizeof units);
    std::memcpy(to + count, &units, sizeof units);
    if (MayHaveZeroUnit(units ^ kBackslashes) || MayHaveZeroUnit(units ^ kPercentSigns)) break;
  }
  for (; count < left && !IsMark(from[count]); ++count) to[count] = from[count];
  return count;
}

// How much of a format, and how many of its arguments, are done with.
struct Progress {
  std::size_t at = 0;
  std::size_t used = 0;
};

// Follows a format as long as it holds nothing but ordinary characters and plain "%s" and "%d" of texts and
// numbers, which most formats do to their end. Apart from the general formatter, so that what it works with
// stays in registers.
Progress FormatPlain(TextBuffer& out, std::u16string_view format, std::span<const FormatArg> args,
                     Progress done) {
  const char16_t* from = format.data() + done.at;
  const char16_t* const end = format.data() + format.size();
  const FormatArg* arg = args.data() + done.used;
  const FormatArg* const argsEnd = args.data() + args.size();
  auto left = static_cast<std::size_t>(end - from);
  char16_t* start = out.Room(left);
  char16_t* to = start;
  const char16_t* limit = to + out.Free();
  // Room for so many units and what is left of the format.
  const auto need = [&](std::size_t units) {
    if (units + left <= static_cast<std::size_t>(limit - to)) return;
    out.Advance(static_cast<std::size_t>(to - start));
    to = start = out.Room(units + left);
    limit = to + out.Free();
  };
  for (;;) {
    const std::size_t count = CopyUntilMark(to, from, left);
    to += count;
    from += count;
    left -= count;
    if (left < 2 || *from != u'%' || arg == argsEnd) break;
    if (from[1] == u's' && arg->kind() == FormatArg::Kind::Text) {
      const std::u16string_view text = arg->AsText();
      need(text.size());
      to = std::copy(text.begin(), text.end(), to);
    } else if (from[1] == u'd' && arg->kind() == FormatArg::Kind::Long) {
      need(TextBuffer::kLongestDecimal);
      to = TextBuffer::PutDecimal(to, arg->AsLong());
    } else {
      break;
    }
    ++arg;
    from += 2;
    left -= 2;
  }
  out.Advance(static_cast<std::size_t>(to - start));
  return {static_cast<std::size_t>(from - format.data()), static_cast<std::size_t>(arg - args.data())};
}

class Formatter {
 public:
  // Of the format, `done` was followed already; the text began at `start`.
  Formatter(TextBuffer& out, std::size_t start, std::u16string_view format, std::span<const FormatArg> args,
            Progress done) noexcept
      : out_(out), start_(start), format_(format), args_(args), done_(done) {}

  void Run() {
    while (!stopped_ && done_.at < format_.size()) {
      if (format_[done_.at] == u'\\') {
        Escape();
      } else {
        OpenDirective();
      }
      if (!stopped_) done_ = FormatPlain(out_, format_, args_, done_);
    }
  }

 private:
  void CopyTo(std::size_t end) {
    out_.Append(format_.substr(done_.at, end - done_.at));
    done_.at = end;
  }

  void Escape() {
    if (done_.at + 1 == format_.size()) return CopyTo(done_.at + 1);
    switch (format_[done_.at + 1]) {
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
        return CopyTo(done_.at + 1);
    }
    done_.at += 2;
  }

  void OpenDirective() {
    const std::size_t last = format_.find_first_of(kConversionCharacters, done_.at + 1);
    if (last == std::u16string_view::npos) return CopyTo(format_.size());
    const auto directive = ParseDirective(format_.substr(done_.at + 1, last - done_.at - 1), format_[last]);
    // What cannot be read is copied, and the conversion character is looked at anew: it may be a "%".
    if (!directive) return CopyTo(last);
    done_.at = last + 1;
    Convert(*directive);
  }

  const FormatArg* NextArgument() noexcept {
    if (done_.used < args_.size()) return &args_[done_.used++];
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
  Progress done_;
  bool stopped_ = false;
};

}  // namespace

void AppendFormatted(TextBuffer& out, std::u16string_view format, std::span<const FormatArg> args) {
  const std::size_t start = out.size();
  const Progress done = FormatPlain(out, format, args, {});
  if (done.at < format.size()) Formatter(out, start, format, args, done).Run();
}

std::u16string FormatText(std::u16string_view format, std::span<const FormatArg> args) {
  TextBuffer buffer;
  AppendFormatted(buffer, format, args);
  return std::u16string(buffer.view());
}

}  // namespace vestrel::modSprintf
