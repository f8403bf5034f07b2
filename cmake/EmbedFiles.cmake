# Writes the files of a page into a C++ source file, as what workbench/server/PageFiles.h declares.
#   cmake -DOUTPUT=page.cpp -DFOLDER=dist -P EmbedFiles.cmake
set(type_html "text/html; charset=utf-8")
set(type_js "text/javascript; charset=utf-8")
set(type_css "text/css; charset=utf-8")
set(type_svg "image/svg+xml")
set(type_png "image/png")
set(type_ico "image/x-icon")
set(type_json "application/json")
set(type_woff2 "font/woff2")
set(type_txt "text/plain; charset=utf-8")

file(GLOB_RECURSE names RELATIVE "${FOLDER}" "${FOLDER}/*")
list(SORT names)
set(arrays "")
set(entries "")
set(number 0)
foreach(name IN LISTS names)
  string(REGEX REPLACE ".*\\." "" extension "${name}")
  if(NOT DEFINED type_${extension})
    continue()
  endif()
  file(READ "${FOLDER}/${name}" hex HEX)
  string(LENGTH "${hex}" length)
  math(EXPR size "${length} / 2")
  string(REGEX REPLACE "(................................)" "\\1\n" hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," hex "${hex}")
  string(APPEND arrays "constexpr char kFile${number}[] = {\n${hex}'\\0'};\n")
  if(name STREQUAL "index.html")
    set(path "/")
  else()
    set(path "/${name}")
  endif()
  string(APPEND entries "    {\"${path}\", \"${type_${extension}}\", {kFile${number}, ${size}}},\n")
  math(EXPR number "${number} + 1")
endforeach()

file(WRITE "${OUTPUT}.new" "// Made by cmake/EmbedFiles.cmake.
#include \"workbench/server/PageFiles.h\"

#include <array>

namespace vestrel::workbench {

namespace {

${arrays}
constexpr std::array<PageFile, ${number}> kFiles{{
${entries}}};

}  // namespace

std::span<const PageFile> PageFiles() {
  return kFiles;
}

}  // namespace vestrel::workbench
")
file(COPY_FILE "${OUTPUT}.new" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.new")
