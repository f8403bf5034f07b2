// Timecodes and capture patterns: any pattern against any text, compared with a matcher written plainly.
#include "recording/Timecode.h"

#include <algorithm>
#include <optional>

#include "core/Cast.h"
#include "core/Convert.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "tests/support/Errors.h"
#include "util/clsFormatCapture.h"

namespace vestrel::fuzz {
namespace {

// The runs of digits under the runs of "#", or nothing where the text does not fit.
std::optional<std::vector<std::u16string>> Match(std::u16string_view pattern, std::u16string_view text) {
  std::vector<std::u16string> groups;
  if (pattern.size() != text.size()) return std::nullopt;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != u'#') {
      if (text[i] != pattern[i]) return std::nullopt;
      continue;
    }
    if (text[i] < u'0' || text[i] > u'9') return std::nullopt;
    if (i == 0 || pattern[i - 1] != u'#') groups.emplace_back();
    groups.back() += text[i];
  }
  return groups;
}

std::int64_t NumberOf(std::u16string_view digits) {
  std::int64_t number = 0;
  for (const char16_t digit : digits)
    number = std::min<std::int64_t>(number * 10 + (digit - u'0'), INT32_MAX + 1LL);
  return number;
}

void TryPattern(std::u16string_view pattern, std::u16string_view text) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  std::vector<std::int32_t> targets(1, -1);
  Expect(test::RaisedNumber([&] { capture->ParseItems(targets); }) == Error_ObjectNotSet,
         "items are there before a match");
  const auto groups = Match(pattern, text);
  Expect(capture->DoMatch(pattern, text) == groups.has_value(), "a pattern fits where it should not, or not");
  if (!groups) return;
  targets.assign(groups->size() + 1, -1);
  Expect(!capture->ParseItems(targets), "more targets than groups are filled");
  Expect(targets.front() == -1, "targets are filled all the same");
  targets.resize(groups->size());
  const bool fits = std::all_of(groups->begin(), groups->end(),
                                [](const std::u16string& group) { return NumberOf(group) <= INT32_MAX; });
  const std::int32_t error =
      test::RaisedNumber([&] { Expect(capture->ParseItems(targets), "groups are no numbers"); });
  Expect(error == (fits ? 0 : Error_Overflow), "an overflow is or is not raised");
  if (!fits) return;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    Expect(targets[i] == NumberOf((*groups)[i]), "a group's number");
  }
}

void TryTimecode(std::u16string_view text) {
  std::optional<std::int64_t> wanted;
  for (const std::u16string_view pattern : {u"##:##:##.###", u"##:##.###", u"##.###"}) {
    const auto groups = Match(pattern, text);
    if (!groups) continue;
    std::int64_t value = 0;
    for (std::size_t i = 0; i + 1 < groups->size(); ++i) value = value * 60 + NumberOf((*groups)[i]);
    wanted = value * 1000 + NumberOf(groups->back());
  }
  std::int32_t milliseconds = -5;
  Expect(TimecodeToMilliseconds(text, milliseconds) == wanted.has_value(), "what is a timecode");
  Expect(milliseconds == wanted.value_or(-5), "the position that a timecode says");
}

void TryPosition(std::int32_t milliseconds) {
  const std::u16string text = MillisecondsToTimecode(milliseconds);
  std::int32_t again = -5;
  const bool read = TimecodeToMilliseconds(text, again);
  const bool readable = milliseconds >= 0 && milliseconds < 100 * 3'600'000;
  Expect(read == readable, "which positions read back");
  Expect(!read || again == milliseconds, "a position reads back as another");
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  const std::string_view all = AsText(data, size);
  for (std::string_view piece : Split(all, kPieceEnd)) {
    const std::u16string pattern = Wide(TakePart(piece, kFieldEnd));
    TryTimecode(pattern);
    TryPattern(pattern, Wide(piece));
  }
  Choices choices(all);
  std::uint32_t position = 0;
  for (int i = 0; i < 4; ++i) position = position << 8 | choices.Byte();
  TryPosition(static_cast<std::int32_t>(position));
  return 0;
}
