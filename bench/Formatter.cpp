// Text with five fields, into a buffer on the stack and as a text of its own. The floor writes the fields one
// by one without reading a format.
#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

#include "bench/support/Bench.h"
#include "util/TextBuffer.h"
#include "util/modSprintf.h"

namespace {

using namespace vestrel;

constexpr std::int64_t kTogether = 1000;
constexpr std::u16string_view kFormat = u"button %s - gi %d, bi %d, ps %d, fader %d";

// What is written, new for each text and out of the compiler's sight.
struct Fields {
  std::u16string wide = u"Intro and more";
  std::string narrow = "Intro and more";
  std::int32_t group = 3;
  std::int32_t button = 47;
  std::int32_t state = 1;
  std::int32_t value = 100;

  void Touch(std::int64_t i) {
    button = 40 + static_cast<std::int32_t>(i & 31);
    value = 80 + static_cast<std::int32_t>(i & 31);
    bench::Keep(this);
  }
};

Fields fields;

void FormatOurs() {
  TextBuffer text;
  const std::array<modSprintf::FormatArg, 5> args{fields.wide, fields.group, fields.button, fields.state,
                                                  fields.value};
  modSprintf::AppendFormatted(text, kFormat, args);
  bench::Keep(text.view().data());
}

void FormatOurText() {
  const std::u16string text =
      modSprintf::Format(kFormat, fields.wide, fields.group, fields.button, fields.state, fields.value);
  bench::Keep(text.data());
}

void FormatSnprintf() {
  char text[512];
  std::snprintf(text, sizeof text, "button %s - gi %d, bi %d, ps %d, fader %d", fields.narrow.c_str(),
                fields.group, fields.button, fields.state, fields.value);
  bench::Keep(&text[0]);
}

void FormatFmt() {
  fmt::basic_memory_buffer<char, 512> text;
  fmt::format_to(std::back_inserter(text), "button {} - gi {}, bi {}, ps {}, fader {}", fields.narrow,
                 fields.group, fields.button, fields.state, fields.value);
  bench::Keep(text.data());
}

void FormatFmtText() {
  const std::string text = fmt::format("button {} - gi {}, bi {}, ps {}, fader {}", fields.narrow,
                                       fields.group, fields.button, fields.state, fields.value);
  bench::Keep(text.data());
}

char16_t* Put(char16_t* to, std::u16string_view text) {
  std::char_traits<char16_t>::copy(to, text.data(), text.size());
  return to + text.size();
}

char16_t* Put(char16_t* to, std::int32_t value) {
  if (value >= 100) *to++ = static_cast<char16_t>(u'0' + value / 100);
  if (value >= 10) *to++ = static_cast<char16_t>(u'0' + value / 10 % 10);
  *to++ = static_cast<char16_t>(u'0' + value % 10);
  return to;
}

// The lengths of its pieces are known, where a pointer to text would be measured each time.
void FormatByHand() {
  using namespace std::string_view_literals;
  char16_t text[512];
  char16_t* to = Put(&text[0], u"button "sv);
  to = Put(to, fields.wide);
  to = Put(Put(to, u" - gi "sv), fields.group);
  to = Put(Put(to, u", bi "sv), fields.button);
  to = Put(Put(to, u", ps "sv), fields.state);
  to = Put(Put(to, u", fader "sv), fields.value);
  bench::Keep(to);
}

template <class Work>
void AddTexts(const char* who, Work work) {
  bench::Add(bench::Case{"formatted text", who, 1, kTogether, [=] {
                           for (std::int64_t i = 0; i < kTogether; ++i) {
                             fields.Touch(i);
                             work();
                           }
                         }});
}

}  // namespace

void AddCases() {
  using bench::Kind;
  AddTexts("Vestrel", FormatOurs);
  AddTexts("Vestrel, a text of its own", FormatOurText);
  AddTexts("snprintf", FormatSnprintf);
  AddTexts("fmt", FormatFmt);
  AddTexts("fmt, a text of its own", FormatFmtText);
  AddTexts("floor (by hand)", FormatByHand);
  const auto claim = [](const char* other, Kind kind, double factor, const char* ours = "Vestrel") {
    bench::Add(bench::Claim{"text with five fields", "formatted text", 1, other, kind, factor, ours});
  };
  claim("snprintf", Kind::TimesFaster, 3);
  claim("fmt", Kind::Shown, 0);
  claim("fmt, a text of its own", Kind::Shown, 0, "Vestrel, a text of its own");
  claim("floor (by hand)", Kind::AtMostTimes, 2.5);
}
