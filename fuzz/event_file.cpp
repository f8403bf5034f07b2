// Event files: any bytes are read or refused with the errors that the format has; the quick reading of a line
// agrees with the reading field by field; what was read is written and reads the same.
#include <cmath>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsDictionary.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/MemoryWorld.h"
#include "recording/EventLine.h"
#include "recording/vxEventList.h"
#include "storage/TextFile.h"
#include "tests/support/Errors.h"

namespace vestrel::fuzz {
namespace {

constexpr std::u16string_view kFile = u"C:\\data\\take.txt";
constexpr std::u16string_view kLineFile = u"C:\\data\\line.txt";
constexpr std::int16_t kNumber = 1;

// Buttons of the names that a file is most likely to have, and of one that the narrow page spells in two
// bytes.
Ref<clsDictionary> ButtonMap() {
  Ref<clsDictionary> map = MakeRef<clsDictionary>();
  for (const std::u16string_view name : {u"", u"a", u"Intro", u"Caf\u00E9"}) {
    const Ref<clsButton> button = MakeRef<clsButton>();
    button->name = name;
    map->Add(name, button.get());
  }
  return map;
}

const vxEvent& At(const vxEventList& list, std::int32_t index) {
  return Cast<vxEvent>(list.events()->GetItem(index).get());
}

std::int32_t Read(vxEventList& list, clsDictionary& map) {
  TextFile::Open(kNumber, kFile, TextFile::Mode::Input);
  const std::int32_t error = test::RaisedNumber([&] { list.ReadFromFile(kNumber, &map); });
  TextFile::Close(kNumber);
  return error;
}

void ExpectSameEvents(const vxEventList& is, const vxEventList& wanted) {
  Expect(is.events()->Size() == wanted.events()->Size(), "another number of events");
  for (std::int32_t i = 0; i < is.events()->Size(); ++i) {
    const vxEvent& a = At(is, i);
    const vxEvent& b = At(wanted, i);
    Expect(a.time() == b.time() && a.button == b.button && a.eventType == b.eventType &&
               a.mouseButton == b.mouseButton && a.shift == b.shift && a.x == b.x && a.y == b.y,
           "an event");
  }
}

bool IsWritable(const vxEventList& list) {
  for (std::int32_t i = 0; i < list.events()->Size(); ++i) {
    if (!std::isfinite(At(list, i).x) || !std::isfinite(At(list, i).y)) return false;
  }
  return true;
}

void TryFile(MemoryWorld& world, std::string_view bytes) {
  world.files.Put(kFile, bytes);
  const Ref<clsDictionary> map = ButtonMap();
  const Ref<vxEventList> read = MakeRef<vxEventList>();
  read->Init(nullptr);
  const std::int32_t error = Read(*read, *map);
  Expect(error == 0 || error == Error_InputPastEnd || error == Error_TypeMismatch || error == Error_Overflow,
         "reading raises something else");
  if (!IsWritable(*read)) return;
  TextFile::Open(kNumber, kFile, TextFile::Mode::Output);
  read->WriteToFile(kNumber);
  TextFile::Close(kNumber);
  const std::string written = world.files.Get(kFile);
  const Ref<vxEventList> again = MakeRef<vxEventList>();
  again->Init(nullptr);
  Expect(Read(*again, *map) == 0, "what was written does not read");
  ExpectSameEvents(*again, *read);
  TextFile::Open(kNumber, kFile, TextFile::Mode::Output);
  again->WriteToFile(kNumber);
  TextFile::Close(kNumber);
  ExpectSame(world.files.Get(kFile), written, "the file written again");
}

void TryLine(MemoryWorld& world, std::string_view bytes) {
  EventLine line;
  const std::size_t size = ReadEventLine(bytes, line);
  if (size == 0) return;
  world.files.Put(kLineFile, bytes.substr(0, size));
  TextFile::Open(kNumber, kLineFile, TextFile::Mode::Input);
  TextInput& in = TextFile::Input(kNumber);
  Expect(in.ReadLong() == line.time, "the time");
  ExpectSame(in.ReadText(), Wide(line.name), "the name");
  Expect(in.ReadLong() == line.eventType, "the type");
  Expect(in.ReadShort() == line.mouseButton, "the mouse button");
  Expect(in.ReadShort() == line.shift, "the shift keys");
  const float x = in.ReadSingle();
  const float y = in.ReadSingle();
  Expect(x == line.x && y == line.y, "the position");
  Expect(test::RaisedNumber([&] { in.ReadLong(); }) == Error_InputPastEnd, "the line goes on");
  TextFile::Close(kNumber);
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  MemoryWorld world;
  const std::string_view bytes = AsText(data, size);
  TryFile(world, bytes);
  TryLine(world, bytes);
  Expect(world.files.OpenFiles() == 0, "a file stays open");
  return 0;
}
