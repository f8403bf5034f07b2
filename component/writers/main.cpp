// The build tool that prints what is derived from the tables:
//   vestrel_tables idl | widl | header | slots    to standard output
//   vestrel_tables manifest ARCHITECTURE VERSION  to standard output
//   vestrel_tables reference FOLDER               one file a page
//   vestrel_tables finish-typelib FILE            in place
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "component/writers/IdlWriter.h"
#include "component/writers/ManifestWriter.h"
#include "component/writers/ReferenceWriter.h"
#include "component/writers/SlotWriter.h"
#include "component/writers/TypeLibraryFinisher.h"

namespace vestrel::component {
namespace {

void Save(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

void FinishFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::ostringstream content;
  content << file.rdbuf();
  std::string library = content.str();
  FinishTypeLibrary(library);
  Save(path, library);
}

bool Run(int count, const char* const* arguments) {
  const std::string what = count > 1 ? arguments[1] : "";
  if (what == "idl" && count == 2) {
    WriteIdl(std::cout, IdlDialect::Published);
  } else if (what == "widl" && count == 2) {
    WriteIdl(std::cout, IdlDialect::Widl);
  } else if (what == "header" && count == 2) {
    WriteIdl(std::cout, IdlDialect::Header);
  } else if (what == "slots" && count == 2) {
    WriteSlots(std::cout);
  } else if (what == "manifest" && count == 4) {
    WriteManifest(std::cout, arguments[2], arguments[3]);
  } else if (what == "reference" && count == 3) {
    const std::string folder = arguments[2];
    WriteReference([&](std::string_view name, const std::string& text) {
      Save(folder + "/" + std::string(name), text);
    });
  } else if (what == "finish-typelib" && count == 3) {
    FinishFile(arguments[2]);
  } else {
    return false;
  }
  return true;
}

}  // namespace
}  // namespace vestrel::component

int main(int count, char** arguments) {
  try {
    if (vestrel::component::Run(count, arguments)) return 0;
    std::cerr << "usage: vestrel_tables idl | widl | header | slots | manifest ARCHITECTURE VERSION | "
                 "reference FOLDER |"
                 " finish-typelib FILE\n";
  } catch (const std::exception& error) {
    std::cerr << "vestrel_tables: " << error.what() << "\n";
  }
  return 1;
}
