// The data folder of a workbench in memory, with a small show of two pages. Nothing can lie in a folder of
// that name on disk, so what the simulated host does with the items' own files finds none.
#pragma once

#include <string_view>

#include "platform/Platform.h"
#include "tests/support/MemoryFiles.h"

namespace vestrel::fuzz {

inline constexpr const char* kDataFolder = "/dev/null/data";

class WorkbenchFiles {
 public:
  WorkbenchFiles() {
    constexpr std::u16string_view kFolder = u"/dev/null/data/Sequences/Show/";
    const auto put = [&](std::u16string_view name, std::string_view bytes) {
      files_.Put(std::u16string(kFolder).append(name), bytes);
    };
    put(u"pageSetting.ini", "[PageManager]\r\nPageList=One|Two\r\n");
    put(u"One/pageSetting.ini",
        "[ButtonGroup0]\r\nusedIndices=1|2\r\nButton1_fields=Top|1|0|1|0|0|False\r\n"
        "Button2_fields=Roof|1|0|0|0|0|False\r\n"
        "[ButtonGroup2]\r\nfaderValue=40\r\nusedIndices=1|2|5\r\nButton1_fields=Intro|1|0|0|0|0|False\r\n"
        "Button2_fields=Chase|2|1|0|0|50|False\r\nButton5_fields=Far|4|0|0|1|0|True\r\n"
        "[ButtonGroup9]\r\nusedIndices=1\r\nButton1_fields=Bump|1|0|1|0|0|False\r\n");
    put(u"Two/pageSetting.ini",
        "[ButtonGroup2]\r\nusedIndices=1\r\nButton1_fields=Other|1|0|0|0|0|False\r\n");
  }

 private:
  test::MemoryFiles files_;
  platform::Override override_{{nullptr, &files_, nullptr, nullptr}};
};

}  // namespace vestrel::fuzz
