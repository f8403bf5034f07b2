#include "tests/faults/RisingNumbers.h"

#include <string>

#include "core/Convert.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"

namespace vestrel::test {
namespace {

Ref<clsIniFile> SettingsOf(std::u16string_view path) {
  auto file = MakeRef<clsIniFile>();
  file->UseFile(path);
  return file;
}

std::u16string SectionOf(std::int32_t writer) {
  return u"Writer" + LongToText(writer);
}

}  // namespace

int WriteRising(std::u16string_view path, std::int32_t writer, std::int32_t count) {
  const Ref<clsIniFile> file = SettingsOf(path);
  file->UseSection(SectionOf(writer));
  for (std::int32_t i = 1; i <= count; ++i) {
    {
      IniBatch batch(*file, Sync::No);
      file->WriteLong(u"first", i);
      file->WriteLong(u"second", i);
      if (!batch.Commit()) return 1;
    }
    // Its own value, whatever the other one wrote meanwhile.
    if (file->ReadLong(u"first", -1) != i) return 2;
    std::u16string filler(static_cast<std::size_t>(i % 200), u'x');
    file->WriteString(u"filler", filler);
  }
  return 0;
}

int ReadRising(std::u16string_view path, std::int32_t count) {
  const Ref<clsIniFile> file = SettingsOf(path);
  std::int32_t last[3] = {0, 0, 0};
  while (last[1] < count || last[2] < count) {
    const IniBatch oneReading(*file, Sync::No);
    for (std::int32_t writer = 1; writer <= 2; ++writer) {
      file->UseSection(SectionOf(writer));
      const std::int32_t first = file->ReadLong(u"first", 0);
      if (first != file->ReadLong(u"second", 0)) return 3;
      if (first < last[writer]) return 4;
      last[writer] = first;
    }
  }
  return 0;
}

std::int32_t LastRising(std::u16string_view path, std::int32_t writer) {
  const Ref<clsIniFile> file = SettingsOf(path);
  file->UseSection(SectionOf(writer));
  return file->ReadLong(u"first", 0);
}

}  // namespace vestrel::test
