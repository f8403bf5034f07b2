// The table of clsIniFile.
#pragma once

#include "component/Table.h"
#include "storage/clsIniFile.h"

namespace vestrel::component {

template <>
struct TableOf<clsIniFile> {
  using T = clsIniFile;
  static constexpr auto kTable = MakeTable<T>(
      "Typed access to one INI file: a file, a section in force and a prefix for every key.",
      Get<&T::filename>("filename", "The bound file's name."),
      Method<&T::IsSet>("IsSet", "Whether UseFile was called."),
      Method<&T::UseFile>(
          "UseFile", "Binds the file; the section is \"Default Section\" and there is no prefix.", "fname"),
      Method<&T::UseSection>("UseSection", "Puts a section in force and drops the prefix.", "section"),
      Method<&T::UseKeyPrefix>("UseKeyPrefix",
                               "Puts the prefix and an underscore in front of every key from now on.",
                               "keyPrefix"),
      Method<&T::ReadLong>("ReadLong", "The number under the key, or the default.", "key", "default"),
      Method<&T::WriteLong>("WriteLong", "Writes a number.", "key", "value"),
      Method<&T::ReadString>("ReadString", "The text under the key, or the default.", "key", "default"),
      Method<&T::WriteString>("WriteString", "Writes a text.", "key", InOut("value")),
      Method<&T::ReadBool>("ReadBool", "The boolean under the key, or the default.", "key", "default"),
      Method<&T::WriteBool>("WriteBool", "Writes True or False.", "key", "value"),
      Method<&T::DeleteKey>("DeleteKey", "Removes the key from the section.", "key"),
      Method<&T::TestWritable>("TestWritable", "Whether the file can be written; leaves a test key in it."));
};

}  // namespace vestrel::component
