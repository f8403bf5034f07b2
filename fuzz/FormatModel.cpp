#include "fuzz/FormatModel.h"

#include <cmath>
#include <cstdio>

#include "util/modSprintf.h"

namespace vestrel::fuzz {
namespace {

using modSprintf::FormatArg;

constexpr std::u16string_view kConversions = u"gGxXeEpnfcdiosu%";

// What the platform's own formatter makes of one number; `form` is the C form with width and precision as
// "*".
template <class Number>
std::u16string OfPlatform(const std::string& form, int width, std::optional<int> precision, Number number) {
  std::string buffer(static_cast<std::size_t>(width + precision.value_or(0)) + 512, '\0');
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int size = precision
                       ? std::snprintf(buffer.data(), buffer.size(), form.c_str(), width, *precision, number)
                       : std::snprintf(buffer.data(), buffer.size(), form.c_str(), width, number);
#pragma GCC diagnostic pop
  return {buffer.begin(), buffer.begin() + size};
}

}  // namespace

std::u16string FormatModel::Run() {
  while (!stopped_ && at_ < format_.size()) {
    if (format_[at_] == u'\\') {
      Escape();
    } else if (format_[at_] == u'%') {
      Percent();
    } else {
      out_ += format_[at_++];
    }
  }
  return out_;
}

void FormatModel::Escape() {
  const char16_t next = at_ + 1 < format_.size() ? format_[at_ + 1] : u'\0';
  const bool silent = next == u'f' || next == u'r' || next == u'b';
  if (next == u'n') {
    out_ += u"\r\n";
  } else if (next == u't') {
    out_ += u'\t';
  } else if (!silent) {
    out_ += u'\\';
  }
  at_ += silent || next == u'n' || next == u't' || next == u'\\' ? 2 : 1;
}

void FormatModel::Percent() {
  const std::size_t last = format_.find_first_of(kConversions, at_ + 1);
  if (last == std::u16string_view::npos) {
    out_ += format_.substr(at_);
    at_ = format_.size();
    return;
  }
  const std::u16string_view text = format_.substr(at_, last - at_ + 1);
  const std::optional<Directive> directive = Parse(text.substr(1, text.size() - 2), format_[last]);
  at_ = directive ? last + 1 : last;
  if (directive) {
    Convert(*directive, text);
  } else {
    out_ += text.substr(0, text.size() - 1);
  }
}

auto FormatModel::Parse(std::u16string_view inner, char16_t conversion) -> std::optional<Directive> {
  if (conversion == u'%') return std::nullopt;
  Directive directive;
  directive.conversion = static_cast<char>(conversion);
  const auto takeNumber = [&] {
    int number = 0;
    for (; !inner.empty() && inner.front() >= u'0' && inner.front() <= u'9'; inner.remove_prefix(1)) {
      number = number * 10 + (inner.front() - u'0');
    }
    return number;
  };
  for (; !inner.empty() && std::u16string_view(u"0-+*#").find(inner.front()) != std::u16string_view::npos;
       inner.remove_prefix(1)) {
    directive.zero |= inner.front() == u'0';
    directive.left |= inner.front() == u'-';
    directive.plus |= inner.front() == u'+';
    directive.star |= inner.front() == u'*';
    directive.alternate |= inner.front() == u'#';
  }
  directive.width = takeNumber();
  if (!inner.empty() && inner.front() == u'.') {
    inner.remove_prefix(1);
    directive.precision = takeNumber();
  }
  if (!inner.empty()) return std::nullopt;
  return directive;
}

void FormatModel::Convert(const Directive& directive, std::u16string_view text) {
  const std::size_t needed = directive.star ? 2 : 1;
  if (args_.size() < needed) {
    stopped_ = true;
    return;
  }
  std::optional<std::u16string> known;
  if (!directive.star) known = Known(directive, args_.front());
  out_ += known ? *known : modSprintf::FormatText(text, args_.first(needed));
  args_ = args_.subspan(needed);
}

std::optional<std::u16string> FormatModel::Known(const Directive& directive, const FormatArg& arg) {
  if (directive.conversion == 's' && arg.kind() == FormatArg::Kind::Text)
    return KnownText(directive, arg.AsText());
  if (directive.alternate) return std::nullopt;
  std::string form = "%";
  if (directive.zero && !directive.left) form += '0';
  if (directive.left) form += '-';
  if (directive.plus) form += '+';
  form += directive.precision ? "*.*" : "*";
  form += directive.conversion;
  const bool isSigned = directive.conversion == 'd' || directive.conversion == 'i';
  const bool isUnsigned =
      directive.conversion == 'u' || directive.conversion == 'x' || directive.conversion == 'X';
  if (arg.kind() == FormatArg::Kind::Long && (isSigned || (isUnsigned && !directive.plus))) {
    // Where C differs: zeros beside a precision, and nothing at all for 0 under ".0".
    if (directive.precision && (directive.zero || *directive.precision == 0)) return std::nullopt;
    if (isSigned) return OfPlatform(form, directive.width, directive.precision, arg.AsLong());
    return OfPlatform(form, directive.width, directive.precision, static_cast<unsigned>(arg.AsLong()));
  }
  if (arg.kind() == FormatArg::Kind::Double && directive.conversion == 'f' && std::isfinite(arg.AsDouble())) {
    return OfPlatform(form, directive.width, directive.precision, arg.AsDouble());
  }
  return std::nullopt;
}

std::u16string FormatModel::KnownText(const Directive& directive, std::u16string_view text) {
  if (directive.precision) text = text.substr(0, static_cast<std::size_t>(*directive.precision));
  const auto width = static_cast<std::size_t>(directive.width);
  const std::u16string padding(width > text.size() ? width - text.size() : 0, directive.zero ? u'0' : u' ');
  const std::u16string body(text);
  return directive.left ? body + padding : padding + body;
}

}  // namespace vestrel::fuzz
