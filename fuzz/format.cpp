// The formatter: any format with any arguments gives what a plain model of the rules gives, also behind text
// that is there already; and no argument is scanned.
#include <cmath>
#include <cstdlib>

#include "core/Error.h"
#include "fuzz/Check.h"
#include "fuzz/FormatModel.h"
#include "fuzz/Input.h"
#include "tests/support/Errors.h"
#include "util/modSprintf.h"

namespace vestrel::fuzz {
namespace {

using modSprintf::FormatArg;

// A width or precision of more digits, or one from an argument beyond this, only takes memory.
constexpr std::size_t kMostDigits = 4;
constexpr double kMostPrecision = 10000;

bool HasLongNumber(std::u16string_view format) {
  std::size_t run = 0;
  for (const char16_t unit : format) {
    run = unit >= u'0' && unit <= u'9' ? run + 1 : 0;
    if (run > kMostDigits) return true;
  }
  return false;
}

class Arguments {
 public:
  // One for each piece: its first letter says the kind.
  Arguments(std::span<const std::string_view> pieces, bool arePrecisions) : texts_(pieces.size()) {
    for (std::size_t i = 0; i < pieces.size(); ++i) Add(pieces[i], texts_[i], arePrecisions);
  }
  std::span<const FormatArg> all() const { return args_; }

 private:
  void Add(std::string_view piece, std::u16string& text, bool isPrecision) {
    const char kind = piece.empty() ? ' ' : piece.front();
    const std::string rest(piece.empty() ? piece : piece.substr(1));
    text = Wide(rest);
    const double number = std::strtod(rest.c_str(), nullptr);
    const bool isPlain = rest.find_first_of("&dD") == std::string::npos && std::abs(number) < kMostPrecision;
    if (isPrecision && !isPlain) {
      args_.emplace_back();
    } else if (kind == 't') {
      args_.emplace_back(std::u16string_view(text));
    } else if (kind == 'l') {
      args_.emplace_back(static_cast<std::int32_t>(std::strtol(rest.c_str(), nullptr, 10)));
    } else if (kind == 'd') {
      args_.emplace_back(number);
    } else if (kind == 'b') {
      args_.emplace_back(rest.empty());
    } else {
      args_.emplace_back();
    }
  }

  std::vector<std::u16string> texts_;
  std::vector<FormatArg> args_;
};

void Try(std::u16string_view format, std::span<const FormatArg> args) {
  std::u16string is;
  std::u16string wanted;
  const std::int32_t error = test::RaisedNumber([&] { is = modSprintf::FormatText(format, args); });
  const std::int32_t wantedError = test::RaisedNumber([&] { wanted = FormatModel(format, args).Run(); });
  Expect(error == wantedError, "another error");
  Expect(error == 0 || error == Error_Overflow, "an error that formatting does not have");
  if (error != 0) return;
  ExpectSame(is, wanted, "the text");
  TextBuffer buffer;
  buffer.Append(u"before ");
  modSprintf::AppendFormatted(buffer, format, args);
  ExpectSame(buffer.view(), u"before " + wanted, "the text behind another");
  ExpectSame(modSprintf::Format(u"%s", wanted), wanted, "a text given as an argument");
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  const std::vector<std::string_view> pieces = Split(AsText(data, size), kPieceEnd);
  const std::u16string format = Wide(pieces.front());
  if (HasLongNumber(format)) return 0;
  const Arguments arguments(std::span(pieces).subspan(1), format.find(u'*') != std::u16string::npos);
  Try(format, arguments.all());
  return 0;
}
