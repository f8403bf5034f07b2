// Multi files: any bytes are loaded or refused with the errors that the format has; what was loaded is saved
// and loads the same, twice.
#include <cmath>

#include "core/Cast.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/MemoryWorld.h"
#include "storage/TextFile.h"
#include "storage/clsMultiFile.h"
#include "tests/support/Errors.h"

namespace vestrel::fuzz {
namespace {

constexpr std::u16string_view kFile = u"C:\\data\\Sequences\\Show\\Page\\Multi.MUL";

Ref<clsMultiFile> Multi() {
  Ref<clsMultiFile> multi = MakeRef<clsMultiFile>();
  multi->Init(u"C:\\data", u"Show", u"Page", u"Multi");
  return multi;
}

clsSequence& At(const clsMultiFile& multi, std::int32_t index) {
  return Cast<clsSequence>(multi.SequenceList()->GetItem(index).get());
}

bool IsWritable(const clsSequence& sequence) {
  for (const std::u16string* text :
       {&sequence.theName, &sequence.myMulti, &sequence.myButtonGroup, &sequence.tag}) {
    if (text->find(u'"') != std::u16string::npos) return false;
  }
  for (const float number : {sequence.theBeat, sequence.theTime, sequence.currentX, sequence.currentY}) {
    if (!std::isfinite(number)) return false;
  }
  return true;
}

void ExpectSameSequence(const clsSequence& is, const clsSequence& wanted) {
  ExpectSame(is.theName, wanted.theName, "theName");
  ExpectSame(is.myMulti, wanted.myMulti, "myMulti");
  ExpectSame(is.myButtonGroup, wanted.myButtonGroup, "myButtonGroup");
  ExpectSame(is.tag, wanted.tag, "tag");
  ExpectSame(is.myPage, wanted.myPage, "myPage");
  Expect(is.myPlayback == wanted.myPlayback && is.mySequenceType == wanted.mySequenceType &&
             is.seqType == wanted.seqType,
         "a whole number");
  Expect(is.releaseActive == wanted.releaseActive && is.isRunning == wanted.isRunning &&
             is.timeBool == wanted.timeBool && is.beatBool == wanted.beatBool,
         "a boolean");
  Expect(is.theBeat == wanted.theBeat && is.theTime == wanted.theTime && is.currentX == wanted.currentX &&
             is.currentY == wanted.currentY,
         "a fraction");
}

void Try(MemoryWorld& world, std::string_view bytes) {
  world.files.Put(kFile, bytes);
  const Ref<clsMultiFile> loaded = Multi();
  const std::int32_t error = test::RaisedNumber([&] { loaded->Load(); });
  Expect(error == 0 || error == Error_InputPastEnd || error == Error_TypeMismatch || error == Error_Overflow,
         "loading raises something else");
  Expect(world.files.OpenFiles() == 0, "a file stays open");
  Expect(TextFile::FreeNumber() == 1, "a number stays taken");
  ExpectSame(world.files.Get(kFile), bytes, "loading changes the file");
  // Records before a faulty one are in the list, and save as well.
  const std::int32_t count = loaded->SequenceList()->Size();
  for (std::int32_t i = 0; i < count; ++i) {
    if (!IsWritable(At(*loaded, i))) return;
  }
  loaded->Save();
  const std::string saved = world.files.Get(kFile);
  const Ref<clsMultiFile> again = Multi();
  again->Load();
  Expect(again->SequenceList()->Size() == count, "another number of sequences");
  for (std::int32_t i = 0; i < count; ++i) ExpectSameSequence(At(*again, i), At(*loaded, i));
  again->Save();
  ExpectSame(world.files.Get(kFile), saved, "the file saved again");
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  MemoryWorld world;
  Try(world, AsText(data, size));
  return 0;
}
