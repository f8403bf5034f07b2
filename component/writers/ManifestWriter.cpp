#include "component/writers/ManifestWriter.h"

#include <ostream>

#include "component/ClassDescription.h"
#include "component/Ids.h"

namespace vestrel::component {
namespace {

// The system's marshaler for dual interfaces.
constexpr std::string_view kAutomationMarshaler = "{00020424-0000-0000-C000-000000000046}";

void WriteClass(std::ostream& out, std::string_view name) {
  out << R"(    <comClass clsid="{)" << ToText(IdsOf(name).classId)
      << R"(}" threadingModel="Apartment" tlbid="{)" << ToText(LibraryId()) << R"(}" progid="Vestrel.)"
      << name << "\">\n      <progid>Vestrel." << name << ".1</progid>\n    </comClass>\n";
}

void WriteInterface(std::ostream& out, std::string_view name) {
  out << "  <comInterfaceExternalProxyStub name=\"_" << name << "\" iid=\"{"
      << ToText(IdsOf(name).interfaceId) << "}\" proxyStubClsid32=\"" << kAutomationMarshaler
      << "\" tlbid=\"{" << ToText(LibraryId()) << "}\"/>\n";
}

}  // namespace

void WriteManifest(std::ostream& out, std::string_view architecture, std::string_view version) {
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
         "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
         "  <assemblyIdentity type=\"win32\" name=\"Vestrel\" version=\""
      << version << ".0\" processorArchitecture=\"" << architecture
      << "\"/>\n  <file name=\"Vestrel.dll\">\n";
  for (const ClassDescription& description : AllDescriptions()) WriteClass(out, description.name());
  out << "    <typelib tlbid=\"{" << ToText(LibraryId()) << "}\" version=\"" << kLibraryMajor << "."
      << kLibraryMinor << "\" helpdir=\"\"/>\n  </file>\n";
  for (const ClassDescription& description : AllDescriptions()) WriteInterface(out, description.name());
  out << "</assembly>\n";
}

}  // namespace vestrel::component
