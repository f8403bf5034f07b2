// A button's line and a group's list of indices: what is read is written so that it reads the same again, and
// plain forms are read as an independent reading has them.
#include <algorithm>
#include <cstdlib>

#include "core/Convert.h"
#include "core/clsObjectList.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/MemoryWorld.h"
#include "model/ButtonLine.h"
#include "model/IndexList.h"
#include "model/clsButton.h"
#include "tests/support/Errors.h"

namespace vestrel::fuzz {
namespace {

constexpr std::size_t kFields = 7;

bool IsPlainNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.size() <= 9 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

void ExpectConversionError(std::int32_t error, std::string_view what) {
  Expect(error == 0 || error == Error_TypeMismatch || error == Error_Overflow, what);
}

bool Same(const ButtonLine& a, const ButtonLine& b) {
  return a.name == b.name && a.buttonType == b.buttonType && a.playState == b.playState &&
         a.bumpMode == b.bumpMode && a.faderMode == b.faderMode && a.faderValue == b.faderValue &&
         a.locked == b.locked;
}

std::u16string Written(const ButtonLine& line) {
  TextBuffer text;
  AppendButtonLine(line, text);
  const NarrowButtonLine narrow(line);
  Expect(narrow.view().empty() || Wide(narrow.view()) == text.view(), "the narrow line is another");
  return std::u16string(text.view());
}

// What is read of the bytes alone is what is read of the text.
void TryNarrowLine(std::string_view bytes, bool taken, const ButtonLine& line) {
  std::u16string name;
  ButtonLine narrow;
  if (!ParseButtonLine(bytes, name, narrow)) return;
  Expect(taken && Same(narrow, line), "a narrow line reads differently");
}

void TryButtonLine(std::string_view bytes) {
  const std::u16string text = Wide(bytes);
  const std::vector<std::string_view> fields = Split(bytes, '|');
  ButtonLine line;
  line.name = u"as it was";
  line.faderValue = 77;
  const ButtonLine before = line;
  bool taken = false;
  const std::int32_t error = test::RaisedNumber([&] { taken = ParseButtonLine(text, line); });
  ExpectConversionError(error, "a button line raises something else");
  TryNarrowLine(bytes, taken, line);
  if (!taken) {
    Expect(error != 0 || fields.size() != kFields, "a line of seven fields is refused");
    Expect(Same(line, before), "a line that was refused has changed");
    return;
  }
  Expect(fields.size() == kFields, "a line of another number of fields is taken");
  ExpectSame(line.name, Wide(fields[0]), "the name");
  if (IsPlainNumber(fields[5])) {
    Expect(line.faderValue == std::atoi(std::string(fields[5]).c_str()), "the fader value");
  }
  const std::u16string written = Written(line);
  ButtonLine again;
  Expect(ParseButtonLine(written, again) && Same(again, line), "a line that was written reads differently");
  ExpectSame(Written(again), written, "a line written again");
}

void TryIndexList(std::string_view bytes) {
  const std::vector<std::string_view> pieces = Split(bytes, '|');
  const bool plain = std::all_of(pieces.begin(), pieces.end(), IsPlainNumber);
  std::vector<std::int32_t> indices;
  const std::int32_t error = test::RaisedNumber([&] { indices = IndexListFromText(Wide(bytes)); });
  ExpectConversionError(error, "an index list raises something else");
  Expect(error == 0 || !plain, "a list of plain numbers is refused");
  if (error != 0) return;
  Expect(indices.size() == (bytes.empty() ? 0 : pieces.size()), "a list of another length");
  const Ref<clsObjectList> buttons = MakeRef<clsObjectList>();
  std::string wanted;
  for (std::size_t i = 0; i < indices.size(); ++i) {
    if (plain) {
      Expect(indices[i] == std::atoi(std::string(pieces[i]).c_str()), "an index");
    }
    const Ref<clsButton> button = MakeRef<clsButton>();
    button->buttonIndex = indices[i];
    buttons->AddItem(button.get());
    wanted += (i == 0 ? "" : "|") + std::to_string(indices[i]);
  }
  const std::u16string written = IndexListText(*buttons);
  ExpectSame(ToUtf8(written), wanted, "the list written");
  Expect(IndexListFromText(written) == indices, "a list that was written reads differently");
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  // Buttons log where they go.
  const MemoryWorld world;
  for (const std::string_view piece : Split(AsText(data, size), kPieceEnd)) {
    TryButtonLine(piece);
    TryIndexList(piece);
  }
  return 0;
}
